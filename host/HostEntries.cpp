#include "HostEntries.h"

#include "HostEntryHooks.h"
#include "HostNormHooks.h"

#include "qen_entries.h"

#include <strings.h>

const std::vector<HostEntry>& hostEntries() {
  static const std::vector<HostEntry> entries = {
    {"qenDlgHzKl", "KLOTZ", "setting blocks", [](HostCall& c) { return callAccessory(c, L"KLOTZ", qenDlgHzKl); },
     [](HostCall& c) { prepareAccessory(c, L"KLOTZ"); }, [](HostCall& c, int code) { finishAccessory(c, code, L"KLOTZ"); }},
    {"qenDlgHzDi", "DICHT", "seals", [](HostCall& c) { return callAccessory(c, L"DICHT", qenDlgHzDi); },
     [](HostCall& c) { prepareAccessory(c, L"DICHT"); }, [](HostCall& c, int code) { finishAccessory(c, code, L"DICHT"); }},
    // The silicone entry takes its record by value.
    {"qenDlgHzSi", "SILIKON", "silicone joints",
     [](HostCall& c) { return callAccessory(c, L"SILIKON", [](qenDlgEnv_st& r) { return qenDlgHzSi(r); }); },
     [](HostCall& c) { prepareAccessory(c, L"SILIKON"); }, [](HostCall& c, int code) { finishAccessory(c, code, L"SILIKON"); }},
    {"qenDlgHzFo", "FOLIE", "membranes", [](HostCall& c) { return callAccessory(c, L"FOLIE", qenDlgHzFo); },
     [](HostCall& c) { prepareAccessory(c, L"FOLIE"); }, [](HostCall& c, int code) { finishAccessory(c, code, L"FOLIE"); }},
    // "Dicke <", "Startdicke <", "Enddicke <" (2, 3, 4) take a picked length; "Basislinie <" (5)
    // belongs to the drawing.
    {"qenDlgDm", "DM", "insulation",
     [](HostCall& c) {
       static constexpr HostValuePick kPicks[] = {{2, L"D"}, {3, L"S"}, {4, L"E"}, {5, nullptr}};
       return callAccessory(c, L"DM", qenDlgDm, kPicks);
     },
     [](HostCall& c) { prepareAccessory(c, L"DM"); }, [](HostCall& c, int code) { finishAccessory(c, code, L"DM"); }},
    {"qenDlgAxis", "AXIS", "glazing axes", [](HostCall& c) { return qenDlgAxis(c.record); },
     [](HostCall& c) { prepareAccessory(c, L"AXIS"); }, &finishAxis},
    {"qenDlgHzBl", "BLECH", "bent sheets and composite panels", [](HostCall& c) { return qenDlgHzBl(c.record); }},
    {"qenHzPrMenu", "HLBZ", "semi-finished profiles", nullptr},
    {"qenNormMenu", "DIN", "standard parts", &callNorm, &prepareNorm, &finishNorm, true},
    {"qenNormMatMenu", "NORM_MAT", "material types of standard parts", [](HostCall& c) { return qenNormMatMenu(c.record); },
     &prepareNormMat},
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

// Names and types alike are matched without regard to case: a user who types "klotz" or
// "qendlghzkl" means the same entry.
const HostEntry* findHostEntry(const std::string& nameOrType) {
  for (const auto& e : hostEntries())
    if (strcasecmp(nameOrType.c_str(), e.function) == 0 || strcasecmp(nameOrType.c_str(), e.objectType) == 0) return &e;
  return nullptr;
}

bool hostEntryAvailable(const HostEntry& entry) { return entry.call && qenEntryAvailable(entry.function); }
