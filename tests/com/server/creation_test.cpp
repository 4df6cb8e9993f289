#include <gtest/gtest.h>

#include "bridge/wide_text.h"
#include "com/scenarios/server_under_test.h"
#include "com/server/client.h"
#include "support/test_session.h"

/// How clients make the classes, and when the server may go.
namespace arap::testing {
namespace {

class Creation : public ::testing::Test {
 protected:
  static com::ComPtr<IClassFactory> factory(std::string_view sClass) {
    com::ComPtr<IClassFactory> made;
    EXPECT_EQ(CoGetClassObject(class_id(sClass), CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, made.put_void()),
              S_OK);
    return made;
  }

  TestSession session;
};

TEST_F(Creation, EveryClassIsMadeByItsProgId) {
  for (const char* sClass : kClassNames) EXPECT_TRUE(create(sClass)) << sClass;
}

TEST_F(Creation, ProgIdWithAVersionMeansTheSameClass) {
  for (const char* sClass : kClassNames) {
    CLSID id{};
    ASSERT_EQ(CLSIDFromProgID((prog_id(sClass) + L".1").c_str(), &id), S_OK) << sClass;
    EXPECT_EQ(id, class_id(sClass)) << sClass;
    com::ComPtr<IDispatch> made;
    EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, made.put_void()), S_OK) << sClass;
  }
}

TEST_F(Creation, ClassIdLeadsBackToTheProgIdWithItsVersion) {
  for (const char* sClass : kClassNames) {
    LPOLESTR sProgId = nullptr;
    ASSERT_EQ(ProgIDFromCLSID(class_id(sClass), &sProgId), S_OK);
    EXPECT_EQ(std::wstring(sProgId), prog_id(sClass) + L".1");
    CoTaskMemFree(sProgId);
  }
}

TEST_F(Creation, ClassesCanNotBeAggregated) {
  const auto oOuter = create("clsInvoice");
  void* made = &session;
  EXPECT_EQ(factory("clsPayBill")->CreateInstance(oOuter.get(), IID_IUnknown, &made), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(made, nullptr);
}

TEST_F(Creation, InterfaceThatAClassLacksIsRefusedAndLeavesNothing) {
  void* made = &session;
  EXPECT_EQ(factory("clsPayBill")->CreateInstance(nullptr, IID_IPersistFile, &made), E_NOINTERFACE);
  EXPECT_EQ(made, nullptr);
  EXPECT_TRUE(ServerUnderTest::can_unload());
}

TEST_F(Creation, UnknownClassHasNoClassObject) {
  using Export = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
  const auto get_class_object =
      reinterpret_cast<Export>(reinterpret_cast<void*>(GetProcAddress(ServerUnderTest::module(), "DllGetClassObject")));
  void* made = &session;
  EXPECT_EQ(get_class_object(IID_IPersistFile, IID_IClassFactory, &made), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(made, nullptr);
}

TEST_F(Creation, ServerStaysWhileAnObjectOrALockHoldsIt) {
  EXPECT_TRUE(ServerUnderTest::can_unload());
  {
    const auto oHeld = create("clsReceiveBill");
    EXPECT_FALSE(ServerUnderTest::can_unload());
  }
  EXPECT_TRUE(ServerUnderTest::can_unload());
  const auto lock = [](BOOL bLock) { EXPECT_EQ(factory("clsPayBill")->LockServer(bLock), S_OK); };
  lock(TRUE);
  EXPECT_FALSE(ServerUnderTest::can_unload());
  lock(FALSE);
  EXPECT_TRUE(ServerUnderTest::can_unload());
}

TEST_F(Creation, FailedInitialiserFailsTheCreationWithItsErrorAndText) {
  session.server("NUVlpsArApBill.clsInOutType").fails(Member::GetRPInOutTypeInfo, 1004, "没有类型");
  com::ComPtr<IDispatch> made;
  const HRESULT done =
      CoCreateInstance(class_id("clsROtherBill"), nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, made.put_void());
  EXPECT_EQ(done, static_cast<HRESULT>(0x800A03EC));
  com::ComPtr<IErrorInfo> info;
  ASSERT_EQ(GetErrorInfo(0, info.put()), S_OK);
  com::Bstr sText;
  info->GetDescription(sText.put());
  EXPECT_EQ(com::to_utf8(sText.get()), "没有类型");
  EXPECT_TRUE(ServerUnderTest::can_unload());
}

TEST_F(Creation, IdentityIsOneWhateverTheInterface) {
  for (const char* sClass : kClassNames) {
    const auto oClass = create(sClass);
    const auto unknown = com::query<IUnknown>(oClass.get());
    const auto provider = com::query<IProvideClassInfo>(oClass.get());
    ASSERT_TRUE(provider) << sClass;
    EXPECT_EQ(com::query<IUnknown>(provider.get()).get(), unknown.get()) << sClass;
    EXPECT_EQ(com::query<IUnknown>(com::query<ISupportErrorInfo>(oClass.get()).get()).get(), unknown.get()) << sClass;
  }
}

}  // namespace
}  // namespace arap::testing
