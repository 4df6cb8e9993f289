#include <benchmark/benchmark.h>

#include <array>

#include "bench_bill.h"

/// Whole commands over bills of 10, 1,000 and 100,000 rows, each beside its floor: the same host calls of each row made
/// by a bare loop. Growth must be linear in the rows.
namespace arap::bench {
namespace {

using testing::Side;

void Sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(10)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond)->Complexity(benchmark::oN);
}

void Rows(benchmark::State& state) {
  state.SetComplexityN(state.range(0));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void ReadCurrency(Object& ledger, int nCurrency) {
  benchmark::DoNotOptimize(ledger.call(Member::GetCurrency, nCurrency).object()->get(Member::ScaleX));
}

void AutoApportion_Rule(benchmark::State& state) {
  BenchBill world(static_cast<int>(state.range(0)));
  for (auto _ : state) world.click("mnuDataAutoPartAmt");
  Rows(state);
}
BENCHMARK(AutoApportion_Rule)->Apply(Sizes);

void AutoApportion_Floor(benchmark::State& state) {
  BenchBill world(static_cast<int>(state.range(0)));
  constexpr std::array aTest{"FInterId"_key, "FBillCurrencyId"_key};
  constexpr std::array aRead{"FInterId"_key, "FBillCurrencyID"_key, "FEntryExchangeRate"_key,
                             "FBillUnReceiveAmountFor"_key};
  Object& bill = *world.bill;
  Object& ledger = world.session.ledger();
  for (auto _ : state) {
    for (int nRow = 1; nRow <= world.rows; ++nRow) benchmark::DoNotOptimize(ReadFields(bill, aTest, nRow));
    for (int nRow = 1; nRow <= world.rows; ++nRow) {
      benchmark::DoNotOptimize(ReadFields(bill, aRead, nRow));
      bill.call(Member::SetBatchFlag, true);
      ReadCurrency(ledger, 1);
      ReadCurrency(ledger, 1);
      WriteField(bill, "FBillSettleAmountFor"_key, nRow, 100, true);
      WriteField(bill, "FBillSettleAmount"_key, nRow, 100, true);
    }
  }
  Rows(state);
}
BENCHMARK(AutoApportion_Floor)->Apply(Sizes);

void AutoSum_Rule(benchmark::State& state) {
  BenchBill world(static_cast<int>(state.range(0)));
  for (auto _ : state) world.click("mnuDataAutoSumAmt");
  Rows(state);
}
BENCHMARK(AutoSum_Rule)->Apply(Sizes);

void AutoSum_Floor(benchmark::State& state) {
  BenchBill world(static_cast<int>(state.range(0)));
  constexpr std::array aTest{"FInterId"_key, "FBillCurrencyId"_key};
  constexpr std::array aRead{"FInterId"_key, "FBillSettleAmount"_key, "FBillCurrencyId"_key};
  for (auto _ : state) {
    for (int nRow = 1; nRow <= world.rows; ++nRow) {
      benchmark::DoNotOptimize(ReadFields(*world.bill, aTest, nRow));
      benchmark::DoNotOptimize(ReadFields(*world.bill, aRead, nRow));
    }
  }
  Rows(state);
}
BENCHMARK(AutoSum_Floor)->Apply(Sizes);

void BeforeSave_Rule(benchmark::State& state) {
  BenchBill world(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    if (world.bill->save()) state.SkipWithError("the save was refused");
    state.PauseTiming();
    world.bill->set_value("FDiscount", -1, 100.0);
    state.ResumeTiming();
  }
  Rows(state);
}
BENCHMARK(BeforeSave_Rule)->Apply(Sizes);

void BeforeSave_Floor(benchmark::State& state) {
  BenchBill world(static_cast<int>(state.range(0)));
  constexpr std::array aTest{"FInterId"_key, "FBillCurrencyId"_key};
  constexpr std::array aRead{"FInterId"_key,
                             "FClassID_SRC"_key,
                             "FEntryID_HXD_SRC"_key,
                             "FBillSettleAmountFor"_key,
                             "FBillUnReceiveAmountFor"_key,
                             "FBillCurrencyId"_key};
  Object& commands = world.session.server("NUVConnection.AppConnection");
  for (auto _ : state) {
    for (int nRow = 1; nRow <= world.rows; ++nRow) {
      benchmark::DoNotOptimize(ReadFields(*world.bill, aTest, nRow));
      benchmark::DoNotOptimize(ReadFields(*world.bill, aRead, nRow));
      const Variant vRows = commands.call(Member::Execute, "", "select 1 from icsale where finterid= 1"_key);
      benchmark::DoNotOptimize(vRows.object()->get(Member::Eof));
    }
  }
  Rows(state);
}
BENCHMARK(BeforeSave_Floor)->Apply(Sizes);

void SelectionFilter_Rule(benchmark::State& state) {
  BenchBill world(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    benchmark::DoNotOptimize(world.bill->fire(
        Event::BeforeSelBills, {2000001, testing::dictionary(), testing::dictionary(), std::string(), false}));
  }
  Rows(state);
}
BENCHMARK(SelectionFilter_Rule)->Apply(Sizes);

void SelectionFilter_Floor(benchmark::State& state) {
  BenchBill world(static_cast<int>(state.range(0)));
  constexpr std::array aRead{"FInterID"_key, "FEntryID_HXD_SRC"_key, "FClassID_SRC"_key};
  for (auto _ : state) {
    for (int nRow = 1; nRow <= world.rows; ++nRow) benchmark::DoNotOptimize(ReadFields(*world.bill, aRead, nRow));
  }
  Rows(state);
}
BENCHMARK(SelectionFilter_Floor)->Apply(Sizes);

}  // namespace
}  // namespace arap::bench
