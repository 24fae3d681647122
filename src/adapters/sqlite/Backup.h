#pragma once

#include <functional>
#include <string>

namespace adapters::sqlite {

/// Told after each part of a copy, in pages of the file.
using BackupProgress = std::function<void(int done, int total)>;

/// Copies an office's file (UTF-8 paths, links followed) as it stands now, with what its log holds,
/// while other programs read and write it. The copy is one file by itself, with the rights of its
/// model. It is made beside `to` under another name, checked, and takes that name when it is whole;
/// until then whatever stood there stays. Throws RuntimeError: 75 when `to` is the file itself or
/// is open in another program, 824 when the copy is damaged, which its model then is too.
void BackUp(const std::string& from, const std::string& to, const BackupProgress& progress);

}  // namespace adapters::sqlite
