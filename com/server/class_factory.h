#pragma once

#include "server/public_classes.h"

namespace arap::com {

/// The factory of one public class, with one share for the caller.
ComPtr<IClassFactory> make_factory(const ComClass& com_class);

}  // namespace arap::com
