#pragma once

#include "frame/public_class.h"

namespace arap {

/// The invoice list.
class clsInvoice final : public ListClass {
 public:
  clsInvoice() : ListClass("clsInvoice") {}

 protected:
  ~clsInvoice() override { m_LstInterface.clear(); }
};

}  // namespace arap
