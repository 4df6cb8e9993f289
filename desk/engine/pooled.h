#pragma once

#include <cstddef>
#include <new>

namespace desk {

/// Gives the small objects that a host makes for nearly every call their memory back again instead of asking for new.
/// `class Proxy final : public Object, public Pooled<Proxy>`; the class has to be final.
template <class T>
class Pooled {
 public:
  static void* operator new(std::size_t nSize) {
    FreeList& list = free_list();
    if (list.first == nullptr) return ::operator new(nSize);
    Slot* const pSlot = list.first;
    list.first = pSlot->next;
    return pSlot;
  }
  static void operator delete(void* pMemory) noexcept {
    static_assert(sizeof(T) >= sizeof(Slot));
    FreeList& list = free_list();
    list.first = new (pMemory) Slot{list.first};
  }

 private:
  struct Slot {
    Slot* next;
  };
  struct FreeList {
    Slot* first = nullptr;
    ~FreeList() {
      while (first != nullptr) {
        Slot* const pNext = first->next;
        ::operator delete(first);
        first = pNext;
      }
    }
  };
  static FreeList& free_list() {
    static thread_local FreeList list;
    return list;
  }
};

}  // namespace desk
