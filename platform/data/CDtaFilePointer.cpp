#include "data/CDtaFilePointer.h"

#include "data/CConfig.h"
#include "data/CZelDataDir.h"
#include "data/CZelDrawing.h"

namespace ZEL {

CDtaFilePointer::CDtaFilePointer(ZelDtaType kind, unsigned long mode, CZelString name)
    : m_kind(kind), m_mode(mode), m_name(std::move(name)) {}

CDtaFilePointer::~CDtaFilePointer() = default;

CZelDataItem* CDtaFilePointer::root() {
  switch (m_kind) {
    case DTA_CONFIG:
      if (m_mode == DTA_COPY) return m_copy.get();
      return cfg_get(CZelDataKey(m_name));
    case DTA_OBJECT: return CZelDrawing::current().objectData(m_name);
    case DTA_MEMORY: return m_memory;
    default: return nullptr;
  }
}

bool CDtaFilePointer::setRoot(const CZelDataItem& content) {
  switch (m_kind) {
    case DTA_CONFIG:
      if (m_mode == DTA_COPY) {
        m_copy.reset(content.clone());
        return true;
      }
      return cfg_set(CZelDataKey(m_name), const_cast<CZelDataItem*>(&content), false);
    case DTA_OBJECT: return CZelDrawing::current().setObjectData(m_name, content);
    case DTA_MEMORY:
      if (!m_memory) return false;
      m_memory->assign(content);
      return true;
    default: return false;
  }
}

CZelDataItem* CDtaFilePointer::get(const CZelDataKey* key, bool create) {
  CZelDataItem* r = root();
  if (!r && create) {
    CZelDataItem empty;
    empty.mkDir();
    if (!setRoot(empty)) return nullptr;
    r = root();
  }
  if (!r || !key || key->isEmpty()) return r;
  return create ? r->make(key) : r->find(key);
}

bool CDtaFilePointer::set(CZelDataItem* item, const CZelDataKey* key) {
  if (!item) return false;
  if (!key || key->isEmpty()) {
    if (item == root()) return true;
    return setRoot(*item);
  }
  CZelDataItem* target = get(key, true);
  if (!target) return false;
  if (target != item) target->assign(*item);
  return true;
}

CDtaFilePointer* dtaOpen(ZelDtaType kind, unsigned long openMode, const CZelDataKey* key, CZelDataItem* content) {
  switch (kind) {
    case DTA_CONFIG: {
      if (!key || !key->isStringPart() || key->text().isEmpty()) return nullptr;
      if (openMode != DTA_COPY && openMode != DTA_STORED) return nullptr;
      auto* p = new CDtaFilePointer(kind, openMode, key->text());
      if (openMode == DTA_COPY) {
        CZelDataItem* stored = cfg_get(*key);
        if (content) p->m_copy.reset(content->clone());
        else if (stored) p->m_copy.reset(stored->clone());
      } else if (content) {
        p->setRoot(*content);
      }
      return p;
    }
    case DTA_OBJECT: {
      // The key names the object by its entity name (or its handle as text).
      if (!key || (key->type() != 5006 && !key->isStringPart())) return nullptr;
      if (!CZelDrawing::current().objectData(key->text())) return nullptr;
      auto* p = new CDtaFilePointer(kind, openMode, key->text());
      if (content) p->setRoot(*content);
      return p;
    }
    case DTA_MEMORY: {
      if (!content) return nullptr;
      auto* p = new CDtaFilePointer(kind, openMode, key ? key->toString() : CZelString());
      p->m_memory = content;
      return p;
    }
    default: return nullptr;
  }
}

}  // namespace ZEL
