// Snapshot of a subtree of the settings store, put back on request.
#pragma once

#include "data/CZelDataItem.h"
#include "data/CZelString.h"

#include <memory>

namespace ZEL {

class CCfgBackup {
public:
  // Takes a copy of what the store holds under the name now (nothing stored is remembered
  // too: restoring then removes what was created meanwhile).
  bool attach(const CZelString& name);
  // Puts the snapshot back; false when nothing was attached.
  bool restore();

private:
  CZelString m_name;
  bool m_attached = false;
  std::unique_ptr<CZelDataItem> m_copy;
};

}  // namespace ZEL
