#include <gtest/gtest.h>

#include "bridge/bridge.h"
#include "bridge/wide_text.h"
#include "com/server/client.h"
#include "frame/contract_containers.h"
#include "support/test_session.h"

/// The real ADO of a real machine, read through the bridge.
namespace arap::testing {
namespace {

constexpr LONG kLongColumn = 3;  // adInteger
/// What Wine 8 answers for every member of its recordset, late-bound.
constexpr HRESULT kLibraryNotRegistered = static_cast<HRESULT>(0x8002801D);

TEST(Ado, RecordsetOfAMachineIsReadThroughTheBridge) {
  TestSession session;
  CLSID id{};
  com::ComPtr<IDispatch> rows;
  if (FAILED(CLSIDFromProgID(L"ADODB.Recordset", &id)) ||
      FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, rows.put_void()))) {
    GTEST_SKIP() << "this machine has no ADO";
  }
  Outcome outcome;
  DISPID fields = DISPID_UNKNOWN;
  std::wstring sName = L"Fields";
  LPOLESTR name = sName.data();
  if (rows->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &fields) == kLibraryNotRegistered) {
    GTEST_SKIP() << "this machine's ADO can't be called by name";
  }
  invoke(outcome, rows.get(), fields, DISPATCH_PROPERTYGET, {});
  if (outcome.code == kLibraryNotRegistered) GTEST_SKIP() << "this machine's ADO can't be called by name";
  ASSERT_EQ(outcome.code, S_OK);
  const com::ComPtr<IDispatch> columns(outcome.value->pdispVal);
  const com::Bstr sColumn = com::to_bstr("FID");
  invoke(outcome, columns.get(), L"Append", DISPATCH_METHOD, {text_value(sColumn.get()), number(kLongColumn)});
  if (outcome.code == kLibraryNotRegistered) GTEST_SKIP() << "this machine's ADO can't be called by name";
  ASSERT_EQ(outcome.code, S_OK);
  invoke(outcome, rows.get(), L"Open", DISPATCH_METHOD, {});
  ASSERT_EQ(outcome.code, S_OK);
  invoke(outcome, rows.get(), L"AddNew", DISPATCH_METHOD, {text_value(sColumn.get()), number(42)});
  ASSERT_EQ(outcome.code, S_OK);
  const Recordset oRows(com::object_of(rows.get()));
  oRows.MoveFirst();
  EXPECT_FALSE(oRows.Eof());
  EXPECT_EQ(LongOf(oRows.Value("FID")), 42);
  oRows.MoveNext();
  EXPECT_TRUE(oRows.Eof());
}

}  // namespace
}  // namespace arap::testing
