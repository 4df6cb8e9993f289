#include <gtest/gtest.h>

#include "NUVARAPBillInterface_h.h"
#include "bridge/bridge.h"
#include "bridge/wide_text.h"
#include "com/server/client.h"
#include "support/settlement_host.h"
#include "support/test_session.h"
#include "support/test_windows.h"

/// Every public member, late-bound and through the vtable: both ways give the same answers.
namespace arap::testing {
namespace {

constexpr WORD kCall = DISPATCH_METHOD;
constexpr WORD kGet = DISPATCH_PROPERTYGET;
constexpr WORD kPut = DISPATCH_PROPERTYPUT;
constexpr WORD kPutRef = DISPATCH_PROPERTYPUTREF;

class Members : public ::testing::Test {
 protected:
  Outcome& run(const com::ComPtr<IDispatch>& object, std::wstring_view sName, WORD flags, std::vector<VARIANT> aArgs) {
    invoke(outcome, object.get(), sName, flags, std::move(aArgs));
    return outcome;
  }

  TestSession session;
  Outcome outcome;
};

/// Inside through the vtable.
template <class I>
VARIANT_BOOL inside(I* bill, VARIANT itm, std::vector<VARIANT> aCol) {
  SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(aCol.size()));
  for (LONG i = 0; i < static_cast<LONG>(aCol.size()); ++i) {
    SafeArrayPutElement(array, &i, &aCol[static_cast<std::size_t>(i)]);
  }
  VARIANT_BOOL bFound = VARIANT_FALSE;
  EXPECT_EQ(bill->Inside(itm, array, &bFound), S_OK);
  SafeArrayDestroy(array);
  return bFound;
}

TEST_F(Members, InsideTakesAnyNumberOfValuesLateBound) {
  for (const char* sClass : kBillClassNames) {
    const auto oClass = create(sClass);
    EXPECT_EQ(run(oClass, L"Inside", kCall, {number(6)}).value->boolVal, VARIANT_FALSE) << sClass;
    EXPECT_EQ(run(oClass, L"Inside", kCall, {number(6), number(5)}).value->boolVal, VARIANT_FALSE) << sClass;
    EXPECT_EQ(run(oClass, L"Inside", kCall, {number(6), number(5), number(6), number(7)}).value->boolVal, VARIANT_TRUE);
    EXPECT_EQ(outcome.value->vt, VT_BOOL);
  }
}

TEST_F(Members, InsideIsTheSameThroughTheVtable) {
  const auto bill = create_as<_clsReceiveBill>("clsReceiveBill");
  EXPECT_EQ(inside(bill.get(), number(6), {}), VARIANT_FALSE);
  EXPECT_EQ(inside(bill.get(), number(6), {number(5)}), VARIANT_FALSE);
  EXPECT_EQ(inside(bill.get(), number(6), {number(5), number(6)}), VARIANT_TRUE);
  const auto other = create_as<_clsPOtherBill>("clsPOtherBill");
  EXPECT_EQ(inside(other.get(), truth(true), {number(-1)}), VARIANT_TRUE);
  VARIANT_BOOL bFound = VARIANT_TRUE;
  EXPECT_EQ(other->Inside(number(6), nullptr, &bFound), S_OK);
  EXPECT_EQ(bFound, VARIANT_FALSE);
}

TEST_F(Members, DoOptToBillReportsThroughItsReferencesBothWays) {
  session.simple_answers[31] = {-1, "状态不对", "SK31"};
  short nCode = 0;
  com::Bstr sDesc = com::to_bstr("before");
  const auto oClass = create("clsReceiveBill");
  run(oClass, L"DoOptToBill", kCall,
      {number(1000201), number(31), number(2), reference(&nCode), reference(sDesc.put())});
  EXPECT_EQ(outcome.code, S_OK);
  EXPECT_EQ(outcome.value->vt, VT_BOOL);
  EXPECT_EQ(outcome.value->boolVal, VARIANT_FALSE);
  EXPECT_EQ(nCode, -1);
  EXPECT_EQ(com::to_utf8(sDesc.get()), "状态不对");

  short nVtableCode = 0;
  com::Bstr sVtableDesc = com::to_bstr("before");
  BSTR sPassed = sVtableDesc.detach();
  VARIANT_BOOL bDone = VARIANT_TRUE;
  const auto bill = com::query<_clsReceiveBill>(oClass.get());
  EXPECT_EQ(bill->DoOptToBill(1000201, 31, 2, &nVtableCode, &sPassed, &bDone), S_OK);
  const com::Bstr sAnswer = com::Bstr::adopt(sPassed);
  EXPECT_EQ(bDone, VARIANT_FALSE);
  EXPECT_EQ(nVtableCode, -1);
  EXPECT_EQ(com::to_utf8(sAnswer.get()), "状态不对");
}

TEST_F(Members, DoOptToBillTakesVariantsByReferenceAsScriptsPassThem) {
  session.simple_answers[31] = {-1, "状态不对", "SK31"};
  com::OwnedVariant vCode;
  com::OwnedVariant vDesc;
  run(create("clsPayBill"), L"DoOptToBill", kCall,
      {number(1000202), number(31), number(2), reference(vCode.get()), reference(vDesc.get())});
  EXPECT_EQ(outcome.code, S_OK);
  com::OwnedVariant vNumber;
  EXPECT_EQ(VariantChangeType(vNumber.get(), vCode.get(), 0, VT_I4), S_OK);
  EXPECT_EQ(vNumber->lVal, -1);
  ASSERT_EQ(vDesc->vt, VT_BSTR);
  EXPECT_EQ(com::to_utf8(vDesc->bstrVal), "状态不对");
}

TEST_F(Members, DoOptToBillDoesWithoutItsOptionalArguments) {
  const auto oClass = create("clsPayBill");
  run(oClass, L"DoOptToBill", kCall, {number(1000202), number(31), number(1)});
  EXPECT_EQ(outcome.code, S_OK);
  EXPECT_EQ(outcome.value->boolVal, VARIANT_TRUE);
  run(oClass, L"DoOptToBill", kCall, {number(1000202), number(31), number(1), omitted(), omitted()});
  EXPECT_EQ(outcome.code, S_OK);
  VARIANT_BOOL bDone = VARIANT_FALSE;
  EXPECT_EQ(com::query<_clsPayBill>(oClass.get())->DoOptToBill(1000202, 31, 1, nullptr, nullptr, &bDone), S_OK);
  EXPECT_EQ(bDone, VARIANT_TRUE);
}

TEST_F(Members, ListSourceCanBeSetReadAndClearedInEveryWay) {
  for (const char* sClass : kListClassNames) {
    const auto oClass = create(sClass);
    const auto oList = make_object<TestList>();
    const com::ComPtr<IDispatch> source = com::dispatch_of(oList);
    EXPECT_EQ(run(oClass, L"m_LstInterface", kGet, {}).value->vt, VT_DISPATCH) << sClass;
    EXPECT_EQ(outcome.value->pdispVal, nullptr) << sClass;
    for (const WORD flags : {kPut, kPutRef, WORD{kPut | kPutRef}}) {
      EXPECT_EQ(run(oClass, L"m_LstInterface", flags, {object_value(source.get())}).code, S_OK) << sClass;
      EXPECT_EQ(oList->events.size(), 1u) << sClass;
      EXPECT_EQ(run(oClass, L"m_LstInterface", kGet, {}).value->pdispVal, source.get()) << sClass;
      EXPECT_EQ(run(oClass, L"m_LstInterface", kPutRef, {object_value(nullptr)}).code, S_OK) << sClass;
      EXPECT_EQ(oList->events.size(), 0u) << sClass;
    }
  }
}

TEST_F(Members, ListSourceIsTheSameThroughTheVtable) {
  const auto invoice = create_as<_clsInvoice>("clsInvoice");
  const auto oList = make_object<TestList>();
  const com::ComPtr<IDispatch> source = com::dispatch_of(oList);
  com::ComPtr<IDispatch> read;
  EXPECT_EQ(invoice->get_m_LstInterface(read.put()), S_OK);
  EXPECT_FALSE(read);
  EXPECT_EQ(invoice->putref_m_LstInterface(source.get()), S_OK);
  EXPECT_EQ(oList->events.size(), 1u);
  EXPECT_EQ(invoice->get_m_LstInterface(read.put()), S_OK);
  EXPECT_EQ(read.get(), source.get());
  EXPECT_EQ(invoice->put_m_LstInterface(nullptr), S_OK);
  EXPECT_EQ(oList->events.size(), 0u);
}

TEST_F(Members, ShowBindsLateBoundAndThroughTheVtable) {
  const auto oLate = create("clsReceiveBill");
  const auto early = create_as<_clsPayBill>("clsPayBill");
  const auto oReceipt = make_settlement_bill(Side::Receive);
  const auto oPayment = make_settlement_bill(Side::Pay);
  EXPECT_EQ(run(oLate, L"Show", kCall, {object_value(com::dispatch_of(oReceipt).get())}).code, S_OK);
  EXPECT_EQ(outcome.value->vt, VT_EMPTY);
  EXPECT_EQ(early->Show(com::dispatch_of(oPayment).get()), S_OK);
  EXPECT_EQ(oReceipt->events.size(), 1u);
  EXPECT_EQ(oPayment->events.size(), 1u);
}

TEST_F(Members, ErrorIsTheSameThroughBothWays) {
  const auto oList = create("clsInvoice");
  const com::ComPtr<IDispatch> wrong = com::dispatch_of(make_object<TestBill>());
  run(oList, L"Show", kCall, {object_value(wrong.get())});
  EXPECT_EQ(outcome.code, DISP_E_EXCEPTION);
  EXPECT_EQ(outcome.scode, static_cast<SCODE>(0x800A000D));
  EXPECT_FALSE(outcome.sDescription.empty());

  const auto invoice = com::query<_clsInvoice>(oList.get());
  EXPECT_EQ(invoice->Show(wrong.get()), static_cast<HRESULT>(0x800A000D));
  com::ComPtr<IErrorInfo> info;
  ASSERT_EQ(GetErrorInfo(0, info.put()), S_OK);
  com::Bstr sText;
  info->GetDescription(sText.put());
  EXPECT_EQ(com::to_utf8(sText.get()), outcome.sDescription);
  EXPECT_EQ(com::query<ISupportErrorInfo>(oList.get())->InterfaceSupportsErrorInfo(__uuidof(_clsInvoice)), S_OK);
}

TEST_F(Members, ArgumentsCanBeNamed) {
  const auto oClass = create("clsReceiveBill");
  std::wstring aNames[] = {L"DoOptToBill", L"nCheckType", L"nInterID", L"nTransType"};
  LPOLESTR names[] = {aNames[0].data(), aNames[1].data(), aNames[2].data(), aNames[3].data()};
  DISPID ids[4] = {};
  ASSERT_EQ(oClass->GetIDsOfNames(IID_NULL, names, 4, LOCALE_USER_DEFAULT, ids), S_OK);
  VARIANT args[] = {number(1), number(31), number(1000201)};
  DISPPARAMS params{args, &ids[1], 3, 3};
  EXPECT_EQ(
      oClass->Invoke(ids[0], IID_NULL, LOCALE_USER_DEFAULT, kCall, &params, outcome.value.get(), nullptr, nullptr),
      S_OK);
  EXPECT_EQ(outcome.value->boolVal, VARIANT_TRUE);
  ASSERT_EQ(session.log.size(), 1u);
}

}  // namespace
}  // namespace arap::testing
