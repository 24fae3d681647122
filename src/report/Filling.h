#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "report/Markup.h"
#include "report/Nodes.h"

namespace report {

/// One text of a template as it is filled in. Steps that fail leave it where it was, so that they
/// can be tried again.
class Filling : public Markup {
 public:
  enum class Escape { kNothing, kHtml };
  /// `text` is one of the data's template.
  Filling(std::shared_ptr<ReportData> data, const TaggedText& text, Escape escape);

  bool Next(std::string& text, int& line) override;
  MarkupPlace Where() const override { return place_; }
  void GoTo(const MarkupPlace& place) override { place_ = place; }

 private:
  using Turn = MarkupPlace::Turn;

  const QueryRows::Level& LevelOf(const Node& section) const;
  QueryRows& RowsOf(const Node& section) const { return data_->queries[section.query]; }
  const Node& SectionOf(const Turn& turn) const { return nodes_[turn.node]; }
  const Turn& Around(const Turn& turn) const { return place_.turns[SectionOf(turn).around]; }
  std::size_t FirstRow(const Node& section) const;

  bool IsIn(const Turn& turn, std::size_t row) const;
  bool IsAround(const Node& section, std::size_t row) const;
  std::size_t EndOf(Turn& turn) const;
  bool HasItems(const Node& section) const;
  bool Enter(const Node& section);
  bool GoOn();
  void RequireOrder(const Turn& item, bool isLast, const Turn& next) const;

  std::int64_t MonthOf(const Node& section, std::size_t row) const;
  std::int64_t DayOfMonth(const Turn& day) const;
  std::string Value(const Field& field);
  std::string DateValue(const Field& field, const Turn& turn) const;

  std::shared_ptr<ReportData> data_;
  std::vector<Node> nodes_;
  Escape escape_;
  MarkupPlace place_;
};

}  // namespace report
