#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace controls {

class Container;
class ControlVisitor;
class Form;

/// A length on a form: 1440 to the inch, 15 to the pixel at 96 dpi. Fractions are kept.
using Twips = double;

/// 0x00BBGGRR, as the forms write colours: 65535 is pure yellow.
using Colour = std::uint32_t;

consteval Colour Rgb(unsigned red, unsigned green, unsigned blue) {
  return red | green << 8U | blue << 16U;
}

/// The suite's warm, light look.
namespace palette {
inline constexpr Colour kFormGround = Rgb(240, 231, 219);
inline constexpr Colour kButton = Rgb(231, 216, 205);
inline constexpr Colour kFrame = Rgb(249, 244, 240);
inline constexpr Colour kGridRow = Rgb(254, 247, 235);
inline constexpr Colour kGridBand = Rgb(253, 236, 206);
inline constexpr Colour kMark = 65535;
inline constexpr Colour kHoliday = Rgb(160, 32, 24);
}  // namespace palette

/// What a change notification says has changed, so that a view repaints only that.
enum class Aspect {
  kText,  // text, caption, checked state, chosen item or id
  kEnabled,
  kVisible,
  kBounds,     // position or size
  kItems,      // list items
  kCells,      // texts or colours of the rows firstRow to lastRow
  kRows,       // number or order of rows
  kColumns,    // number, width or alignment of columns, fixed rows and columns
  kSelection,  // current cell or block
};

struct Change {
  Aspect aspect;
  int firstRow = 0;
  int lastRow = -1;
};

/// Keeps a listener registered; the listener is dropped when this is destroyed. Either side may go
/// first.
class [[nodiscard]] Subscription {
 public:
  Subscription() = default;
  explicit Subscription(std::function<void()> release) : release_(std::move(release)) {}
  Subscription(Subscription&& other) noexcept : release_(std::exchange(other.release_, nullptr)) {}
  Subscription& operator=(Subscription&& other) noexcept {
    if (this != &other) {
      Reset();
      release_ = std::exchange(other.release_, nullptr);
    }
    return *this;
  }
  Subscription(const Subscription&) = delete;
  Subscription& operator=(const Subscription&) = delete;
  ~Subscription() { Reset(); }

  void Reset() {
    if (auto release = std::exchange(release_, nullptr)) release();
  }

 private:
  std::function<void()> release_;
};

/// The listeners of one model.
class Observers {
 public:
  using Listener = std::function<void(const Change&)>;
  Subscription Subscribe(Listener listener);
  /// A listener may subscribe or unsubscribe (itself too) while it is called, and may end the
  /// model. Who subscribes meanwhile hears of the next change; who is unsubscribed hears no more.
  void Notify(const Change& change) const;

 private:
  struct Entry {
    Listener listener;
    bool subscribed = true;
  };
  using Entries = std::vector<std::shared_ptr<Entry>>;
  std::shared_ptr<Entries> entries_ = std::make_shared<Entries>();
};

/// The model of one control on a form. Setters notify only when something changed.
class Control {
 public:
  /// Joins `parent`, which must outlive it; leaves it when destroyed.
  Control(Container& parent, std::string name);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  virtual void Accept(ControlVisitor& visitor) = 0;

  const std::string& Name() const { return name_; }
  Container& Parent() const { return parent_; }
  /// The form on which it stands, through however many frames.
  Form& ParentForm() const;

  bool Enabled() const { return enabled_; }
  virtual void SetEnabled(bool enabled);
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);

  /// Whether it and all frames around it are enabled and visible.
  bool Reachable() const;

  /// Relative to the container's top left corner. A negative width or height throws RuntimeError
  /// 380 "Invalid property value" and changes nothing.
  Twips Left() const { return left_; }
  Twips Top() const { return top_; }
  Twips Width() const { return width_; }
  Twips Height() const { return height_; }
  void SetLeft(Twips left);
  void SetTop(Twips top);
  void SetWidth(Twips width);
  virtual void SetHeight(Twips height);
  /// All four at once: one notification. A form places its controls with it, those too that do not
  /// let their height be set alone.
  void Move(Twips left, Twips top, Twips width, Twips height);

  /// Order in which the tab key visits the controls of a form; -1 for those it passes over.
  int TabIndex() const { return tabIndex_; }
  void SetTabIndex(int index) { tabIndex_ = index; }
  /// A text that the form keeps with the control; never shown.
  const std::string& Tag() const { return tag_; }
  void SetTag(std::string tag) { tag_ = std::move(tag); }
  /// A short explanation that a view shows on hovering; may be empty.
  const std::string& ToolTip() const { return toolTip_; }
  void SetToolTip(std::string toolTip) { toolTip_ = std::move(toolTip); }

  /// What who hears the form read is told of it, where no caption and no label says it; empty for
  /// nothing.
  const std::string& AccessibleName() const { return accessibleName_; }
  void SetAccessibleName(std::string name) { accessibleName_ = std::move(name); }
  /// The letter that, with Alt, clicks a button or check box or goes to the field that a label
  /// names; empty for none. A Persian letter stands for the Latin one on its key too.
  const std::string& AccessKey() const { return accessKey_; }
  void SetAccessKey(std::string letter) { accessKey_ = std::move(letter); }
  /// The key, a Latin capital letter or "+" or "-", that with Ctrl clicks a button of the form;
  /// empty for none.
  const std::string& Shortcut() const { return shortcut_; }
  void SetShortcut(std::string key) { shortcut_ = std::move(key); }

  /// Moves the keyboard focus here. Throws RuntimeError 5 when the control or a frame around it is
  /// disabled or hidden, or its form is not shown.
  void SetFocus();

  Subscription Subscribe(Observers::Listener listener) {
    return observers_.Subscribe(std::move(listener));
  }

 protected:
  void Notify(Aspect aspect) const { observers_.Notify({aspect}); }
  void Notify(const Change& change) const { observers_.Notify(change); }
  /// Called when width or height changed, so that a composite control can lay out its parts.
  virtual void Resized() {}

 private:
  Container& parent_;
  std::string name_;
  std::string tag_;
  std::string toolTip_;
  std::string accessKey_;
  std::string shortcut_;
  std::string accessibleName_;
  Observers observers_;
  Twips left_ = 0;
  Twips top_ = 0;
  Twips width_ = 0;
  Twips height_ = 0;
  int tabIndex_ = -1;
  bool enabled_ = true;
  bool visible_ = true;
};

/// Whatever holds controls: a form or a frame. It does not own them; they are members of the form.
class Container {
 public:
  virtual ~Container() = default;
  virtual Form& OwnForm() = 0;
  /// In the order in which they were declared, which is also the painting order.
  const std::vector<Control*>& Controls() const { return controls_; }
  /// Searches frames too; null when there is none.
  Control* FindControl(std::string_view name) const;

 private:
  friend class Control;
  std::vector<Control*> controls_;
};

}  // namespace controls
