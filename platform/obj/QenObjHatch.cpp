#include "obj/QenObjHatch.h"

#include "data/CConfig.h"
#include "data/CZelDataDir.h"
#include "data/CZelMatMgr.h"
#include "data/ZelDataAccess.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjLabel.h"
#include "obj/ZelObjProps.h"

namespace {

// A hatch as the sections keep it.
struct Hatch {
  CZelString name;
  double scale = 1.0;
  double angle = 0.0;
};

// The system pattern when nothing is stored yet: the plain 45° line hatch.
const Hatch kDefaultHatch{L"ANSI31", 1.0, 0.0};

CZelDataKey pairKey(const CZelString& source, short groupCode) {
  CZelDataKey key(source);
  key.append(groupCode);
  return key;
}

// A hatch kept as pairs (2 . name) (40 . scale) (50 . angle) under `source`; false when
// there is no name.
bool readPairs(const CZelDataItem* item, const CZelString& source, Hatch& hatch) {
  if (!item) return false;
  Hatch h;
  CZelDataKey name = pairKey(source, 2), scale = pairKey(source, 40), angle = pairKey(source, 50);
  if (!item->get(h.name, &name) || h.name.isEmpty()) return false;
  item->get(h.scale, &scale);
  item->get(h.angle, &angle);
  hatch = h;
  return true;
}

void writePairs(CZelDataItem* item, const CZelString& source, const Hatch& hatch) {
  resbuf* chain = ZEL::mkRbPair(2, ZEL::mkResbuf(hatch.name.c_str()));
  chain = ZEL::rbAppend(chain, ZEL::mkRbPair(40, ZEL::mkRbReal(hatch.scale)));
  chain = ZEL::rbAppend(chain, ZEL::mkRbPair(50, ZEL::mkRbReal(hatch.angle)));
  CZelDataKey key(source);
  item->put(&key, ZEL::rbToList(chain));
}

// The effective own hatch HPNAME, HPSCALE, HPANG (suffix "2" for the second hatch).
bool readEffective(const CZelDataItem* item, const CZelString& suffix, Hatch& hatch) {
  if (!item) return false;
  Hatch h;
  CZelDataKey name(L"HPNAME" + suffix), scale(L"HPSCALE" + suffix), angle(L"HPANG" + suffix);
  if (!item->get(h.name, &name) || h.name.isEmpty()) return false;
  item->get(h.scale, &scale);
  item->get(h.angle, &angle);
  hatch = h;
  return true;
}

void writeEffective(CZelDataItem* item, const CZelString& suffix, const Hatch& hatch) {
  CZelDataKey name(L"HPNAME" + suffix), scale(L"HPSCALE" + suffix), angle(L"HPANG" + suffix);
  ZEL::dataItemSet(item, &name, hatch.name);
  ZEL::dataItemSet(item, &scale, hatch.scale);
  ZEL::dataItemSet(item, &angle, hatch.angle);
}

// The hatch of the first material of the chain that has one ("*ZEL_MAT*\MAT\<m>\HATCH").
bool materialHatch(const CZelString& material, Hatch& hatch) {
  if (material.isEmpty()) return false;
  CZelArrayTempl<CZelString> chain;
  CZelMatMgr().matPath(chain, material);
  for (const auto& m : chain) {
    CZelDataKey key;
    key.set(5005, L"*ZEL_MAT*", 5005, L"MAT", 5005, m.c_str(), 0);
    if (readPairs(ZEL::cfg_get(key), L"HATCH", hatch)) return true;
  }
  return false;
}

// The system's hatch as an item drawn with it shows it: an object or a type's section whose
// source is the system (IS_HATCH 0) carries the system pattern as its effective hatch.
bool systemHatch(const CZelDataItem* item, const CZelString& suffix, Hatch& hatch) {
  int mode = -1;
  CZelDataKey isHatch(L"IS_HATCH" + suffix);
  return item && item->get(mode, &isHatch) && mode == 0 && readEffective(item, suffix, hatch);
}

bool hasKey(const CZelDataItem* item, const wchar_t* name) {
  CZelDataKey key(name);
  return item && item->find(&key) != nullptr;
}

// The keys of a hatch preset, with the second hatch's.
const wchar_t* const kPresetKeys[] = {L"IS_HATCH", L"HATCH_OWN", L"HPNAME", L"HPSCALE", L"HPANG",
                                      L"IS_HATCH2", L"HATCH_OWN2", L"HPNAME2", L"HPSCALE2", L"HPANG2"};

}  // namespace

namespace ZEL {

bool obj_hatch_init(const CZelDataItem* object) {
  if (!object) return false;
  CZelDataItem hatches;
  hatches.mkDir();
  auto text = [object](const wchar_t* name) {
    CZelString value;
    CZelDataKey key(name);
    object->get(value, &key);
    return value;
  };
  const CZelString key3 = objKey(object, 3);
  const CZelDataItem* preset = prop_data(key3);
  auto set = [&hatches](const wchar_t* name, const CZelString& value) {
    CZelDataKey key(name);
    dataItemSet(&hatches, &key, value);
  };
  set(L"TYPE", text(L"TYPE"));
  set(L"MAT", text(L"MAT"));
  // The dialogs' header adds the material's label to this one.
  set(L"LABEL", obj_label(object, L"-1", ObjLabelMaterial::Without));
  set(L"KEY3", key3);

  const bool second = hasKey(object, L"IS_HATCH2") || hasKey(object, L"HPNAME2");
  for (const CZelString& suffix : {CZelString(), CZelString(L"2")}) {
    if (!suffix.isEmpty() && !second) break;
    Hatch system = kDefaultHatch;
    if (!systemHatch(object, suffix, system)) systemHatch(cfg_get(L"*HZ_" + text(L"TYPE") + L"*"), suffix, system);
    writePairs(&hatches, L"HATCH_SYS" + suffix, system);

    Hatch material;
    if (materialHatch(text(suffix.isEmpty() ? L"MAT" : L"MAT2"), material)) writePairs(&hatches, L"HATCH_MAT" + suffix, material);

    CZelDataKey isHatch(L"IS_HATCH" + suffix);
    int mode = 0;
    const bool objectMode = object->get(mode, &isHatch);
    if (!objectMode && preset) preset->get(mode, &isHatch);
    dataItemSet(&hatches, &isHatch, mode);

    // The object's own choice first, then the preset's, then whatever the object is drawn with.
    Hatch own = system;
    if (!(objectMode && mode == 2 && readEffective(object, suffix, own)) && !readPairs(preset, L"HATCH_OWN" + suffix, own))
      readEffective(object, suffix, own);
    writePairs(&hatches, L"HATCH_OWN" + suffix, own);
    writeEffective(&hatches, suffix, own);
  }
  return cfg_set(CZelDataKey(L"*QEN_OBJ_HATCH*"), &hatches, false);
}

}  // namespace ZEL

namespace QEN {

bool obj_hatch_save(const CZelDataItem* hatches) {
  CZelString key3;
  CZelDataKey k3(L"KEY3");
  if (!hatches || !hatches->get(key3, &k3) || key3.isEmpty()) return false;
  CZelDataKey presetKey;
  presetKey.set(5005, L"*QEN_OBJ_PROP*", 5005, key3.c_str(), 0);
  CZelDataItem* preset = ZEL::cfg_get(presetKey);
  if (!preset) preset = ZEL::cfg_dir_make(presetKey);
  if (!preset) return false;
  CZelDataDir* dir = preset->mkDir();
  for (const wchar_t* name : kPresetKeys) {
    // What the section no longer holds (an own pattern dropped before saving) leaves the preset too.
    dir->remove(CZelString(name));
    CZelDataKey key(name);
    if (CZelDataItem* value = hatches->find(&key)) dir->insert(name, value, true);
  }
  return hasKey(preset, L"IS_HATCH");
}

int obj_hatch_rem(const CZelString& key3) {
  if (key3.isEmpty()) return 0;
  CZelDataItem* preset = ZEL::prop_data(key3);
  if (!preset || !preset->getDir()) return 0;
  bool removed = false;
  for (const wchar_t* name : kPresetKeys) removed = preset->getDir()->remove(CZelString(name)) || removed;
  return removed ? 1 : 0;
}

}  // namespace QEN
