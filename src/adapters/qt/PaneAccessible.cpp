#include "adapters/qt/PaneAccessible.h"

#include <QAccessible>
#include <QApplication>

#include "adapters/qt/Convert.h"
#include "adapters/qt/FormWindow.h"
#include "adapters/qt/PaneInterface.h"

namespace adapters::qt {

using screens::Accessible;
using screens::Role;
using screens::Tidings;

namespace {

QAccessibleInterface* MakeInterface(const QString& /*className*/, QObject* object) {
  if (auto* const view = dynamic_cast<PaneView*>(object)) return new PaneInterface(*view);
  if (auto* const form = dynamic_cast<FormWindow*>(object)) {
    return new QAccessibleWidget(form, form->isModal() ? QAccessible::Dialog : QAccessible::Window);
  }
  return nullptr;
}

void Send(QAccessibleInterface* about, QAccessible::Event event) {
  if (about == nullptr) return;
  QAccessibleEvent sent(about, event);
  QAccessible::updateAccessibility(&sent);
}

void SendState(QAccessibleInterface* about, const QAccessible::State& changed) {
  QAccessibleStateChangeEvent sent(about, changed);
  QAccessible::updateAccessibility(&sent);
}

/// What is called by what has changed has another name. A field tells of its text by itself.
void SendValue(PaneInterface& pane) {
  const Accessible told = pane.Told();
  QAccessible::State changed;
  if (told.role == Role::kCheckBox) {
    changed.checked = true;
    SendState(&pane, changed);
  } else if (told.role == Role::kProgressBar) {
    QAccessibleValueChangeEvent sent(&pane, pane.valueInterface()->currentValue());
    QAccessible::updateAccessibility(&sent);
  } else if (told.role == Role::kComboBox && pane.textInterface() != nullptr) {
    QAccessibleTextUpdateEvent sent(&pane, 0, QString(), pane.text(QAccessible::Value));
    QAccessible::updateAccessibility(&sent);
  } else if (told.role != Role::kField && told.role != Role::kComboBox) {
    Send(&pane, QAccessible::NameChanged);
  }
}

void SendContent(PaneInterface& pane) {
  if (pane.tableInterface() == nullptr) {
    pane.ForgetParts();
    return Send(&pane, QAccessible::ObjectReorder);
  }
  QAccessibleTableModelChangeEvent sent(&pane, QAccessibleTableModelChangeEvent::ModelReset);
  QAccessible::updateAccessibility(&sent);
}

/// Once a list is closed, the keyboard is where it was all along.
void SendOpened(PaneInterface& pane, bool opened) {
  QAccessible::State changed;
  changed.expanded = changed.collapsed = true;
  SendState(&pane, changed);
  QWidget* const focus = QApplication::focusWidget();
  if (!opened && focus != nullptr && focus == &pane.View()->KeyReceiver()) {
    Send(QAccessible::queryAccessibleInterface(focus), QAccessible::Focus);
  }
}

}  // namespace

void ServeScreenReaders() {
  QAccessible::installFactory(MakeInterface);
}

void TellScreenReader(PaneView& view, Tidings what, int part) {
  NameField(view);
  if (!QAccessible::isActive() || !view.isVisible() || view.ContentOrNull() == nullptr) return;
  auto* const pane = dynamic_cast<PaneInterface*>(QAccessible::queryAccessibleInterface(&view));
  if (pane == nullptr) return;
  switch (what) {
    case Tidings::kFocus:
      // That the widget has the keyboard Qt tells by itself.
      if (part >= 0) Send(pane->Part(part), QAccessible::Focus);
      break;
    case Tidings::kName:
      Send(part < 0 ? pane : pane->Part(part), QAccessible::NameChanged);
      break;
    case Tidings::kValue:
      SendValue(*pane);
      break;
    case Tidings::kSelection:
      if (part < 0) {
        Send(pane, QAccessible::SelectionWithin);
      } else {
        Send(pane->Part(part),
             pane->Told(part).selected ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
      }
      break;
    case Tidings::kContent:
      SendContent(*pane);
      break;
    case Tidings::kOpened:
    case Tidings::kClosed:
      SendOpened(*pane, what == Tidings::kOpened);
      break;
  }
}

void NameField(PaneView& view) {
  QWidget& field = view.KeyReceiver();
  if (&field == &view || view.ContentOrNull() == nullptr) return;
  const Accessible told = view.Content().DescribeField();
  const QString name = ToQString(told.name);
  const QString description = ToQString(told.description);
  // Each of the two is told to readers, whether it is another one or not.
  if (field.accessibleName() != name) field.setAccessibleName(name);
  if (field.accessibleDescription() != description) field.setAccessibleDescription(description);
}

}  // namespace adapters::qt
