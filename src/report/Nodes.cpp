#include "report/Nodes.h"

#include <algorithm>
#include <optional>

namespace report {

namespace {

using Calendar = ReportGroup::Calendar;
using Kind = Field::Kind;

constexpr std::string_view kFarsi = "Farsi";
constexpr std::string_view kWeekday = "Weekday";

/// A column whose name begins with "Farsi" has the day's name beside it.
bool IsWeekdayOf(std::string_view name, std::string_view column) {
  return column.starts_with(kFarsi) && name.size() == column.size() + kWeekday.size() &&
         name.starts_with(column) && name.ends_with(kWeekday);
}

class Compiler {
 public:
  Compiler(const ReportData& data, const TaggedText& text) : data_(data), text_(text) {}

  std::vector<Node> Run() {
    std::size_t at = 0;
    int line = text_.line;
    const auto takeText = [&](std::size_t end) {
      const std::string_view text = std::string_view(text_.text).substr(at, end - at);
      if (!text.empty()) nodes_.push_back({.kind = Node::Kind::kText, .line = line, .text = text});
    };
    for (const Tag& tag : text_.tags) {
      takeText(tag.begin);
      TakeTag(tag);
      at = tag.end;
      const auto inside = std::string_view(text_.text).substr(tag.begin, tag.end - tag.begin);
      line = tag.line + static_cast<int>(std::count(inside.begin(), inside.end(), '\n'));
    }
    takeText(text_.text.size());
    nodes_.push_back({.kind = Node::Kind::kStop, .line = line});
    return std::move(nodes_);
  }

 private:
  void TakeTag(const Tag& tag) {
    switch (tag.kind) {
      case Tag::Kind::kComment:
        break;
      case Tag::Kind::kField:
        nodes_.push_back(
            {.kind = Node::Kind::kField, .line = tag.line, .field = RequireField(tag)});
        break;
      case Tag::Kind::kSection:
      case Tag::Kind::kInverted:
        OpenSection(tag);
        break;
      case Tag::Kind::kEnd:
        CloseSection(tag);
        break;
    }
  }

  Field RequireField(const Tag& tag) const {
    const auto field = FindField(tag.name);
    if (!field) {
      data_.report.Refuse(tag.line, "فيلد «" + tag.name + "» اينجا شناخته نيست.",
                          "no field of this name here: " + tag.name);
    }
    return *field;
  }

  void OpenSection(const Tag& tag) {
    const bool inverted = tag.kind == Tag::Kind::kInverted;
    open_.push_back(nodes_.size());
    if (const auto field = FindField(tag.name)) {
      nodes_.push_back({.kind = inverted ? Node::Kind::kUnless : Node::Kind::kIf,
                        .line = tag.line,
                        .field = *field});
      return;
    }
    auto section = FindSection(tag.name);
    if (!section) {
      data_.report.Refuse(tag.line, "بخش «" + tag.name + "» اينجا شناخته نيست.",
                          "no section of this name here: " + tag.name);
    }
    section->kind = inverted ? Node::Kind::kNoItems : Node::Kind::kItems;
    section->line = tag.line;
    if (!inverted) turns_.push_back(nodes_.size());
    nodes_.push_back(*section);
  }

  void CloseSection(const Tag& tag) {
    const std::size_t opened = open_.back();
    open_.pop_back();
    const bool repeats = nodes_[opened].kind == Node::Kind::kItems;
    if (repeats) turns_.pop_back();
    nodes_.push_back({.kind = repeats ? Node::Kind::kEndOfItem : Node::Kind::kEnd,
                      .line = tag.line,
                      .other = opened});
    nodes_[opened].other = nodes_.size();
  }

  std::optional<Field> FindField(std::string_view name) const {
    for (std::size_t turn = turns_.size(); turn-- > 0;) {
      const Node& section = nodes_[turns_[turn]];
      if (auto field = FieldIn(data_.queries[section.query], section.level, name)) {
        field->turn = turn;
        return field;
      }
    }
    if (name == "Today") return Field{};
    return std::nullopt;
  }

  static std::optional<Field> FieldIn(const QueryRows& query, std::size_t level,
                                      std::string_view name) {
    const bool isGroup = level + 1 < query.Levels().size();
    if (name == "RowNumber") return Field{Kind::kRowNumber};
    if (name == "First") return Field{Kind::kFirst};
    if (isGroup && name == "RowCount") return Field{Kind::kRowCount};
    const QueryRows::Level& section = query.Levels()[level];
    if (section.calendar != Calendar::kNone) return CalendarField(query, section, name);
    for (std::size_t column = 0; column < query.Columns().size(); ++column) {
      const auto& by = section.columns;
      if (isGroup && std::find(by.begin(), by.end(), column) == by.end()) continue;
      const std::string& title = query.Columns()[column];
      if (name == title) return Field{Kind::kColumn, 0, column};
      if (IsWeekdayOf(name, title)) return Field{Kind::kColumnWeekday, 0, column};
    }
    return std::nullopt;
  }

  static std::optional<Field> CalendarField(const QueryRows& query, const QueryRows::Level& level,
                                            std::string_view name) {
    if (level.calendar == Calendar::kMonth) {
      if (name == "MonthName") return Field{Kind::kMonthName};
      if (name == "Year") return Field{Kind::kYear};
    } else if (level.calendar == Calendar::kDay) {
      const std::string& column = query.Columns()[level.columns.front()];
      if (name == "Day") return Field{Kind::kDay};
      if (name == kWeekday) return Field{Kind::kWeekday};
      if (name == "Friday") return Field{Kind::kFriday};
      if (name == column) return Field{Kind::kDate};
      if (IsWeekdayOf(name, column)) return Field{Kind::kDateWeekday};
    }
    return std::nullopt;
  }

  /// As a node that says what it repeats and wherein.
  std::optional<Node> FindSection(std::string_view name) const {
    Node found{.kind = Node::Kind::kItems, .line = 0};
    for (std::size_t turn = turns_.size(); turn-- > 0;) {
      const Node& outer = nodes_[turns_[turn]];
      const auto& levels = data_.queries[outer.query].Levels();
      if (outer.level + 1 < levels.size() && levels[outer.level + 1].name == name) {
        found.query = outer.query;
        found.level = outer.level + 1;
        found.around = turn;
        return found;
      }
    }
    for (found.query = 0; found.query < data_.queries.size(); ++found.query) {
      if (data_.queries[found.query].Levels().front().name == name) return found;
    }
    return std::nullopt;
  }

  const ReportData& data_;
  const TaggedText& text_;
  std::vector<Node> nodes_;
  std::vector<std::size_t> open_;   // nodes of the sections that are open, conditions too
  std::vector<std::size_t> turns_;  // of those, the ones that repeat items
};

}  // namespace

std::vector<Node> Compile(const ReportData& data, const TaggedText& text) {
  return Compiler(data, text).Run();
}

}  // namespace report
