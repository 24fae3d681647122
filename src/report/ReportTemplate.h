#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace report {

/// A tag of the template's text: `{{Name}}`, `{{#Name}}`, `{{^Name}}`, `{{/Name}}` or `{{!...}}`,
/// which has no name.
struct Tag {
  enum class Kind { kField, kSection, kInverted, kEnd, kComment };
  Kind kind;
  std::string name;
  int line;               // of the file, from 1
  std::size_t begin = 0;  // where it stands in the text
  std::size_t end = 0;
};

/// Text with tags, known to be balanced.
struct TaggedText {
  std::string text;
  std::vector<Tag> tags;
  int line = 1;  // of the file, where the text begins
};

/// Rows that follow each other with the same values in the columns `by` are one item of the group.
/// By calendar, `by` is one column that holds Solar Hijri dates yyyy/mm/dd: rows of one month are
/// an item; every week, Saturday to Friday, that the month around it touches; every day of the week
/// around it.
struct ReportGroup {
  enum class Calendar { kNone, kMonth, kWeek, kDay };
  std::string name;
  std::vector<std::string> by;
  Calendar calendar = Calendar::kNone;
  int line = 0;
};

struct ReportQuery {
  std::string name;                 // the section of its rows
  std::string statement;            // with {formulaField} where the selection formula's number goes
  std::vector<ReportGroup> groups;  // from the outermost
  int line;
};

enum class Orientation { kPortrait, kLandscape };
enum class Digits { kLatin, kPersian };

/// A report template: an HTML file, UTF-8, which begins with a comment that says where its data
/// come from, and has Mustache tags where they go. docs/report-templates.md describes the file for
/// those who write one.
class ReportTemplate {
 public:
  /// `name` stands for the file in error texts. Throws ReportError 321 with the line when the head
  /// or the tags are not right. Names of columns are not known before the queries have run, so
  /// Fill checks them.
  static ReportTemplate Load(std::string_view text, std::string name);

  const std::string& Name() const { return name_; }
  const std::vector<ReportQuery>& Queries() const { return queries_; }
  const TaggedText& Title() const { return title_; }
  const TaggedText& Header() const { return header_; }
  const TaggedText& Body() const { return body_; }
  Orientation PageOrientation() const { return orientation_; }
  Digits ShownDigits() const { return digits_; }

  /// Throws ReportError 321 about a line of the file.
  [[noreturn]] void Refuse(int line, const std::string& words, const std::string& technical) const;

 private:
  explicit ReportTemplate(std::string name) : name_(std::move(name)) {}

  struct Entry {
    std::string key;
    std::string value;
    int line;
  };
  std::vector<Entry> ReadHead(std::string_view head, int firstLine) const;
  void TakeEntry(const Entry& entry);
  void AddQuery(const std::string& name, const Entry& entry);
  void AddGroups(const std::string& query, const Entry& entry);
  ReportGroup ReadGroup(std::string_view part, int line) const;
  void CheckCalendar(const std::vector<ReportGroup>& groups) const;
  void CheckNewSection(const std::string& name, int line) const;
  TaggedText ReadTags(std::string_view text, int firstLine) const;
  Tag ReadTag(std::string_view inside, int line) const;

  std::string name_;
  std::vector<ReportQuery> queries_;
  TaggedText title_;
  TaggedText header_;
  TaggedText body_;
  Orientation orientation_ = Orientation::kPortrait;
  Digits digits_ = Digits::kLatin;
};

/// Latin letters, digits and "_", not beginning with a digit.
bool IsName(std::string_view s);

}  // namespace report
