#pragma once

#include <string>

namespace desk {

struct SettleTimes {
  int nInvoices = 0;
  double dSettleSeconds = 0;  // from the selection to the committed check
  double dCpuSeconds = 0;     // of these, what the processor worked for it: what others run beside it doesn't count
  double dSetupSeconds = 0;   // making the book and its invoices
  double dRssMb = 0;          // the most memory the process ever held
};

/// One customer with that many open invoices, settled by one receipt of the exact total: selection, sum, save, check.
/// The book is a file in `sFolder` ("" is the system's folder for such files), removed afterwards. Raises DeskError
/// when the receipt didn't settle everything.
SettleTimes bench_settle(int nInvoices, const std::string& sFolder = {});

}  // namespace desk
