#include "data/CPtrMap.h"

namespace ZEL {

CPtrMap& CPtrMap::instance() {
  static CPtrMap map;
  return map;
}

int CPtrMap::newSlot() {
  int slot;
  if (!m_free.empty()) {
    slot = m_free.back();
    m_free.pop_back();
  } else {
    slot = static_cast<int>(m_slots.size());
    m_slots.emplace_back();
  }
  m_slots[static_cast<std::size_t>(slot)] = Slot{nullptr, nullptr, 1};
  return slot;
}

void CPtrMap::addRef(int slot) {
  if (slot > 0) ++m_slots[static_cast<std::size_t>(slot)].refs;
}

void CPtrMap::release(int slot) {
  if (slot <= 0) return;
  Slot& s = m_slots[static_cast<std::size_t>(slot)];
  if (--s.refs > 0) return;
  Slot old = s;
  s = Slot{};
  m_free.push_back(slot);
  if (old.ptr && old.del) old.del(old.ptr);
}

void* CPtrMap::get(int slot) const {
  return slot > 0 ? m_slots[static_cast<std::size_t>(slot)].ptr : nullptr;
}

void CPtrMap::assign(int slot, void* ptr, Deleter del) {
  if (slot <= 0) return;
  Slot& s = m_slots[static_cast<std::size_t>(slot)];
  if (s.ptr == ptr) { s.del = del; return; }
  void* old = s.ptr;
  Deleter oldDel = s.del;
  s.ptr = ptr;
  s.del = del;
  if (old && oldDel) oldDel(old);
}

int CPtrMap::refCount(int slot) const {
  return slot > 0 ? m_slots[static_cast<std::size_t>(slot)].refs : 0;
}

int CPtrMap::liveSlots() const {
  return static_cast<int>(m_slots.size() - 1 - m_free.size());
}

}  // namespace ZEL
