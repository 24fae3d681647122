// What a screen reader hears of the batch form through MSAA: the same as on every other desktop.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <cstdio>
#include <fstream>
#include <functional>

#include "Container.h"
#include "Found.h"
#include "LoadedLibrary.h"
#include "demo/SampleOffice.h"

namespace {

using test::ClientOf;
using test::FindForm;
using test::Named;
using test::Node;
using test::Number;

constexpr LONG kRowsTold = 3;  // of a table

std::string WordFor(LONG role) {
  switch (role) {
    case ROLE_SYSTEM_DIALOG:
      return "window";
    case ROLE_SYSTEM_GROUPING:
      return "group";
    case ROLE_SYSTEM_STATICTEXT:
      return "label";
    case ROLE_SYSTEM_TEXT:
      return "field";
    case ROLE_SYSTEM_PUSHBUTTON:
      return "button";
    case ROLE_SYSTEM_CHECKBUTTON:
      return "check box";
    case ROLE_SYSTEM_COMBOBOX:
      return "combo box";
    case ROLE_SYSTEM_TABLE:
      return "table";
    default:
      return "role " + std::to_string(role);
  }
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

/// The batch form is modal: what is done on it is done by a timer, which is given nothing else.
std::vector<std::string> heard;
int step = 0;

void CALLBACK Listen(HWND, UINT, UINT_PTR timer, DWORD) {
  const HWND window = FindForm("افزودن ويزيت به برنامه بازارياب");
  if (window == nullptr) return;
  const Node form{ClientOf(window)};
  switch (step++) {
    case 0:
      EnterDate(form, "از تاريخ", L"1404/09/01");
      EnterDate(form, "تا تاريخ", L"1404/09/05");
      Named(form, ROLE_SYSTEM_TABLE, "مناطق").Part(2).Press();
      break;
    case 1:
      Tell(form, "", heard);
      Named(form, ROLE_SYSTEM_PUSHBUTTON, "انصراف").Press();
      break;
    default:
      break;
  }
  if (step == 2) KillTimer(nullptr, timer);
}

class ScreenReader : public test::LoadedLibrary {
 protected:
  ScreenReader() {
    std::remove(kOffice);
    demo::CreateSampleOffice(kOffice,
                             {.customers = 60,
                              .today = std::chrono::year(2025) / std::chrono::November / 22,
                              .basePath = {}});
  }
  ~ScreenReader() override { std::remove(kOffice); }
  static constexpr char kOffice[] = "screen-reader-test.db";
};

TEST_F(ScreenReader, BatchForm_OpenedAndFilledThroughMsaa_TellsWhatEveryDesktopTells) {
  test::Container container;
  auto control = New();
  test::As<IOleObject>(control)->SetClientSite(&container);
  Late(control).Put("OLEConnectionString", "sqlite:" + std::string(kOffice));
  Late(control).Put("UserID", std::int32_t{1});
  Late(control).Call("View", {std::int32_t{13}});
  const Node editor{ClientOf(FindForm("برنامه بازارياب"))};
  const Node visits = Named(editor, ROLE_SYSTEM_TABLE, "ويزيت ها");
  ASSERT_TRUE(visits.object);
  visits.Part(ColumnsOf(visits) + 1).Press();
  SetTimer(nullptr, 0, 100, Listen);

  MSG message;
  const ULONGLONG giveUp = GetTickCount64() + 20'000;
  const UINT_PTR tick = SetTimer(nullptr, 0, 100, nullptr);
  while ((step < 2 || FindForm("افزودن ويزيت به برنامه بازارياب") != nullptr) &&
         GetTickCount64() < giveUp && GetMessageW(&message, nullptr, 0, 0) > 0) {
    DispatchMessageW(&message);
  }
  KillTimer(nullptr, tick);

  std::vector<std::string> wanted;
  std::ifstream file(PROMOTER_BATCH_FORM);
  for (std::string line; std::getline(file, line);) wanted.push_back(line);
  EXPECT_FALSE(wanted.empty());
  EXPECT_THAT(heard, testing::ElementsAreArray(wanted));
  test::As<IOleObject>(control)->Close(OLECLOSE_NOSAVE);
  test::As<IOleObject>(control)->SetClientSite(nullptr);
}

}  // namespace
