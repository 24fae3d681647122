#pragma once

#include <QAccessibleWidget>
#include <unordered_map>

#include "adapters/qt/PaneView.h"

namespace adapters::qt {

/// A pane for Qt's accessible tree: the widgets in it come first among its children, then its
/// parts. Rows of headings are no rows of the table.
class PaneInterface : public QAccessibleWidget {
 public:
  explicit PaneInterface(PaneView& view);
  ~PaneInterface() override;

  /// Null while the widget ends.
  PaneView* View() const;
  /// What there is to say of the pane (-1) or of a part; nothing where there is no such part.
  screens::Accessible Told(int part = -1) const;
  int PartCount() const;
  /// Null where there is no such part.
  QAccessibleInterface* Part(int part);
  /// On the screen; empty where nothing of it is in sight.
  QRect OnScreen(const screens::Rect& place) const;
  /// Once the event under way is over: what it does may wait for the user.
  void Act(int part);
  void ForgetParts();

  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* parent() const override;
  QAccessibleInterface* focusChild() const override;
  QString text(QAccessible::Text which) const override;
  QAccessible::Role role() const override;
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;
  QStringList actionNames() const override;
  QString localizedActionDescription(const QString& name) const override;
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString& name) const override;

 private:
  class Table : public QAccessibleTableInterface {
   public:
    explicit Table(PaneInterface& pane) : pane_(pane) {}
    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    int rowCount() const override;
    int columnCount() const override { return pane_.Told().columns; }
    QString columnDescription(int column) const override;
    QString rowDescription(int /*row*/) const override { return {}; }
    int selectedCellCount() const override;
    QList<QAccessibleInterface*> selectedCells() const override;
    int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
    QList<int> selectedRows() const override;
    bool isRowSelected(int row) const override;
    int selectedColumnCount() const override { return 0; }
    QList<int> selectedColumns() const override { return {}; }
    bool isColumnSelected(int /*column*/) const override { return false; }
    // What a press does is for the list to say.
    bool selectRow(int /*row*/) override { return false; }
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* /*event*/) override { pane_.ForgetParts(); }

   private:
    PaneInterface& pane_;
  };

  /// The value, to be read alone.
  class ValueText : public QAccessibleTextInterface {
   public:
    explicit ValueText(const PaneInterface& pane) : pane_(pane) {}
    void selection(int /*index*/, int* start, int* end) const override { *start = *end = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int /*start*/, int /*end*/) override {}
    void removeSelection(int /*index*/) override {}
    void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int /*position*/) override {}
    QString text(int start, int end) const override;
    int characterCount() const override;
    QRect characterRect(int /*offset*/) const override { return {}; }
    int offsetAtPoint(const QPoint& /*point*/) const override { return -1; }
    void scrollToSubstring(int /*start*/, int /*end*/) override {}
    QString attributes(int /*offset*/, int* start, int* end) const override;

   private:
    const PaneInterface& pane_;
  };

  /// How far a progress bar is, in percent.
  class Progress : public QAccessibleValueInterface {
   public:
    explicit Progress(const PaneInterface& pane) : pane_(pane) {}
    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& /*value*/) override {}
    QVariant maximumValue() const override { return 100; }
    QVariant minimumValue() const override { return 0; }
    QVariant minimumStepSize() const override { return 1; }

   private:
    const PaneInterface& pane_;
  };

  /// The panes and the field that stand in this one, and its open list.
  QList<QWidget*> Widgets() const;
  const screens::Pane* Pane() const;
  bool HasField() const;
  bool HasKeyboard() const;

  Table table_{*this};
  ValueText valueText_{*this};
  Progress progress_{*this};
  std::unordered_map<int, QAccessible::Id> parts_;
};

}  // namespace adapters::qt
