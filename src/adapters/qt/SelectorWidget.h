#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <vector>

#include "adapters/qt/ControlView.h"
#include "adapters/qt/FieldWithButton.h"
#include "controls/Selector.h"

namespace adapters::qt {

/// The rows of a selector's list that a typed text leaves, as Qt asks for them.
class SelectorRows : public QAbstractListModel {
 public:
  enum Role { kDetail = Qt::UserRole, kId };
  /// Shows `rows` (indexes into selector.List()); null empties it.
  void Show(const controls::Selector* selector, std::vector<std::size_t> rows);
  /// Index into Selector::List() of a shown row.
  std::size_t ListRow(int row) const { return rows_[static_cast<std::size_t>(row)]; }
  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  const controls::Selector* selector_ = nullptr;
  std::vector<std::size_t> rows_;
};

/// The lookup selector: a line edit whose typing narrows a list that drops down below it.
class SelectorWidget : public ViewOf<FieldWithButton, controls::Selector> {
 public:
  SelectorWidget(controls::Selector& model, const Surroundings& surroundings, QWidget* parent);
  ~SelectorWidget() override;
  void Detach() override;
  /// The drop-down list; hidden while closed.
  QListView& Popup() { return *popup_; }

 protected:
  void Refresh(const controls::Change& change) override;
  void Toggle() override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  /// The popup has the keyboard while it is open; typing goes on in the line edit.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  enum class Leaving { kSettle, kRestore };
  void Typed();
  void Open();
  void Close(Leaving leaving);
  /// What the first rows take, within limits.
  int WidthForRows() const;
  void ShowRows(const QString& typed);
  void ChooseCurrent();
  /// Ends an edit: an emptied box selects nothing, any other text gives way to the selected name.
  void Settle();
  void ShowSelected();
  bool KeyInPopup(QKeyEvent& event);

  QListView* popup_;
  SelectorRows rows_;
  bool edited_ = false;
};

}  // namespace adapters::qt
