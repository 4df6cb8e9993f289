#pragma once

#include "bridge/type_shape.h"

namespace arap::com {

/// One call out of this module: `function` is what the target's type declares, nullptr when it doesn't say. A declared
/// by-reference parameter gets a reference of exactly its type, any other argument goes by value; where nothing is
/// declared each argument of a call is a reference to a Variant, as Basic passes its variables. What came back stands
/// in `args` afterwards, also when the call failed.
struct OutgoingCall {
  IDispatch& target;
  DISPID id;
  WORD flags;  // DISPATCH_METHOD, ...
  const Function* function;

  /// S_OK, or the code of the failure, with `info` filled for DISP_E_EXCEPTION.
  HRESULT run(Arguments args, Variant& vAnswer, EXCEPINFO& info) const;
};

}  // namespace arap::com
