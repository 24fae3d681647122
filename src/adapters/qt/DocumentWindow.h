#pragma once

#include <QDialog>
#include <QString>
#include <array>
#include <vector>

namespace adapters::qt {

/// An accounting document as texts; amounts as the database wrote them, empty where there is none.
struct AccountingDocument {
  enum Column {
    kRow,
    kAccountCode,
    kAccountName,
    kBranch,
    kDescription,
    kDebit,
    kCredit,
    kColumns
  };
  using Line = std::array<QString, kColumns>;
  QString code;
  QString date;
  QString description;
  std::vector<Line> lines;
  QString debit;  // sums of the lines
  QString credit;
};

/// Thousands parted by commas, without decimals that are zero; nothing is 0. A text that is no
/// number stays as it is.
QString GroupedAmount(const QString& amount);

/// A window with the document's head, its lines and their sums, for reading and copying. Modal to
/// the whole program.
class DocumentWindow : public QDialog {
 public:
  explicit DocumentWindow(const AccountingDocument& document);

  /// Shows it and waits until it is closed.
  void Run();
};

}  // namespace adapters::qt
