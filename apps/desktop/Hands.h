#pragma once

#include <QPointer>
#include <QWidget>

#include "apps/tour/Hands.h"

namespace desktop {

/// Reads through Qt's accessible tree, and works by events as the window system sends them.
class Hands : public tour::Hands {
 public:
  Hands(tour::Play play, Open open);

  /// Whether a window has come to the front. Where none has, the one that nothing lies over is
  /// asked to: not every platform has a window manager that does it once another was closed.
  bool Settled();

  std::vector<std::unique_ptr<tour::Thing>> Windows() override;
  void Press(const screens::KeyEvent& stroke) override;
  void Picture(int windows, const std::string& path) override;
  void ResizeFront(double factor) override;
  void SaveAs(const std::string& path) override;
  std::string Clipboard() override;
  bool UsesOtherPrograms() const override { return false; }
  int Depth() const override;

 private:
  void MoveMouse(Mouse action, screens::Point place) override;

  /// Tells what the pointer was over, unless it still is over that window.
  void Leave(const QWidget& window);

  QPointer<QWidget> pointed_;
  Qt::MouseButtons held_;
};

}  // namespace desktop
