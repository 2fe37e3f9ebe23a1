// What qen-host does around an entry call: prepares the sections a dialog works on from the
// object being set, and takes the user's choices back into the object afterwards.
#include "HostEntryHooks.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelDataDir.h"
#include "data/ZelDataAccess.h"
#include "obj/QenDataFiles.h"
#include "obj/QenObjHatch.h"
#include "obj/QenObjLayer.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjTypes.h"
#include "data/CZelDrawing.h"
#include "data/ZelCommandLine.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <memory>

// The layer dialog works on "*QEN_OBJ_LAY*", prepared from the object being set.
void prepareLayers(HostCall& c) {
  if (c.object && !c.record.materialMode) ZEL::obj_layer_init(c.object);
}

// After OK the object takes the assignment the user chose.
void finishLayers(HostCall& c, int code) {
  if (code != 1 || !c.object || c.record.materialMode) return;
  CZelDataItem* lay = ZEL::cfg_get(L"*QEN_OBJ_LAY*");
  if (!lay || !lay->getDir()) return;
  for (const wchar_t* k : {L"IS_LAY", L"LAY_OWN", L"LAY_CUR"})
    if (CZelDataItem* v = lay->getDir()->item(k)) c.object->mkDir()->insert(k, v, true);
}

// The item dialog takes the object named by --record object=HANDLE; without one, the
// setting block that the settings describe ("*HZ_KLOTZ*"), as the setting-block dialog's
// "Artikel..." button hands it over.
int callItem(HostCall& c) {
  CZelDataItem* object = c.object ? c.object : ZEL::cfg_get(L"*HZ_KLOTZ*");
  return qenItemDlgMenu(c.record, object);
}

// The hatch dialog works on "*QEN_OBJ_HATCH*", prepared from the object being set.
void prepareHatches(HostCall& c) {
  if (c.object) ZEL::obj_hatch_init(c.object);
}

// After OK the object takes the source of each hatch and the pattern, scale and angle of
// that source, as it is drawn with them.
void finishHatches(HostCall& c, int code) {
  if (code != 1 || !c.object) return;
  CZelDataItem* hatches = ZEL::cfg_get(L"*QEN_OBJ_HATCH*");
  if (!hatches) return;
  for (const CZelString& suffix : {CZelString(), CZelString(L"2")}) {
    int mode = 0;
    CZelDataKey isHatch(L"IS_HATCH" + suffix);
    if (!hatches->get(mode, &isHatch)) continue;
    ZEL::dataItemSet(c.object, &isHatch, mode);
    const CZelString source = (mode == 0 ? L"HATCH_SYS" : mode == 1 ? L"HATCH_MAT" : L"HATCH_OWN") + suffix;
    CZelDataKey name = CZelDataKey::fromPath(source + L"\\#2"), scale = CZelDataKey::fromPath(source + L"\\#40"),
                angle = CZelDataKey::fromPath(source + L"\\#50");
    CZelString pattern;
    double value = 0.0;
    CZelDataKey hpName(L"HPNAME" + suffix), hpScale(L"HPSCALE" + suffix), hpAngle(L"HPANG" + suffix);
    if (hatches->get(pattern, &name)) ZEL::dataItemSet(c.object, &hpName, pattern);
    if (hatches->get(value, &scale)) ZEL::dataItemSet(c.object, &hpScale, value);
    if (hatches->get(value, &angle)) ZEL::dataItemSet(c.object, &hpAngle, value);
  }
}

namespace {

// The labeling dialog writes its choices straight into the object; the object as it was
// before the call is kept so that anything but OK leaves the drawing untouched.
std::unique_ptr<CZelDataItem>& labelObjectBefore() {
  static std::unique_ptr<CZelDataItem> before;
  return before;
}

// The supplementary list the user saved with "Liste speichern" (here or in another program)
// joins the one of the settings store: entries the store lacks are added at the end.
void mergeSavedList(const CZelString& key3) {
  const std::string file = QEN::dataFileName(L"qen_obj_prop.dex", QEN::kDataFileRead).toUtf8();
  // Saves rename a finished file into place, so reading takes no lock and leaves no lock
  // file beside the store. Only a regular file is read.
  std::error_code ec;
  if (!std::filesystem::is_regular_file(file, ec)) return;
  std::unique_ptr<CZelDataItem> saved(CStoreFile::load(file));
  CZelDataKey inFile;
  inFile.set(5005, key3.c_str(), 5005, L"TXTLST", 0);
  CZelArrayTempl<CZelString> fromFile, list;
  if (!saved || !saved->get(fromFile, &inFile) || fromFile.isEmpty()) return;
  CZelDataKey inStore;
  inStore.set(5005, L"*QEN_OBJ_PROP*", 5005, key3.c_str(), 5005, L"TXTLST", 0);
  if (CZelDataItem* stored = ZEL::cfg_get(inStore)) stored->get(list);
  const int before = list.count();
  for (const CZelString& e : fromFile)
    if (!e.isEmpty() && list.find(e) < 0) list.add(e);
  if (list.count() != before) ZEL::cfg_set(inStore, ZEL::mkDataItem(ZEL::mkResbuf(list)), true);
}

}  // namespace

void prepareLabel(HostCall& c) {
  labelObjectBefore().reset(c.object ? c.object->clone() : nullptr);
  if (c.object) mergeSavedList(ZEL::objKey(c.object, 3));
}

void finishLabel(HostCall& c, int code) {
  if (code != 1 && c.object && labelObjectBefore()) c.object->assign(*labelObjectBefore());
  labelObjectBefore().reset();
}


namespace {

CZelString sectionOf(const wchar_t* type) {
  const ZEL::ObjTypeInfo* info = ZEL::objTypeInfo(type);
  return info ? CZelString(info->section) : CZelString();
}

}  // namespace

// "PROJECTIONS": how many projections a standard part has in the drawing.
bool drawingOnlyKey(const CZelString& name) {
  return name == L"OBJ" || name == L"NAME" || name == L"DICT_PATH" || name == L"GEN" || name == L"PROJECTIONS";
}

CZelDataItem* drawingObjectOfType(const wchar_t* type, const CZelString& handle) {
  CZelDataItem* data = CZelDrawing::current().objectData(handle);
  CZelString objectType;
  CZelDataKey typeKey(L"TYPE");
  if (!data || !data->get(objectType, &typeKey) || !objectType.match(type)) {
    ZEL::cmdPrint(L"pick: the drawing has no " + CZelString(type) + L" object " + handle);
    return nullptr;
  }
  return data;
}

void takeSettings(CZelDataItem* object, const CZelDataItem& settings) {
  if (!object) return;
  for (ZEL::CDataIterator it(&settings); !it.done(); it.next()) {
    const CZelString& name = it.name();
    if (name == L"ORIG" || name == L"MODE" || name == L"COORD") continue;
    object->mkDir()->insert(name, it.item(), true);
  }
}

bool editObject(HostCall& c, const wchar_t* type, const CZelString& handle, bool edit) {
  CZelDrawing& drawing = CZelDrawing::current();
  CZelDataItem* data = drawingObjectOfType(type, handle);
  if (!data) return false;
  const CZelString section = sectionOf(type);
  CZelDataItem* settings = ZEL::cfg_get(CZelDataKey(section));
  if (!settings) settings = ZEL::cfg_dir_make(CZelDataKey(section));
  for (ZEL::CDataIterator it(data); !it.done(); it.next())
    if (!drawingOnlyKey(it.name())) settings->mkDir()->insert(it.name(), it.item(), true);
  if (!edit) return true;
  CZelDataKey orig(L"ORIG");
  settings->put(&orig, ZEL::mkResbuf(handle.c_str(), RTENAME));
  drawing.currentObject[type] = handle;
  c.record.object = ZEL::CAdsName(handle);
  c.object = data;
  return true;
}

void prepareAccessory(HostCall& c, const wchar_t* type) {
  if (!c.record.object.isNull()) editObject(c, type, c.record.object.handle());
}

void finishAccessory(HostCall& c, int code, const wchar_t* type) {
  if (code != 1 && code != 2) return;
  const CZelString section = sectionOf(type);
  CZelDataItem* settings = ZEL::cfg_get(CZelDataKey(section));
  CZelDataKey orig(L"ORIG");
  CZelString handle;
  if (!settings || !settings->getEname(handle, &orig)) return;
  if (code == 1) takeSettings(CZelDrawing::current().objectData(handle), *settings);
  settings->remove(&orig);
}

void finishAxis(HostCall& c, int code) {
  CZelDataItem* settings = ZEL::cfg_get(L"*AXIS*");
  CZelDataKey typeKey(L"TYPE");
  CZelString type;
  const bool axisObject = c.object && c.object->get(type, &typeKey) && type == L"AXIS";
  if (code == 1 && settings && axisObject) takeSettings(c.object, *settings);
  if (code == 1 || code == 2) ZEL::cfg_remove(L"*AXIS*\\ORIG");
}

namespace {

// A length as the user picked it: a finite number and nothing else.
bool pickedLength(const std::string& text, double& value) {
  if (text.empty()) return false;
  char* end = nullptr;
  errno = 0;
  value = std::strtod(text.c_str(), &end);
  return errno == 0 && end && *end == '\0' && std::isfinite(value);
}

}  // namespace

int callAccessory(HostCall& c, const wchar_t* type, const std::function<int(qenDlgEnv_st&)>& entry,
                  std::span<const HostValuePick> values, HostObjectPick objectPick) {
  int code = entry(c.record);
  while (c.nextPick < c.picks.size()) {
    if (code == 103) {
      const CZelString handle = CZelString::fromUtf8(c.picks[c.nextPick++]);
      ZEL::cmdPrint(L"pick: " + CZelString(type) + L" object " + handle);
      if (!editObject(c, type, handle, objectPick == HostObjectPick::Edit)) break;
      code = entry(c.record);
      continue;
    }
    const HostValuePick* asked = nullptr;
    for (const HostValuePick& v : values)
      if (v.code == code) asked = &v;
    if (!asked || (!asked->key && !asked->take)) break;
    const std::string text = c.picks[c.nextPick++];
    double value = 0.0;
    if (!pickedLength(text, value)) {
      ZEL::cmdPrint(L"pick: not a length: " + CZelString::fromUtf8(text));
      break;
    }
    CZelString name;
    if (asked->take) {
      name = asked->take(value);
      if (name.isEmpty()) break;
    } else {
      name = asked->key;
      CZelDataKey key;
      const CZelString section = sectionOf(type);
      key.set(5005, section.c_str(), 5005, name.c_str(), 0);
      ZEL::cfg_set(key, ZEL::mkDataItem(ZEL::mkRbReal(value)), true);
    }
    ZEL::cmdPrint(L"pick: " + CZelString(type) + L" " + name + L" = " + CZelString::fromUtf8(text));
    code = entry(c.record);
  }
  return code;
}
