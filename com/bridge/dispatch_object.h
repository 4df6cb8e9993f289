#pragma once

#include <memory>
#include <string>

#include "bridge/bridge_state.h"
#include "bridge/connected_source.h"

namespace arap::com {

/// A COM object of the host as an Object.
class DispatchObject final : public Object {
 public:
  /// `identity` is the object's own IUnknown. For object_of alone, which keeps one of these per COM object.
  DispatchObject(ComPtr<IUnknown> identity, ComPtr<IDispatch> dispatch);

  /// The name in its type information without a leading underscore; "Object" when it has none.
  std::string type_name() const override;
  Variant invoke(Member member, Access access, Arguments args) override;
  /// The connection of its default source interface; nullptr when none is found.
  EventSource* event_source() override;

  IUnknown* identity() const { return identity_.get(); }
  /// Empty for an object without IDispatch.
  const ComPtr<IDispatch>& dispatch() const { return dispatch_; }

 private:
  ~DispatchObject() override;
  TypeRecord& type() const;
  Variant read(const TypeRecord::Slot& slot, Access access, Arguments args);
  void write(const TypeRecord::Slot& slot, Access access, Arguments args);
  Variant read_element(const TypeRecord::Slot& slot, Arguments args);

  BridgeUse use_;
  ComPtr<IUnknown> identity_;
  ComPtr<IDispatch> dispatch_;
  mutable std::shared_ptr<TypeRecord> type_;  // found by the first question
  std::unique_ptr<ConnectedSource> source_;
};

/// The object as a COM object of the host; nullptr when it is one of this module.
DispatchObject* as_dispatch_object(Object& object);

}  // namespace arap::com
