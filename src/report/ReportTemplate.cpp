#include "report/ReportTemplate.h"

#include <algorithm>
#include <array>

#include "report/ReportError.h"
#include "text/Text.h"

namespace report {

namespace {

constexpr std::string_view kHeadBegin = "<!--report";
constexpr std::string_view kHeadEnd = "-->";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r\n";
/// In the order of ReportGroup::Calendar.
constexpr std::array<std::string_view, 3> kCalendarWords{"month", "week", "day"};

std::string_view TrimBlanks(std::string_view s) {
  const auto first = s.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return s.substr(first, s.find_last_not_of(kBlanks) - first + 1);
}

int LinesIn(std::string_view s) {
  return static_cast<int>(std::count(s.begin(), s.end(), '\n'));
}

std::vector<std::string_view> Split(std::string_view s, char separator) {
  std::vector<std::string_view> parts;
  for (;;) {
    const auto end = s.find(separator);
    parts.push_back(TrimBlanks(s.substr(0, end)));
    if (end == std::string_view::npos) return parts;
    s.remove_prefix(end + 1);
  }
}

}  // namespace

bool IsName(std::string_view s) {
  const auto isLetter = [](char c) { return text::IsLatinLetter(c) || c == '_'; };
  return !s.empty() && isLetter(s.front()) &&
         std::all_of(s.begin(), s.end(), [&](char c) { return isLetter(c) || text::IsDigit(c); });
}

void ReportTemplate::Refuse(int line, const std::string& words,
                            const std::string& technical) const {
  RefuseTemplate(name_, line, words, technical);
}

ReportTemplate ReportTemplate::Load(std::string_view text, std::string name) {
  ReportTemplate report(std::move(name));
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  const auto begin = std::min(text.find_first_not_of(kBlanks), text.size());
  const auto end = text.find(kHeadEnd);
  if (!text.substr(begin).starts_with(kHeadBegin) || end == std::string_view::npos) {
    report.Refuse(1, "پرونده با سرآغاز گزارش شروع نمي شود.",
                  "the file does not begin with a comment <!--report ... -->");
  }
  const auto head = text.substr(begin + kHeadBegin.size(), end - begin - kHeadBegin.size());
  const int headLine = 1 + LinesIn(text.substr(0, begin));
  for (const Entry& entry : report.ReadHead(head, headLine)) report.TakeEntry(entry);
  if (report.title_.text.empty()) {
    report.Refuse(headLine, "عنوان گزارش نوشته نشده است.", "the head has no title");
  }
  if (report.queries_.empty()) {
    report.Refuse(headLine, "گزارش پرسشي ندارد.", "the head has no query");
  }
  const auto bodyBegin = end + kHeadEnd.size();
  report.body_ = report.ReadTags(text.substr(bodyBegin), 1 + LinesIn(text.substr(0, bodyBegin)));
  return report;
}

/// "key: value" each; a line that begins with a blank carries on the value before it.
std::vector<ReportTemplate::Entry> ReportTemplate::ReadHead(std::string_view head,
                                                            int firstLine) const {
  std::vector<Entry> entries;
  int number = firstLine;
  for (std::size_t at = 0; at <= head.size(); ++number) {
    const auto end = std::min(head.find('\n', at), head.size());
    const std::string_view line = head.substr(at, end - at);
    at = end + 1;
    const std::string_view content = TrimBlanks(line);
    if (content.empty()) continue;
    if (kBlanks.find(line.front()) != std::string_view::npos && !entries.empty()) {
      entries.back().value.append(entries.back().value.empty() ? "" : "\n").append(content);
      continue;
    }
    const auto colon = content.find(':');
    if (colon == std::string_view::npos) {
      Refuse(number, "در سرآغاز گزارش هر سطر بايد نام، دونقطه و مقدار باشد.",
             "no \"name: value\": " + std::string(content));
    }
    entries.push_back({std::string(TrimBlanks(content.substr(0, colon))),
                       std::string(TrimBlanks(content.substr(colon + 1))), number});
  }
  return entries;
}

void ReportTemplate::TakeEntry(const Entry& entry) {
  const auto refuseValue = [&] {
    Refuse(entry.line, "مقدار «" + entry.value + "» براي «" + entry.key + "» شناخته نيست.",
           "unknown value of " + entry.key + ": " + entry.value);
  };
  const auto blank = entry.key.find(' ');
  const std::string kind = entry.key.substr(0, blank);
  const std::string name = blank == std::string::npos ? std::string() : entry.key.substr(blank + 1);
  if (kind == "query" && !name.empty()) {
    AddQuery(name, entry);
  } else if (kind == "group" && !name.empty()) {
    AddGroups(name, entry);
  } else if (entry.key == "title") {
    title_ = ReadTags(entry.value, entry.line);
  } else if (entry.key == "header") {
    header_ = ReadTags(entry.value, entry.line);
  } else if (entry.key == "page") {
    if (entry.value != "portrait" && entry.value != "landscape") refuseValue();
    orientation_ = entry.value == "portrait" ? Orientation::kPortrait : Orientation::kLandscape;
  } else if (entry.key == "digits") {
    if (entry.value != "latin" && entry.value != "persian") refuseValue();
    digits_ = entry.value == "latin" ? Digits::kLatin : Digits::kPersian;
  } else {
    Refuse(entry.line, "سرآغاز گزارش «" + entry.key + "» ندارد.",
           "unknown entry of the head: " + entry.key);
  }
}

void ReportTemplate::CheckNewSection(const std::string& name, int line) const {
  if (!IsName(name)) {
    Refuse(line, "«" + name + "» نام درستي براي يك بخش نيست.", "no name for a section: " + name);
  }
  for (const ReportQuery& query : queries_) {
    const bool isGroup = std::any_of(query.groups.begin(), query.groups.end(),
                                     [&](const ReportGroup& group) { return group.name == name; });
    if (isGroup || query.name == name) {
      Refuse(line, "بخش «" + name + "» دو بار نام برده شده است.", "section named twice: " + name);
    }
  }
}

void ReportTemplate::AddQuery(const std::string& name, const Entry& entry) {
  CheckNewSection(name, entry.line);
  // A statement that the formula does not restrict would print what nobody asked for.
  if (entry.value.find('{') == std::string::npos) {
    Refuse(entry.line, "پرسش «" + name + "» به برنامه انتخاب شده محدود نشده است.",
           "query " + name + " has no {formula field}");
  }
  queries_.push_back({name, entry.value, {}, entry.line});
}

void ReportTemplate::AddGroups(const std::string& query, const Entry& entry) {
  const auto owner = std::find_if(queries_.begin(), queries_.end(),
                                  [&](const ReportQuery& each) { return each.name == query; });
  if (owner == queries_.end()) {
    Refuse(entry.line, "پرسشي به نام «" + query + "» پيش از اين نيامده است.",
           "no query of this name before: " + query);
  }
  for (std::string_view part : Split(entry.value, ';')) {
    owner->groups.push_back(ReadGroup(part, entry.line));
  }
  CheckCalendar(owner->groups);
}

ReportGroup ReportTemplate::ReadGroup(std::string_view part, int line) const {
  constexpr std::string_view kBy = " by ";
  const auto by = part.find(kBy);
  if (by == std::string_view::npos) {
    Refuse(line, "گروه «" + std::string(part) + "» نمي گويد بر پايه كدام ستونهاست.",
           "no \"name by column, column\": " + std::string(part));
  }
  ReportGroup group{.name = std::string(TrimBlanks(part.substr(0, by))), .by = {}, .line = line};
  CheckNewSection(group.name, line);
  for (std::string_view column : Split(part.substr(by + kBy.size()), ',')) {
    const auto blank = column.find(' ');
    const auto* const word = std::ranges::find(kCalendarWords, column.substr(0, blank));
    if (blank != std::string_view::npos && word != kCalendarWords.end()) {
      group.calendar = static_cast<ReportGroup::Calendar>(word - kCalendarWords.begin() + 1);
      column = TrimBlanks(column.substr(blank));
    }
    group.by.emplace_back(column);
  }
  return group;
}

void ReportTemplate::CheckCalendar(const std::vector<ReportGroup>& groups) const {
  using Calendar = ReportGroup::Calendar;
  const ReportGroup* outer = nullptr;
  for (const ReportGroup& group : groups) {
    if (group.calendar != Calendar::kNone && group.by.size() != 1) {
      Refuse(group.line, "گروه «" + group.name + "» تقويمي است و تنها يك ستون مي پذيرد.",
             "a group by calendar has one column: " + group.name);
    }
    const auto inside = [&](Calendar around) {
      return outer != nullptr && outer->calendar == around && outer->by == group.by;
    };
    if (group.calendar == Calendar::kWeek && !inside(Calendar::kMonth)) {
      Refuse(group.line, "گروه «" + group.name + "» بايد درون ماه همان ستون باشد.",
             "a group by week stands inside one by month of its column: " + group.name);
    }
    if (group.calendar == Calendar::kDay && !inside(Calendar::kWeek)) {
      Refuse(group.line, "گروه «" + group.name + "» بايد درون هفته همان ستون باشد.",
             "a group by day stands inside one by week of its column: " + group.name);
    }
    outer = &group;
  }
}

Tag ReportTemplate::ReadTag(std::string_view inside, int line) const {
  inside = TrimBlanks(inside);
  Tag tag{Tag::Kind::kField, {}, line};
  const char sign = inside.empty() ? '\0' : inside.front();
  if (sign == '#') tag.kind = Tag::Kind::kSection;
  if (sign == '^') tag.kind = Tag::Kind::kInverted;
  if (sign == '/') tag.kind = Tag::Kind::kEnd;
  if (tag.kind != Tag::Kind::kField) inside = TrimBlanks(inside.substr(1));
  tag.name = inside;
  // What Mustache has besides (text as it is, partials, other delimiters) has no use here, and the
  // first of them would let data write HTML.
  if (!IsName(tag.name)) {
    Refuse(line, "نشانه «{{" + tag.name + "}}» درست نيست.", "no tag of a report: " + tag.name);
  }
  return tag;
}

TaggedText ReportTemplate::ReadTags(std::string_view text, int firstLine) const {
  TaggedText result{std::string(text), {}, firstLine};
  std::vector<Tag> open;
  int line = firstLine;
  for (std::size_t at = 0;;) {
    const auto begin = text.find("{{", at);
    line += LinesIn(text.substr(at, begin - at));
    if (begin == std::string_view::npos) break;
    const auto end = text.find("}}", begin);
    if (end == std::string_view::npos) {
      Refuse(line, "نشانه اي بسته نشده است.", "a tag is not closed");
    }
    const auto inside = text.substr(begin + 2, end - begin - 2);
    at = end + 2;
    const int tagLine = line;
    line += LinesIn(inside);
    Tag tag{Tag::Kind::kComment, {}, tagLine};
    if (!inside.starts_with('!')) tag = ReadTag(inside, tagLine);
    tag.begin = begin;
    tag.end = end + 2;
    if (tag.kind == Tag::Kind::kSection || tag.kind == Tag::Kind::kInverted) open.push_back(tag);
    if (tag.kind == Tag::Kind::kEnd) {
      if (open.empty() || open.back().name != tag.name) {
        Refuse(tagLine, "بخش «" + tag.name + "» اينجا باز نيست.",
               "section is not open here: " + tag.name);
      }
      open.pop_back();
    }
    result.tags.push_back(std::move(tag));
  }
  if (!open.empty()) {
    Refuse(open.back().line, "بخش «" + open.back().name + "» بسته نشده است.",
           "section is not closed: " + open.back().name);
  }
  return result;
}

}  // namespace report
