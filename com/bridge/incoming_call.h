#pragma once

#include <vector>

#include "bridge/type_shape.h"

namespace arap::com {

/// The arguments of a call into this module, in the order in which they are written. References are looked through, and
/// write_back stores what changed where they point to.
class IncomingCall {
 public:
  /// What `params` holds stays the caller's and must outlive this.
  explicit IncomingCall(const DISPPARAMS& params) : params_(params) {}

  /// With a function its declaration is kept: the right number (DISP_E_BADPARAMCOUNT), what may be left out
  /// (DISP_E_PARAMNOTOPTIONAL), the types (DISP_E_TYPEMISMATCH, with the caller's index in *pnBad), and names
  /// (DISP_E_PARAMNOTFOUND). Without one every value is taken as it is, and only a put may be named.
  HRESULT read(const Function* function, UINT* pnBad);

  Arguments args() { return values_; }
  /// Nothing that can't take the new value is touched.
  void write_back();

 private:
  HRESULT place(const Function* function);
  HRESULT place_named(const Function* function);
  HRESULT fill(const Function* function, UINT* pnBad);
  HRESULT fill_omitted(const Function* function, std::size_t nIndex, bool bGiven) const;
  UINT caller_index(const VARIANT* given) const { return static_cast<UINT>(given - params_.rgvarg); }

  const DISPPARAMS& params_;
  std::vector<const VARIANT*> given_;  // by position; nullptr where nothing was given
  std::vector<Variant> values_;
  std::vector<Variant> before_;  // the values of references as they came
};

}  // namespace arap::com
