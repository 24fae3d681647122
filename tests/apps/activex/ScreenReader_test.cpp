// What a screen reader hears of the batch form through MSAA: the same as on every other desktop.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <map>

#include "Container.h"
#include "LoadedLibrary.h"
#include "Named.h"
#include "adapters/windows/Loop.h"

namespace {

using adapters::windows::Once;
using adapters::windows::PumpUntil;
using screens::Role;
using test::ClientOf;
using test::FindForm;
using test::Number;
using test::WindowNamed;

constexpr int kRowsTold = 3;  // of a table

const char* WordFor(Role role) {
  static const std::map<Role, const char*> words{
      {Role::kNone, "window"},        {Role::kGroup, "group"},   {Role::kLabel, "label"},
      {Role::kField, "field"},        {Role::kButton, "button"}, {Role::kCheckBox, "check box"},
      {Role::kComboBox, "combo box"}, {Role::kTable, "table"}};
  return words.contains(role) ? words.at(role) : "another role";
}

std::string StatesOf(std::initializer_list<std::pair<bool, const char*>> states) {
  std::string text;
  for (const auto& [is, word] : states) {
    if (is) text += (text.empty() ? " [" : ", ") + std::string(word);
  }
  return text.empty() ? text : text + "]";
}

int ColumnsOf(const tour::Thing& table) {
  int columns = 0;
  while (table.Cell(0, columns) != nullptr) ++columns;
  return columns;
}

void TellRow(const tour::Thing& table, int row, const std::string& indent,
             std::vector<std::string>& lines) {
  std::string line = indent + (row == 0 ? "headings: " : "row " + std::to_string(row) + ": ");
  bool selected = false;
  bool focused = false;
  for (int column = 0; column < ColumnsOf(table); ++column) {
    const screens::Accessible cell = table.Cell(row, column)->Tell();
    line += (column > 0 ? " | " : "") + (row == 0 ? cell.name : cell.value);
    selected |= column == 0 && cell.selected;
    focused |= cell.focused;
  }
  lines.push_back(line + StatesOf({{selected, "selected"}, {focused, "focused"}}));
}

void Tell(const tour::Thing& thing, const std::string& indent, std::vector<std::string>& lines) {
  const screens::Accessible told = thing.Tell();
  const bool table = told.role == Role::kTable;
  std::string line = indent + WordFor(told.role) + " «" + told.name + "»";
  if (told.role == Role::kField || told.role == Role::kComboBox) line += " = «" + told.value + "»";
  if (table) line += " " + std::to_string(thing.Rows()) + " x " + std::to_string(ColumnsOf(thing));
  line += StatesOf({{told.focused, "focused"},
                    {told.checked, "checked"},
                    {told.expanded, "expanded"},
                    {!told.enabled, "disabled"}});
  if (!told.description.empty()) line += " (" + told.description + ")";
  if (told.role == Role::kButton && !told.keys.empty()) line += " " + told.keys;
  lines.push_back(line);
  for (int row = 0; table && row <= std::min(thing.Rows(), kRowsTold); ++row) {
    TellRow(thing, row, indent + "  ", lines);
  }
  for (const auto& child : thing.Children()) Tell(*child, indent + "  ", lines);
}

void Press(HWND window, LONG part = CHILDID_SELF) {
  EXPECT_EQ(ClientOf(window)->accDoDefaultAction(Number(part)), S_OK);
}

void TakeFocus(HWND window) {
  EXPECT_EQ(ClientOf(window)->accSelect(SELFLAG_TAKEFOCUS, Number(CHILDID_SELF)), S_OK);
}

void EnterDate(HWND form, const char* name, const char* date) {
  const HWND field = WindowNamed(form, Role::kComboBox, name);
  TakeFocus(field);
  const adapters::windows::Bstr text(date);
  EXPECT_EQ(ClientOf(field)->put_accValue(Number(CHILDID_SELF), text.Get()), S_OK);
  TakeFocus(WindowNamed(form, Role::kComboBox, "بازارياب"));
}

using ScreenReader = test::OfficeTest;

TEST_F(ScreenReader, BatchForm_OpenedAndFilledThroughMsaa_TellsWhatEveryDesktopTells) {
  test::Container container;
  auto control = NewFor(1, container);
  Late(control).Call("View", {std::int32_t{13}});
  const HWND visits = WindowNamed(FindForm("برنامه بازارياب"), Role::kTable, "ويزيت ها");
  Press(visits, ColumnsOf(*activexhost::MakeThing(visits)) + 1);
  // The batch form is modal.
  std::vector<std::string> heard;
  const auto batchForm = [] { return FindForm("افزودن ويزيت به برنامه بازارياب"); };
  const auto isUp = [&] { return batchForm() != nullptr; };
  Once(isUp, [&] {
    EnterDate(batchForm(), "از تاريخ", "1404/09/01");
    EnterDate(batchForm(), "تا تاريخ", "1404/09/05");
    Press(WindowNamed(batchForm(), Role::kTable, "مناطق"), 2);
    Once(isUp, [&] {
      adapters::windows::Variant role;
      EXPECT_EQ(ClientOf(batchForm())->get_accRole(Number(CHILDID_SELF), role.Out()), S_OK);
      EXPECT_EQ(role.Number(), ROLE_SYSTEM_DIALOG);
      Tell(*activexhost::MakeThing(batchForm()), "", heard);
      Press(WindowNamed(batchForm(), Role::kButton, "انصراف"));
    });
  });
  PumpUntil([&] { return !heard.empty() && !isUp(); });

  std::vector<std::string> wanted;
  std::ifstream file(PROMOTER_BATCH_FORM);
  for (std::string line; std::getline(file, line);) wanted.push_back(line);
  EXPECT_FALSE(wanted.empty());
  EXPECT_THAT(heard, testing::ElementsAreArray(wanted));
  test::As<IOleObject>(control)->Close(OLECLOSE_NOSAVE);
  test::As<IOleObject>(control)->SetClientSite(nullptr);
}

}  // namespace
