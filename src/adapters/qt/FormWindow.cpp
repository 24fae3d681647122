#include "adapters/qt/FormWindow.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <algorithm>
#include <cstdlib>
#include <vector>

#include "controls/TabOrder.h"

namespace adapters::qt {

using controls::Aspect;
using controls::Change;
using controls::Control;
using controls::Form;

namespace {

constexpr QSize kFrameRoom(8, 32);

}  // namespace

FormWindow::FormWindow(Form& form, const Surroundings& surroundings)
    : form_(&form), surroundings_(surroundings) {
  setObjectName(ToQString(form.Name()));
  Qt::WindowFlags flags =
      Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
  if (form.BorderStyle() == Form::Border::kSizable) flags |= Qt::WindowMinMaxButtonsHint;
  setWindowFlags(flags);
  WidgetFactory(surroundings_, views_).MakeAll(form, *this);
  SetTabOrder();
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
  for (const auto& [control, view] : views_) view->Detach();
  views_.clear();
}

QWidget* FormWindow::WidgetOf(const Control& control) const {
  const auto found = views_.find(&control);
  return found == views_.end() ? nullptr : &found->second->Widget();
}

void FormWindow::Refresh(const Change& change) {
  if (change.aspect == Aspect::kText) setWindowTitle(ToQString(form_->Caption()));
  if (change.aspect == Aspect::kBounds) FitToForm();
}

void FormWindow::FitToForm() {
  const QSize wanted(ToPixels(*this, form_->Width()), ToPixels(*this, form_->Height()));
  fitting_ = true;
  if (form_->BorderStyle() == Form::Border::kFixed) {
    setFixedSize(wanted);
  } else {
    setMinimumSize(ToPixels(*this, form_->MinWidth()), ToPixels(*this, form_->MinHeight()));
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
  // A size that is the form's already, to the pixel, must not lose the fraction of its twips.
  controls::Twips newWidth = ToTwips(*this, width());
  controls::Twips newHeight = ToTwips(*this, height());
  if (ToPixels(*this, form_->Width()) == width()) newWidth = form_->Width();
  if (ToPixels(*this, form_->Height()) == height()) newHeight = form_->Height();
  surroundings_.guard.Run([&] { form_->Resize(newWidth, newHeight); });
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (form_) surroundings_.guard.Run([&] { form_->CloseBox(); });
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  controls::Button* button = nullptr;
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (form_ && enter) button = form_->DefaultButton();
  if (form_ && event->key() == Qt::Key_Escape) button = form_->CancelButton();
  if (!button) {
    QWidget::keyPressEvent(event);
    return;
  }
  surroundings_.guard.Run([&] { button->Click(); });
}

void FormWindow::SetTabOrder() {
  QWidget* previous = nullptr;
  const std::vector<Control*> sequence = controls::TabSequence(*form_);
  for (const auto& [control, view] : views_) {
    QWidget& widget = view->Widget();
    const bool inOrder = std::find(sequence.begin(), sequence.end(), control) != sequence.end();
    if (!inOrder && widget.focusPolicy() != Qt::NoFocus) widget.setFocusPolicy(Qt::ClickFocus);
  }
  for (const Control* control : sequence) {
    QWidget* widget = WidgetOf(*control);
    if (!widget || widget->focusPolicy() == Qt::NoFocus) continue;
    if (previous) QWidget::setTabOrder(previous, widget);
    previous = widget;
  }
}

}  // namespace adapters::qt
