// Shared handle on a heap object: all copies reach the same slot of the pointer registry,
// so assigning a new pointer deletes the old target and every copy sees the new one.
#pragma once

#include "data/CPtrMap.h"

#include <utility>

namespace ZEL {

template <class T>
class CSharedPointer {
public:
  CSharedPointer() = default;
  explicit CSharedPointer(T* p) { *this = p; }
  CSharedPointer(const CSharedPointer& other) : m_slot(other.m_slot) { CPtrMap::instance().addRef(m_slot); }
  CSharedPointer(CSharedPointer&& other) noexcept : m_slot(std::exchange(other.m_slot, 0)) {}
  CSharedPointer& operator=(const CSharedPointer& other) {
    if (m_slot != other.m_slot) {
      CPtrMap::instance().addRef(other.m_slot);
      CPtrMap::instance().release(m_slot);
      m_slot = other.m_slot;
    }
    return *this;
  }
  CSharedPointer& operator=(CSharedPointer&& other) noexcept {
    if (this != &other) {
      CPtrMap::instance().release(m_slot);
      m_slot = std::exchange(other.m_slot, 0);
    }
    return *this;
  }
  ~CSharedPointer() { CPtrMap::instance().release(m_slot); }

  // Puts a new target into the shared slot; the previous target is deleted first.
  CSharedPointer& operator=(T* p) {
    if (m_slot == 0) m_slot = CPtrMap::instance().newSlot();
    CPtrMap::instance().assign(m_slot, p, [](void* q) { delete static_cast<T*>(q); });
    return *this;
  }

  T* get() const { return static_cast<T*>(CPtrMap::instance().get(m_slot)); }
  T* operator->() const { return get(); }
  T& operator*() const { return *get(); }
  explicit operator bool() const { return get() != nullptr; }
  int useCount() const { return CPtrMap::instance().refCount(m_slot); }

private:
  int m_slot = 0;
};

}  // namespace ZEL
