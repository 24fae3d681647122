#pragma once

#include <windows.h>

#include <vector>

namespace adapters::windows {

/// Keeps the other windows of this thread, the host's own too, from input while one is up, and
/// runs the thread's messages meanwhile.
class ModalLoop {
 public:
  /// Disables the thread's other visible top-level windows. `window` may be none yet.
  explicit ModalLoop(HWND window);
  ~ModalLoop() { EnableOthers(); }
  ModalLoop(const ModalLoop&) = delete;
  ModalLoop& operator=(const ModalLoop&) = delete;

  /// Returns once End() was called (true), or when the program was told to quit or `window` is no
  /// more (false). The word to quit is passed on.
  bool Run(HWND window);
  /// Has the thread's windows painted and gives `window` its messages and input; what else was
  /// typed or clicked is dropped. Returns at once.
  static void Breathe(HWND window);
  /// Drops what was typed or clicked, but for what is for `receiver`, which gets it; null for none.
  static void DropInput(HWND receiver);
  /// Enables the others again. Call it before hiding the window, so that Windows can activate one
  /// of them.
  void End();

 private:
  void EnableOthers();
  std::vector<HWND> disabled_;
  bool ended_ = false;
};

/// The window that a dialog of this thread belongs over: the active one, or the uppermost that
/// takes input; null when there is none.
HWND DialogOwner();

/// Puts a top-level window over the middle of `below` (null: of the screen), smaller where the
/// screen has less room.
void CentreOver(HWND below, HWND window);

}  // namespace adapters::windows
