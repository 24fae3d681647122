#pragma once

#include <QAccessible>

#include "screens/Accessible.h"

namespace adapters::qt {

class PaneInterface;

/// What Qt calls it, and its state but for where it is.
QAccessible::Role RoleOf(const screens::Accessible& told);
QAccessible::State StateOf(const screens::Accessible& told);
/// The texts but for the value of a cell, which is its name here: readers tell its heading besides.
QString TextOf(const screens::Accessible& told, QAccessible::Text which);
QStringList ActionsOf(const screens::Accessible& told);

/// A part of a pane. It says what the pane says of it at the moment, and nothing once the pane has
/// fewer parts.
class PartInterface : public QAccessibleInterface,
                      private QAccessibleActionInterface,
                      private QAccessibleTableCellInterface {
 public:
  /// `pane` keeps it.
  PartInterface(PaneInterface& pane, int part) : pane_(pane), part_(part) {}
  int Part() const { return part_; }

  bool isValid() const override;
  QObject* object() const override { return nullptr; }
  QWindow* window() const override;
  QAccessibleInterface* parent() const override;
  QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
  QString text(QAccessible::Text which) const override;
  void setText(QAccessible::Text /*which*/, const QString& /*text*/) override {}
  QRect rect() const override;
  QAccessible::Role role() const override;
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

 private:
  screens::Accessible Told() const;

  QStringList actionNames() const override;
  QString localizedActionDescription(const QString& name) const override;
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

  bool isSelected() const override;
  QList<QAccessibleInterface*> columnHeaderCells() const override;
  QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  int columnIndex() const override;
  int rowIndex() const override;
  int columnExtent() const override { return 1; }
  int rowExtent() const override { return 1; }
  QAccessibleInterface* table() const override;

  PaneInterface& pane_;
  int part_;
};

}  // namespace adapters::qt
