// Label-text presets of objects under "*QEN_OBJ_PROP*".
#include "obj/QenObjTxtGen.h"

#include "data/CConfig.h"
#include "data/CZelDataDir.h"
#include "data/ZelDataAccess.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjProps.h"
#include "obj/ZelObjTxt.h"

namespace QEN {

bool obj_txtgen_save(const CZelDataItem* object) {
  const CZelString key3 = ZEL::objKey(object, 3);
  if (key3.isEmpty()) return false;
  CZelDataKey presetKey;
  presetKey.set(5005, L"*QEN_OBJ_PROP*", 5005, key3.c_str(), 0);
  CZelDataItem* preset = ZEL::cfg_get(presetKey);
  if (!preset || !preset->isDir()) preset = ZEL::cfg_dir_make(presetKey);
  if (!preset) return false;

  CZelString type;
  CZelDataKey typeKey(L"TYPE");
  object->get(type, &typeKey);
  CZelArrayTempl<int> sequence, breaks;
  CZelDataKey seq(L"TXTSEQU"), line(L"TXTLINE"), gen(L"TXTGEN");
  if (!object->get(sequence, &seq) || sequence.isEmpty()) ZEL::objTxtSequ(sequence, type, object);
  if (!object->get(breaks, &line) || breaks.isEmpty()) breaks = ZEL::objTxtLine(type);
  ZEL::dataItemSet(preset, &gen, ZEL::objTxtBit(object, true));
  preset->put(&seq, ZEL::mkResbuf(sequence));
  preset->put(&line, ZEL::mkResbuf(breaks));
  return true;
}

bool obj_txtgen_rem(const CZelString& key3) {
  CZelDataItem* preset = ZEL::prop_data(key3);
  if (!preset || !preset->getDir()) return false;
  bool removed = preset->getDir()->remove(CZelString(L"TXTGEN"));
  removed = preset->getDir()->remove(CZelString(L"TXTSEQU")) || removed;
  removed = preset->getDir()->remove(CZelString(L"TXTLINE")) || removed;
  return removed;
}

}  // namespace QEN
