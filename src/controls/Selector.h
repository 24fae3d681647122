#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/Control.h"
#include "platform/RowSet.h"

namespace controls {

/// Where a selector reads its views: a statement over a connection string. It is asked apart from
/// the module's own recordsets, since the selector is a component of the suite.
class LookupSource {
 public:
  virtual ~LookupSource() = default;
  /// Throws RuntimeError like Connection::Execute.
  virtual platform::RowSet Lookup(const std::string& connectionString,
                                  const std::string& statement) = 0;
};

/// The suite's lookup selector: shows the name of the selected id and lets the user pick another
/// from the rows of its major view. A view has columns ID and Name; a major view may have Code and
/// more, which the list shows too. The minor view gives the name of one id.
class Selector : public Control {
 public:
  Selector(Container& parent, std::string name, LookupSource& source);
  void Accept(ControlVisitor& visitor) override;

  void SetConnectionString(std::string connectionString);
  void SetViews(std::string major, std::string minor);
  /// SQL conditions on the major view's rows, joined by "and" (a text that is both, once), so that
  /// an "or" needs its own brackets; empty for none. An id that is selected stays selected, whether
  /// it meets them or not.
  void SetCondition(std::string condition);
  void SetStandingCondition(std::string condition);

  /// -1 when nothing is selected.
  std::int32_t SelectedID() const { return selectedId_; }
  bool HasSelection() const { return selectedId_ > 0; }
  /// An id of 0 or less selects nothing. The id need not be in the views. Reads no database.
  void Select(std::int32_t id);
  void Clear() { Select(-1); }

  /// Raised when another id (or none) became selected, by code or by the user; and once more when
  /// the same is selected again after it threw, so that what was lost is fetched by choosing again.
  std::function<void()> onChange;

  // For the screen.

  /// Name of the selected id, read from the minor view when first asked for; "(17)" when the view
  /// does not know id 17, empty when nothing is selected. Throws what the source throws.
  const std::string& DisplayText();

  struct Row {
    std::int32_t id = -1;
    std::string name;
    std::string detail;  // code, then the other columns but ids, shown beside the name
  };
  /// Reads the rows of the major view that meet both conditions, in the order of their names.
  /// Throws what the source throws, and RuntimeError 3265 for a view without ID or Name; the list
  /// is then empty.
  void LoadList();
  /// Rows of the loaded list that hold every word of `typed` in name or code (yeh/kaf, digits and
  /// letter case folded on both sides), as indexes into List(); those that begin with it come
  /// first.
  std::vector<std::size_t> Narrow(std::string_view typed) const;
  const std::vector<Row>& List() const { return list_; }
  /// The user picked a row of List(); another throws RuntimeError 381. Does nothing while disabled.
  void Choose(std::size_t row);
  /// The user emptied the box. Does nothing while disabled.
  void ChooseNone();

 private:
  /// `displayText` is the id's name where it is known already.
  void AssignId(std::int32_t id, std::optional<std::string> displayText);
  void ForgetTexts();
  LookupSource& source_;
  std::string connectionString_;
  std::string majorView_;
  std::string minorView_;
  std::string condition_;
  std::string standingCondition_;
  std::vector<Row> list_;
  // Beside list_, what a person's words are looked up in: name and detail folded, a line each.
  std::vector<std::string> folded_;
  std::optional<std::string> displayText_ = std::string();  // absent until it is asked for
  std::int32_t selectedId_ = -1;
  bool changeFailed_ = false;
};

}  // namespace controls
