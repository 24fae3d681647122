// What every platform::FileSystem promises: one file of an adapter's tests includes this once.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"

namespace contract {

/// The adapter's own.
std::unique_ptr<platform::FileSystem> MakeFileSystem();

class FileTest : public testing::Test {
 protected:
  FileTest() {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
  }
  ~FileTest() override { std::filesystem::remove_all(folder); }
  std::string PathOf(const std::filesystem::path& name) const {
    const std::u8string path = (folder / name).u8string();
    return {path.begin(), path.end()};
  }
  std::string Content() const {
    std::ostringstream content;
    content << std::ifstream(folder / kName, std::ios::binary).rdbuf();
    return content.str();
  }
  auto FileCount() const { return std::distance(std::filesystem::directory_iterator(folder), {}); }
  std::unique_ptr<platform::TextFile> Written(const std::string& text) {
    auto file = files->CreateTextFile(PathOf(kName));
    file->Write(text);
    file->WriteLineBreak();
    return file;
  }

  static constexpr const char8_t* kName = u8"گ.txt";
  const std::filesystem::path folder =
      std::filesystem::path(testing::TempDir()) /
      (u8"پرونده " + std::filesystem::path(std::to_string(getpid())).u8string());
  const std::unique_ptr<platform::FileSystem> files = MakeFileSystem();
};

TEST_F(FileTest, TextFile_IsUtf16LittleEndianWithMarkAndCrLf) {
  EXPECT_FALSE(files->FileExists(PathOf(kName)));
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
  EXPECT_TRUE(files->FileExists(PathOf(kName)));
}

TEST_F(FileTest, TextFile_OverAnExistingOne_TakesItsPlaceOnlyWhenClosed) {
  std::ofstream(folder / kName) << "the old one";
  Written(std::string(1 << 20, 'x'));
  EXPECT_EQ(Content(), "the old one");
  EXPECT_EQ(FileCount(), 1) << "nothing half is left";
  const auto file = files->CreateTextFile(PathOf(kName));
  std::string expected("\xFF\xFE");
  for (const std::size_t length : {10'000U, 1U, 1'000'000U, 3U}) {  // in a block, and beyond any
    file->Write(std::string(length, 'n'));
    for (std::size_t i = 0; i < length; ++i) expected.append("n\0", 2);
  }
  file->Close();
  EXPECT_TRUE(Content() == expected);
}

TEST_F(FileTest, TextFile_ThatCannotBe_IsAClearError) {
  std::ofstream(folder / "plain") << "x";
  std::filesystem::create_directory(folder / "folder");
  for (const auto& [name, number] :
       {std::pair{"missing/list.txt", 76}, {"plain/list.txt", 76}, {"folder", 75}}) {
    try {
      files->CreateTextFile(PathOf(name));
      ADD_FAILURE() << name;
    } catch (const platform::RuntimeError& error) {
      EXPECT_EQ(error.Number(), number) << name << ": " << error.Description();
      EXPECT_NE(error.Description().find(PathOf(name)), std::string::npos);
    }
  }
  EXPECT_EQ(FileCount(), 2);
  EXPECT_TRUE(files->FileExists(PathOf("plain")));
  EXPECT_FALSE(files->FileExists(PathOf("folder")));
}

TEST_F(FileTest, ReadFile_GivesTheBytesOrSaysWhichFileIsNot) {
  std::string bytes(200'000, 'x');
  bytes += std::string("\0\r\n\x1A\xFF\xD9\x8A", 7);
  std::ofstream(folder / kName, std::ios::binary) << bytes;
  EXPECT_TRUE(files->ReadFile(PathOf(kName)) == bytes);
  std::ofstream(folder / "empty").close();
  EXPECT_EQ(files->ReadFile(PathOf("empty")), "");
  for (const std::string& path :
       {PathOf("none"), PathOf("none/t.html"), PathOf(""), std::string()}) {
    try {
      files->ReadFile(path);
      ADD_FAILURE() << path;
    } catch (const platform::RuntimeError& error) {
      EXPECT_EQ(error.Number(), 53);
      EXPECT_NE(error.Description().find(path + ": "), std::string::npos);
    }
  }
}

}  // namespace contract
