#include <gtest/gtest.h>

#include <vector>

#include "Container.h"
#include "LoadedLibrary.h"

namespace {

using adapters::windows::ComPtr;
using test::As;
using test::Bag;
using Persistence = test::LoadedLibrary;
using Bytes = std::vector<unsigned char>;

TEST_F(Persistence, Save_IntoABag_WritesWhatIsNoDefaultInItsOrder) {
  const auto control = New();
  const auto persist = As<IPersistPropertyBag>(control);
  persist->InitNew();
  Bag empty;
  ASSERT_EQ(persist->Save(&empty, TRUE, TRUE), S_OK);
  EXPECT_EQ(empty.written, "");

  Late(control).Put("EmployeeID", 4);
  Late(control).Put("OLEConnectionString", "sqlite:دفتر.db");
  Late(control).Put("PositionID", 3);
  Late(control).Put("UserID", 2);
  Bag full;
  ASSERT_EQ(persist->Save(&full, TRUE, FALSE), S_OK);
  EXPECT_EQ(full.written, "UserID=2;PositionID=3;OLEConnectionString=sqlite:دفتر.db;EmployeeID=4;");

  Bag texts;
  texts.Set(L"UserID", "77");
  const auto loaded = As<IPersistPropertyBag>(control);
  ASSERT_EQ(loaded->Load(&texts, nullptr), S_OK);
  EXPECT_EQ(Late(control).Property("UserID").Number(), 77);
  EXPECT_EQ(Late(control).Property("EmployeeID").Number(), -1);
  texts.Set(L"UserID", "many");
  EXPECT_EQ(loaded->Load(&texts, nullptr), MAKE_HRESULT(1, FACILITY_CONTROL, 13));
  EXPECT_EQ(full.References() + texts.References(), 0U);
}

ComPtr<IStream> StreamOf(const Bytes& bytes) {
  ComPtr<IStream> stream;
  CreateStreamOnHGlobal(nullptr, TRUE, stream.Out());
  stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  return stream;
}

TEST_F(Persistence, SaveAndLoad_ThroughStreamsAndStorages_KeepTheFourProperties) {
  const auto source = New();
  Late(source).Put("UserID", 2);
  Late(source).Put("EmployeeID", -5);
  Late(source).Put("OLEConnectionString", "Provider=x;Data Source=ي");
  const auto stream = StreamOf({});
  ComPtr<IStorage> storage;
  constexpr DWORD kMine =
      STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE | STGM_DELETEONRELEASE;
  ASSERT_EQ(StgCreateDocfile(nullptr, kMine, 0, storage.Out()), S_OK);
  const auto saved = As<IPersistStreamInit>(source);
  ASSERT_EQ(saved->Save(stream.Get(), FALSE), S_OK);
  EXPECT_EQ(saved->IsDirty(), S_OK);
  ASSERT_EQ(As<IPersistStorage>(source)->Save(storage.Get(), TRUE), S_OK);
  As<IPersistStorage>(source)->SaveCompleted(nullptr);
  EXPECT_EQ(saved->IsDirty(), S_FALSE);
  ULARGE_INTEGER size{};
  saved->GetSizeMax(&size);
  Bytes bytes(size.QuadPart + 1);
  ULONG length = 0;
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), &length);
  ASSERT_EQ(length, size.QuadPart);
  bytes.resize(length);

  const auto target = New();
  const auto load = [&](const Bytes& from) {
    return As<IPersistStreamInit>(target)->Load(StreamOf(from).Get());
  };
  const auto expectSame = [&] {
    EXPECT_EQ(Late(target).Property("UserID").Number(), 2);
    EXPECT_EQ(Late(target).Property("PositionID").Number(), -1);
    EXPECT_EQ(Late(target).Property("EmployeeID").Number(), -5);
    EXPECT_EQ(Late(target).Property("OLEConnectionString").Text(), "Provider=x;Data Source=ي");
  };
  ASSERT_EQ(load(bytes), S_OK);
  expectSame();
  // No byte may change, and none may be missing, without being noticed.
  for (unsigned char& byte : bytes) {
    byte ^= 0x10;
    EXPECT_EQ(load(bytes), E_FAIL) << &byte - bytes.data();
    byte ^= 0x10;
  }
  for (std::size_t cut = 1; cut < bytes.size(); ++cut) {
    EXPECT_EQ(load({bytes.begin(), bytes.end() - static_cast<int>(cut)}), E_FAIL) << cut;
  }
  expectSame();
  EXPECT_EQ(load({}), S_OK);
  EXPECT_EQ(Late(target).Property("UserID").Number(), -1);
  ASSERT_EQ(As<IPersistStorage>(target)->Load(storage.Get()), S_OK);
  expectSame();
}

}  // namespace
