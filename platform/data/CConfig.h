// The settings store: the root directory under which the sections live, and the store
// operations by key and by backslash path.
#pragma once

#include "data/CSharedPointer.h"
#include "data/CZelDataItem.h"
#include "data/CZelDataKey.h"
#include "data/ZelUnits.h"

#include <memory>
#include <string>

namespace ZEL {

class CConfig {
public:
  CConfig();
  ~CConfig();

  // The directory item under which the named section lives. Every section lives under the
  // one root of the store; the name is taken so that callers need not know that.
  CZelDataItem* getCfgRoot(const CZelString& sectionName = CZelString());
  CZelDataItem* root() { return m_root.get(); }

  // Replaces the whole store (the item becomes the store's); none empties it.
  void reset(CZelDataItem* root = nullptr);
  bool loadFromFile(const std::string& path);  // the store is untouched when the file fails
  bool saveToFile(const std::string& path) const;

private:
  std::unique_ptr<CZelDataItem> m_root;
};

CConfig* cfgMgrPtr();

CZelDataItem* cfg_get(const CZelDataKey& key);
CZelDataItem* cfg_get(const wchar_t* path);
inline CZelDataItem* cfg_get(const CZelString& path) { return cfg_get(path.c_str()); }
// Stores an item at the key, replacing what was there, creating missing levels. With
// `adopt` true the item becomes the store's; with false the store keeps a copy.
bool cfg_set(const CZelDataKey& key, CZelDataItem* item, bool adopt);
bool cfg_set(const wchar_t* path, CZelDataItem* item, bool adopt);
bool cfg_set(const CZelDataKey& key, const CSharedPointer<CZelDataItem>& item);
CZelDataItem* cfg_dir_make(const CZelDataKey& key);
bool cfg_remove(const CZelDataKey& key);
bool cfg_remove(const wchar_t* path);
inline bool cfg_remove(const CZelString& path) { return cfg_remove(path.c_str()); }
// A stored default length (kept in millimetres) converted into the given unit.
bool cfg_default(const CZelDataKey& key, double& value, Zel::lUnit unit);

}  // namespace ZEL
