#include "bridge/incoming_call.h"

#include "bridge/variant_conversion.h"

namespace arap::com {

namespace {

bool is_omitted(const VARIANT& value) { return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND; }

/// The value as the declared type.
HRESULT take(const VARIANT& given, VARTYPE type, Variant& vValue) {
  const VARIANT& target = target_of(given);
  const VARTYPE plain = target.vt & ~VT_BYREF;
  try {
    if (type == VT_VARIANT || plain == type) {
      vValue = to_variant(target);
      return S_OK;
    }
    OwnedVariant copy;
    HRESULT done = VariantCopyInd(copy.get(), const_cast<VARIANT*>(&target));
    if (SUCCEEDED(done)) done = convert(*copy, type);
    if (FAILED(done)) return done;
    vValue = to_variant(*copy);
    return S_OK;
  } catch (const AutomationError&) {
    return DISP_E_TYPEMISMATCH;
  }
}

VARTYPE type_of(const Function* function, std::size_t nIndex) {
  if (function == nullptr) return VT_VARIANT;
  const std::size_t nPlain = function->aParameters.size() - (function->bVararg ? 1 : 0);
  return nIndex < nPlain ? function->aParameters[nIndex].type : VARTYPE{VT_VARIANT};
}

}  // namespace

HRESULT IncomingCall::read(const Function* function, UINT* pnBad) {
  const HRESULT placed = place(function);
  return FAILED(placed) ? placed : fill(function, pnBad);
}

HRESULT IncomingCall::place(const Function* function) {
  const bool bTorn = params_.cNamedArgs > params_.cArgs || (params_.cArgs > 0 && params_.rgvarg == nullptr) ||
                     (params_.cNamedArgs > 0 && params_.rgdispidNamedArgs == nullptr);
  if (bTorn) return E_INVALIDARG;
  const std::size_t nPositional = params_.cArgs - params_.cNamedArgs;
  if (function != nullptr && !function->bVararg && params_.cArgs > function->aParameters.size()) {
    return DISP_E_BADPARAMCOUNT;
  }
  given_.assign(nPositional, nullptr);
  for (std::size_t i = 0; i < nPositional; ++i) given_[i] = &params_.rgvarg[params_.cArgs - 1 - i];
  return place_named(function);
}

HRESULT IncomingCall::place_named(const Function* function) {
  for (UINT i = 0; i < params_.cNamedArgs; ++i) {
    const DISPID name = params_.rgdispidNamedArgs[i];
    if (name == DISPID_PROPERTYPUT) {
      given_.push_back(&params_.rgvarg[i]);
      continue;
    }
    if (function == nullptr) return DISP_E_NONAMEDARGS;
    if (name < 0 || static_cast<std::size_t>(name) >= function->aParameters.size()) return DISP_E_PARAMNOTFOUND;
    const auto nAt = static_cast<std::size_t>(name);
    if (nAt >= given_.size()) given_.resize(nAt + 1, nullptr);
    given_[nAt] = &params_.rgvarg[i];
  }
  return S_OK;
}

HRESULT IncomingCall::fill(const Function* function, UINT* pnBad) {
  values_.resize(given_.size());
  for (std::size_t i = 0; i < given_.size(); ++i) {
    const VARIANT* const given = given_[i];
    HRESULT done = S_OK;
    if (given == nullptr || is_omitted(target_of(*given))) {
      values_[i] = Missing{};
      done = fill_omitted(function, i, given != nullptr);
    } else {
      done = take(*given, type_of(function, i), values_[i]);
    }
    if (FAILED(done)) {
      if (pnBad != nullptr && given != nullptr) *pnBad = caller_index(given);
      return done;
    }
  }
  const std::size_t nDeclared = function == nullptr ? 0 : function->aParameters.size() - (function->bVararg ? 1 : 0);
  for (std::size_t i = given_.size(); i < nDeclared; ++i) {
    if (FAILED(fill_omitted(function, i, false))) return DISP_E_BADPARAMCOUNT;
  }
  before_ = values_;
  return S_OK;
}

HRESULT IncomingCall::fill_omitted(const Function* function, std::size_t nIndex, bool bGiven) const {
  if (function == nullptr) return S_OK;
  const std::size_t nPlain = function->aParameters.size() - (function->bVararg ? 1 : 0);
  if (nIndex >= nPlain || function->aParameters[nIndex].bOptional) return S_OK;
  return bGiven ? DISP_E_PARAMNOTOPTIONAL : DISP_E_BADPARAMCOUNT;
}

void IncomingCall::write_back() {
  for (std::size_t i = 0; i < given_.size(); ++i) {
    if (given_[i] == nullptr || (given_[i]->vt & VT_BYREF) == 0 || is_same(values_[i], before_[i])) continue;
    store_by_reference(*given_[i], values_[i]);
  }
}

}  // namespace arap::com
