// What a screen reader hears of the batch form through MSAA: the same as on every other desktop.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <map>

#include "Container.h"
#include "LoadedLibrary.h"
#include "adapters/windows/Found.h"
#include "adapters/windows/Loop.h"

namespace {

using adapters::windows::Once;
using adapters::windows::PumpUntil;
using test::ClientOf;
using test::FindForm;
using test::Named;
using test::Node;
using test::Number;

constexpr LONG kRowsTold = 3;  // of a table

std::string WordFor(LONG role) {
  static const std::map<LONG, std::string> words{
      {ROLE_SYSTEM_DIALOG, "window"},      {ROLE_SYSTEM_GROUPING, "group"},
      {ROLE_SYSTEM_STATICTEXT, "label"},   {ROLE_SYSTEM_TEXT, "field"},
      {ROLE_SYSTEM_PUSHBUTTON, "button"},  {ROLE_SYSTEM_CHECKBUTTON, "check box"},
      {ROLE_SYSTEM_COMBOBOX, "combo box"}, {ROLE_SYSTEM_TABLE, "table"}};
  const auto found = words.find(role);
  return found == words.end() ? "role " + std::to_string(role) : found->second;
}

LONG ColumnsOf(const Node& table) {
  LONG columns = 0;
  while (columns < table.Count() && table.Part(columns + 1).Role() == ROLE_SYSTEM_COLUMNHEADER) {
    ++columns;
  }
  return columns;
}

std::string Joined(const std::string& before, const std::string& text) {
  return before.empty() ? text : before + ", " + text;
}

std::string InBrackets(const std::string& states) {
  return states.empty() ? "" : " [" + states + "]";
}

void TellTable(const Node& table, const std::string& indent, std::vector<std::string>& lines) {
  const LONG columns = ColumnsOf(table);
  const LONG rows = table.Count() / columns - 1;
  for (LONG row = 0; row <= std::min(rows, kRowsTold); ++row) {
    std::string line = indent + (row == 0 ? "  headings: " : "  row " + std::to_string(row) + ": ");
    std::string states;
    for (LONG column = 1; column <= columns; ++column) {
      const Node cell = table.Part(row * columns + column);
      if (column > 1) line += " | ";
      line += row == 0 ? cell.Name() : cell.Value();
      if (column == 1 && cell.Is(STATE_SYSTEM_SELECTED)) states = "selected";
      if (cell.Is(STATE_SYSTEM_FOCUSED)) states = Joined(states, "focused");
    }
    lines.push_back(line + InBrackets(states));
  }
}

void Tell(const Node& node, const std::string& indent, std::vector<std::string>& lines) {
  const LONG role = node.Role();
  std::string line = indent + WordFor(role) + " «" + node.Name() + "»";
  if (role == ROLE_SYSTEM_TEXT || role == ROLE_SYSTEM_COMBOBOX) {
    line += " = «" + node.Value() + "»";
  }
  if (role == ROLE_SYSTEM_TABLE) {
    const LONG columns = ColumnsOf(node);
    line += " " + std::to_string(node.Count() / columns - 1) + " x " + std::to_string(columns);
  }
  std::string states;
  for (const auto& [bit, word] : {std::pair(STATE_SYSTEM_FOCUSED, "focused"),
                                  {STATE_SYSTEM_CHECKED, "checked"},
                                  {STATE_SYSTEM_EXPANDED, "expanded"},
                                  {STATE_SYSTEM_UNAVAILABLE, "disabled"}}) {
    if (node.Is(bit)) states = Joined(states, word);
  }
  line += InBrackets(states);
  const std::string description = node.Told(&IAccessible::get_accDescription);
  if (!description.empty()) line += " (" + description + ")";
  const std::string keys = node.Told(&IAccessible::get_accKeyboardShortcut);
  if (role == ROLE_SYSTEM_PUSHBUTTON && !keys.empty()) line += " " + keys;
  lines.push_back(line);
  if (role == ROLE_SYSTEM_TABLE) return TellTable(node, indent, lines);
  for (const Node& child : ChildrenOf(node)) Tell(child, indent + "  ", lines);
}

void EnterDate(const Node& form, const char* name, const wchar_t* date) {
  const Node field = Named(form, ROLE_SYSTEM_COMBOBOX, name);
  ASSERT_TRUE(field.object) << name;
  field.TakeFocus();
  BSTR text = SysAllocString(date);
  EXPECT_EQ(field.object->put_accValue(Number(CHILDID_SELF), text), S_OK);
  SysFreeString(text);
  Named(form, ROLE_SYSTEM_COMBOBOX, "بازارياب").TakeFocus();
}

using ScreenReader = test::OfficeTest;

TEST_F(ScreenReader, BatchForm_OpenedAndFilledThroughMsaa_TellsWhatEveryDesktopTells) {
  test::Container container;
  auto control = NewFor(1, container);
  Late(control).Call("View", {std::int32_t{13}});
  const Node editor{ClientOf(FindForm("برنامه بازارياب"))};
  const Node visits = Named(editor, ROLE_SYSTEM_TABLE, "ويزيت ها");
  ASSERT_TRUE(visits.object);
  visits.Part(ColumnsOf(visits) + 1).Press();
  // The batch form is modal.
  std::vector<std::string> heard;
  const auto batchForm = [] { return FindForm("افزودن ويزيت به برنامه بازارياب"); };
  const auto isUp = [&] { return batchForm() != nullptr; };
  Once(isUp, [&] {
    const Node form{ClientOf(batchForm())};
    EnterDate(form, "از تاريخ", L"1404/09/01");
    EnterDate(form, "تا تاريخ", L"1404/09/05");
    Named(form, ROLE_SYSTEM_TABLE, "مناطق").Part(2).Press();
    Once(isUp, [&] {
      const Node filled{ClientOf(batchForm())};
      Tell(filled, "", heard);
      Named(filled, ROLE_SYSTEM_PUSHBUTTON, "انصراف").Press();
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
