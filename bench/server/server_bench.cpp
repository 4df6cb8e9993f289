#include <algorithm>
#include <chrono>
#include <cstdio>
#include <initializer_list>
#include <string>

#include "bench_bill.h"
#include "bridge/bridge.h"
#include "com/scenarios/host_process.h"

/// What the COM boundary costs: one call through the bridge, and a whole command of the real DLL over 1,000 rows, each
/// beside a bare IDispatch::Invoke with a known DISPID, in one run. Run it with
///   tools/wine.sh x64 build/cross-x64/bench/server_bench.exe
/// after the DLL was registered.
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

/// Microseconds of one call of a body that makes `dCalls`: the best of five runs, for the machine has other work too.
template <class Body>
double best_of_five(double dCalls, Body&& body) {
  double dBest = 1e12;
  for (int i = 0; i < 5; ++i) dBest = std::min(dBest, microseconds(body));
  return dBest / dCalls;
}

/// The bare call: a text and a number in, a value out, with a DISPID that is known.
void invoke_bare(IDispatch* object, DISPID id, const wchar_t* sText, std::initializer_list<LONG> aNumbers) {
  com::OwnedVariant aArgs[3];
  std::size_t nArgs = 0;
  for (const LONG nNumber : aNumbers) {
    aArgs[nArgs]->vt = VT_I4;
    aArgs[nArgs++]->lVal = nNumber;
  }
  aArgs[nArgs]->vt = VT_BSTR;
  aArgs[nArgs++]->bstrVal = SysAllocString(sText);
  DISPPARAMS params{aArgs[0].get(), nullptr, static_cast<UINT>(nArgs), 0};
  com::OwnedVariant answer;
  object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, answer.get(), nullptr, nullptr);
}

DISPID id_of(IDispatch* object, std::wstring sName) {
  LPOLESTR name = sName.data();
  DISPID id = DISPID_UNKNOWN;
  object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  return id;
}

template <class Body>
double per_call(Body&& call) {
  return best_of_five(kBareCalls, [&] {
    for (int i = 0; i < kBareCalls; ++i) call();
  });
}

/// One and the same call of an object in another module, bare and through the bridge that the handlers use.
void compare_one_call(Object& plugin) {
  const com::ComPtr<IDispatch> object = com::dispatch_of(Ref<Object>(&plugin));
  const DISPID id = id_of(object.get(), L"Inside");
  const double dBare = per_call([&] { invoke_bare(object.get(), id, L"FAmountFor", {5}); });
  const double dBridge = per_call([&] { plugin.call(Member::Inside, "FAmountFor", 5); });
  std::printf("one call of the same object: bare %.3f us, through the bridge %.3f us, ratio %.2f\n", dBare, dBridge,
              dBridge / dBare);
}

/// A whole command over 1,000 rows: its host calls beside bare ones of the same host.
void compare_a_command(BenchBill& world) {
  const auto apportion = [](BenchBill& bill) { bill.click("mnuDataAutoPartAmt"); };
  BenchBill counted(kRows / 100);  // failing a call of a thousand rows twenty times would take long
  const auto nCalls = static_cast<double>(host_calls([&] { apportion(counted); })) * 100;
  const double dCall = best_of_five(nCalls, [&] { apportion(world); });
  const com::ComPtr<IDispatch> bill = com::dispatch_of(world.bill);
  const DISPID id = id_of(bill.get(), L"GetFieldValue");
  const double dBare = per_call([&] { invoke_bare(bill.get(), id, L"FAmountFor", {1, -1}); });
  std::printf("AutoApportion of %d rows: %.1f ms, about %.0f host calls\n", kRows, dCall * nCalls / 1000, nCalls);
  std::printf("a host call from the handler: %.3f us, the rule's own work included\n", dCall);
  std::printf("a bare Invoke of the host with a known DISPID: %.3f us, ratio %.2f\n", dBare, dCall / dBare);
}

void run() {
  BenchBill world(kRows);
  compare_one_call(*world.plugin);
  compare_a_command(world);
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
