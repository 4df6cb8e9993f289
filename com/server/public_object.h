#pragma once

#include <array>
#include <utility>

#include "bridge/bridge_state.h"
#include "bridge/errors.h"
#include "bridge/object_dispatch.h"
#include "bridge/variant_conversion.h"
#include "bridge/wide_text.h"

namespace arap::com {

/// A public class around its Object: what the eight classes have in common. `I` is the class's default interface, dual,
/// and both ways into it give the same answers.
template <class I>
class PublicObject : public I, public ISupportErrorInfo, public IProvideClassInfo, public IModuleObject {
 public:
  PublicObject(Ref<Object> object, ComPtr<ITypeInfo> info)
      : object_(std::move(object)), info_(std::move(info)), shape_(bridge_state().shape_of(info_.get())) {
    bridge_state().exposed.emplace(object_.get(), static_cast<I*>(this));
  }
  PublicObject(const PublicObject&) = delete;
  PublicObject& operator=(const PublicObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) final {
    if (out == nullptr) return E_POINTER;
    IUnknown* found = nullptr;
    if (id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(I)) found = static_cast<I*>(this);
    if (id == IID_ISupportErrorInfo) found = static_cast<ISupportErrorInfo*>(this);
    if (id == IID_IProvideClassInfo) found = static_cast<IProvideClassInfo*>(this);
    if (id == kModuleObjectId) found = static_cast<IModuleObject*>(this);
    *out = found;
    if (found == nullptr) return E_NOINTERFACE;
    found->AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() final { return shares_.add(); }
  ULONG STDMETHODCALLTYPE Release() final {
    const ULONG nLeft = shares_.drop();
    if (nLeft == 0) delete this;
    return nLeft;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* pnCount) final {
    if (pnCount == nullptr) return E_POINTER;
    *pnCount = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT nIndex, LCID, ITypeInfo** out) final {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    if (nIndex != 0) return DISP_E_BADINDEX;
    *out = ComPtr<ITypeInfo>(info_).detach();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT nNames, LCID, DISPID* ids) final {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    return find_names(shape_.get(), names, nNames, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* params, VARIANT* answer,
                                   EXCEPINFO* info, UINT* pnBad) final {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!apartment_.is_here()) return RPC_E_WRONG_THREAD;
    return invoke_object(*object_, shape_.get(), id, flags, params, answer, info, pnBad);
  }

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) final { return id == __uuidof(I) ? S_OK : S_FALSE; }
  /// The class of the library that has this interface as its default.
  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** out) final {
    if (out == nullptr) return E_POINTER;
    *out = class_info().detach();
    return *out == nullptr ? E_FAIL : S_OK;
  }

  const void* STDMETHODCALLTYPE module_tag() final { return com::module_tag(); }
  Object* STDMETHODCALLTYPE module_object() final { return object_.get(); }

  HRESULT STDMETHODCALLTYPE Show(IDispatch* oBillInterface) override {
    return guarded([&] { call(Member::Show, Access::Call, Variant(object_of(oBillInterface))); });
  }

 protected:
  virtual ~PublicObject() {
    bridge_state().exposed.erase(object_.get());
    // The terminator calls the host: an error object left over on the thread would be taken for one of its calls.
    SetErrorInfo(0, nullptr);
  }

  /// Runs a method of the vtable; an exception becomes its code and the thread's error object.
  template <class Body>
  HRESULT guarded(Body&& body) noexcept {
    if (!apartment_.is_here()) return RPC_E_WRONG_THREAD;
    // An error object left over on the thread would be taken for one of this call.
    SetErrorInfo(0, nullptr);
    try {
      const Ref<Object> alive(object_);
      std::forward<Body>(body)();
      return S_OK;
    } catch (...) {
      return report_to_method(__uuidof(I));
    }
  }
  template <class... A>
  Variant call(Member member, Access access, A&&... args) {
    std::array<Variant, sizeof...(A)> values{Variant(std::forward<A>(args))...};
    return object_->invoke(member, access, values);
  }
  Object& object() { return *object_; }

 private:
  ComPtr<ITypeInfo> class_info() const;

  LiveObject live_;
  ShareCount shares_;
  Apartment apartment_;
  BridgeUse use_;
  Ref<Object> object_;
  ComPtr<ITypeInfo> info_;
  std::shared_ptr<const TypeShape> shape_;
};

template <class I>
ComPtr<ITypeInfo> PublicObject<I>::class_info() const {
  ComPtr<ITypeLib> library;
  UINT nIndex = 0;
  if (FAILED(info_->GetContainingTypeLib(library.put(), &nIndex))) return {};
  return class_with_default(*library.get(), __uuidof(I));
}

/// The classes with m_LstInterface.
template <class I>
class ListObject : public PublicObject<I> {
 public:
  using PublicObject<I>::PublicObject;

  HRESULT STDMETHODCALLTYPE get_m_LstInterface(IDispatch** oSource) override {
    if (oSource == nullptr) return E_POINTER;
    *oSource = nullptr;
    return this->guarded(
        [&] { *oSource = dispatch_of(this->call(Member::m_LstInterface, Access::Get).object()).detach(); });
  }
  HRESULT STDMETHODCALLTYPE put_m_LstInterface(IDispatch* oSource) override { return putref_m_LstInterface(oSource); }
  HRESULT STDMETHODCALLTYPE putref_m_LstInterface(IDispatch* oSource) override {
    return this->guarded([&] { this->call(Member::m_LstInterface, Access::PutRef, Variant(object_of(oSource))); });
  }
};

/// The values of a SAFEARRAY of VARIANTs; none for nullptr. Raises 13 for another array.
std::vector<Variant> values_of(SAFEARRAY* array);
/// Writes an answer where a caller wants it; a caller that passes nullptr doesn't.
void store_integer(const Variant& vValue, SHORT* place);
void store_text(const Variant& vValue, BSTR* place);
void store_boolean(const Variant& vValue, VARIANT_BOOL* place);

/// The four bill classes.
template <class I>
class BillObject final : public ListObject<I> {
 public:
  using ListObject<I>::ListObject;

  HRESULT STDMETHODCALLTYPE Inside(VARIANT itm, SAFEARRAY* Col, VARIANT_BOOL* bFound) override {
    if (bFound == nullptr) return E_POINTER;
    *bFound = VARIANT_FALSE;
    return this->guarded([&] {
      std::vector<Variant> values = values_of(Col);
      values.insert(values.begin(), to_variant(itm));
      store_boolean(this->object().invoke(Member::Inside, Access::Call, values), bFound);
    });
  }

  HRESULT STDMETHODCALLTYPE DoOptToBill(LONG nTransType, LONG nInterID, LONG nCheckType, SHORT* nCode, BSTR* sDesc,
                                        VARIANT_BOOL* bOk, VARIANT_BOOL* bDone) override {
    if (bDone == nullptr) return E_POINTER;
    *bDone = VARIANT_FALSE;
    return this->guarded([&] {
      const auto number = [](LONG n) { return Variant(static_cast<std::int32_t>(n)); };
      std::array<Variant, 5> args{number(nTransType), number(nInterID), number(nCheckType),
                                  nCode == nullptr ? Variant(Missing{}) : Variant(*nCode),
                                  sDesc == nullptr ? Variant(Missing{}) : text_variant(*sDesc)};
      const Variant vDone = this->object().invoke(Member::DoOptToBill, Access::Call, args);
      store_integer(args[3], nCode);
      store_text(args[4], sDesc);
      if (bOk != nullptr) store_boolean(vDone, bOk);
      store_boolean(vDone, bDone);
    });
  }
};

/// The classes with Show alone.
template <class I>
class TypeObject final : public PublicObject<I> {
 public:
  using PublicObject<I>::PublicObject;
};

/// The two list classes without a bill.
template <class I>
class PlainListObject final : public ListObject<I> {
 public:
  using ListObject<I>::ListObject;
};

}  // namespace arap::com
