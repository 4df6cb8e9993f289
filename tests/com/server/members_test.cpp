#include <gtest/gtest.h>

#include <ostream>
#include <type_traits>
#include <utility>

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

/// Calls body(vtable pointer, class name) for each class with these members.
template <class Body>
void each_bill_class(Body body) {
  body(create_as<_clsReceiveBill>("clsReceiveBill"), "clsReceiveBill");
  body(create_as<_clsPayBill>("clsPayBill"), "clsPayBill");
  body(create_as<_clsROtherBill>("clsROtherBill"), "clsROtherBill");
  body(create_as<_clsPOtherBill>("clsPOtherBill"), "clsPOtherBill");
}
template <class Body>
void each_list_class(Body body) {
  each_bill_class(body);
  body(create_as<_clsInvoice>("clsInvoice"), "clsInvoice");
  body(create_as<_clsRPInitial>("clsRPInitial"), "clsRPInitial");
}
template <class Body>
void each_class(Body body) {
  each_list_class(body);
  body(create_as<_clsRPInOutType>("clsRPInOutType"), "clsRPInOutType");
  body(create_as<_clsRPInOutTypeView>("clsRPInOutTypeView"), "clsRPInOutTypeView");
}

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

/// All that DoOptToBill answers.
struct OptAnswer {
  HRESULT code = E_UNEXPECTED;
  bool bDone = false;
  short nCode = 0;
  std::string sDesc;
  bool bOk = false;
  friend bool operator==(const OptAnswer&, const OptAnswer&) = default;
};
std::ostream& operator<<(std::ostream& out, const OptAnswer& answer) {
  return out << std::hex << answer.code << std::dec << " " << answer.bDone << " " << answer.nCode << " " << answer.sDesc
             << " " << answer.bOk;
}

template <class I>
OptAnswer opt_through_the_vtable(I* bill, LONG nCheckType) {
  OptAnswer answer;
  BSTR sDesc = com::to_bstr("before").detach();
  VARIANT_BOOL bOk = VARIANT_FALSE;
  VARIANT_BOOL bDone = VARIANT_FALSE;
  answer.code = bill->DoOptToBill(1000201, 31, nCheckType, &answer.nCode, &sDesc, &bOk, &bDone);
  answer.sDesc = com::to_utf8(com::Bstr::adopt(sDesc).get());
  answer.bOk = bOk == VARIANT_TRUE;
  answer.bDone = bDone == VARIANT_TRUE;
  return answer;
}

OptAnswer opt_late_bound(IDispatch* bill, LONG nCheckType) {
  OptAnswer answer;
  BSTR sDesc = com::to_bstr("before").detach();
  VARIANT_BOOL bOk = VARIANT_FALSE;
  Outcome outcome;
  invoke(outcome, bill, L"DoOptToBill", kCall,
         {number(1000201), number(31), number(nCheckType), reference(&answer.nCode), reference(&sDesc),
          reference_to_truth(&bOk)});
  answer.code = outcome.code;
  answer.sDesc = com::to_utf8(com::Bstr::adopt(sDesc).get());
  answer.bOk = bOk == VARIANT_TRUE;
  answer.bDone = outcome.value->boolVal == VARIANT_TRUE;
  return answer;
}

TEST_F(Members, InsideTakesAnyNumberOfValuesBothWays) {
  const std::vector<std::vector<VARIANT>> aLists{
      {}, {number(5)}, {number(5), number(6)}, {number(5), number(6), number(7)}};
  each_bill_class([&](const auto& bill, const char* sClass) {
    for (const std::vector<VARIANT>& aCol : aLists) {
      std::vector<VARIANT> aArgs{number(6)};
      aArgs.insert(aArgs.end(), aCol.begin(), aCol.end());
      run(com::query<IDispatch>(bill.get()), L"Inside", kCall, aArgs);
      const VARIANT_BOOL bExpected = aCol.size() > 1 ? VARIANT_TRUE : VARIANT_FALSE;
      EXPECT_EQ(outcome.value->vt, VT_BOOL);
      EXPECT_EQ(outcome.value->boolVal, bExpected) << sClass << " " << aCol.size();
      EXPECT_EQ(inside(bill.get(), number(6), aCol), bExpected) << sClass << " " << aCol.size();
    }
    EXPECT_EQ(inside(bill.get(), truth(true), {number(-1)}), VARIANT_TRUE) << sClass;
    VARIANT_BOOL bFound = VARIANT_TRUE;
    EXPECT_EQ(bill->Inside(number(6), nullptr, &bFound), S_OK);
    EXPECT_EQ(bFound, VARIANT_FALSE) << sClass;
  });
}

TEST_F(Members, DoOptToBillReportsThroughItsReferencesBothWays) {
  each_bill_class([&](const auto& bill, const char* sClass) {
    session.simple_answers[31] = {-1, "状态不对", "SK31"};
    const OptAnswer refused{S_OK, false, -1, "状态不对", false};
    EXPECT_EQ(opt_through_the_vtable(bill.get(), 2), refused) << sClass;
    EXPECT_EQ(opt_late_bound(com::query<IDispatch>(bill.get()).get(), 2), refused) << sClass;
    session.simple_answers[31] = {0, "完成", "SK31"};
    const OptAnswer done{S_OK, true, 0, "审核[编号:SK31]单据成功!完成", true};
    EXPECT_EQ(opt_through_the_vtable(bill.get(), 1), done) << sClass;
    EXPECT_EQ(opt_late_bound(com::query<IDispatch>(bill.get()).get(), 1), done) << sClass;
  });
}

TEST_F(Members, DoOptToBillAnswersTheSameBothWaysForEveryOperationAndCode) {
  each_bill_class([&](const auto& bill, const char* sClass) {
    for (const std::int32_t nCode : {-1, 0, 1, 5}) {
      session.simple_answers[31] = {nCode, "说明", "SK31"};
      for (const LONG nCheckType : {0, 1, 2, 9}) {
        EXPECT_EQ(opt_through_the_vtable(bill.get(), nCheckType),
                  opt_late_bound(com::query<IDispatch>(bill.get()).get(), nCheckType))
            << sClass << " " << nCode << " " << nCheckType;
      }
    }
  });
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
  each_bill_class([&](const auto& bill, const char* sClass) {
    const auto oClass = com::query<IDispatch>(bill.get());
    for (const std::size_t nOmitted : {0u, 2u, 3u}) {
      std::vector<VARIANT> aArgs{number(1000202), number(31), number(1)};
      aArgs.resize(aArgs.size() + nOmitted, omitted());
      run(oClass, L"DoOptToBill", kCall, aArgs);
      EXPECT_EQ(outcome.code, S_OK) << sClass;
      EXPECT_EQ(outcome.value->boolVal, VARIANT_TRUE) << sClass;
    }
    VARIANT_BOOL bDone = VARIANT_FALSE;
    EXPECT_EQ(bill->DoOptToBill(1000202, 31, 1, nullptr, nullptr, nullptr, &bDone), S_OK) << sClass;
    EXPECT_EQ(bDone, VARIANT_TRUE) << sClass;
  });
}

TEST_F(Members, ListSourceCanBeSetReadAndClearedInEveryWay) {
  each_list_class([&](const auto& list, const char* sClass) {
    const auto oClass = com::query<IDispatch>(list.get());
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
  });
}

TEST_F(Members, ListSourceIsTheSameThroughTheVtable) {
  each_list_class([](const auto& list, const char* sClass) {
    const auto oList = make_object<TestList>();
    const com::ComPtr<IDispatch> source = com::dispatch_of(oList);
    com::ComPtr<IDispatch> read;
    EXPECT_EQ(list->get_m_LstInterface(read.put()), S_OK) << sClass;
    EXPECT_FALSE(read) << sClass;
    EXPECT_EQ(list->putref_m_LstInterface(source.get()), S_OK) << sClass;
    EXPECT_EQ(oList->events.size(), 1u) << sClass;
    EXPECT_EQ(list->get_m_LstInterface(read.put()), S_OK) << sClass;
    EXPECT_EQ(read.get(), source.get()) << sClass;
    EXPECT_EQ(list->put_m_LstInterface(nullptr), S_OK) << sClass;
    EXPECT_EQ(oList->events.size(), 0u) << sClass;
    EXPECT_EQ(list->put_m_LstInterface(source.get()), S_OK) << sClass;
    EXPECT_EQ(oList->events.size(), 1u) << sClass;
  });
}

TEST_F(Members, ShowBindsTheSameSourcesLateBoundAndThroughTheVtable) {
  const auto oBill = make_settlement_bill(Side::Receive);
  const auto oList = make_object<TestList>();
  const auto oBase = make_object<TestBaseClass>();
  const auto heard = [&] { return oBill->events.size() + oList->events.size() + oBase->events.size(); };
  each_class([&](const auto& object, const char* sClass) {
    using I = std::remove_cvref_t<decltype(*object.get())>;
    std::size_t nBound = 0;
    for (const Ref<Object>& oSource : {Ref<Object>(oBill), Ref<Object>(oList), Ref<Object>(oBase)}) {
      const com::ComPtr<IDispatch> source = com::dispatch_of(oSource);
      const auto shown_by = [&](const auto& show) {
        const auto oClass = create_as<I>(sClass);
        const HRESULT code = show(oClass.get());
        return std::pair(code, heard());
      };
      const auto late = shown_by([&](I* oClass) {
        run(com::query<IDispatch>(oClass), L"Show", kCall, {object_value(source.get())});
        EXPECT_EQ(outcome.value->vt, VT_EMPTY);
        return outcome.code == DISP_E_EXCEPTION ? outcome.scode : outcome.code;
      });
      const auto early = shown_by([&](I* oClass) { return oClass->Show(source.get()); });
      EXPECT_EQ(late, early) << sClass << " " << oSource->type_name();
      nBound += early.second;
    }
    EXPECT_GT(nBound, 0u) << sClass;
  });
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
