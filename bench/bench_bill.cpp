#include "bench_bill.h"

#include "frame/conversions.h"

namespace arap::bench {

using testing::Side;

BenchBill::BenchBill(int nRows) : bill(testing::make_settlement_bill(Side::Receive)), rows(nRows) {
  testing::trace().set_detail(testing::Trace::Detail::Nothing);
  const Ref<testing::TestRecordset> oFound = testing::recordset({"1"}, {{std::int32_t{1}}});
  session.commands.answer("select 1 from icsale", oFound);
  for (int nRow = 1; nRow <= nRows; ++nRow) {
    testing::add_source_row(*bill, Side::Receive, {.sNumber = "XS", .nInterID = nRow, .nEntryID = 1});
  }
  testing::set_amounts(*bill, Side::Receive, 100.0 * nRows, 100.0 * nRows);
  bill->head("FDate", "2024-01-15");
  plugin = CreatePublicObject("NUVARAPBillInterface.clsReceiveBill");
  plugin->call(Member::Show, bill);
}

BenchBill::~BenchBill() { plugin = nullptr; }

double ReadFields(Object& bill, std::span<const Key> aKeys, int nRow) {
  double dSum = 0;
  for (const Key sKey : aKeys) {
    const Variant vInfo = bill.call(Member::GetFieldInfoByKey, sKey, ""_key, 0);
    const Variant vRecord = bill.call(Member::GetDataFld, vInfo, nRow);
    Object& record = *vRecord.object();
    record.call(Member::Lookup, "FFLD"_key);
    dSum += NumberOf(record.get(Member::Value, "FFLD"_key));
  }
  return dSum;
}

void WriteField(Object& bill, Key sKey, int nRow, double dValue, bool bShow) {
  const Variant vInfo = bill.call(Member::GetFieldInfoByKey, sKey, ""_key, 0);
  vInfo.object()->get(Member::Value, "FPage"_key);
  const Variant vRecord = bill.call(Member::GetDataFld, vInfo, nRow);
  Object& record = *vRecord.object();
  if (NumberOf(record.get(Member::Value, "FFLD"_key)) != dValue) {
    record.put(Member::Value, "FFLD"_key, dValue);
    record.put(Member::Value, "FModify"_key, 1);
  }
  if (bShow) bill.call(Member::SetText, vInfo, dValue, nRow);
}

}  // namespace arap::bench
