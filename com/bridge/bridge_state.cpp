#include "bridge/bridge_state.h"

#include <dispex.h>

#include "bridge/errors.h"
#include "bridge/wide_text.h"

namespace arap::com {

namespace {

// Plain data: a thread-local object with a destructor would run after the library is gone.
thread_local BridgeState* t_state = nullptr;
thread_local int t_uses = 0;

constexpr std::int16_t kNotYet = -1;

DISPID dispid_of(Member member, IDispatch& object) {
  if (member == Member::Default) return DISPID_VALUE;
  std::wstring sName = to_wide(name_of(member));
  LPOLESTR name = sName.data();
  DISPID id = DISPID_UNKNOWN;
  const HRESULT found = object.GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  if (found != S_OK && found != DISP_E_UNKNOWNNAME) check(found);
  return id;
}

}  // namespace

TypeRecord::TypeRecord(std::string sName, std::shared_ptr<const TypeShape> shape)
    : name_(std::move(sName)), shape_(std::move(shape)) {
  index_.fill(kNotYet);
}

const TypeRecord::Slot& TypeRecord::slot_of(Member member, IDispatch& object) {
  const std::int16_t nIndex = index_[static_cast<std::size_t>(member)];
  return nIndex == kNotYet ? look_up(member, object) : slots_[static_cast<std::size_t>(nIndex)];
}

const TypeRecord::Slot& TypeRecord::look_up(Member member, IDispatch& object) {
  Slot slot;
  slot.id = dispid_of(member, object);
  if (slot.id == DISPID_UNKNOWN) {
    throw AutomationError(ErrorNumber::NoSuchMember, name_ + "." + std::string(name_of(member)));
  }
  if (shape_) {
    slot.read = shape_->find(slot.id, INVOKE_FUNC | INVOKE_PROPERTYGET);
    slot.put = shape_->find(slot.id, INVOKE_PROPERTYPUT);
    slot.putref = shape_->find(slot.id, INVOKE_PROPERTYPUTREF);
  }
  slots_.push_back(slot);
  index_[static_cast<std::size_t>(member)] = static_cast<std::int16_t>(slots_.size() - 1);
  return slots_.back();
}

std::shared_ptr<const TypeShape> BridgeState::shape_of(ITypeInfo* info) {
  const GUID id = TypeAttributes(info)->guid;
  if (id == GUID_NULL) return TypeShape::read(info);
  std::shared_ptr<const TypeShape>& shape = shapes[id];
  if (!shape) shape = TypeShape::read(info);
  return shape;
}

std::shared_ptr<TypeRecord> BridgeState::type_of(IDispatch& object) {
  ComPtr<ITypeInfo> info;
  if (FAILED(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put())) || !info) {
    return std::make_shared<TypeRecord>("Object", nullptr);
  }
  const GUID id = TypeAttributes(info.get())->guid;
  const auto known = types.find(id);
  if (known != types.end() && known->second) return known->second;
  const std::shared_ptr<const TypeShape> shape = shape_of(info.get());
  auto type = std::make_shared<TypeRecord>(std::string(without_underscore(shape->name())), shape);
  // An object that grows members of its own shares its DISPIDs with no other.
  const bool bShared = id != GUID_NULL && known == types.end() && !query<IDispatchEx>(&object);
  if (id != GUID_NULL) types[id] = bShared ? type : nullptr;
  return type;
}

BridgeUse::BridgeUse() {
  if (t_state == nullptr) t_state = new BridgeState;
  ++t_uses;
}

BridgeUse::~BridgeUse() {
  if (--t_uses > 0) return;
  delete t_state;
  t_state = nullptr;
}

BridgeState& bridge_state() { return *t_state; }

}  // namespace arap::com
