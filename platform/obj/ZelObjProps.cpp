#include "obj/ZelObjProps.h"

#include "data/CConfig.h"

namespace ZEL {

CZelDataItem* prop_data(const CZelString& objectKey) {
  if (objectKey.isEmpty()) return nullptr;
  CZelDataKey key;
  key.set(5005, L"*QEN_OBJ_PROP*", 5005, objectKey.c_str(), 0);
  return cfg_get(key);
}

}  // namespace ZEL
