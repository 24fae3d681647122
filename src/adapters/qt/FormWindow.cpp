#include "adapters/qt/FormWindow.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <algorithm>

#include "adapters/qt/Convert.h"
#include "adapters/qt/Theme.h"
#include "controls/Controls.h"
#include "screens/AccessKeys.h"
#include "screens/TabOrder.h"

namespace adapters::qt {

using controls::Aspect;
using controls::Change;
using controls::Control;
using controls::Form;

namespace {

constexpr QSize kFrameRoom(8, 32);

/// By which a key is known, where Alt takes its letter away too.
QString LetterOf(const QKeyEvent& event) {
  if (!event.text().isEmpty()) return event.text();
  return event.key() < Qt::Key_Escape ? QString(QChar(event.key())) : QString();
}

/// As Control::Shortcut names keys; plus and minus also where they need Shift or are another key's.
std::string ShortcutOf(const QKeyEvent& event) {
  const int key = event.key();
  if (key == Qt::Key_Plus || key == Qt::Key_Equal) return "+";
  if (key == Qt::Key_Minus || key == Qt::Key_Underscore) return "-";
  const bool letter = key >= Qt::Key_A && key <= Qt::Key_Z;
  return letter ? std::string(1, static_cast<char>(key)) : std::string();
}

}  // namespace

FormWindow::FormWindow(Form& form, const Surroundings& surroundings)
    : form_(&form), surroundings_(surroundings) {
  setObjectName(ToQString(form.Name()));
  const bool sizable = form.BorderStyle() == Form::Border::kSizable;
  Qt::WindowFlags flags =
      Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
  flags |= sizable ? Qt::Window | Qt::WindowMinMaxButtonsHint : Qt::Dialog;
  setWindowFlags(flags);
  MakeWidgets(form, *this);
  Refresh({Aspect::kText});
  Refresh({Aspect::kBounds});
  subscription_ = form.Subscribe([this](const Change& change) { Refresh(change); });
}

FormWindow::~FormWindow() {
  Detach();
}

void FormWindow::Detach() {
  if (!form_) return;
  form_ = nullptr;
  subscription_.Reset();
  for (const auto& [control, widget] : widgets_) widget->Detach();
  widgets_.clear();
}

void FormWindow::MakeWidgets(const controls::Container& container, QWidget& parent) {
  for (Control* control : container.Controls()) {
    auto* const widget = new PaneWidget(*control, surroundings_, &parent);
    widgets_[control] = widget;
    const auto* frame = dynamic_cast<const controls::Frame*>(control);
    if (frame != nullptr) MakeWidgets(*frame, *widget->viewport());
  }
}

PaneWidget* FormWindow::WidgetOf(const Control& control) const {
  const auto found = widgets_.find(&control);
  return found == widgets_.end() ? nullptr : found->second;
}

void FormWindow::Refresh(const Change& change) {
  if (change.aspect == Aspect::kText) setWindowTitle(ToQString(form_->Caption()));
  if (change.aspect == Aspect::kBounds) FitToForm();
}

void FormWindow::FitToForm() {
  const screens::Scale scale = FormScale(logicalDpiX());
  const QSize wanted(scale.Pixels(form_->Width()), scale.Pixels(form_->Height()));
  fitting_ = true;
  if (form_->BorderStyle() == Form::Border::kFixed) {
    setFixedSize(wanted);
  } else {
    setMinimumSize(scale.Pixels(form_->MinWidth()), scale.Pixels(form_->MinHeight()));
    if (size() != wanted) resize(wanted);
  }
  fitting_ = false;
}

void FormWindow::FitToDesk() {
  // Nobody sees the desk of this platform, whose size says nothing.
  if (QGuiApplication::platformName() == QStringLiteral("offscreen")) return;
  // The frame is known only once the window is shown.
  const QSize room = screen()->availableGeometry().size() - kFrameRoom;
  resize(size().boundedTo(room).expandedTo(minimumSize()));
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (fitting_ || !form_) return;
  const screens::Scale scale = FormScale(logicalDpiX());
  surroundings_.guard.Run([&] {
    form_->Resize(scale.Twips(width(), form_->Width()), scale.Twips(height(), form_->Height()));
  });
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (form_) surroundings_.guard.Run([&] { form_->CloseBox(); });
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  bool used = false;
  surroundings_.guard.Run([&] {
    if (form_ && enter) used = form_->PressEnter(Focused());
    if (form_ && event->key() == Qt::Key_Escape) used = form_->PressEscape();
    if (form_ && event->modifiers() == Qt::AltModifier) {
      used = screens::PressAccessKey(*form_, ToUtf8(LetterOf(*event)), Focused());
    }
    const Qt::KeyboardModifiers held = event->modifiers();
    if (form_ && held.testFlag(Qt::ControlModifier) && !held.testFlag(Qt::AltModifier)) {
      used = screens::PressShortcut(*form_, ShortcutOf(*event));
    }
  });
  if (!used) QWidget::keyPressEvent(event);
}

const Control* FormWindow::Focused() const {
  const QWidget* const focus = focusWidget();
  const auto found = std::ranges::find_if(
      widgets_, [focus](const auto& entry) { return focus == &entry.second->KeyReceiver(); });
  return found == widgets_.end() ? nullptr : found->first;
}

bool FormWindow::focusNextPrevChild(bool next) {
  if (!form_) return false;
  const Control* const to = screens::NextStop(*form_, Focused(), next ? 1 : -1);
  QWidget* const widget = to ? WidgetOf(*to) : nullptr;
  if (!widget) return false;
  widget->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return true;
}

void FormWindow::TakeFirstFocus() {
  if (!form_ || (focusWidget() && !form_->FirstFocus())) return;
  const Control* const first = screens::FirstStop(*form_);
  if (QWidget* const widget = first ? WidgetOf(*first) : nullptr) {
    widget->setFocus(Qt::TabFocusReason);
  }
}

}  // namespace adapters::qt
