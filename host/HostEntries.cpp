#include "HostEntries.h"

#include "data/CConfig.h"

#include <strings.h>

namespace {

// The item dialog takes the object named by --record object=HANDLE; without one, the
// setting block that the settings describe ("*HZ_KLOTZ*"), as the setting-block dialog's
// "Artikel..." button hands it over.
int callItem(HostCall& c) {
  CZelDataItem* object = c.object ? c.object : ZEL::cfg_get(L"*HZ_KLOTZ*");
  return qenItemDlgMenu(c.record, object);
}

}  // namespace

const std::vector<HostEntry>& hostEntries() {
  static const std::vector<HostEntry> entries = {
    {"qenDlgHzKl", "KLOTZ", "setting blocks", [](HostCall& c) { return qenDlgHzKl(c.record); }},
    {"qenDlgHzDi", "DICHT", "seals", [](HostCall& c) { return qenDlgHzDi(c.record); }},
    {"qenDlgHzSi", "SILIKON", "silicone joints", [](HostCall& c) { return qenDlgHzSi(c.record); }},
    {"qenDlgHzFo", "FOLIE", "membranes", [](HostCall& c) { return qenDlgHzFo(c.record); }},
    {"qenDlgDm", "DM", "insulation", [](HostCall& c) { return qenDlgDm(c.record); }},
    {"qenDlgAxis", "AXIS", "glazing axes", [](HostCall& c) { return qenDlgAxis(c.record); }},
    {"qenDlgHzBl", "BLECH", "bent sheets and composite panels", [](HostCall& c) { return qenDlgHzBl(c.record); }},
    {"qenHzPrMenu", "HLBZ", "semi-finished profiles", nullptr},
    {"qenNormMenu", "DIN", "standard parts", nullptr},
    {"qenNormMatMenu", "NORM_MAT", "standard-part areas and material types", nullptr},
    {"qenItemDlgMenu", "ITEM", "article numbers", &callItem},
    {"qenDlgMatObjLayer", "LAYER", "layers of an object or a material", [](HostCall& c) { return qenDlgMatObjLayer(c.record); }},
    {"qenDlgMatObjHatch", "HATCH", "hatches of an object", [](HostCall& c) { return qenDlgMatObjHatch(c.record); }},
    {"qenDlgObjTxt", "LABEL", "label texts of an object", [](HostCall& c) { return qenDlgObjTxt(c.record, c.object); }},
  };
  return entries;
}

const HostEntry* findHostEntry(const std::string& nameOrType) {
  for (const auto& e : hostEntries())
    if (nameOrType == e.function || strcasecmp(nameOrType.c_str(), e.objectType) == 0) return &e;
  return nullptr;
}
