#include "screens/PutPages.h"

namespace screens {

namespace {

class Shown {
 public:
  Shown(platform::Progress& progress, std::string_view what, int total) : progress_(progress) {
    progress_.Begin(what, static_cast<std::size_t>(total));
  }
  ~Shown() { progress_.End(); }
  Shown(const Shown&) = delete;
  Shown& operator=(const Shown&) = delete;

 private:
  platform::Progress& progress_;
};

}  // namespace

bool LayOutRest(report::Pages& pages, platform::Progress& progress) {
  if (pages.Finished()) return true;
  const Shown shown(progress, "شمردن صفحه ها", 0);
  while (pages.LayOutMore()) {
    if (!progress.Advance(static_cast<std::size_t>(pages.Count()))) return false;
  }
  return true;
}

bool PutPages(report::Pages& pages, platform::Progress& progress, std::string_view what, int first,
              int end, const std::function<void(const controls::Sheet&)>& put) {
  const Shown shown(progress, what, end - first);
  for (int page = first; page < end; ++page) {
    put(pages.At(page));
    if (!progress.Advance(static_cast<std::size_t>(page + 1 - first))) return false;
  }
  return true;
}

}  // namespace screens
