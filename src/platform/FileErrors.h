#pragma once

#include <string>
#include <string_view>

#include "platform/RuntimeError.h"

namespace platform {

/// A file that was not written: the sentence of the number in Persian (kPathNotFound,
/// kPathFileAccess, kPermissionDenied, kDiskFull, or that it was not written), or `sentence` where
/// the caller has one of its own, then the path and the system's words, which may be empty.
RuntimeError FileError(std::int32_t number, const std::string& path, const std::string& words,
                       const std::string& source, std::string_view sentence = {});

}  // namespace platform
