#pragma once

#include <array>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "bridge/bridge.h"
#include "bridge/type_shape.h"

namespace arap::com {

class DispatchObject;
struct ExposedType;

/// How the members of a COM type are reached: its name, and for each member of the contract the DISPID, looked up once.
class TypeRecord {
 public:
  /// Without a shape the type is unknown: TypeName answers "Object".
  TypeRecord(std::string sName, std::shared_ptr<const TypeShape> shape);

  /// A member as the type declares it; the functions are nullptr where the type doesn't say.
  struct Slot {
    DISPID id = DISPID_UNKNOWN;
    const Function* read = nullptr;    // a get or a method
    const Function* put = nullptr;     // a put of a value
    const Function* putref = nullptr;  // a put of an object
  };
  /// Raises 438 when the object lacks the member.
  const Slot& slot_of(Member member, IDispatch& object);

  const std::string& name() const { return name_; }

 private:
  const Slot& look_up(Member member, IDispatch& object);

  std::string name_;
  std::shared_ptr<const TypeShape> shape_;
  std::array<std::int16_t, kMemberNames.size()> index_;  // into slots_; -1 for a member not asked for yet
  std::vector<Slot> slots_;
};

struct GuidHash {
  std::size_t operator()(const GUID& id) const noexcept {
    return id.Data1 ^ (static_cast<std::size_t>(id.Data2) << 16 | id.Data3);
  }
};

/// What the bridge keeps for its thread: who is who, and the types it has met.
struct BridgeState {
  std::unordered_map<IUnknown*, DispatchObject*> wrappers;  // by the identity of the COM object
  std::unordered_map<Object*, IDispatch*> exposed;          // not counted: an entry goes with its COM object
  /// Empty for a type whose objects have a record each.
  std::unordered_map<GUID, std::shared_ptr<TypeRecord>, GuidHash> types;
  std::unordered_map<GUID, std::shared_ptr<const TypeShape>, GuidHash> shapes;
  ComPtr<ITypeLib> library;  // of the TypeLibraryUse in force, or the module's own
  std::unordered_map<std::string, std::shared_ptr<const ExposedType>> exposed_types;  // its types by type_name()

  /// The shape of a type, read on first use.
  std::shared_ptr<const TypeShape> shape_of(ITypeInfo* info);
  /// The record of an object's type: shared by all objects of the type, or the object's own when it doesn't name a
  /// fixed type.
  std::shared_ptr<TypeRecord> type_of(IDispatch& object);
};

/// The state of this thread; a BridgeUse must be alive.
BridgeState& bridge_state();

}  // namespace arap::com
