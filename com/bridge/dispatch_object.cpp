#include "bridge/dispatch_object.h"

#include <typeinfo>

#include "bridge/errors.h"
#include "bridge/outgoing_call.h"

namespace arap::com {

namespace {

constexpr WORD kReadFlags = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

}  // namespace

DispatchObject::DispatchObject(ComPtr<IUnknown> identity, ComPtr<IDispatch> dispatch)
    : identity_(std::move(identity)), dispatch_(std::move(dispatch)) {
  bridge_state().wrappers.emplace(identity_.get(), this);
}

DispatchObject::~DispatchObject() { bridge_state().wrappers.erase(identity_.get()); }

TypeRecord& DispatchObject::type() const {
  if (!type_) {
    type_ = dispatch_ ? bridge_state().type_of(*dispatch_.get()) : std::make_shared<TypeRecord>("Unknown", nullptr);
  }
  return *type_;
}

std::string DispatchObject::type_name() const { return type().name(); }

Variant DispatchObject::invoke(Member member, Access access, Arguments args) {
  if (!dispatch_) no_such_member(member);
  // The call can let go of the last reference to this object.
  const Ref<Object> alive(this);
  // A copy: a call that comes back in can make the record grow.
  const TypeRecord::Slot slot = type().slot_of(member, *dispatch_.get());
  if (access == Access::Get || access == Access::Call) return read(slot, access, args);
  write(slot, access, args);
  return {};
}

Variant DispatchObject::read(const TypeRecord::Slot& slot, Access access, Arguments args) {
  const bool bElement =
      slot.read != nullptr && slot.read->kind == INVOKE_PROPERTYGET && slot.read->aParameters.empty() && !args.empty();
  if (bElement) return read_element(slot, args);
  // Undeclared: a call is first tried as the method that it is, so that the object can tell it from a read.
  const bool bAsMethod = slot.read == nullptr && access == Access::Call;
  OutgoingCall call{*dispatch_.get(), slot.id, bAsMethod ? WORD{DISPATCH_METHOD} : kReadFlags, slot.read};
  Variant vAnswer;
  OwnedExcepInfo info;
  HRESULT done = call.run(args, vAnswer, *info.get());
  if (bAsMethod && done == DISP_E_MEMBERNOTFOUND) {
    call.flags = kReadFlags;
    done = call.run(args, vAnswer, *info.get());
  }
  if (done == DISP_E_BADPARAMCOUNT && access == Access::Get && !args.empty()) return read_element(slot, args);
  if (FAILED(done)) throw error_of(done, info.get());
  return vAnswer;
}

/// A property that takes no arguments itself answers a collection, and the arguments are for its default member.
Variant DispatchObject::read_element(const TypeRecord::Slot& slot, Arguments args) {
  const OutgoingCall call{*dispatch_.get(), slot.id, kReadFlags, slot.read};
  Variant vCollection;
  OwnedExcepInfo info;
  const HRESULT done = call.run({}, vCollection, *info.get());
  if (FAILED(done)) throw error_of(done, info.get());
  if (!vCollection.is_object() || vCollection.is_nothing()) {
    throw AutomationError(ErrorNumber::WrongNumberOfArguments);
  }
  return vCollection.object()->invoke(Member::Default, Access::Get, args);
}

/// An object is put by reference where the member can take it so, and any other value by value.
void DispatchObject::write(const TypeRecord::Slot& slot, Access access, Arguments args) {
  const bool bObject = access == Access::PutRef || (!args.empty() && args.back().is_object());
  const bool bDeclared = slot.put != nullptr || slot.putref != nullptr;
  const bool bByReference = bObject && (slot.putref != nullptr || !bDeclared);
  OutgoingCall call{*dispatch_.get(), slot.id,
                    bByReference ? WORD{DISPATCH_PROPERTYPUTREF} : WORD{DISPATCH_PROPERTYPUT},
                    bByReference ? slot.putref : slot.put};
  Variant vNone;
  OwnedExcepInfo info;
  HRESULT done = call.run(args, vNone, *info.get());
  if (bByReference && done == DISP_E_MEMBERNOTFOUND) {
    call.flags = DISPATCH_PROPERTYPUT;
    call.function = slot.put;
    done = call.run(args, vNone, *info.get());
  }
  if (FAILED(done)) throw error_of(done, info.get());
}

EventSource* DispatchObject::event_source() {
  if (!source_ && dispatch_) source_ = ConnectedSource::find(*dispatch_.get());
  return source_.get();
}

DispatchObject* as_dispatch_object(Object& object) {
  return typeid(object) == typeid(DispatchObject) ? static_cast<DispatchObject*>(&object) : nullptr;
}

}  // namespace arap::com
