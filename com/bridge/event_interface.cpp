#include "bridge/event_interface.h"

#include <array>
#include <string>

#include "bridge/bridge_state.h"

namespace arap::com {

namespace {

/// The interface as one to be called by DISPID; empty for one that has a vtable alone.
ComPtr<ITypeInfo> as_dispatch(const ComPtr<ITypeInfo>& info) {
  if (!info) return {};
  if (TypeAttributes(info.get())->typekind == TKIND_DISPATCH) return info;
  HREFTYPE dual = 0;
  ComPtr<ITypeInfo> found;
  if (FAILED(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &dual))) return {};
  return SUCCEEDED(info->GetRefTypeInfo(dual, found.put())) ? found : ComPtr<ITypeInfo>();
}

/// The connection point of that interface on the object.
std::optional<EventInterface> connect(IConnectionPointContainer& container, const ComPtr<ITypeInfo>& info) {
  const ComPtr<ITypeInfo> events = as_dispatch(info);
  if (!events) return std::nullopt;
  EventInterface found;
  const GUID id = TypeAttributes(events.get())->guid;
  if (FAILED(container.FindConnectionPoint(id, found.point.put())) || !found.point) return std::nullopt;
  found.events = bridge_state().shape_of(events.get());
  return found;
}

ComPtr<ITypeInfo> source_of_own_class(IDispatch& object) {
  const ComPtr<IProvideClassInfo> provider = query<IProvideClassInfo>(&object);
  ComPtr<ITypeInfo> coclass;
  if (!provider || FAILED(provider->GetClassInfo(coclass.put())) || !coclass) return {};
  return interface_of_class(coclass.get(), Implemented::DefaultSource);
}

ComPtr<ITypeInfo> type_of(IDispatch& object) {
  ComPtr<ITypeInfo> info;
  if (FAILED(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put()))) return {};
  return info;
}

ComPtr<ITypeLib> library_of(IDispatch& object) {
  const ComPtr<ITypeInfo> info = type_of(object);
  ComPtr<ITypeLib> library;
  UINT nIndex = 0;
  if (!info || FAILED(info->GetContainingTypeLib(library.put(), &nIndex))) return {};
  return library;
}

ComPtr<ITypeInfo> source_of_class_with(ITypeLib& library, const GUID& interface_id) {
  const ComPtr<ITypeInfo> coclass = class_with_default(library, interface_id);
  return coclass ? interface_of_class(coclass.get(), Implemented::DefaultSource) : ComPtr<ITypeInfo>();
}

std::wstring registry_text(const std::wstring& sKey, const wchar_t* sValue) {
  std::array<wchar_t, 256> buffer{};
  DWORD nSize = sizeof(buffer) - sizeof(wchar_t);
  const LSTATUS read =
      RegGetValueW(HKEY_CLASSES_ROOT, sKey.c_str(), sValue, RRF_RT_REG_SZ, nullptr, buffer.data(), &nSize);
  return read == ERROR_SUCCESS ? std::wstring(buffer.data()) : std::wstring();
}

/// The type in the library that the registry names for the interface.
ComPtr<ITypeInfo> registered_type(const GUID& id) {
  std::array<wchar_t, 40> text{};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  const std::wstring sKey = std::wstring(L"Interface\\") + text.data() + L"\\TypeLib";
  const std::wstring sLibrary = registry_text(sKey, nullptr);
  const std::wstring sVersion = registry_text(sKey, L"Version");
  GUID library_id{};
  if (sLibrary.empty() || FAILED(CLSIDFromString(sLibrary.c_str(), &library_id))) return {};
  unsigned nMajor = 1;
  unsigned nMinor = 0;
  if (swscanf(sVersion.c_str(), L"%x.%x", &nMajor, &nMinor) != 2) return {};
  ComPtr<ITypeLib> library;
  ComPtr<ITypeInfo> info;
  const HRESULT loaded =
      LoadRegTypeLib(library_id, static_cast<WORD>(nMajor), static_cast<WORD>(nMinor), LOCALE_NEUTRAL, library.put());
  if (FAILED(loaded) || FAILED(library->GetTypeInfoOfGuid(id, info.put()))) return {};
  return info;
}

/// The first connection point that `describe` knows a type for.
template <class Describe>
std::optional<EventInterface> first_point(IConnectionPointContainer& container, Describe describe) {
  ComPtr<IEnumConnectionPoints> points;
  if (FAILED(container.EnumConnectionPoints(points.put())) || !points) return std::nullopt;
  ComPtr<IConnectionPoint> point;
  while (points->Next(1, point.put(), nullptr) == S_OK) {
    IID id{};
    if (FAILED(point->GetConnectionInterface(&id))) continue;
    if (std::optional<EventInterface> found = connect(container, describe(id))) return found;
  }
  return std::nullopt;
}

}  // namespace

std::optional<EventInterface> find_event_interface(IDispatch& object) {
  const ComPtr<IConnectionPointContainer> container = query<IConnectionPointContainer>(&object);
  if (!container) return std::nullopt;
  if (auto found = connect(*container.get(), source_of_own_class(object))) return found;
  if (const ComPtr<ITypeLib> library = library_of(object)) {
    const GUID id = TypeAttributes(type_of(object).get())->guid;
    if (auto found = connect(*container.get(), source_of_class_with(*library.get(), id))) return found;
    const auto in_library = [&library](const IID& point_id) {
      ComPtr<ITypeInfo> info;
      return SUCCEEDED(library->GetTypeInfoOfGuid(point_id, info.put())) ? info : ComPtr<ITypeInfo>();
    };
    if (auto found = first_point(*container.get(), in_library)) return found;
  }
  return first_point(*container.get(), registered_type);
}

}  // namespace arap::com
