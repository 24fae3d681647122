#include "controls/Form.h"

#include "controls/Controls.h"
#include "platform/RuntimeError.h"

namespace controls {

namespace {

void RefuseNegative(Twips width, Twips height) {
  if (width < 0 || height < 0) {
    throw platform::RuntimeError(platform::kInvalidPropertyValue, "Invalid property value");
  }
}

}  // namespace

Form::Form(Screen& screen, std::string name, Border border)
    : screen_(screen), name_(std::move(name)), border_(border) {}

Form::~Form() {
  if (loaded_) screen_.Unload(*this);
}

void Form::SetCaption(std::string caption) {
  if (caption_ == caption) return;
  caption_ = std::move(caption);
  observers_.Notify({Aspect::kText});
}

void Form::Resize(Twips width, Twips height) {
  RefuseNegative(width, height);
  if (width_ == width && height_ == height) return;
  width_ = width;
  height_ = height;
  FormResize();
  observers_.Notify({Aspect::kBounds});
}

void Form::SetMinimumSize(Twips width, Twips height) {
  RefuseNegative(width, height);
  minWidth_ = width;
  minHeight_ = height;
}

void Form::Load() {
  if (loaded_) return;
  loaded_ = true;  // what FormLoad calls finds the form loaded
  try {
    FormLoad();
  } catch (...) {
    loaded_ = false;
    throw;
  }
}

void Form::Show(Modality modality) {
  Load();
  if (visible_) {
    if (modality == Modality::kModal) {
      throw platform::RuntimeError(platform::kFormAlreadyDisplayed,
                                   "Form already displayed; can't show modally");
    }
    screen_.Show(*this, modality);
    return;
  }
  visible_ = true;
  try {
    screen_.Show(*this, modality);
  } catch (...) {
    visible_ = false;
    throw;
  }
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  screen_.Hide(*this);
}

void Form::Unload() {
  if (!loaded_) return;
  Hide();
  loaded_ = false;
  screen_.Unload(*this);
}

bool Form::PressEnter(const Control* focused) {
  Button* button = defaultButton_;
  const Container* around = focused == nullptr ? nullptr : &focused->Parent();
  while (const auto* frame = dynamic_cast<const Frame*>(around)) {
    if (frame->DefaultButton() != nullptr) {
      button = frame->DefaultButton();
      break;
    }
    around = &frame->Parent();
  }
  if (button == nullptr) return false;
  button->Click();
  return true;
}

bool Form::PressEscape() {
  if (cancelButton_ != nullptr) {
    cancelButton_->Click();
    return true;
  }
  if (escapeCloses_) CloseBox();
  return escapeCloses_;
}

}  // namespace controls
