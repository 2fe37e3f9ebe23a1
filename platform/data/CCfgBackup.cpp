#include "data/CCfgBackup.h"

#include "data/CConfig.h"

namespace ZEL {

bool CCfgBackup::attach(const CZelString& name) {
  if (name.isEmpty()) return false;
  m_name = name;
  CZelDataItem* stored = cfg_get(CZelDataKey::fromPath(name));
  m_copy.reset(stored ? stored->clone() : nullptr);
  m_attached = true;
  return true;
}

bool CCfgBackup::restore() {
  if (!m_attached) return false;
  CZelDataKey key = CZelDataKey::fromPath(m_name);
  if (!m_copy) {
    cfg_remove(key);
    return true;
  }
  return cfg_set(key, m_copy.get(), false);
}

}  // namespace ZEL
