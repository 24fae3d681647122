#include "adapters/qt/RtlTables.h"

#include <QRegularExpression>
#include <vector>

#include "adapters/qt/Convert.h"
#include "platform/RuntimeError.h"

namespace adapters::qt {

namespace {

constexpr std::int32_t kInvalidFileFormat = 321;

struct Piece {
  qsizetype begin;
  qsizetype end;
};

/// A table, with the row and the cell that are open in it.
struct OpenTable {
  bool mirrored = false;
  bool inRow = false;
  qsizetype rowBegin = 0;  // behind the tag of the row
  qsizetype cellBegin = -1;
  std::vector<Piece> cells;
};

[[noreturn]] void Refuse(const QString& tag) {
  throw platform::RuntimeError(kInvalidFileFormat,
                               ToUtf8(QStringLiteral("جدول گزارش درست نيست.\n"
                                                     "a table's rows and cells do not close: %1")
                                          .arg(tag)),
                               "report");
}

class Mirror {
 public:
  explicit Mirror(const QString& html) : html_(html) {}

  QString Run() {
    static const QRegularExpression tags(QStringLiteral("<(/?)(table|tr|td|th)\\b([^>]*)>"),
                                         QRegularExpression::CaseInsensitiveOption);
    auto found = tags.globalMatch(html_);
    while (found.hasNext()) Take(found.next());
    if (!tables_.empty()) Refuse(QStringLiteral("</table>"));
    result_.append(QStringView(html_).mid(copied_));
    return result_;
  }

 private:
  void Take(const QRegularExpressionMatch& match) {
    const bool closes = !match.capturedView(1).isEmpty();
    const QString tag = match.captured(2).toLower();
    if (tag == QLatin1String("table")) return closes ? CloseTable() : OpenTableAt(match);
    if (tables_.empty()) Refuse(match.captured());
    OpenTable& table = tables_.back();
    if (tag == QLatin1String("tr")) {
      if (table.inRow != closes || table.cellBegin >= 0) Refuse(match.captured());
      table.inRow = !closes;
      if (closes) return MirrorRow(table, match.capturedStart());
      table.rowBegin = match.capturedEnd();
      table.cells.clear();
    } else {
      if (!table.inRow || (table.cellBegin >= 0) != closes) Refuse(match.captured());
      if (closes) table.cells.push_back({table.cellBegin, match.capturedEnd()});
      table.cellBegin = closes ? -1 : match.capturedStart();
    }
  }

  void OpenTableAt(const QRegularExpressionMatch& match) {
    // A table in a cell goes along with its cell.
    const bool inner = !tables_.empty() && tables_.back().mirrored;
    const bool rtl =
        match.capturedView(3).contains(QLatin1String("dir=\"rtl\""), Qt::CaseInsensitive);
    if (inner && rtl) Refuse(match.captured());
    tables_.push_back({rtl, false, 0, -1, {}});
  }

  void CloseTable() {
    if (tables_.empty() || tables_.back().inRow) Refuse(QStringLiteral("</table>"));
    tables_.pop_back();
  }

  void MirrorRow(const OpenTable& table, qsizetype rowEnd) {
    if (!table.mirrored || table.cells.empty()) return;
    result_.append(QStringView(html_).mid(copied_, table.rowBegin - copied_));
    for (auto cell = table.cells.rbegin(); cell != table.cells.rend(); ++cell) {
      result_.append(QStringView(html_).mid(cell->begin, cell->end - cell->begin));
    }
    copied_ = rowEnd;
  }

  const QString& html_;
  QString result_;
  qsizetype copied_ = 0;
  std::vector<OpenTable> tables_;
};

}  // namespace

QString WithMirroredTables(const QString& html) {
  return Mirror(html).Run();
}

}  // namespace adapters::qt
