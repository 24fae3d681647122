#include "adapters/windows/ProgressWindow.h"

#include <gtest/gtest.h>

#include "adapters/windows/ScreenFixture.h"

namespace adapters::windows {
namespace {

TEST_F(WinScreenTest, Progress_LongWork_CanBeStoppedWhileTheFormsTakeNoInput) {
  form.Show(controls::Modality::kModeless);
  const HWND window = screen.WindowOf(form);
  form.txtName.SetFocus();
  const HWND box = GetFocus();
  ProgressWindow progress(guard, theme);
  progress.Begin("انتقال", 10);
  EXPECT_TRUE(progress.Advance(1)) << "nothing to see yet";
  EXPECT_TRUE(IsWindowEnabled(window));
  while (IsWindowEnabled(window)) ASSERT_TRUE(progress.Advance(2));
  EXPECT_EQ(NameOf(GetActiveWindow(), kFormProperty), "ProgressWindow");
  PostMessageW(box, WM_CHAR, L'x', 0);
  PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 0);
  while (progress.Advance(3)) {
  }
  progress.End();
  EXPECT_TRUE(IsWindowEnabled(window));
  EXPECT_EQ(GetFocus(), box);
  Pump();
  EXPECT_EQ(form.txtName.Text(), "") << "what was typed meanwhile is dropped";
}

}  // namespace
}  // namespace adapters::windows
