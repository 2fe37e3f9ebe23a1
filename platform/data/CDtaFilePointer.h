// An opened data section. Data kind 1 is a section of the settings store: open mode 1
// gives an independent working copy, open mode 3 the stored section itself. Data kind 3
// is the data attached to a drawing object, data kind 6 a pointer onto an item in memory.
#pragma once

#include "data/CZelDataItem.h"
#include "data/CZelDataKey.h"
#include "data/CZelString.h"

#include <memory>

using ZelDtaType = int;

namespace ZEL {

enum DtaKind : int { DTA_CONFIG = 1, DTA_OBJECT = 3, DTA_MEMORY = 6 };
enum DtaMode : unsigned long { DTA_COPY = 1, DTA_STORED = 3 };

class CDtaFilePointer {
public:
  ~CDtaFilePointer();
  CDtaFilePointer(const CDtaFilePointer&) = delete;
  CDtaFilePointer& operator=(const CDtaFilePointer&) = delete;

  // The root item (key none) or the item at a relative key; with `create` missing levels
  // come into being. None when the section holds nothing yet.
  CZelDataItem* get(const CZelDataKey* key = nullptr, bool create = false);
  // Replaces the content (key none) or the item at a relative key with a copy of `item`.
  bool set(CZelDataItem* item, const CZelDataKey* key = nullptr);

  ZelDtaType kind() const { return m_kind; }
  unsigned long openMode() const { return m_mode; }
  const CZelString& name() const { return m_name; }

private:
  friend CDtaFilePointer* dtaOpen(ZelDtaType, unsigned long, const CZelDataKey*, CZelDataItem*);
  CDtaFilePointer(ZelDtaType kind, unsigned long mode, CZelString name);
  CZelDataItem* root();
  bool setRoot(const CZelDataItem& content);

  ZelDtaType m_kind;
  unsigned long m_mode;
  CZelString m_name;                       // section name or object handle
  std::unique_ptr<CZelDataItem> m_copy;    // kind 1, mode 1
  CZelDataItem* m_memory = nullptr;        // kind 6: not owned
};

// Opens a section; none when the key does not name one. Kind 1 with mode 3 and a content
// item replaces the stored section with a copy of the content.
CDtaFilePointer* dtaOpen(ZelDtaType kind, unsigned long openMode, const CZelDataKey* key, CZelDataItem* content);

}  // namespace ZEL
