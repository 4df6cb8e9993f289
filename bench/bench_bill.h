#pragma once

#include <memory>
#include <span>

#include "frame/plugin_entry.h"
#include "support/settlement_host.h"
#include "support/test_session.h"

namespace arap::bench {

/// A receipt with `nRows` source rows of 100.00 each, bound to a class of the plug-in, with the trace switched off.
class BenchBill {
 public:
  explicit BenchBill(int nRows);
  ~BenchBill();

  testing::TestSession session;
  Ref<testing::TestBill> bill;
  Ref<Object> plugin;
  const int rows;

  void click(std::string_view sTool) { bill->click(sTool); }
};

/// The bare host calls behind a read of each of these fields in a row: definition, record, test for FFLD, value.
double ReadFields(Object& bill, std::span<const Key> aKeys, int nRow);

/// The bare host calls behind a write: definition, record, compare, value and modify mark, text of the cell.
void WriteField(Object& bill, Key sKey, int nRow, double dValue, bool bShow);

}  // namespace arap::bench
