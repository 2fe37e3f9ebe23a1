#include "data/CConfig.h"

#include "data/CStoreFile.h"
#include "data/CZelDataDir.h"

namespace ZEL {

CConfig::CConfig() : m_root(std::make_unique<CZelDataItem>()) { m_root->mkDir(); }
CConfig::~CConfig() = default;

CZelDataItem* CConfig::getCfgRoot(const CZelString&) { return m_root.get(); }

void CConfig::reset(CZelDataItem* root) {
  m_root.reset(root ? root : new CZelDataItem);
  m_root->mkDir();
}

bool CConfig::loadFromFile(const std::string& path) {
  CZelDataItem* loaded = CStoreFile::loadDirectory(path);
  if (!loaded) return false;
  m_root.reset(loaded);
  return true;
}

bool CConfig::saveToFile(const std::string& path) const { return CStoreFile::save(path, *m_root); }

CConfig* cfgMgrPtr() {
  static CConfig config;
  return &config;
}

namespace {

// The item at a full key: the section's item under the root, then the rest of the key.
CZelDataItem* itemAt(const CZelDataKey& key) {
  if (key.isEmpty() || !key.isStringPart()) return nullptr;
  CZelDataItem* root = cfgMgrPtr()->getCfgRoot(key.text());
  CZelDataItem* section = root->getDir()->item(key.text());
  return section ? section->find(key.next()) : nullptr;
}

}  // namespace

CZelDataItem* cfg_get(const CZelDataKey& key) {
  // A key ending in a short part names a pair's value, not an item.
  for (const CZelDataKey* k = &key; k && !k->isEmpty(); k = k->next())
    if (k->type() == 5003) return nullptr;
  return itemAt(key);
}

CZelDataItem* cfg_get(const wchar_t* path) { return cfg_get(CZelDataKey::fromPath(path)); }

bool cfg_set(const CZelDataKey& key, CZelDataItem* item, bool adopt) {
  if (!item || key.isEmpty() || !key.isStringPart()) {
    if (adopt) delete item;
    return false;
  }
  std::unique_ptr<CZelDataItem> owned(adopt ? item : item->clone());
  CZelDataItem* root = cfgMgrPtr()->getCfgRoot(key.text());
  CZelDataItem* parent = root;
  const CZelDataKey* k = &key;
  for (; k->next() && !k->next()->isEmpty(); k = k->next()) {
    if (!k->isStringPart()) return false;
    parent = parent->mkDir()->makeItem(*k);
  }
  if (!k->isStringPart()) return false;
  return parent->mkDir()->insert(k->text(), owned.release(), false);
}

bool cfg_set(const wchar_t* path, CZelDataItem* item, bool adopt) {
  return cfg_set(CZelDataKey::fromPath(path), item, adopt);
}

bool cfg_set(const CZelDataKey& key, const CSharedPointer<CZelDataItem>& item) {
  return item.get() && cfg_set(key, item.get(), false);
}

CZelDataItem* cfg_dir_make(const CZelDataKey& key) {
  auto* dir = new CZelDataItem;
  dir->mkDir();
  if (!cfg_set(key, dir, true)) return nullptr;
  return itemAt(key);
}

bool cfg_remove(const CZelDataKey& key) {
  if (key.isEmpty() || !key.isStringPart()) return false;
  CZelDataItem* root = cfgMgrPtr()->getCfgRoot(key.text());
  return root->remove(&key);
}

bool cfg_remove(const wchar_t* path) { return cfg_remove(CZelDataKey::fromPath(path)); }

bool cfg_default(const CZelDataKey& key, double& value, Zel::lUnit unit) {
  CZelDataItem* item = cfg_get(key);
  double mm = 0.0;
  if (!item || !item->get(mm)) return false;
  value = acadUnitCv(mm, Zel::lUnit::Millimeters, unit);
  return true;
}

}  // namespace ZEL
