#include "obj/CZelAttributeMgr.h"

#include "data/CConfig.h"
#include "data/CUniqPointer.h"
#include "data/CZelDataDir.h"
#include "data/ZelDataAccess.h"

namespace {

CZelString sectionOf(const CZelString& type) {
  if (type == L"BLECH") return L"*HZ_BLECH*";
  if (type == L"HLBZ") return L"*HZ_PROFIL*";
  if (type == L"DIN") return L"*NM*";
  if (type == L"AXIS") return L"*AXIS*";
  return L"*HZ_" + type.upper() + L"*";
}

}  // namespace

CZelAttributeMgr::CZelAttributeMgr(const CZelString& typeName) : m_type(typeName), m_section(sectionOf(typeName)) {}

bool CZelAttributeMgr::init() {
  CZelDataKey key(m_section);
  return ZEL::cfg_get(key) != nullptr || ZEL::cfg_dir_make(key) != nullptr;
}

CZelDataItem* CZelAttributeMgr::att_get(const CZelString& name) const {
  CZelDataItem* section = ZEL::cfg_get(CZelDataKey(m_section));
  CZelDataKey key(name);
  return section ? section->find(&key) : nullptr;
}

bool CZelAttributeMgr::att_remove(const CZelString& name) {
  CZelDataItem* section = ZEL::cfg_get(CZelDataKey(m_section));
  CZelDataKey key(name);
  return section && section->remove(&key);
}

CZelDataItem* CZelAttributeMgr::gen_from_cfg(bool, bool) const {
  CZelDataItem* section = ZEL::cfg_get(CZelDataKey(m_section));
  CZelDataItem* item = section ? section->clone() : new CZelDataItem;
  item->mkDir();
  CZelDataKey type(L"TYPE");
  ZEL::dataItemSet(item, &type, m_type);
  return item;
}

bool CZelAttributeMgr::gen_to_cfg(const CZelDataItem* item, bool) {
  if (!item || !item->isDir()) return false;
  CZelDataItem* section = ZEL::cfg_get(CZelDataKey(m_section));
  if (!section) section = ZEL::cfg_dir_make(CZelDataKey(m_section));
  if (!section) return false;
  // The type belongs to the built object, not to the stored settings.
  ZEL::CUniqPointer<CZelDataItem> attributes(item->clone());
  attributes->getDir()->remove(CZelString(L"TYPE"));
  section->mkDir()->mergeFrom(*attributes->getDir(), 1);
  return true;
}
