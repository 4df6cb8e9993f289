#include <benchmark/benchmark.h>

#include <array>

#include "bench_bill.h"
#include "frame/bill_fields.h"

/// What one call through the door costs, and the two helpers that nearly every rule stands on.
namespace arap::bench {
namespace {

void HostCall(benchmark::State& state) {
  BenchBill world(10);
  Object& bill = *world.bill;
  for (auto _ : state) benchmark::DoNotOptimize(bill.get(Member::EditMode));
}
BENCHMARK(HostCall);

void GetBillField_Rule(benchmark::State& state) {
  BenchBill world(static_cast<int>(state.range(0)));
  const BillEvent oBill{Ref<Object>(world.bill)};
  for (auto _ : state) benchmark::DoNotOptimize(GetBillField(oBill, "FBillSettleAmountFor"_key, world.rows));
}
BENCHMARK(GetBillField_Rule)->Arg(10)->Arg(1000)->Arg(100000);

void GetBillField_Floor(benchmark::State& state) {
  BenchBill world(static_cast<int>(state.range(0)));
  constexpr std::array aKeys{"FBillSettleAmountFor"_key};
  for (auto _ : state) benchmark::DoNotOptimize(ReadFields(*world.bill, aKeys, world.rows));
}
BENCHMARK(GetBillField_Floor)->Arg(10)->Arg(1000)->Arg(100000);

void SetBillField_Rule(benchmark::State& state) {
  BenchBill world(static_cast<int>(state.range(0)));
  const BillEvent oBill{Ref<Object>(world.bill)};
  double dValue = 1;
  for (auto _ : state) SetBillField(oBill, "FBillSettleAmountFor"_key, world.rows, dValue += 1);
}
BENCHMARK(SetBillField_Rule)->Arg(10)->Arg(1000)->Arg(100000);

void SetBillField_Floor(benchmark::State& state) {
  BenchBill world(static_cast<int>(state.range(0)));
  double dValue = 1;
  for (auto _ : state) WriteField(*world.bill, "FBillSettleAmountFor"_key, world.rows, dValue += 1, false);
}
BENCHMARK(SetBillField_Floor)->Arg(10)->Arg(1000)->Arg(100000);

}  // namespace
}  // namespace arap::bench
