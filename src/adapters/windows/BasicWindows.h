#pragma once

#include "adapters/windows/ControlWindow.h"
#include "adapters/windows/PushButton.h"

namespace adapters::windows {

class LabelWindow : public WindowOf<controls::Label> {
 public:
  LabelWindow(controls::Label& model, const Surroundings& surroundings, HWND parent);
  HWND FocusTarget() const override { return nullptr; }

 protected:
  void Refresh(const controls::Change& change) override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
};

class ButtonWindow : public WindowOf<controls::Button> {
 public:
  ButtonWindow(controls::Button& model, const Surroundings& surroundings, HWND parent);

 protected:
  void Refresh(const controls::Change& change) override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnParentMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

 private:
  ButtonFace face_;
};

class CheckWindow : public WindowOf<controls::CheckBox> {
 public:
  CheckWindow(controls::CheckBox& model, const Surroundings& surroundings, HWND parent);

 protected:
  void Refresh(const controls::Change& change) override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnParentMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

 private:
  void Paint() const;
  bool checked_ = false;
};

/// A box around other windows, which are its children.
class FrameWindow : public WindowOf<controls::Frame> {
 public:
  FrameWindow(controls::Frame& model, const Surroundings& surroundings, HWND parent);
  HWND FocusTarget() const override { return nullptr; }

 protected:
  void Refresh(const controls::Change& change) override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void Paint() const;
};

}  // namespace adapters::windows
