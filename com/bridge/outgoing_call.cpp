#include "bridge/outgoing_call.h"

#include <array>
#include <vector>

#include "bridge/variant_conversion.h"

namespace arap::com {

namespace {

/// The arguments of one call as COM wants them, last one first. A by-reference argument refers to a value beside it.
class ArgumentBlock {
 public:
  explicit ArgumentBlock(std::size_t nCount) : count_(nCount) {
    if (nCount > kFew) many_.resize(2 * nCount);
    VARIANT* const storage = nCount > kFew ? many_.data() : few_.data();
    passed_ = storage;
    values_ = storage + nCount;
    for (std::size_t i = 0; i < 2 * nCount; ++i) VariantInit(&storage[i]);
  }
  ~ArgumentBlock() {
    // What is passed by value lies among the passed ones, and a reference owns nothing.
    for (std::size_t i = 0; i < 2 * count_; ++i) {
      if ((passed_[i].vt & VT_BYREF) == 0) VariantClear(&passed_[i]);
    }
  }
  ArgumentBlock(const ArgumentBlock&) = delete;
  ArgumentBlock& operator=(const ArgumentBlock&) = delete;

  VARIANT* all() { return passed_; }
  /// Argument nIndex in the order in which it is written.
  VARIANT& passed(std::size_t nIndex) { return passed_[count_ - 1 - nIndex]; }
  VARIANT& value(std::size_t nIndex) { return values_[nIndex]; }

 private:
  static constexpr std::size_t kFew = 8;
  std::size_t count_;
  VARIANT* passed_ = nullptr;
  VARIANT* values_ = nullptr;  // right behind the passed ones
  std::array<VARIANT, 2 * kFew> few_;
  std::vector<VARIANT> many_;
};

void refer(VARIANT& reference, VARTYPE type, VARIANT& value) {
  reference.vt = static_cast<VARTYPE>(VT_BYREF | type);
  if (type == VT_VARIANT) {
    reference.pvarVal = &value;
  } else if (type == VT_DECIMAL) {
    reference.pdecVal = &value.decVal;
  } else {
    reference.byref = &value.bVal;
  }
}

/// The declared parameter of an argument; nullptr when the argument belongs to a vararg or isn't declared.
const Parameter* parameter_of(const Function& function, std::size_t nIndex) {
  const std::size_t nPlain = function.aParameters.size() - (function.bVararg ? 1 : 0);
  return nIndex < nPlain ? &function.aParameters[nIndex] : nullptr;
}

bool is_put(WORD flags) { return (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0; }

/// The type of the reference under which an argument goes; VT_EMPTY when it goes by value.
VARTYPE reference_type(const OutgoingCall& call, std::size_t nIndex, std::size_t nCount) {
  if (call.function == nullptr) return is_put(call.flags) ? VARTYPE{VT_EMPTY} : VARTYPE{VT_VARIANT};
  if (is_put(call.flags) && nIndex + 1 == nCount) return VT_EMPTY;
  const Parameter* const parameter = parameter_of(*call.function, nIndex);
  return parameter != nullptr && parameter->bByReference ? parameter->type : VARTYPE{VT_EMPTY};
}

/// A value that can't be made the declared type goes as it is: refusing it is the target's business.
void pass(const Variant& vValue, VARTYPE reference, VARIANT& passed, VARIANT& value) {
  if (reference != VT_EMPTY && !vValue.is_missing() && SUCCEEDED(to_com_as(vValue, reference, value))) {
    refer(passed, reference, value);
  } else {
    to_com(vValue, passed);
  }
}

void take_back(Arguments args, ArgumentBlock& block) {
  for (std::size_t i = 0; i < args.size(); ++i) {
    if ((block.passed(i).vt & VT_BYREF) == 0) continue;
    Variant vNow = to_variant(block.value(i));
    if (!is_same(vNow, args[i])) args[i] = std::move(vNow);
  }
}

}  // namespace

HRESULT OutgoingCall::run(Arguments args, Variant& vAnswer, EXCEPINFO& info) const {
  ArgumentBlock block(args.size());
  for (std::size_t i = 0; i < args.size(); ++i) {
    pass(args[i], reference_type(*this, i, args.size()), block.passed(i), block.value(i));
  }
  DISPID put_value = DISPID_PROPERTYPUT;
  DISPPARAMS params{block.all(), is_put(flags) ? &put_value : nullptr, static_cast<UINT>(args.size()),
                    is_put(flags) ? 1u : 0u};
  OwnedVariant answer;
  UINT nBadArgument = 0;
  const HRESULT done = target.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &params,
                                     is_put(flags) ? nullptr : answer.get(), &info, &nBadArgument);
  take_back(args, block);
  if (SUCCEEDED(done)) vAnswer = to_variant(*answer);
  return done;
}

}  // namespace arap::com
