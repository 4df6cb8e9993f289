#include "bridge/object_dispatch.h"

#include "bridge/errors.h"
#include "bridge/incoming_call.h"
#include "bridge/variant_conversion.h"
#include "bridge/wide_text.h"
#include "frame/conversions.h"

namespace arap::com {

namespace {

constexpr WORD kPutFlags = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

/// DISPIDs of an object without a shape: the place of the name in the contract's table, where the default member is
/// first, as DISPID_VALUE is 0.
static_assert(static_cast<DISPID>(Member::Default) == DISPID_VALUE);

bool is_member(DISPID id) { return id >= 0 && id < static_cast<DISPID>(kMemberNames.size()); }

Access access_of(WORD flags, const Function* function) {
  // A put with both flags counts as a put.
  if ((flags & DISPATCH_PROPERTYPUT) != 0) return Access::Put;
  if ((flags & DISPATCH_PROPERTYPUTREF) != 0) return Access::PutRef;
  if (function != nullptr) return function->kind == INVOKE_FUNC ? Access::Call : Access::Get;
  return (flags & DISPATCH_PROPERTYGET) != 0 ? Access::Get : Access::Call;
}

DISPID id_of_name(const TypeShape* shape, std::string_view sName) {
  if (shape != nullptr) {
    const Function* const function = shape->find(sName);
    return function == nullptr ? DISPID_UNKNOWN : function->id;
  }
  const std::optional<Member> member = find_member(sName);
  return member ? static_cast<DISPID>(*member) : DISPID_UNKNOWN;
}

/// The DISPID of a parameter is its position.
DISPID id_of_parameter(const TypeShape* shape, DISPID member, std::string_view sName) {
  const Function* const function = shape == nullptr ? nullptr : shape->find(member, INVOKE_FUNC | INVOKE_PROPERTYGET);
  if (function == nullptr) return DISPID_UNKNOWN;
  for (std::size_t i = 0; i < function->aParameters.size(); ++i) {
    if (EqualsNoCase(function->aParameters[i].sName, sName)) return static_cast<DISPID>(i);
  }
  return DISPID_UNKNOWN;
}

struct Target {
  const Function* function;  // nullptr without a shape
  Member member;
};

/// What a DISPID and its flags mean; nothing when there is no such member or it can't be used so.
std::optional<Target> target_of_call(const TypeShape* shape, DISPID id, WORD flags) {
  if (shape == nullptr) {
    if (!is_member(id)) return std::nullopt;
    return Target{nullptr, static_cast<Member>(id)};
  }
  const Function* const function = shape->find(id, flags);
  if (function == nullptr || !function->member) return std::nullopt;
  return Target{function, *function->member};
}

void invoke_and_write_back(Object& object, const Target& target, Access access, IncomingCall& call, VARIANT* answer) {
  Variant vAnswer;
  try {
    vAnswer = object.invoke(target.member, access, call.args());
  } catch (...) {
    call.write_back();
    throw;
  }
  call.write_back();
  if (answer != nullptr) to_com(vAnswer, *answer);
}

}  // namespace

HRESULT find_names(const TypeShape* shape, LPOLESTR* names, UINT nNames, DISPID* ids) noexcept {
  if (names == nullptr || ids == nullptr) return E_POINTER;
  if (nNames == 0) return S_OK;
  try {
    bool bAll = true;
    for (UINT i = 0; i < nNames; ++i) {
      if (names[i] == nullptr) return E_POINTER;
      const std::string sName = to_utf8(std::wstring_view(names[i]));
      ids[i] = i == 0 ? id_of_name(shape, sName) : id_of_parameter(shape, ids[0], sName);
      bAll = bAll && ids[i] != DISPID_UNKNOWN;
    }
    return bAll ? S_OK : DISP_E_UNKNOWNNAME;
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

HRESULT invoke_object(Object& object, const TypeShape* shape, DISPID id, WORD flags, DISPPARAMS* params,
                      VARIANT* answer, EXCEPINFO* info, UINT* pnBad) noexcept {
  if (params == nullptr) return E_POINTER;
  if (answer != nullptr) VariantInit(answer);
  // An error object left over on the thread would be taken for one of this call.
  SetErrorInfo(0, nullptr);
  try {
    const std::optional<Target> target = target_of_call(shape, id, flags);
    if (!target) return DISP_E_MEMBERNOTFOUND;
    if ((flags & kPutFlags) != 0 && params->cNamedArgs == 0) return DISP_E_PARAMNOTFOUND;
    IncomingCall call(*params);
    const HRESULT read = call.read(target->function, pnBad);
    if (FAILED(read)) return read;
    const Ref<Object> alive(&object);
    invoke_and_write_back(object, *target, access_of(flags, target->function), call, answer);
    return S_OK;
  } catch (...) {
    return report_to_invoke(info);
  }
}

// {5D0C2C5E-3B0E-4F0B-9C39-6D1C2E6E7A11}
const IID kModuleObjectId = {0x5d0c2c5e, 0x3b0e, 0x4f0b, {0x9c, 0x39, 0x6d, 0x1c, 0x2e, 0x6e, 0x7a, 0x11}};

const void* module_tag() {
  static const char tag = 0;
  return &tag;
}

ObjectDispatch::ObjectDispatch(Ref<Object> object, std::shared_ptr<const ExposedType> type)
    : object_(std::move(object)), type_(std::move(type)) {
  EventSource* const source = type_ && type_->events ? object_->event_source() : nullptr;
  if (source != nullptr) {
    point_ = std::make_unique<ConnectionPoint>(static_cast<IConnectionPointContainer&>(*this), *source, type_->events);
  }
  bridge_state().exposed.emplace(object_.get(), this);
}

ObjectDispatch::~ObjectDispatch() {
  const auto entry = bridge_state().exposed.find(object_.get());
  if (entry != bridge_state().exposed.end() && entry->second == this) bridge_state().exposed.erase(entry);
}

IUnknown* ObjectDispatch::interface_of(REFIID id) {
  if (id == IID_IUnknown || id == IID_IDispatch) return static_cast<IDispatch*>(this);
  if (id == kModuleObjectId) return static_cast<IModuleObject*>(this);
  if (!type_) return nullptr;
  // A dual interface has a vtable, which this object hasn't got.
  const bool bDispatchOnly = (TypeAttributes(type_->info.get())->wTypeFlags & TYPEFLAG_FDUAL) == 0;
  if (id == type_->shape->id() && bDispatchOnly) return static_cast<IDispatch*>(this);
  if (type_->coclass && (id == IID_IProvideClassInfo || id == IID_IProvideClassInfo2)) {
    return static_cast<IProvideClassInfo2*>(this);
  }
  if (point_ && id == IID_IConnectionPointContainer) return static_cast<IConnectionPointContainer*>(this);
  return nullptr;
}

HRESULT ObjectDispatch::QueryInterface(REFIID id, void** out) {
  if (out == nullptr) return E_POINTER;
  IUnknown* const found = interface_of(id);
  *out = found;
  if (found == nullptr) return E_NOINTERFACE;
  found->AddRef();
  return S_OK;
}

ULONG ObjectDispatch::Release() {
  const ULONG nLeft = shares_.drop();
  if (nLeft == 0) delete this;
  return nLeft;
}

HRESULT ObjectDispatch::GetTypeInfoCount(UINT* pnCount) {
  if (pnCount == nullptr) return E_POINTER;
  *pnCount = type_ ? 1 : 0;
  return S_OK;
}

HRESULT ObjectDispatch::GetTypeInfo(UINT nIndex, LCID, ITypeInfo** out) {
  if (out == nullptr) return E_POINTER;
  *out = nullptr;
  if (!type_ || nIndex != 0) return DISP_E_BADINDEX;
  *out = ComPtr<ITypeInfo>(type_->info).detach();
  return S_OK;
}

HRESULT ObjectDispatch::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT nNames, LCID, DISPID* ids) {
  if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  return find_names(shape(), names, nNames, ids);
}

HRESULT ObjectDispatch::Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* params, VARIANT* answer,
                               EXCEPINFO* info, UINT* pnBad) {
  if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (!apartment_.is_here()) return RPC_E_WRONG_THREAD;
  return invoke_object(*object_, shape(), id, flags, params, answer, info, pnBad);
}

HRESULT ObjectDispatch::GetClassInfo(ITypeInfo** out) {
  if (out == nullptr) return E_POINTER;
  *out = ComPtr<ITypeInfo>(type_->coclass).detach();
  return S_OK;
}

HRESULT ObjectDispatch::GetGUID(DWORD kind, GUID* out) {
  if (out == nullptr) return E_POINTER;
  *out = GUID_NULL;
  if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
  if (!point_) return E_FAIL;
  *out = type_->events->id();
  return S_OK;
}

HRESULT ObjectDispatch::EnumConnectionPoints(IEnumConnectionPoints** out) {
  if (out == nullptr) return E_POINTER;
  *out = make_point_enumerator(*point_).detach();
  return S_OK;
}

HRESULT ObjectDispatch::FindConnectionPoint(REFIID id, IConnectionPoint** out) {
  if (out == nullptr) return E_POINTER;
  *out = nullptr;
  if (id != type_->events->id()) return CONNECT_E_NOCONNECTION;
  point_->AddRef();
  *out = point_.get();
  return S_OK;
}

}  // namespace arap::com
