// The attributes of one object type in its section: the sheet-metal dialog reads and
// writes "*HZ_BLECH*" through it rather than key by key.
#pragma once

#include "data/CZelDataItem.h"
#include "data/CZelString.h"

class CZelAttributeMgr {
public:
  explicit CZelAttributeMgr(const CZelString& typeName);

  bool init();
  const CZelString& section() const { return m_section; }
  CZelDataItem* att_get(const CZelString& name) const;
  bool att_remove(const CZelString& name);
  // A new item of the object built from the stored attributes; the caller owns it.
  CZelDataItem* gen_from_cfg(bool full, bool flag) const;
  // Stores an item's attributes back into the section.
  bool gen_to_cfg(const CZelDataItem* item, bool flag);

private:
  CZelString m_type;
  CZelString m_section;
};
