#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "Guard.h"
#include "Library.h"

namespace activex {

/// An enumerator of COM over items that it holds; `Give` makes of an item what the caller then
/// owns.
template <typename Interface, typename Item, typename Given, Given (*Give)(const Item&)>
class Enumerator final : public Counted<Interface> {
 public:
  explicit Enumerator(std::vector<Item> items, std::size_t next = 0)
      : items_(std::move(items)), next_(next) {}

  HRESULT STDMETHODCALLTYPE Next(ULONG count, Given* given, ULONG* number) noexcept override {
    if (given == nullptr || (number == nullptr && count != 1)) return E_POINTER;
    ULONG done = 0;
    for (; done < count && next_ < items_.size(); ++done) given[done] = Give(items_[next_++]);
    if (number != nullptr) *number = done;
    return done == count ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) noexcept override {
    const std::size_t skipped = std::min<std::size_t>(count, items_.size() - next_);
    next_ += skipped;
    return skipped == count ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() noexcept override {
    next_ = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(Interface** clone) noexcept override {
    if (clone == nullptr) return E_POINTER;
    return Guarded([&] {
      *clone = new Enumerator(items_, next_);
      return S_OK;
    });
  }

 private:
  std::vector<Item> items_;
  std::size_t next_;
};

}  // namespace activex
