#include "obj/QenObjPreset.h"

#include "data/CConfig.h"
#include "data/CZelDataDir.h"

namespace QEN {

namespace {

CZelDataKey presetStoreKey(const CZelString& type) {
  CZelDataKey key;
  key.set(5005, L"*QEN_OBJ_PROP*", 5005, presetKey(type).c_str(), 0);
  return key;
}

}  // namespace

CZelString presetKey(const CZelString& type) { return L"*" + type.upper() + L"*"; }

bool obj_preset_save(const CZelString& type, const CZelDataItem* settings) {
  if (type.isEmpty() || !settings) return false;
  return ZEL::cfg_set(presetStoreKey(type), settings->clone(), true);
}

int obj_preset_rem(const CZelString& type) {
  if (type.isEmpty()) return 0;
  const bool had = obj_preset_exists(type);
  ZEL::cfg_remove(presetStoreKey(type));
  return had ? 1 : 0;
}

bool obj_preset_exists(const CZelString& type) {
  if (type.isEmpty()) return false;
  const CZelDataItem* preset = ZEL::cfg_get(presetStoreKey(type));
  return preset && preset->getDir() && preset->getDir()->count() > 0;
}

}  // namespace QEN
