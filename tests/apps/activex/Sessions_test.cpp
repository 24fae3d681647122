// Controls in their containers, as sessions.txt tells them.

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "Container.h"
#include "LoadedLibrary.h"
#include "Named.h"
#include "adapters/windows/Loop.h"
#include "support/Session.h"

namespace {

using adapters::windows::ComPtr;
using adapters::windows::Once;
using adapters::windows::PumpUntil;
using adapters::windows::Variant;
using test::As;
using test::Container;
using test::FindForm;

constexpr char kEditor[] = "برنامه بازارياب";
constexpr char kSearch[] = "جستجوي برنامه بازارياب";

/// Containers and controls have names: "show one" is a call of the control "one".
class Sessions : public test::OfficeTest, protected support::Session {
 protected:
  Sessions() {
    On("container",
       [this](const std::string& name) { containers[name] = std::make_unique<Container>(); });
    OnControl("control", [this](auto& c, const auto& of) {
      const std::size_t blank = of.find(' ');
      c = NewFor(std::stoi(of.substr(blank)), *containers.at(of.substr(0, blank)));
    });
    OnControl("alone", [this](auto& c, const auto&) { c = New(); });
    OnControl("release", [](auto& c, const auto&) { c.Reset(); });
    OnControl("show", [](auto& c, const auto&) { EXPECT_FALSE(Late(c).Call("ClearShow").Flag()); });
    OnControl("view", [this](auto& c, const auto& id) {
      Hear(Late(c).Call("View", {std::stoi(id)}).Flag() ? "true" : "false");
    });
    OnControl("place", [this](auto& c, const auto& in) {
      As<IOleObject>(c)->SetClientSite(in.empty() ? nullptr : containers.at(in).get());
    });
    OnControl("close", [this](auto& c, const auto& how) {
      HearResult(As<IOleObject>(c)->Close(static_cast<DWORD>(std::stoi(how))));
    });
    OnControl("modeless", [](auto& c, const auto& may) {
      As<IOleInPlaceActiveObject>(c)->EnableModeless(may == "yes");
    });
    OnControl("draw", [this](auto& c, const auto&) {
      HearResult(As<IViewObject2>(c)->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr,
                                           nullptr, nullptr, nullptr, 0));
    });
    OnControl("verb", [this](auto& c, const auto& number) {
      Container& in = *containers.at("first");
      HearResult(
          As<IOleObject>(c)->DoVerb(std::stoi(number), nullptr, &in, 0, in.Window(), nullptr));
    });
    OnControl("paint", [this](auto& c, const auto&) {
      InvalidateRect(WindowOf(c), nullptr, FALSE);
      UpdateWindow(WindowOf(c));
    });
    OnControl("connect", [](auto& c, const auto& to) { Late(c).Put("OLEConnectionString", to); });
    OnControl("early-view", [](auto& c, const auto&) {
      LONG id = 1;
      VARIANT_BOOL opened = VARIANT_TRUE;
      const HRESULT result = c->View(&id, &opened);
      EXPECT_EQ(opened, VARIANT_FALSE);
      adapters::windows::Check(result);  // with the thread's IErrorInfo
    });
    OnControl("late-view", [](auto& c, const auto& text) {
      text.empty() ? Late(c).Call("View", {}) : Late(c).Call("View", {Variant(text)});
    });
    On("plain", [this] { containers.at("first")->hasExtender = false; });
    On("end", [this](const std::string& name) { containers.erase(name); });
    On("press", [](const std::string& button) {
      adapters::windows::PostClick(
          test::WindowNamed(FindForm(kEditor), screens::Role::kButton, button));
    });
    On("pump", [] { adapters::windows::Pump(); });
    On("answer", [this](const std::string& number) { answer = std::stoi(number); });
    On("destroy", [] { DestroyWindow(FindForm(kEditor)); });
    // Two things, from whichever loop runs, once the window is there.
    On("in-editor", [this](const std::string& line) { Later(kEditor, line); });
    On("in-search", [this](const std::string& line) { Later(kSearch, line); });
    On("await", [this](const std::string& name) {
      PumpUntil([&] { return containers.at(name)->References() == 0; });
    });
    On("close-window",
       [](const std::string& title) { PostMessageW(FindForm(title), WM_CLOSE, 0, 0); });
    On("look", [this] { Hear(IsWindowEnabled(Owner()) ? "enabled" : "disabled"); });
  }

  Shown Now() override {
    Shown now;
    for (const auto& [name, container] : containers) {
      for (const auto* const calls : {&container->calls, &container->extenderCalls}) {
        for (const std::string& call : *calls) Hear(name + " " + call);
      }
      container->calls.clear();
      container->extenderCalls.clear();
      now.emplace_back("held of " + name, container->Held() == 0 ? "nothing" : "something");
      if (container->Window() == Owner()) now.emplace_back("editor over", name);
    }
    const auto forms = std::ssize(test::ShownWindows()) - std::ssize(containers);
    now.emplace_back("forms", std::to_string(forms));
    if (Owner() == nullptr) now.emplace_back("editor over", "nothing");
    if (const HWND editor = FindForm(kEditor)) {
      const auto form = activexhost::MakeThing(editor);
      now.emplace_back("for", test::Named(*form, screens::Role::kComboBox, "ايجاد كننده").value);
    }
    for (const auto& [name, control] : controls) {
      const HWND window = control ? WindowOf(control) : nullptr;
      const char* const seen = IsWindowVisible(window) ? "shown" : "hidden";
      now.emplace_back("window of " + name, window == nullptr ? "none" : seen);
    }
    return now;
  }

  std::map<std::string, std::unique_ptr<Container>> containers;
  std::map<std::string, ComPtr<_DistPromoterProg>> controls;
  std::int32_t answer = 0;

 private:
  using Act = std::function<void(ComPtr<_DistPromoterProg>&, const std::string&)>;
  void OnControl(const std::string& name, Act act) {
    On(name, [this, act = std::move(act)](const std::string& rest) {
      const std::size_t blank = std::min(rest.find(' '), rest.size());
      act(controls[rest.substr(0, blank)], rest.substr(std::min(blank + 1, rest.size())));
    });
  }
  void Later(const char* title, const std::string& line) {
    Once([title] { return FindForm(title) != nullptr; },
         [this, line] {
           const std::size_t end = std::min(line.find("; "), line.size());
           Do(line.substr(0, end));
           Do(line.substr(std::min(end + 2, line.size())));
         });
  }
  void HearResult(HRESULT result) {
    std::ostringstream text;
    text << std::hex << static_cast<unsigned>(result);
    if (result != S_OK) Hear(text.str());
  }
  static HWND Owner() {
    const HWND editor = FindForm(kEditor);
    return editor == nullptr ? nullptr : GetWindow(editor, GW_OWNER);
  }
  static HWND WindowOf(const ComPtr<_DistPromoterProg>& control) {
    HWND window = nullptr;
    As<IOleInPlaceObject>(control)->GetWindow(&window);
    return window;
  }
};

TEST_F(Sessions, ControlsInContainers_AsTheApprovedOnes) {
  std::unique_ptr<adapters::windows::Component> messages;
  On("messages", [&] {
    messages = std::make_unique<adapters::windows::Component>("comNotice.comNTC", [this] {
      const auto notice = adapters::windows::StandIn::Make();
      notice->On("ClearShow", [this] { Hear("asked"); });
      notice->On("Resualt", [this] { return Variant(answer); });
      return Variant(notice.Get());
    });
  });
  Replay(PROMOTER_CONTROL_SESSIONS);
  controls.clear();
}

}  // namespace
