#pragma once

#include "frame/public_class.h"

namespace arap {

/// The list of opening balances: read-only for this module, all commands that remain are the host's.
class clsRPInitial final : public ListClass {
 public:
  clsRPInitial() : ListClass("clsRPInitial") {}

 protected:
  ~clsRPInitial() override { m_LstInterface.clear(); }
  void OnListEvent(Event event, Arguments args) override;

 private:
  void m_LstInterface_BarInitialize(const ActiveBar& oBar);
};

}  // namespace arap
