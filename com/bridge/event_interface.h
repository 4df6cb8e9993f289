#pragma once

#include <memory>
#include <optional>

#include "bridge/type_shape.h"

namespace arap::com {

/// The interface through which an object fires, and the place where it is heard.
struct EventInterface {
  ComPtr<IConnectionPoint> point;
  std::shared_ptr<const TypeShape> events;
};

/// Finds the default source interface of an object whose type library wasn't known when this was built. Asked in this
/// order: the class that the object names itself; the class of its own library that has the object's interface as
/// default; the interfaces of its connection points in that library; those interfaces in the libraries registered for
/// them. Nothing when an object has none, or describes none.
std::optional<EventInterface> find_event_interface(IDispatch& object);

}  // namespace arap::com
