#pragma once

#include <windows.h>

#include <oaidl.h>
#include <ocidl.h>
#include <oleauto.h>
#include <olectl.h>

#include <atomic>
#include <utility>

// Macros of windows.h that are names of ours.
#undef SetFileAttributes

/// Owners of what COM and Windows hand out: one line where they are used, given back on every way out.
namespace arap::com {

/// A counted interface pointer.
template <class T>
class ComPtr {
 public:
  ComPtr() noexcept = default;
  ComPtr(std::nullptr_t) noexcept {}
  /// Takes a share.
  explicit ComPtr(T* pointer) noexcept : pointer_(pointer) {
    if (pointer_ != nullptr) pointer_->AddRef();
  }
  ComPtr(const ComPtr& other) noexcept : ComPtr(other.pointer_) {}
  ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(pointer_, other.pointer_);
    return *this;
  }
  ~ComPtr() {
    if (pointer_ != nullptr) pointer_->Release();
  }

  /// Takes over a share that the caller owns.
  static ComPtr adopt(T* pointer) noexcept {
    ComPtr owner;
    owner.pointer_ = pointer;
    return owner;
  }

  T* get() const noexcept { return pointer_; }
  T* operator->() const noexcept { return pointer_; }
  explicit operator bool() const noexcept { return pointer_ != nullptr; }
  /// Hands the share to the caller.
  T* detach() noexcept { return std::exchange(pointer_, nullptr); }
  /// An empty place for an [out] pointer.
  T** put() noexcept {
    *this = nullptr;
    return &pointer_;
  }
  void** put_void() noexcept { return reinterpret_cast<void**>(put()); }

 private:
  T* pointer_ = nullptr;
};

/// The interface of an object; empty when it hasn't got it.
template <class T>
ComPtr<T> query(IUnknown* unknown) noexcept {
  ComPtr<T> found;
  if (unknown != nullptr) unknown->QueryInterface(__uuidof(T), found.put_void());
  return found;
}

class Bstr {
 public:
  Bstr() noexcept = default;
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  Bstr(Bstr&& other) noexcept : text_(other.detach()) {}
  ~Bstr() { SysFreeString(text_); }

  static Bstr adopt(BSTR text) noexcept {
    Bstr owner;
    owner.text_ = text;
    return owner;
  }
  BSTR get() const noexcept { return text_; }
  BSTR detach() noexcept { return std::exchange(text_, nullptr); }
  BSTR* put() noexcept {
    SysFreeString(detach());
    return &text_;
  }

 private:
  BSTR text_ = nullptr;
};

/// A VARIANT that clears itself.
class OwnedVariant {
 public:
  OwnedVariant() noexcept { VariantInit(&value_); }
  OwnedVariant(const OwnedVariant&) = delete;
  OwnedVariant& operator=(const OwnedVariant&) = delete;
  ~OwnedVariant() { VariantClear(&value_); }

  VARIANT* get() noexcept { return &value_; }
  VARIANT& operator*() noexcept { return value_; }
  const VARIANT& operator*() const noexcept { return value_; }
  VARIANT* operator->() noexcept { return &value_; }

 private:
  VARIANT value_;
};

/// An EXCEPINFO whose texts are freed.
class OwnedExcepInfo {
 public:
  OwnedExcepInfo() noexcept = default;
  OwnedExcepInfo(const OwnedExcepInfo&) = delete;
  OwnedExcepInfo& operator=(const OwnedExcepInfo&) = delete;
  ~OwnedExcepInfo() {
    SysFreeString(info_.bstrSource);
    SysFreeString(info_.bstrDescription);
    SysFreeString(info_.bstrHelpFile);
  }
  EXCEPINFO* get() noexcept { return &info_; }

 private:
  EXCEPINFO info_{};
};

/// COM objects of this module that somebody outside can hold; the module stays loaded while there are any.
inline std::atomic<long> g_live_objects{0};
class LiveObject {
 public:
  LiveObject() noexcept { ++g_live_objects; }
  ~LiveObject() { --g_live_objects; }
  LiveObject(const LiveObject&) = delete;
  LiveObject& operator=(const LiveObject&) = delete;
};

/// The share count of a COM object. It starts with the one share of its maker.
class ShareCount {
 public:
  ULONG add() noexcept { return static_cast<ULONG>(InterlockedIncrement(&count_)); }
  /// 0 for the last share: the object is to be deleted. Shares that are taken and given back while it ends do not end
  /// it again.
  ULONG drop() noexcept {
    const LONG left = InterlockedDecrement(&count_);
    if (left == 0) count_ = kEnding;
    return static_cast<ULONG>(left);
  }

 private:
  static constexpr LONG kEnding = 1 << 30;
  LONG count_ = 1;
};

/// The apartment that an object belongs to, which is its maker's thread. COM calls no other way; a caller that passes a
/// raw pointer to another thread gets RPC_E_WRONG_THREAD instead of a torn state.
class Apartment {
 public:
  bool is_here() const noexcept { return thread_ == GetCurrentThreadId(); }

 private:
  DWORD thread_ = GetCurrentThreadId();
};

}  // namespace arap::com
