#include "obj/QenObjLayer.h"

#include "data/CConfig.h"
#include "data/CUniqPointer.h"
#include "data/CZelDataDir.h"
#include "data/CZelMatMgr.h"
#include "data/ZelDataAccess.h"
#include "data/ZelMessages.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjLabel.h"
#include "obj/ZelObjProps.h"

namespace {

// The roles of an object's geometry that get a layer, with the text keys and German
// defaults of their labels.
struct LogicalLayer {
  const wchar_t* key;
  const wchar_t* textKey;
  const wchar_t* label;
};
constexpr LogicalLayer kLogicalLayers[] = {
    {L"PART_CON", L"QEN_MAT005", L"Ausgezogen"},     {L"PART_HID", L"QEN_MAT006", L"Verdeckte Linien"},
    {L"PART_CEN", L"QEN_MAT007", L"Achslinien"},     {L"PART_FILL", L"QEN_MAT019", L"Füllung/Schraffur"},
    {L"PART_SOLID", L"QEN_MAT008", L"Volumenkörper"}};

// The name member (group code 2) of an assignment in "*ZEL_LAYER*".
CZelString assignment(const CZelString& path) {
  CZelDataKey key = CZelDataKey::fromPath(path);
  key.append(static_cast<short>(2));
  CZelString root = key.text();
  CZelDataItem* top = ZEL::cfg_get(CZelDataKey(root));
  CZelString name;
  if (top) top->get(name, key.next());
  return name;
}

CZelString materialAssignment(const CZelString& material, const wchar_t* logical) {
  CZelArrayTempl<CZelString> chain;
  CZelMatMgr().matPath(chain, material);
  for (const auto& m : chain) {
    CZelString name = assignment(L"*ZEL_LAYER*\\MAT\\" + m + L"\\" + logical);
    if (!name.isEmpty()) return name;
  }
  return CZelString();
}

}  // namespace

namespace ZEL {

bool obj_layer_init(const CZelDataItem* object) {
  if (!object) return false;
  CZelDataItem lay;
  lay.mkDir();
  CZelString material;
  CZelDataKey matKey(L"MAT");
  object->get(material, &matKey);
  const CZelString key3 = objKey(object, 3);
  CZelDataItem* preset = prop_data(key3);

  auto set = [&lay](const CZelString& path, const CZelString& value) {
    CZelDataKey k = CZelDataKey::fromPath(path);
    dataItemSet(&lay, &k, value);
  };
  // The dialogs' header adds the material's label to this one.
  set(L"LABEL", obj_label(object, L"-1", ObjLabelMaterial::Without));
  set(L"MAT", material);
  set(L"KEY3", key3);
  const CZelString country = CZelMatMgr::userCountry();
  for (const auto& [logical, textKey, label] : kLogicalLayers) {
    set(CZelString(L"LAY_LOG\\") + logical, msgText(textKey, label, country.c_str()));
    CZelString system = assignment(CZelString(L"*ZEL_LAYER*\\SYSTEM\\") + logical);
    set(CZelString(L"LAY_SYS\\") + logical, system);
    set(CZelString(L"LAY_MAT\\") + logical, materialAssignment(material, logical));
    CZelString own;
    CZelDataKey ownKey = CZelDataKey::fromPath(CZelString(L"LAY_OWN\\") + logical);
    if (!object->get(own, &ownKey) && !(preset && preset->get(own, &ownKey))) own = system;
    set(CZelString(L"LAY_OWN\\") + logical, own);
  }
  int mode = 0;
  CZelDataKey isLay(L"IS_LAY");
  if (!object->get(mode, &isLay) && preset) preset->get(mode, &isLay);
  dataItemSet(&lay, &isLay, mode);
  CZelString current;
  CZelDataKey cur(L"LAY_CUR");
  if (!object->get(current, &cur)) current = kLogicalLayers[0].key;
  dataItemSet(&lay, &cur, current);
  return cfg_set(CZelDataKey(L"*QEN_OBJ_LAY*"), &lay, false);
}

}  // namespace ZEL

namespace QEN {

bool obj_layer_save(const CZelDataItem* objLay) {
  CZelString key3;
  CZelDataKey k3(L"KEY3");
  if (!objLay || !objLay->get(key3, &k3) || key3.isEmpty()) return false;
  CZelDataKey presetKey;
  presetKey.set(5005, L"*QEN_OBJ_PROP*", 5005, key3.c_str(), 0);
  CZelDataItem* preset = ZEL::cfg_get(presetKey);
  if (!preset) preset = ZEL::cfg_dir_make(presetKey);
  if (!preset) return false;
  int mode = 0;
  CZelDataKey isLay(L"IS_LAY");
  objLay->get(mode, &isLay);
  ZEL::dataItemSet(preset, &isLay, mode);
  CZelDataKey ownKey(L"LAY_OWN");
  if (CZelDataItem* own = objLay->find(&ownKey)) preset->mkDir()->insert(L"LAY_OWN", own, true);
  return true;
}

bool obj_layer_rem(const CZelString& key3) {
  CZelDataItem* preset = ZEL::prop_data(key3);
  if (!preset || !preset->getDir()) return false;
  bool removed = preset->getDir()->remove(CZelString(L"IS_LAY"));
  removed = preset->getDir()->remove(CZelString(L"LAY_OWN")) || removed;
  return removed;
}

}  // namespace QEN
