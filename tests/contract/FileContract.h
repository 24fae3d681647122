// What every platform::FileSystem promises: one file of an adapter's tests includes this once.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <utility>

#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"
#include "support/TestFolder.h"

namespace contract {

/// The adapter's own.
std::unique_ptr<platform::FileSystem> MakeFileSystem();

class FileTest : public testing::Test {
 protected:
  std::unique_ptr<platform::TextFile> Written(const std::string& text) {
    auto made = files->CreateTextFile(name);
    made->Write(text);
    made->WriteLineBreak();
    return made;
  }
  std::string Content() const { return support::Content(onDisk); }
  /// The error that `action` ends with, which names the path.
  template <typename Action>
  void ExpectError(int number, const std::string& path, Action action) {
    try {
      action(path);
      ADD_FAILURE() << path;
    } catch (const platform::RuntimeError& error) {
      EXPECT_EQ(error.Number(), number) << path;
      EXPECT_NE(error.Description().find(path), std::string::npos) << error.Description();
    }
  }

  const support::TestFolder folder;
  const std::filesystem::path onDisk = folder.Path() / u8"گ.txt";
  const std::string name = folder.File("گ.txt");
  const std::unique_ptr<platform::FileSystem> files = MakeFileSystem();
};

TEST_F(FileTest, TextFile_IsUtf16LittleEndianWithMarkAndCrLf) {
  EXPECT_FALSE(files->FileExists(name));
  const std::pair<std::string, std::string> cases[] = {
      {"", ""},
      {"ي\u200Cک€", std::string("\x4A\x06\x0C\x20\xA9\x06\xAC\x20", 8)},
      {"😀", std::string("\x3D\xD8\x00\xDE", 4)},
      {"\xC0\x80", std::string("\xFD\xFF\xFD\xFF", 4)},  // no UTF-8
      {"\xD9", std::string("\xFD\xFF", 2)},              // cut off
  };
  for (const auto& [text, bytes] : cases) {
    Written(text)->Close();
    EXPECT_EQ(Content(), "\xFF\xFE" + bytes + std::string("\r\0\n\0", 4));
  }
  EXPECT_TRUE(files->FileExists(name));
}

TEST_F(FileTest, TextFile_OverAnExistingOne_TakesItsPlaceOnlyWhenClosed) {
  std::ofstream(onDisk) << "the old one";
  Written(std::string(1 << 20, 'x'));
  EXPECT_EQ(Content(), "the old one");
  EXPECT_EQ(folder.FileCount(), 1) << "nothing half is left";
  const auto made = files->CreateTextFile(name);
  std::string expected("\xFF\xFE");
  for (const std::size_t length : {10'000U, 1U, 1'000'000U, 3U}) {  // in a block, and beyond any
    made->Write(std::string(length, 'n'));
    for (std::size_t i = 0; i < length; ++i) expected.append("n\0", 2);
  }
  made->Close();
  EXPECT_TRUE(Content() == expected);
}

TEST_F(FileTest, TextFile_ThatCannotBe_IsAClearError) {
  std::ofstream(folder.File("plain")) << "x";
  std::filesystem::create_directory(folder.File("folder"));
  for (const auto& [wrong, number] :
       {std::pair{"missing/list.txt", 76}, {"plain/list.txt", 76}, {"folder", 75}}) {
    ExpectError(number, folder.File(wrong),
                [&](const std::string& path) { files->CreateTextFile(path); });
  }
  EXPECT_EQ(folder.FileCount(), 2);
  EXPECT_TRUE(files->FileExists(folder.File("plain")));
  EXPECT_FALSE(files->FileExists(folder.File("folder")));
}

TEST_F(FileTest, ReadFile_GivesTheBytesOrSaysWhichFileIsNot) {
  std::string bytes(200'000, 'x');
  bytes += std::string("\0\r\n\x1A\xFF\xD9\x8A", 7);
  std::ofstream(onDisk, std::ios::binary) << bytes;
  EXPECT_TRUE(files->ReadFile(name) == bytes);
  std::ofstream(folder.File("empty")).close();
  EXPECT_EQ(files->ReadFile(folder.File("empty")), "");
  for (const std::string& none :
       {folder.File("none"), folder.File("none/t.html"), folder.File(""), std::string()}) {
    ExpectError(53, none, [&](const std::string& path) { files->ReadFile(path); });
  }
}

}  // namespace contract
