#include <gtest/gtest.h>

#include "com/registration/dll_path.h"
#include "com/server/client.h"

/// The server without the registry: a program finds it by the manifest beside the DLL.
namespace arap::testing {
namespace {

class Manifest : public ::testing::Test {
 protected:
  /// What a program with these lines in its own manifest finds in the folder of the DLL.
  Manifest() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const std::wstring sManifest = dll_folder() + L"\\application.manifest";
    ACTCTXW description{};
    description.cbSize = sizeof description;
    description.lpSource = sManifest.c_str();
    context = CreateActCtxW(&description);
  }
  ~Manifest() override {
    ReleaseActCtx(context);
    CoUninitialize();
  }

  HANDLE context = INVALID_HANDLE_VALUE;
};

TEST_F(Manifest, ClassesWithoutAnInitialiserAreMadeByTheirProgIdAndUnknownOutsideOfIt) {
  ASSERT_NE(context, INVALID_HANDLE_VALUE);
  CLSID id{};
  ASSERT_TRUE(FAILED(CLSIDFromProgID(L"NUVARAPBillInterface.clsInvoice", &id))) << "the machine knows the server";
  ULONG_PTR cookie = 0;
  ASSERT_TRUE(ActivateActCtx(context, &cookie));
  for (const char* sClass : {"clsReceiveBill", "clsPayBill", "clsRPInOutTypeView", "clsInvoice", "clsRPInitial"}) {
    EXPECT_TRUE(create(sClass)) << sClass;
  }
  for (const char* sClass : {"clsROtherBill", "clsPOtherBill", "clsRPInOutType"}) {
    EXPECT_EQ(CLSIDFromProgID(prog_id(sClass).c_str(), &id), S_OK) << sClass;
  }
  EXPECT_TRUE(DeactivateActCtx(0, cookie));
  EXPECT_TRUE(FAILED(CLSIDFromProgID(L"NUVARAPBillInterface.clsInvoice", &id)));
}

TEST_F(Manifest, MembersAnswer) {
  ULONG_PTR cookie = 0;
  ASSERT_TRUE(ActivateActCtx(context, &cookie));
  {
    const auto oClass = create("clsReceiveBill");
    Outcome outcome;
    invoke(outcome, oClass.get(), L"Inside", DISPATCH_METHOD, {number(6), number(5), number(6)});
    EXPECT_EQ(outcome.code, S_OK);
    EXPECT_EQ(outcome.value->boolVal, VARIANT_TRUE);
  }
  EXPECT_TRUE(DeactivateActCtx(0, cookie));
}

}  // namespace
}  // namespace arap::testing
