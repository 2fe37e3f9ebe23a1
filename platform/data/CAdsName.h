// An entity name: which drawing object is meant. The drawing keeps objects by handle,
// so the name carries the handle text ("2F"); empty means no object.
#pragma once

#include "data/CZelString.h"

namespace ZEL {

class CAdsName {
public:
  CAdsName() = default;
  explicit CAdsName(CZelString handle) : m_handle(std::move(handle)) {}
  bool isNull() const { return m_handle.isEmpty(); }
  const CZelString& handle() const { return m_handle; }
  void clear() { m_handle = CZelString(); }
  friend bool operator==(const CAdsName&, const CAdsName&) = default;

private:
  CZelString m_handle;
};

}  // namespace ZEL
