#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "bridge/counted.h"

namespace arap::com {

/// A COM enumerator over a list as it was when it was asked for. `E` is its interface; an `Item` holds one `Element`,
/// and copy_to gives a caller a share of it.
template <class E, class Item, class Element>
class Enumerator final : public Counted<E> {
 public:
  explicit Enumerator(std::vector<Item> items, std::size_t nAt = 0) : items_(std::move(items)), at_(nAt) {}

  HRESULT STDMETHODCALLTYPE Next(ULONG nWanted, Element* out, ULONG* pnFetched) override {
    if (out == nullptr) return E_POINTER;
    const std::size_t nFrom = at_;
    const ULONG nFetched = advance(nWanted);
    for (ULONG i = 0; i < nFetched; ++i) items_[nFrom + i].copy_to(out[i]);
    if (pnFetched != nullptr) *pnFetched = nFetched;
    return nFetched == nWanted ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG nCount) override { return advance(nCount) == nCount ? S_OK : S_FALSE; }
  HRESULT STDMETHODCALLTYPE Reset() override {
    at_ = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(E** out) override {
    if (out == nullptr) return E_POINTER;
    *out = new Enumerator(items_, at_);
    return S_OK;
  }

 private:
  ~Enumerator() override = default;
  /// The number of elements that it moved over.
  ULONG advance(ULONG nCount) {
    const auto nMoved = static_cast<ULONG>(std::min<std::size_t>(nCount, items_.size() - at_));
    at_ += nMoved;
    return nMoved;
  }

  std::vector<Item> items_;
  std::size_t at_;
};

}  // namespace arap::com
