#include "HostEntries.h"

#include "HostEntryHooks.h"

#include "data/CConfig.h"
#include "data/CZelDataDir.h"

#include <strings.h>

namespace {

// An axis of the drawing (--record object=HANDLE) is edited in the settings, "ORIG"
// marking the edit. The entry removes "ORIG" on OK, so the object is the one the call
// names; after OK it takes the settings back, and the mark never outlives the run.
void finishAxis(HostCall& c, int code) {
  CZelDataItem* settings = ZEL::cfg_get(L"*AXIS*");
  CZelDataKey typeKey(L"TYPE");
  CZelString type;
  const bool axisObject = c.object && c.object->get(type, &typeKey) && type == L"AXIS";
  if (code == 1 && settings && axisObject) {
    for (ZEL::CDataIterator it(settings); !it.done(); it.next()) {
      const CZelString& name = it.name();
      if (name == L"ORIG" || name == L"MODE" || name == L"COORD") continue;
      c.object->mkDir()->insert(name, it.item(), true);
    }
  }
  if (code == 1 || code == 2) ZEL::cfg_remove(L"*AXIS*\\ORIG");
}

}  // namespace

const std::vector<HostEntry>& hostEntries() {
  static const std::vector<HostEntry> entries = {
    {"qenDlgHzKl", "KLOTZ", "setting blocks", [](HostCall& c) { return callAccessory(c, L"KLOTZ", qenDlgHzKl); },
     [](HostCall& c) { prepareAccessory(c, L"KLOTZ"); }, [](HostCall& c, int code) { finishAccessory(c, code, L"KLOTZ"); }},
    {"qenDlgHzDi", "DICHT", "seals", [](HostCall& c) { return qenDlgHzDi(c.record); }},
    {"qenDlgHzSi", "SILIKON", "silicone joints", [](HostCall& c) { return qenDlgHzSi(c.record); }},
    {"qenDlgHzFo", "FOLIE", "membranes", [](HostCall& c) { return qenDlgHzFo(c.record); }},
    {"qenDlgDm", "DM", "insulation", [](HostCall& c) { return qenDlgDm(c.record); }},
    {"qenDlgAxis", "AXIS", "glazing axes", [](HostCall& c) { return qenDlgAxis(c.record); },
     [](HostCall& c) { prepareAccessory(c, L"AXIS"); }, &finishAxis},
    {"qenDlgHzBl", "BLECH", "bent sheets and composite panels", [](HostCall& c) { return qenDlgHzBl(c.record); }},
    {"qenHzPrMenu", "HLBZ", "semi-finished profiles", nullptr},
    {"qenNormMenu", "DIN", "standard parts", nullptr},
    {"qenNormMatMenu", "NORM_MAT", "standard-part areas and material types", nullptr},
    {"qenItemDlgMenu", "ITEM", "article numbers", &callItem},
    {"qenDlgMatObjLayer", "LAYER", "layers of an object or a material", [](HostCall& c) { return qenDlgMatObjLayer(c.record); },
     prepareLayers, finishLayers},
    {"qenDlgMatObjHatch", "HATCH", "hatches of an object", [](HostCall& c) { return qenDlgMatObjHatch(c.record); },
     prepareHatches, finishHatches},
    {"qenDlgObjTxt", "LABEL", "label texts of an object", [](HostCall& c) { return qenDlgObjTxt(c.record, c.object); },
     prepareLabel, finishLabel},
  };
  return entries;
}

const HostEntry* findHostEntry(const std::string& nameOrType) {
  for (const auto& e : hostEntries())
    if (nameOrType == e.function || strcasecmp(nameOrType.c_str(), e.objectType) == 0) return &e;
  return nullptr;
}
