#include "platform/ServerErrors.h"

#include <algorithm>
#include <array>

namespace platform {

namespace {

/// "%" stands for the database's name.
struct Sentence {
  std::int32_t number;
  std::string_view text;
};

constexpr std::string_view kMissingObject =
    "پايگاه داده% جدول، نما، تابع يا روالي را كه خواسته شد ندارد. نام و نسخه پايگاه داده را "
    "بررسي كنيد.";
constexpr std::string_view kNoRight =
    "پايگاه داده% به شما اجازه اين كار را نمي دهد. دسترسي را از مدير پايگاه داده بخواهيد.";
constexpr std::string_view kDuplicate =
    "در پايگاه داده% سطري با همين كليد هست و سطر تكراري ثبت نشد.";
constexpr std::string_view kFull =
    "براي نوشتن در پايگاه داده% جا نيست و اين تغيير ثبت نشد؛ روي ديسك آن جا باز كنيد و دوباره تلاش "
    "كنيد.";

constexpr auto kSentences = std::to_array<Sentence>({
    {207, "پايگاه داده% ستوني را كه خواسته شد ندارد. نام و نسخه پايگاه داده را بررسي كنيد."},
    {208, kMissingObject},
    {229, kNoRight},
    {230, kNoRight},
    {512,
     "در پايگاه داده% براي چيزي كه بايد يكي باشد چند سطر هست، براي نمونه يك مشتري در دو مسير. "
     "به مدير سيستم بگوييد."},
    {547,
     "پايگاه داده% اين كار را نپذيرفت: داده ديگري به آن وابسته است، يا آنچه به آن اشاره شده "
     "وجود ندارد."},
    {1105, kFull},
    {1205,
     "كار شما با كار همزمان كاربر ديگري در پايگاه داده% برخورد كرد و كنار گذاشته شد. برنامه "
     "بازارياب را از نو باز كنيد، نگاه كنيد و دوباره تلاش كنيد."},
    {1222, "پايگاه داده% را كاربر يا برنامه ديگري قفل كرده است؛ كمي بعد دوباره تلاش كنيد."},
    {2601, kDuplicate},
    {2627, kDuplicate},
    {2812, kMissingObject},
    {3906, "پايگاه داده% فقط خواندني است و چيزي در آن ثبت نشد."},
    {9002, kFull},
});

}  // namespace

std::string ServerSentence(std::int32_t number, std::string_view database) {
  const auto* const found = std::ranges::find(kSentences, number, &Sentence::number);
  if (found == kSentences.end()) return {};
  std::string sentence(found->text);
  const std::string name = database.empty() ? "" : " «" + LeftToRight(database) + "»";
  return sentence.replace(sentence.find('%'), 1, name);
}

std::string LeftToRight(std::string_view words) {
  std::string result;
  for (;;) {
    const std::size_t end = words.find('\n');
    const std::string_view line = words.substr(0, end);
    if (!line.empty()) result.append("\u202A").append(line).append("\u202C");
    if (end == std::string_view::npos) return result;
    result += '\n';
    words.remove_prefix(end + 1);
  }
}

std::string Described(std::string_view sentence, std::string_view words) {
  if (sentence.empty() || words.empty()) return std::string(sentence.empty() ? words : sentence);
  return std::string(sentence) + "\n" + LeftToRight(words);
}

}  // namespace platform
