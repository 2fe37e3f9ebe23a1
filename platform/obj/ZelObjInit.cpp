#include "obj/ZelObjInit.h"

#include "data/CConfig.h"
#include "data/CZelDataDir.h"
#include "data/ZelFactorySettings.h"
#include "obj/ZelObjTypes.h"

#include <memory>

namespace ZEL {

namespace {

// Parsed once per process: the factory text is built into the library and never changes.
const CZelDataItem* factory() {
  static const std::unique_ptr<CZelDataItem> settings(factorySettings());
  return settings.get();
}

}  // namespace

CZelDataItem* factorySection(const CZelString& section) {
  const CZelDataItem* all = factory();
  if (!all || !all->getDir()) return nullptr;
  const CZelDataItem* item = all->getDir()->item(section);
  return item ? item->clone() : nullptr;
}

bool sectionInit(const CZelString& section) {
  if (section.isEmpty()) return false;
  CZelDataItem* item = factorySection(section);
  if (!item) item = new CZelDataItem();
  item->mkDir();
  return cfg_set(CZelDataKey(section), item, true);
}

bool objTypeInit(const CZelString& type) {
  // The standard parts have no initialiser: their section is made by the catalogue.
  if (type.match(L"DIN") || type.match(L"PIECE")) return false;
  const ObjTypeInfo* info = objTypeInfo(type);
  return info && sectionInit(info->section);
}

bool hz_si_init() { return sectionInit(L"*HZ_SILIKON*"); }
bool bl_init() { return sectionInit(L"*HZ_BLECH*"); }
bool hz_init() { return sectionInit(L"*HZ_PROFIL*"); }

}  // namespace ZEL

bool zel_hz_kl_init() { return ZEL::sectionInit(L"*HZ_KLOTZ*"); }
bool zel_hz_di_init() { return ZEL::sectionInit(L"*HZ_DICHT*"); }
bool zel_hz_fo_init() { return ZEL::sectionInit(L"*HZ_FOLIE*"); }
bool zel_dm_init() { return ZEL::sectionInit(L"*HZ_DM*"); }
bool zel_axis_init() { return ZEL::sectionInit(L"*AXIS*"); }
