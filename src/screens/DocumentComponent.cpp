#include "screens/DocumentComponent.h"

#include <optional>

#include "platform/RuntimeError.h"
#include "screens/AutomationValues.h"
#include "screens/DocumentForm.h"
#include "screens/MessageForm.h"

namespace screens {

using platform::AutomationValue;

namespace {

constexpr std::int32_t kWrongNumberOfArguments = 450;

/// Nothing when there is no such document.
std::optional<AccountingDocument> Read(platform::Connection& connection, std::int32_t documentId) {
  const std::string id = std::to_string(documentId);
  const platform::RowSet head = connection.Execute(
      "Select Code, FarsiDocumentDate, Description from tblAccountDocument Where ID=" + id);
  if (head.RowCount() == 0) return std::nullopt;
  AccountingDocument document;
  document.code = head.Text(0, 0);
  document.date = head.Text(0, 1);
  document.description = head.Text(0, 2);

  const platform::RowSet lines = connection.Execute(
      "Select d.RowNumber, a.Code, a.Name, b.Name as Branch, d.Description, d.Debit, d.Credit"
      " from tblAccountDocumentDetail d"
      " inner join tblAccount a on a.ID=d.AccountID"
      " left outer join tblAccountBranch b on b.ID=d.BranchID"
      " Where d.DocumentID=" +
      id + " order by d.RowNumber");
  for (std::size_t row = 0; row < lines.RowCount(); ++row) {
    AccountingDocument::Line line;
    for (std::size_t column = 0; column < line.size(); ++column) {
      line[column] = lines.Text(row, column);
    }
    document.lines.push_back(std::move(line));
  }

  // The server adds up: amounts may be of a type that no number here holds exactly.
  const platform::RowSet sums = connection.Execute(
      "Select Sum(Debit) as Debit, Sum(Credit) as Credit from tblAccountDocumentDetail"
      " Where DocumentID=" +
      id);
  if (sums.RowCount() > 0) {
    document.debit = sums.Text(0, 0);
    document.credit = sums.Text(0, 1);
  }
  return document;
}

}  // namespace

void DocumentComponent::Put(std::string_view member, const AutomationValue& value) {
  if (member == "OLEConnectionString") {
    connectionString_ = AsText(value);
  } else if (member == "UserID" || member == "PositionID") {
    // Who may look was settled by the caller, and everybody sees the same.
    static_cast<void>(AsNumber(value, kProgId));
  } else {
    ThrowNoSuchMember(kProgId);
  }
}

AutomationValue DocumentComponent::Get(std::string_view /*member*/) {
  ThrowNoSuchMember(kProgId);
}

AutomationValue DocumentComponent::Call(std::string_view member,
                                        std::span<const AutomationValue> arguments) {
  if (member != "View") ThrowNoSuchMember(kProgId);
  if (arguments.size() != 1) {
    throw platform::RuntimeError(kWrongNumberOfArguments, "Wrong number of arguments",
                                 std::string(kProgId));
  }
  const std::int32_t documentId = AsNumber(arguments.front(), kProgId);
  guard_.Run([&] { View(documentId); });
  return {};
}

void DocumentComponent::View(std::int32_t documentId) {
  std::optional<AccountingDocument> document;
  if (documentId > 0) document = Read(*connections_.Create(connectionString_), documentId);
  if (document) {
    DocumentForm(screen_, *document).Run();
    return;
  }
  MessageForm(screen_, {.title = "سند حسابداري",
                        .text = "هنوز سند حسابداري براي اين فرم ثبت نشده است.",
                        .technical = {},
                        .kind = MessageKind::kInformation})
      .Ask();
}

}  // namespace screens
