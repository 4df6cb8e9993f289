#pragma once

#include <memory>

#include "bridge/bridge_state.h"
#include "bridge/connection_points.h"

namespace arap::com {

/// IDispatch::GetIDsOfNames by a shape, parameter names included; without one by the names of the contract.
HRESULT find_names(const TypeShape* shape, LPOLESTR* names, UINT nNames, DISPID* ids) noexcept;

/// IDispatch::Invoke on an Object, by the declarations of a shape; without one the DISPIDs are those of find_names and
/// any arguments are passed on. DISP_E_MEMBERNOTFOUND, DISP_E_BADPARAMCOUNT, DISP_E_TYPEMISMATCH and the like where the
/// call doesn't fit; an error of the Object is DISP_E_EXCEPTION.
HRESULT invoke_object(Object& object, const TypeShape* shape, DISPID id, WORD flags, DISPPARAMS* params,
                      VARIANT* answer, EXCEPINFO* info, UINT* pnBad) noexcept;

/// How objects of one class are exposed.
struct ExposedType {
  ComPtr<ITypeInfo> info;     // the default interface
  ComPtr<ITypeInfo> coclass;  // empty for an interface alone
  std::shared_ptr<const TypeShape> shape;
  std::shared_ptr<const TypeShape> events;  // empty without a default source interface
};

/// Asked by object_of: whether a COM object is an Object of this very module.
struct IModuleObject : IUnknown {
  /// The same address for all objects of one module.
  virtual const void* STDMETHODCALLTYPE module_tag() = 0;
  virtual Object* STDMETHODCALLTYPE module_object() = 0;
};
extern const IID kModuleObjectId;
/// The tag of this module.
const void* module_tag();

/// An Object of this module as a COM object.
class ObjectDispatch final : public IDispatch,
                             public IProvideClassInfo2,
                             public IConnectionPointContainer,
                             public IModuleObject {
 public:
  /// `type` is nullptr for an object that is called by the names of the contract.
  ObjectDispatch(Ref<Object> object, std::shared_ptr<const ExposedType> type);
  ObjectDispatch(const ObjectDispatch&) = delete;
  ObjectDispatch& operator=(const ObjectDispatch&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return shares_.add(); }
  ULONG STDMETHODCALLTYPE Release() override;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* pnCount) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT nIndex, LCID locale, ITypeInfo** out) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT nNames, LCID locale, DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID null_id, LCID locale, WORD flags, DISPPARAMS* params,
                                   VARIANT* answer, EXCEPINFO* info, UINT* pnBad) override;

  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** out) override;
  HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* out) override;

  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** out) override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** out) override;

  const void* STDMETHODCALLTYPE module_tag() override { return com::module_tag(); }
  Object* STDMETHODCALLTYPE module_object() override { return object_.get(); }

 private:
  ~ObjectDispatch();
  IUnknown* interface_of(REFIID id);
  const TypeShape* shape() const { return type_ ? type_->shape.get() : nullptr; }

  LiveObject live_;
  ShareCount shares_;
  Apartment apartment_;
  BridgeUse use_;
  Ref<Object> object_;
  std::shared_ptr<const ExposedType> type_;
  std::unique_ptr<ConnectionPoint> point_;  // empty without events
};

}  // namespace arap::com
