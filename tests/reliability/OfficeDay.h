#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "module/Module.h"
#include "support/ScriptedPlatform.h"

namespace reliability {

/// What lies outside the module and can fail.
enum class Kind {
  kNone,
  kDatabase,
  kFiles,
  kWorkbook,
  kComponents,
  kReports,
  kLauncher,
  kFileDialog,
  kKeyboard
};

/// The at-th call of a kind fails: before anything was done; after it was done, so that only its
/// answer is lost (the database alone); or with it all that follow while the action lasts.
struct Fault {
  enum class When { kBefore, kAfter, kFromThenOn };
  Kind kind = Kind::kNone;
  When when = When::kBefore;
  std::int32_t number = 51;
  int at = 0;
  static constexpr const char* kWords = "the fault of this run";
};

/// A planner's day through every form, over the embedded database. The user asserts nothing: what
/// is disabled is left alone, questions are answered with yes, errors are read and put away. After
/// every action the editor is held to what must be so whatever has failed.
class OfficeDay : private platform::ConnectionFactory {
 public:
  /// One action of the user at the editor, with all that it did on the dialogs.
  struct Action {
    std::string name;
    std::vector<std::string> sent;  // statements; procedures with their numbers
    std::vector<std::string> told;  // messages, and errors that travelled out of an event
  };

  /// The user holds every permission but the refused one.
  explicit OfficeDay(const Fault& fault = {}, std::int32_t refused = 0);
  ~OfficeDay() override;
  OfficeDay(const OfficeDay&) = delete;
  OfficeDay& operator=(const OfficeDay&) = delete;

  void Play();

  std::vector<Action> actions;
  std::map<Kind, int> calls;
  std::vector<std::string> failed;
  support::ScriptedPlatform outside;
  /// In the module's connection string.
  static constexpr const char* kPassword = "Geheim-7301";

  /// All rows of all tables, and what they are when the statements that the database has done are
  /// done by themselves on another copy of the office.
  std::string Stored() const;
  std::string Replayed() const;

 private:
  class Line;
  std::unique_ptr<platform::Connection> Create(const std::string& connectionString) override;
  bool Fails(Kind kind, std::string_view call);
  support::BeforeCall Watch(Kind kind);
  void SetUpOutside();
  void Do(const std::string& name, const std::function<void()>& act);
  void Press(controls::Button& button) {
    Do(button.Name(), [&] { button.Click(); });
  }
  void Type(controls::TextBox& box, const std::string& text);
  void Pick(controls::Selector& selector);
  void ChangeHeader();
  void Use(controls::Form& form);
  void Plan(batch::FormAddBatch& form);
  void Search(search::FormSearch& form);
  void Paint(controls::Container& on);
  void Look(const std::string& name);
  void TheNextActionWorks();
  editor::FormMain& Editor() { return module_->Editor(); }

  Fault fault_;
  std::int32_t refused_;
  std::filesystem::path folder_;
  std::vector<std::function<void(platform::Connection&)>> done_;
  int depth_ = 0;
  bool mended_ = false;
  std::unique_ptr<module::Module> module_;
};

}  // namespace reliability
