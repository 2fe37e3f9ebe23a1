// The registry behind shared handles: numbered slots holding a pointer, its deleter and a
// reference count. A handle is a slot number, so every copy of a handle sees the pointer
// that the slot holds now, also after it was replaced.
#pragma once

#include <vector>

namespace ZEL {

class CPtrMap {
public:
  using Deleter = void (*)(void*);

  static CPtrMap& instance();

  int newSlot();                                  // refcount 1, no pointer
  void addRef(int slot);
  void release(int slot);                         // deletes the target with the last reference
  void* get(int slot) const;
  void assign(int slot, void* ptr, Deleter del);  // deletes the previous target
  int refCount(int slot) const;
  int liveSlots() const;

private:
  struct Slot {
    void* ptr = nullptr;
    Deleter del = nullptr;
    int refs = 0;
  };
  std::vector<Slot> m_slots{Slot{}};  // slot 0 means "no slot"
  std::vector<int> m_free;
};

}  // namespace ZEL
