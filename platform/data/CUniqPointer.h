// Sole owner of a heap object of the platform.
#pragma once

#include <utility>

namespace ZEL {

template <class T>
class CUniqPointer {
public:
  CUniqPointer() = default;
  explicit CUniqPointer(T* p) : m_ptr(p) {}
  CUniqPointer(const CUniqPointer&) = delete;
  CUniqPointer& operator=(const CUniqPointer&) = delete;
  CUniqPointer(CUniqPointer&& other) noexcept : m_ptr(std::exchange(other.m_ptr, nullptr)) {}
  CUniqPointer& operator=(CUniqPointer&& other) noexcept { reset(std::exchange(other.m_ptr, nullptr)); return *this; }
  ~CUniqPointer() { delete m_ptr; }

  void reset(T* p = nullptr) { if (p != m_ptr) { delete m_ptr; m_ptr = p; } }
  T* release() { return std::exchange(m_ptr, nullptr); }
  T* get() const { return m_ptr; }
  T* operator->() const { return m_ptr; }
  T& operator*() const { return *m_ptr; }
  explicit operator bool() const { return m_ptr != nullptr; }

private:
  T* m_ptr = nullptr;
};

}  // namespace ZEL
