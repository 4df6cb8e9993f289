#pragma once

#include "frame/public_class.h"

namespace arap {

/// The list of opening balances.
class clsRPInitial final : public ListClass {
 public:
  clsRPInitial() : ListClass("clsRPInitial") {}

 protected:
  ~clsRPInitial() override { m_LstInterface.clear(); }
};

}  // namespace arap
