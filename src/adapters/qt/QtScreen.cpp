#include "adapters/qt/QtScreen.h"

#include <QApplication>
#include <QClipboard>
#include <QEventLoop>
#include <QFontMetricsF>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <cmath>

#include "adapters/qt/Convert.h"
#include "adapters/qt/PaneAccessible.h"
#include "adapters/qt/Places.h"
#include "adapters/qt/Theme.h"
#include "platform/RuntimeError.h"

namespace adapters::qt {

using controls::Control;
using controls::Form;
using controls::Modality;
using controls::MousePointer;
using platform::RuntimeError;

namespace {

/// To the middle of `below`, as far as the screen has room.
void MoveOver(const QWidget& below, QWidget& window) {
  const screens::Rect place =
      screens::PlaceOver(ToRect(below.geometry()), {window.width(), window.height()},
                         ToRect(below.screen()->availableGeometry()));
  window.move(place.left, place.top);
}

screens::Scale DeskScale() {
  return FormScale(QGuiApplication::primaryScreen()->logicalDotsPerInchX());
}

/// Forms, previews and messages; not the tips and lists that come up over them.
bool AnyWindowIsUp() {
  const QWidgetList windows = QApplication::topLevelWidgets();
  return std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
    return window->isVisible() &&
           (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog);
  });
}

}  // namespace

QtScreen::QtScreen(ErrorGuard& guard, const platform::Desktop& desktop)
    : guard_(guard), desktop_(desktop) {
  ServeScreenReaders();
  dropTimer_.setSingleShot(true);
  QObject::connect(&dropTimer_, &QTimer::timeout, &dropTimer_, [this] { DropRetired(); });
  guard_.SetScreen(this);
}

QtScreen::~QtScreen() {
  guard_.SetScreen(nullptr);
  QtScreen::SetMousePointer(MousePointer::kDefault);
}

FormWindow& QtScreen::WindowFor(Form& form) {
  std::unique_ptr<FormWindow>& window = windows_[&form];
  if (!window) {
    window = std::make_unique<FormWindow>(form, Surroundings{guard_, desktop_, letters_});
    window->FitToDesk();
  }
  return *window;
}

QWidget* QtScreen::WindowBefore(const QWidget& window) const {
  QWidget* const active = QApplication::activeWindow();
  if (active != nullptr && active != &window && active->isVisible()) return active;
  // Where a window was closed just now, the desktop has not come to the next one yet.
  for (auto run = modal_.rbegin(); run != modal_.rend(); ++run) {
    const auto found = windows_.find((*run)->form);
    if (found == windows_.end() || found->second.get() == &window) continue;
    if (found->second->isVisible()) return found->second.get();
  }
  for (const auto& [form, other] : windows_) {
    if (other.get() != &window && other->isVisible()) return other.get();
  }
  return nullptr;
}

void QtScreen::Show(Form& form, Modality modality) {
  if (modality == Modality::kModeless && (!modal_.empty() || QApplication::activeModalWidget())) {
    throw RuntimeError(platform::kNonModalWhileModal,
                       "Can't show non-modal form when modal form is displayed");
  }
  FormWindow& window = WindowFor(form);
  const bool comesUp = !window.isVisible();
  if (comesUp) {
    const bool modal = modality != Modality::kModeless;
    QWidget* const before = WindowBefore(window);
    window.setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
    window.winId();  // creates the native window, which can then be tied to the one before it
    window.windowHandle()->setTransientParent(modal && before ? before->windowHandle() : nullptr);
    const bool placed = places_ && TakePlace(window, *places_);
    if (!placed && modal && before) MoveOver(*before, window);
  }
  if (window.isMinimized()) {
    window.showNormal();
  } else {
    window.show();
  }
  window.raise();
  window.activateWindow();
  if (comesUp) window.TakeFirstFocus();
  if (modality == Modality::kModal) RunModal(form);
}

void QtScreen::RunModal(Form& form) {
  QEventLoop loop;
  ModalRun run{&form, &loop};
  modal_.push_back(&run);
  loop.exec();
  std::erase(modal_, &run);
  // The program was told to quit while the form was up.
  if (!run.ended) form.Hide();
}

void QtScreen::EndModal(const Form& form) {
  for (ModalRun* run : modal_) {
    if (run->form != &form) continue;
    run->ended = true;
    run->loop->quit();
  }
}

void QtScreen::Hide(Form& form) {
  EndModal(form);
  if (const auto found = windows_.find(&form); found != windows_.end()) {
    if (places_) KeepPlace(*found->second, *places_);
    found->second->hide();
  }
}

void QtScreen::Unload(Form& form) {
  EndModal(form);
  const auto found = windows_.find(&form);
  if (found == windows_.end()) return;
  // The form's own destructor may be what unloads it: nothing of it may be asked from here on.
  std::unique_ptr<FormWindow> window = std::move(found->second);
  windows_.erase(found);
  if (places_) KeepPlace(*window, *places_);
  window->Detach();
  window->hide();
  retired_.push_back(std::move(window));
  dropTimer_.start(0);
}

void QtScreen::DropRetired() {
  // Waiting costs nothing but memory: the next unloading tries again.
  if (guard_.Depth() != 0) return;
  retired_.clear();
  // A form's window is hidden, which Qt does not take for the closing of the last one.
  if (QApplication::quitOnLastWindowClosed() && !AnyWindowIsUp()) QCoreApplication::exit();
}

void QtScreen::Breathe() {
  // A modal window is up, so Qt itself drops what is meant for another.
  QApplication::processEvents();
}

controls::Twips QtScreen::TextWidth(std::string_view text) const {
  const QFontMetricsF metrics{QApplication::font()};
  return DeskScale().Twips(static_cast<int>(std::ceil(metrics.horizontalAdvance(ToQString(text)))));
}

controls::Twips QtScreen::LineHeight() const {
  return DeskScale().Twips(QFontMetrics(QApplication::font()).height());
}

void QtScreen::SetFocus(Control& control) {
  QWidget* widget = WidgetOf(control);
  if (!widget) {
    throw RuntimeError(platform::kInvalidProcedureCall, "Invalid procedure call or argument");
  }
  widget->setFocus(Qt::OtherFocusReason);
}

void QtScreen::SetMousePointer(MousePointer pointer) {
  const bool hourglass = pointer == MousePointer::kHourglass;
  if (hourglass == hourglass_) return;
  hourglass_ = hourglass;
  if (hourglass) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QGuiApplication::restoreOverrideCursor();
  }
}

void QtScreen::Beep() {
  QApplication::beep();
}

void QtScreen::CopyToClipboard(const std::string& text) {
  QGuiApplication::clipboard()->setText(ToQString(text));
}

const Form* QtScreen::FormOf(const QWidget* window) const {
  const auto found = std::ranges::find_if(
      windows_, [window](const auto& entry) { return entry.second.get() == window; });
  return found == windows_.end() ? nullptr : found->first;
}

QWidget* QtScreen::WindowOf(Form& form) const {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? nullptr : found->second.get();
}

PaneWidget* QtScreen::WidgetOf(Control& control) const {
  const auto found = windows_.find(&control.ParentForm());
  return found == windows_.end() ? nullptr : found->second->WidgetOf(control);
}

}  // namespace adapters::qt
