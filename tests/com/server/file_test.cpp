#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "bridge/wide_text.h"
#include "com/scenarios/module_image.h"
#include "com/scenarios/server_under_test.h"

/// The DLL as a file: what it needs, what it offers, and what lies in it.
namespace arap::testing {
namespace {

using Names = std::vector<std::string>;

std::wstring path() {
  std::array<wchar_t, MAX_PATH> aPath{};
  GetModuleFileNameW(ServerUnderTest::module(), aPath.data(), static_cast<DWORD>(aPath.size()));
  return aPath.data();
}

std::string lower_case(std::string sText) {
  std::transform(sText.begin(), sText.end(), sText.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return sText;
}

/// A text of the version resource, in its one language.
std::string version_text(std::vector<char>& aBlock, const std::wstring& sName) {
  void* text = nullptr;
  UINT nLength = 0;
  const std::wstring sPath = L"\\StringFileInfo\\080404B0\\" + sName;
  if (!VerQueryValueW(aBlock.data(), sPath.c_str(), &text, &nLength) || nLength == 0) return "";
  return com::to_utf8(std::wstring_view(static_cast<const wchar_t*>(text)));
}

TEST(File, NeedsNothingButLibrariesOfTheSystem) {
  HMODULE module = ServerUnderTest::module();
  Names aForeign;
  const auto* library = table_of<IMAGE_IMPORT_DESCRIPTOR>(module, IMAGE_DIRECTORY_ENTRY_IMPORT);
  for (; library->Name != 0; ++library) {
    const std::string sName = lower_case(at<char>(module, library->Name));
    const Names aSystem{"advapi32.dll", "gdi32.dll",    "kernel32.dll", "msvcrt.dll",
                        "ole32.dll",    "oleaut32.dll", "user32.dll"};
    if (std::find(aSystem.begin(), aSystem.end(), sName) == aSystem.end()) aForeign.push_back(sName);
  }
  EXPECT_EQ(aForeign, Names());
}

TEST(File, ExportsTheFourEntriesOfAServerAndTheUsersRegistration) {
  HMODULE module = ServerUnderTest::module();
  const auto* const exports = table_of<IMAGE_EXPORT_DIRECTORY>(module, IMAGE_DIRECTORY_ENTRY_EXPORT);
  const auto* const names = at<DWORD>(module, exports->AddressOfNames);
  Names aFound;
  for (DWORD i = 0; i < exports->NumberOfNames; ++i) aFound.emplace_back(at<char>(module, names[i]));
  EXPECT_EQ(aFound,
            (Names{"DllCanUnloadNow", "DllGetClassObject", "DllInstall", "DllRegisterServer", "DllUnregisterServer"}));
  EXPECT_EQ(exports->NumberOfFunctions, exports->NumberOfNames) << "exports without a name";
}

TEST(File, TellsItsVersion) {
  DWORD nHandle = 0;
  std::vector<char> aBlock(GetFileVersionInfoSizeW(path().c_str(), &nHandle));
  ASSERT_FALSE(aBlock.empty());
  ASSERT_TRUE(GetFileVersionInfoW(path().c_str(), 0, static_cast<DWORD>(aBlock.size()), aBlock.data()));
  VS_FIXEDFILEINFO* fixed = nullptr;
  UINT nLength = 0;
  ASSERT_TRUE(VerQueryValueW(aBlock.data(), L"\\", reinterpret_cast<void**>(&fixed), &nLength));
  EXPECT_EQ(fixed->dwFileType, static_cast<DWORD>(VFT_DLL));
  const std::string sVersion = std::to_string(HIWORD(fixed->dwFileVersionMS)) + "." +
                               std::to_string(LOWORD(fixed->dwFileVersionMS)) + "." +
                               std::to_string(HIWORD(fixed->dwFileVersionLS));
  EXPECT_EQ(sVersion, PROJECT_VERSION);
  EXPECT_EQ(version_text(aBlock, L"FileVersion"), PROJECT_VERSION);
  EXPECT_EQ(version_text(aBlock, L"ProductName"), "NUVARAPBillInterface");
  EXPECT_EQ(version_text(aBlock, L"OriginalFilename"), "NUVARAPBillInterface.dll");
  EXPECT_NE(version_text(aBlock, L"FileDescription"), "");
}

TEST(File, HoldsEveryPictureOfTheImageList) {
  for (const wchar_t* sName : {L"SUM", L"PART", L"VOUCHER", L"VIEW", L"CHECK", L"CONVERT", L"RED", L"BLUE"}) {
    const HRSRC resource = FindResourceW(ServerUnderTest::module(), sName, RT_BITMAP);
    ASSERT_NE(resource, nullptr) << com::to_utf8(std::wstring_view(sName));
    const HGLOBAL block = LoadResource(ServerUnderTest::module(), resource);
    const auto& header = *static_cast<const BITMAPINFOHEADER*>(LockResource(block));
    EXPECT_EQ(header.biWidth, 16);
    EXPECT_EQ(header.biHeight, 16);
    EXPECT_EQ(header.biBitCount, 24);
    EXPECT_EQ(SizeofResource(ServerUnderTest::module(), resource), header.biSize + 16 * 16 * 3);
  }
}

TEST(File, HoldsItsTypeLibrary) {
  EXPECT_NE(FindResourceW(ServerUnderTest::module(), MAKEINTRESOURCEW(1), L"TYPELIB"), nullptr);
}

}  // namespace
}  // namespace arap::testing
