#include <gtest/gtest.h>

#include <array>
#include <map>

#include "NUVARAPBillInterface_h.h"
#include "bridge/bridge.h"
#include "bridge/errors.h"
#include "bridge/wide_text.h"
#include "com/scenarios/server_under_test.h"
#include "com/server/client.h"
#include "support/settlement_host.h"
#include "support/test_session.h"
#include "support/test_windows.h"

/// A long day of the host: classes are made, shown and released ten thousand times, and nothing is left over.
namespace arap::testing {
namespace {

constexpr int kCycles = 10000;

/// Counts the texts, arrays and other blocks of the whole process that come from COM's allocator, while it lives.
class OleBlocks final : public IMallocSpy {
 public:
  OleBlocks() {
    // Without its cache every text that is given back really goes.
    using Export = void(STDAPICALLTYPE*)();
    const auto set_no_cache = reinterpret_cast<Export>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"oleaut32.dll"), "SetOaNoCache")));
    if (set_no_cache != nullptr) set_no_cache();
    com::check(CoRegisterMallocSpy(this));
  }
  ~OleBlocks() { CoRevokeMallocSpy(); }

  long left() const { return left_; }
  long seen() const { return seen_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
    const bool bKnown = id == IID_IUnknown || id == IID_IMallocSpy;
    *out = bKnown ? this : nullptr;
    return bKnown ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T nBytes) override { return nBytes; }
  void* STDMETHODCALLTYPE PostAlloc(void* block) override {
    if (block != nullptr) {
      ++left_;
      ++seen_;
    }
    return block;
  }
  void* STDMETHODCALLTYPE PreFree(void* block, BOOL bSpied) override {
    if (block != nullptr && bSpied) --left_;
    return block;
  }
  void STDMETHODCALLTYPE PostFree(BOOL) override {}
  SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T nBytes, void** newBlock, BOOL) override {
    *newBlock = block;
    return nBytes;
  }
  void* STDMETHODCALLTYPE PostRealloc(void* block, BOOL) override { return block; }
  void* STDMETHODCALLTYPE PreGetSize(void* block, BOOL) override { return block; }
  SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T nBytes, BOOL) override { return nBytes; }
  void* STDMETHODCALLTYPE PreDidAlloc(void* block, BOOL) override { return block; }
  int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int nDid) override { return nDid; }
  void STDMETHODCALLTYPE PreHeapMinimize() override {}
  void STDMETHODCALLTYPE PostHeapMinimize() override {}

 private:
  long left_ = 0;
  long seen_ = 0;
};

/// Bytes and blocks in use on every heap of the process.
std::size_t bytes_in_use() {
  std::array<HANDLE, 64> aHeaps{};
  const DWORD nHeaps = GetProcessHeaps(static_cast<DWORD>(aHeaps.size()), aHeaps.data());
  std::size_t nBytes = 0;
  for (DWORD i = 0; i < nHeaps; ++i) {
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(aHeaps[i], &entry)) {
      if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) nBytes += entry.cbData;
    }
  }
  return nBytes;
}

class Cycles : public ::testing::Test {
 protected:
  void SetUp() override { trace().set_detail(Trace::Detail::Nothing); }

  /// Makes a class, shows it the source, calls it with texts and an array of them, and lets go of it.
  static void cycle(const CLSID& id, IDispatch* source) {
    com::ComPtr<IDispatch> made;
    ASSERT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, made.put_void()), S_OK);
    Outcome outcome;
    invoke(outcome, made.get(), L"Show", DISPATCH_METHOD, {object_value(source)});
    ASSERT_EQ(outcome.code, S_OK);
    if (id_of(made.get(), L"Inside") == DISPID_UNKNOWN) return;
    const com::Bstr sText = com::to_bstr("核销");
    const VARIANT text = text_value(sText.get());
    invoke(outcome, made.get(), L"Inside", DISPATCH_METHOD, {text, text});
    ASSERT_EQ(outcome.value->boolVal, VARIANT_TRUE);
    if (const auto bill = com::query<_clsReceiveBill>(made.get())) call_with_an_array(*bill.get(), text);
  }
  static void call_with_an_array(_clsReceiveBill& bill, const VARIANT& text) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, 1);
    LONG nFirst = 0;
    SafeArrayPutElement(array, &nFirst, const_cast<VARIANT*>(&text));
    VARIANT_BOOL bFound = VARIANT_FALSE;
    EXPECT_EQ(bill.Inside(text, array, &bFound), S_OK);
    EXPECT_EQ(bFound, VARIANT_TRUE);
    SafeArrayDestroy(array);
  }

  TestSession session;
};

TEST_F(Cycles, TenThousandClassesAreShownAndReleasedWithoutATrace) {
  const auto oBill = make_settlement_bill(Side::Receive);
  const com::ComPtr<IDispatch> source = com::dispatch_of(oBill);
  const CLSID id = class_id("clsReceiveBill");
  for (int i = 0; i < 200; ++i) cycle(id, source.get());
  const std::size_t nBefore = bytes_in_use();
  for (int i = 0; i < kCycles; ++i) cycle(id, source.get());
  EXPECT_TRUE(ServerUnderTest::can_unload());
  EXPECT_EQ(oBill->events.size(), 0u);
  // Less than a byte for each: a table may have grown once.
  EXPECT_LT(bytes_in_use(), nBefore + kCycles / 2);
}

TEST_F(Cycles, TenThousandClassesLeaveNoTextAndNoArray) {
  const com::ComPtr<IDispatch> source = com::dispatch_of(make_settlement_bill(Side::Receive));
  const CLSID id = class_id("clsReceiveBill");
  cycle(id, source.get());  // the first one reads the types
  const OleBlocks blocks;
  for (int i = 0; i < kCycles; ++i) cycle(id, source.get());
  EXPECT_GT(blocks.seen(), kCycles);
  EXPECT_EQ(blocks.left(), 0);
}

TEST_F(Cycles, EveryClassComesAndGoesWithItsOwnSource) {
  const com::ComPtr<IDispatch> bill = com::dispatch_of(make_settlement_bill(Side::Pay));
  const com::ComPtr<IDispatch> list = com::dispatch_of(make_object<TestList>());
  const com::ComPtr<IDispatch> base = com::dispatch_of(make_object<TestBaseClass>());
  const std::map<std::string_view, IDispatch*> sources{
      {"clsInvoice", list.get()}, {"clsRPInitial", list.get()}, {"clsRPInOutTypeView", base.get()}};
  for (const char* sClass : kClassNames) {
    const CLSID id = class_id(sClass);
    const auto special = sources.find(sClass);
    IDispatch* const source = special == sources.end() ? bill.get() : special->second;
    cycle(id, source);  // the first one reads the types
    const OleBlocks blocks;
    for (int i = 0; i < 200; ++i) cycle(id, source);
    EXPECT_GT(blocks.seen(), 200) << sClass;
    EXPECT_EQ(blocks.left(), 0) << sClass;
  }
  EXPECT_TRUE(ServerUnderTest::can_unload());
}

TEST_F(Cycles, ABusyBillLeavesNothing) {
  const auto oBill = make_settlement_bill(Side::Receive);
  const com::ComPtr<IDispatch> source = com::dispatch_of(oBill);
  OleBlocks blocks;
  {
    com::ComPtr<IDispatch> made = create("clsReceiveBill");
    Outcome outcome;
    invoke(outcome, made.get(), L"Show", DISPATCH_METHOD, {object_value(source.get())});
    oBill->fire(Event::MenuBarInitialize, {oBill->bar});
    oBill->fire(Event::AfterNewBill, {});
    for (int i = 0; i < 100; ++i) {
      add_source_row(*oBill, Side::Receive);
      oBill->change("FAmountFor", -1, static_cast<double>(i));
    }
    oBill->save();
    made = nullptr;
  }
  EXPECT_GT(blocks.seen(), 100);
  EXPECT_EQ(blocks.left(), 0);
  EXPECT_TRUE(ServerUnderTest::can_unload());
}

}  // namespace
}  // namespace arap::testing
