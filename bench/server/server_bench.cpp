#include <algorithm>
#include <chrono>
#include <cstdio>

#include "bench_bill.h"
#include "bridge/bridge.h"
#include "bridge/wide_text.h"
#include "com/scenarios/host_process.h"

/// What the COM boundary costs: a whole command of the real DLL over 1,000 rows, each of its host calls beside a bare
/// IDispatch::Invoke with a known DISPID on the same host, in one run. Run it with
///   tools/wine.sh x64 build/cross-x64/bench/server_bench.exe
namespace arap::bench {
namespace {

using testing::trace;

constexpr int kRows = 1000;
constexpr int kBareCalls = 100000;

template <class Body>
double microseconds(Body&& body) {
  const auto start = std::chrono::steady_clock::now();
  body();
  return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

/// The number of host calls of a body: the last call that can be made to fail.
template <class Body>
std::int64_t host_calls(Body&& body) {
  std::int64_t nLow = 0;
  std::int64_t nHigh = std::int64_t{1} << 22;
  while (nHigh - nLow > 1) {
    const std::int64_t nMiddle = (nLow + nHigh) / 2;
    trace().fail_at(nMiddle);
    try {
      body();
    } catch (const AutomationError&) {
    }
    (trace().faulted() ? nLow : nHigh) = nMiddle;
  }
  trace().fail_at(0);
  return nLow;
}

/// Microseconds of one bare call GetFieldValue("FAmountFor", -1, 1): a text in, a Variant out.
double bare_call(IDispatch* bill) {
  std::wstring sName = L"GetFieldValue";
  LPOLESTR name = sName.data();
  DISPID id = DISPID_UNKNOWN;
  bill->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  const double dTime = microseconds([&] {
    for (int i = 0; i < kBareCalls; ++i) {
      com::OwnedVariant aArgs[3];
      aArgs[0]->vt = VT_I4;
      aArgs[0]->lVal = 1;
      aArgs[1]->vt = VT_I4;
      aArgs[1]->lVal = -1;
      aArgs[2]->vt = VT_BSTR;
      aArgs[2]->bstrVal = SysAllocString(L"FAmountFor");
      DISPPARAMS params{aArgs[0].get(), nullptr, 3, 0};
      com::OwnedVariant answer;
      bill->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, answer.get(), nullptr, nullptr);
    }
  });
  return dTime / kBareCalls;
}

void run() {
  BenchBill world(kRows);
  const auto apportion = [&world] { world.click("mnuDataAutoPartAmt"); };
  apportion();
  double dBest = 1e12;
  for (int i = 0; i < 5; ++i) dBest = std::min(dBest, microseconds(apportion));
  const double dBare = bare_call(com::dispatch_of(world.bill).get());

  BenchBill counted(kRows / 100);  // failing a call of a thousand rows twenty times would take long
  const auto nCalls = static_cast<double>(host_calls([&counted] { counted.click("mnuDataAutoPartAmt"); })) * 100;
  std::printf("AutoApportion of %d rows: %.1f ms, about %.0f host calls\n", kRows, dBest / 1000, nCalls);
  std::printf("a host call from the handler: %.3f us\n", dBest / nCalls);
  std::printf("a bare Invoke with a known DISPID: %.3f us\n", dBare);
  std::printf("ratio: %.2f\n", dBest / nCalls / dBare);
}

}  // namespace
}  // namespace arap::bench

int main() {
  arap::testing::HostProcess host;
  host.SetUp();
  arap::bench::run();
  host.TearDown();
  return 0;
}
