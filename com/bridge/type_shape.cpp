#include "bridge/type_shape.h"

#include "bridge/errors.h"
#include "bridge/wide_text.h"
#include "frame/conversions.h"

namespace arap::com {

namespace {

/// Ids of the functions of IUnknown and IDispatch.
bool is_of_base(DISPID id) {
  const auto block = static_cast<unsigned long>(id) & 0xFFFF0000UL;
  return block == 0x60000000UL || block == 0x60010000UL;
}

struct FunctionDescription {
  ComPtr<ITypeInfo> info;
  FUNCDESC* description = nullptr;
  FunctionDescription(ITypeInfo* type, UINT nIndex) : info(type) { check(type->GetFuncDesc(nIndex, &description)); }
  ~FunctionDescription() { info->ReleaseFuncDesc(description); }
  FunctionDescription(const FunctionDescription&) = delete;
  FunctionDescription& operator=(const FunctionDescription&) = delete;
};

struct VariableDescription {
  ComPtr<ITypeInfo> info;
  VARDESC* description = nullptr;
  VariableDescription(ITypeInfo* type, UINT nIndex) : info(type) { check(type->GetVarDesc(nIndex, &description)); }
  ~VariableDescription() { info->ReleaseVarDesc(description); }
  VariableDescription(const VariableDescription&) = delete;
  VariableDescription& operator=(const VariableDescription&) = delete;
};

struct DeclaredType {
  VARTYPE type;
  bool bByReference;
};

DeclaredType declared_type(ITypeInfo* info, const TYPEDESC& description);

/// The type behind a name of the library.
VARTYPE named_type(ITypeInfo* info, HREFTYPE reference) {
  ComPtr<ITypeInfo> named;
  if (FAILED(info->GetRefTypeInfo(reference, named.put()))) return VT_VARIANT;
  const TypeAttributes attributes(named.get());
  switch (attributes->typekind) {
    case TKIND_ENUM: return VT_I4;
    case TKIND_ALIAS: return declared_type(named.get(), attributes->tdescAlias).type;
    case TKIND_INTERFACE:
    case TKIND_DISPATCH:
    case TKIND_COCLASS: return VT_DISPATCH;
    default: return VT_VARIANT;
  }
}

bool is_interface(ITypeInfo* info, const TYPEDESC& description) {
  return description.vt == VT_USERDEFINED && named_type(info, description.hreftype) == VT_DISPATCH;
}

/// A pointer to an interface is the object itself; any other pointer is a reference.
DeclaredType declared_type(ITypeInfo* info, const TYPEDESC& description) {
  switch (description.vt) {
    case VT_PTR: {
      const TYPEDESC& target = *description.lptdesc;
      if (is_interface(info, target)) return {VT_DISPATCH, false};
      return {declared_type(info, target).type, true};
    }
    case VT_USERDEFINED: return {named_type(info, description.hreftype), false};
    case VT_SAFEARRAY: return {VT_ARRAY | VT_VARIANT, false};
    case VT_INT: return {VT_I4, false};
    case VT_UINT: return {VT_UI4, false};
    case VT_HRESULT: return {VT_ERROR, false};
    case VT_UNKNOWN: return {VT_DISPATCH, false};
    default: return {description.vt, false};
  }
}

/// Names of a function and its parameters; a put's value has none.
std::vector<std::string> names_of(ITypeInfo* info, MEMBERID id, std::size_t nParameters) {
  std::vector<BSTR> names(nParameters + 1, nullptr);
  UINT nNames = 0;
  info->GetNames(id, names.data(), static_cast<UINT>(names.size()), &nNames);
  std::vector<std::string> found;
  found.reserve(names.size());
  for (BSTR name : names) found.push_back(to_utf8(Bstr::adopt(name).get()));
  return found;
}

Function function_of(ITypeInfo* info, const FUNCDESC& description) {
  Function function;
  function.id = description.memid;
  function.kind = description.invkind;
  function.bVararg = description.cParamsOpt == -1;
  const auto nParameters = static_cast<std::size_t>(description.cParams);
  const std::vector<std::string> names = names_of(info, description.memid, nParameters);
  function.sName = names.front();
  for (std::size_t i = 0; i < nParameters; ++i) {
    const ELEMDESC& element = description.lprgelemdescParam[i];
    const USHORT flags = element.paramdesc.wParamFlags;
    if ((flags & (PARAMFLAG_FRETVAL | PARAMFLAG_FLCID)) != 0) continue;
    const DeclaredType declared = declared_type(info, element.tdesc);
    function.aParameters.push_back({names[i + 1], declared.type, declared.bByReference, (flags & PARAMFLAG_FOPT) != 0});
  }
  return function;
}

}  // namespace

TypeAttributes::TypeAttributes(ITypeInfo* info) : info_(info) { check(info->GetTypeAttr(&attributes_)); }

std::string name_of_type(ITypeInfo* info) {
  Bstr name;
  if (FAILED(info->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr))) return "";
  return to_utf8(name.get());
}

std::string_view without_underscore(std::string_view sName) {
  if (!sName.empty() && sName.front() == '_') sName.remove_prefix(1);
  return sName;
}

ComPtr<ITypeInfo> interface_of_class(ITypeInfo* coclass, Implemented which) {
  constexpr INT kMask = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
  const INT wanted =
      which == Implemented::Default ? IMPLTYPEFLAG_FDEFAULT : IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
  const TypeAttributes attributes(coclass);
  for (UINT i = 0; i < attributes->cImplTypes; ++i) {
    INT flags = 0;
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> found;
    if (SUCCEEDED(coclass->GetImplTypeFlags(i, &flags)) && (flags & kMask) == wanted &&
        SUCCEEDED(coclass->GetRefTypeOfImplType(i, &reference)) &&
        SUCCEEDED(coclass->GetRefTypeInfo(reference, found.put()))) {
      return found;
    }
  }
  return {};
}

ComPtr<ITypeInfo> class_with_default(ITypeLib& library, const GUID& interface_id) {
  for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) {
    TYPEKIND kind = TKIND_MAX;
    ComPtr<ITypeInfo> coclass;
    if (FAILED(library.GetTypeInfoType(i, &kind)) || kind != TKIND_COCLASS) continue;
    if (FAILED(library.GetTypeInfo(i, coclass.put()))) continue;
    const ComPtr<ITypeInfo> standard = interface_of_class(coclass.get(), Implemented::Default);
    if (standard && TypeAttributes(standard.get())->guid == interface_id) return coclass;
  }
  return {};
}

std::shared_ptr<const TypeShape> TypeShape::read(ITypeInfo* info) {
  const auto shape = std::make_shared<TypeShape>();
  const TypeAttributes attributes(info);
  shape->id_ = attributes->guid;
  shape->name_ = name_of_type(info);
  shape->read_functions(info, *attributes);
  shape->read_variables(info, *attributes);
  for (Function& function : shape->functions_) {
    function.member = find_member(function.sName);
    function.event = find_event(function.sName);
  }
  return shape;
}

void TypeShape::read_functions(ITypeInfo* info, const TYPEATTR& attributes) {
  for (UINT i = 0; i < attributes.cFuncs; ++i) {
    const FunctionDescription function(info, i);
    if (!is_of_base(function.description->memid)) functions_.push_back(function_of(info, *function.description));
  }
}

/// A property of a dispinterface is a variable: it can be read and, unless it says otherwise, written.
void TypeShape::read_variables(ITypeInfo* info, const TYPEATTR& attributes) {
  for (UINT i = 0; i < attributes.cVars; ++i) {
    const VariableDescription variable(info, i);
    const VARDESC& description = *variable.description;
    if (description.varkind != VAR_DISPATCH) continue;
    Function function;
    function.id = description.memid;
    function.sName = names_of(info, description.memid, 0).front();
    function.kind = INVOKE_PROPERTYGET;
    functions_.push_back(function);
    if ((description.wVarFlags & VARFLAG_FREADONLY) != 0) continue;
    const VARTYPE type = declared_type(info, description.elemdescVar.tdesc).type;
    function.kind = type == VT_DISPATCH ? INVOKE_PROPERTYPUTREF : INVOKE_PROPERTYPUT;
    function.aParameters = {{"", type, false, false}};
    functions_.push_back(function);
  }
}

const Function* TypeShape::find(DISPID id, int kinds) const {
  for (const Function& function : functions_) {
    if (function.id == id && (function.kind & kinds) != 0) return &function;
  }
  return nullptr;
}

const Function* TypeShape::find(std::string_view sName) const {
  for (const Function& function : functions_) {
    if (EqualsNoCase(function.sName, sName)) return &function;
  }
  return nullptr;
}

const Function* TypeShape::find(Event event) const {
  for (const Function& function : functions_) {
    if (function.event == event) return &function;
  }
  return nullptr;
}

}  // namespace arap::com
