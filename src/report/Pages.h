#pragma once

#include <memory>
#include <string>
#include <vector>

#include "controls/Sheet.h"
#include "report/Fill.h"
#include "report/Letters.h"

namespace report {

/// A filled report on A4 sheets: on every page its title and header above, the day of printing and
/// «صفحه x از y» below, and the head of a table again where the table goes on. Rows of a table are
/// never parted. Pages are laid out in their order as they are asked for; of each only the place is
/// kept where it begins, and any that was reached can be made again from there.
class Pages {
 public:
  /// `letters` outlives the pages.
  Pages(FilledReport report, const Letters& letters);
  Pages(const Pages&) = delete;
  Pages& operator=(const Pages&) = delete;
  ~Pages();

  const std::string& Title() const;
  /// Of a sheet, in points.
  double Width() const;
  double Height() const;

  /// How many pages have been reached, at least 1; all of them once Finished.
  int Count() const;
  bool Finished() const;
  /// Reaches one more page. False once all are. Throws RuntimeError: of the database, of the
  /// template (321); the same call can be tried again.
  bool LayOutMore();
  /// Page `page` (from 0) of those that were reached. Until the report is finished it says
  /// «صفحه x از ...». Throws as LayOutMore does.
  controls::Sheet At(int page);

 private:
  class Layout;
  std::unique_ptr<Layout> layout_;
};

}  // namespace report
