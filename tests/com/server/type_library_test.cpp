#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>
#include <string>

#include "bridge/type_shape.h"
#include "bridge/wide_text.h"
#include "com/scenarios/server_under_test.h"
#include "com/server/client.h"
#include "support/test_session.h"

/// What the type library inside the DLL tells: names, identifiers, members and help texts, to the letter.
namespace arap::testing {
namespace {

std::string text_of(const GUID& id) {
  std::array<wchar_t, 40> aText{};
  StringFromGUID2(id, aText.data(), static_cast<int>(aText.size()));
  return com::to_utf8(std::wstring_view(aText.data()));
}

com::ComPtr<ITypeLib> library() {
  std::array<wchar_t, MAX_PATH> aPath{};
  GetModuleFileNameW(ServerUnderTest::module(), aPath.data(), static_cast<DWORD>(aPath.size()));
  com::ComPtr<ITypeLib> found;
  EXPECT_EQ(LoadTypeLibEx(aPath.data(), REGKIND_NONE, found.put()), S_OK);
  return found;
}

std::string type_text(const TYPEDESC& type) {
  if (type.vt == VT_PTR) return type_text(*type.lptdesc) + "*";
  if (type.vt == VT_SAFEARRAY) return "array of " + type_text(*type.lptdesc);
  switch (type.vt) {
    case VT_I2: return "short";
    case VT_I4: return "long";
    case VT_R8: return "double";
    case VT_BOOL: return "boolean";
    case VT_BSTR: return "text";
    case VT_VARIANT: return "variant";
    case VT_DISPATCH: return "object";
    case VT_USERDEFINED: return "object";
    case VT_VOID: return "nothing";
    case VT_HRESULT: return "result";
    default: return "type " + std::to_string(type.vt);
  }
}

std::string access_text(INVOKEKIND kind) {
  switch (kind) {
    case INVOKE_PROPERTYGET: return "get ";
    case INVOKE_PROPERTYPUT: return "put ";
    case INVOKE_PROPERTYPUTREF: return "putref ";
    default: return "";
  }
}

std::string parameter_text(const ELEMDESC& parameter, const com::Bstr& sName) {
  const USHORT nFlags = parameter.paramdesc.wParamFlags;
  std::string sText = (nFlags & PARAMFLAG_FOPT) != 0 ? "[optional] " : "";
  if ((nFlags & PARAMFLAG_FHASDEFAULT) != 0) sText += "[default] ";
  return sText + type_text(parameter.tdesc) + " " + com::to_utf8(sName.get());
}

std::string function_line(ITypeInfo& info, UINT nFunction) {
  FUNCDESC* function = nullptr;
  if (FAILED(info.GetFuncDesc(nFunction, &function))) return "";
  std::array<BSTR, 16> aRaw{};
  UINT nNames = 0;
  info.GetNames(function->memid, aRaw.data(), static_cast<UINT>(aRaw.size()), &nNames);
  std::array<com::Bstr, 16> aNames;
  for (UINT i = 0; i < nNames; ++i) *aNames[i].put() = aRaw[i];
  com::Bstr sHelp;
  info.GetDocumentation(function->memid, nullptr, sHelp.put(), nullptr, nullptr);
  std::string sLine = "  " + std::to_string(function->memid) + " " + access_text(function->invkind) +
                      com::to_utf8(aNames[0].get()) + "(";
  for (SHORT i = 0; i < function->cParams; ++i) {
    const auto nAt = static_cast<std::size_t>(i);
    sLine += (i > 0 ? ", " : "") + parameter_text(function->lprgelemdescParam[i], aNames[nAt + 1]);
  }
  sLine += ") -> " + type_text(function->elemdescFunc.tdesc);
  if (function->cParamsOpt == -1) sLine += " vararg";
  sLine += " | " + com::to_utf8(sHelp.get()) + "\n";
  // The seven of IUnknown and IDispatch come with a dual interface.
  const bool bBase = function->memid >= 0x60000000;
  info.ReleaseFuncDesc(function);
  return bBase ? "" : sLine;
}

std::string type_lines(ITypeLib& library, UINT nType) {
  com::ComPtr<ITypeInfo> info;
  TYPEKIND kind = TKIND_MAX;
  if (FAILED(library.GetTypeInfo(nType, info.put())) || FAILED(library.GetTypeInfoType(nType, &kind))) return "";
  const com::TypeAttributes attributes(info.get());
  com::Bstr sName;
  com::Bstr sHelp;
  library.GetDocumentation(static_cast<INT>(nType), sName.put(), sHelp.put(), nullptr, nullptr);
  std::string sText = (kind == TKIND_COCLASS ? "class " : "interface ") + com::to_utf8(sName.get()) + " " +
                      text_of(attributes->guid) + " | " + com::to_utf8(sHelp.get()) + "\n";
  if (kind == TKIND_COCLASS) {
    const auto face = com::interface_of_class(info.get(), com::Implemented::Default);
    return sText + "  default " + com::name_of_type(face.get()) + "\n";
  }
  for (UINT i = 0; i < attributes->cFuncs; ++i) sText += function_line(*info.get(), i);
  return sText;
}

std::string listing(ITypeLib& library) {
  TLIBATTR* attributes = nullptr;
  if (FAILED(library.GetLibAttr(&attributes))) return "";
  com::Bstr sName;
  com::Bstr sHelp;
  library.GetDocumentation(-1, sName.put(), sHelp.put(), nullptr, nullptr);
  std::string sText = "library " + com::to_utf8(sName.get()) + " " + text_of(attributes->guid) + " " +
                      std::to_string(attributes->wMajorVerNum) + "." + std::to_string(attributes->wMinorVerNum) +
                      " | " + com::to_utf8(sHelp.get()) + "\n";
  library.ReleaseTLibAttr(attributes);
  for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) sText += type_lines(library, i);
  return sText;
}

TEST(TypeLibrary, TellsTheApprovedNamesIdentifiersMembersAndHelpTexts) {
  const std::string sPath = std::string(TEST_DATA_DIR) + "/com/golden/type_library.txt";
  const std::string sListing = listing(*library().get());
  if (std::getenv("ARAP_APPROVE") != nullptr) std::ofstream(sPath, std::ios::binary) << sListing;
  std::ifstream file(sPath, std::ios::binary);
  std::stringstream approved;
  approved << file.rdbuf();
  EXPECT_EQ(sListing, approved.str());
}

TEST(TypeLibrary, EveryClassInterfaceAndMemberHasAHelpText) {
  std::istringstream lines(listing(*library().get()));
  int nLines = 0;
  for (std::string sLine; std::getline(lines, sLine); ++nLines) {
    const bool bDefault = sLine.starts_with("  default ");
    EXPECT_TRUE(bDefault || sLine.find(" | ") + 3 < sLine.size()) << sLine;
  }
  EXPECT_GT(nLines, 40);
}

TEST(TypeLibrary, EveryObjectPointsToItsPlaceInTheLibrary) {
  TestSession session;
  for (const char* sClass : kClassNames) {
    const auto oClass = create(sClass);
    com::ComPtr<ITypeInfo> info;
    ASSERT_EQ(oClass->GetTypeInfo(0, LOCALE_NEUTRAL, info.put()), S_OK) << sClass;
    EXPECT_EQ(com::name_of_type(info.get()), "_" + std::string(sClass));
    com::ComPtr<ITypeInfo> coclass;
    ASSERT_EQ(com::query<IProvideClassInfo>(oClass.get())->GetClassInfo(coclass.put()), S_OK) << sClass;
    EXPECT_EQ(com::name_of_type(coclass.get()), sClass);
    EXPECT_EQ(com::TypeAttributes(coclass.get())->guid, class_id(sClass)) << sClass;
  }
}

TEST(TypeLibrary, IsFoundThroughTheRegistry) {
  TLIBATTR* attributes = nullptr;
  const auto own = library();
  ASSERT_EQ(own->GetLibAttr(&attributes), S_OK);
  com::ComPtr<ITypeLib> registered;
  EXPECT_EQ(LoadRegTypeLib(attributes->guid, 1, 0, LOCALE_NEUTRAL, registered.put()), S_OK);
  own->ReleaseTLibAttr(attributes);
  ASSERT_TRUE(registered);
  EXPECT_EQ(listing(*registered.get()), listing(*own.get()));
}

}  // namespace
}  // namespace arap::testing
