#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "services/component.h"
#include "services/posting.h"
#include "services/session.h"

namespace desk {

/// Whether this seat has lost its edit lock on a bill of the class.
BillPosting::LockLost lock_lost(Session& session, std::int32_t nClass);

/// The bill service of one kind of bill: CheckBill and CheckBillSimple over its posting.
class BillService : public Component {
 protected:
  /// sBillName stands before the number in the messages.
  BillService(std::string sTypeName, Session& session, std::string_view sBillName,
              std::unique_ptr<BillPosting> posting);

  Session& session() { return session_; }

 private:
  arap::Variant check_bill(arap::Arguments args);
  arap::Variant check_bill_simple(const arap::Variant& vData);

  Session& session_;
  std::string bill_name_;
  std::unique_ptr<BillPosting> posting_;
};

}  // namespace desk
