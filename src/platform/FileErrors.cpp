#include "platform/FileErrors.h"

namespace platform {

namespace {

std::string_view FileSentence(std::int32_t number) {
  switch (number) {
    case kPathFileAccess:
      return "اين نام يك فايل نيست.";
    case kPathNotFound:
      return "پوشه اين فايل وجود ندارد.";
    case kPermissionDenied:
      return "اجازه نوشتن اين فايل را نداريد.";
    case kDiskFull:
      return "فايل نوشته نشد؛ ديسك پر است.";
    default:
      return "فايل نوشته نشد.";
  }
}

}  // namespace

RuntimeError FileError(std::int32_t number, const std::string& path, const std::string& words,
                       const std::string& source, std::string_view sentence) {
  std::string description(sentence.empty() ? FileSentence(number) : sentence);
  description.append(" ").append(path);
  if (!words.empty()) description.append(" (").append(words).append(")");
  return {number, description, source};
}

}  // namespace platform
