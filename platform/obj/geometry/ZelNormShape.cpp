#include "obj/geometry/ZelNormShape.h"

#include "obj/geometry/ZelNormFamilies.h"

namespace ZEL::geo {

namespace {

norm::NormModel modelOf(const norm::NormPartFigures& f) {
  using namespace norm;
  const std::string& c = f.category;
  const std::string& g = f.group;
  if (c == "SCREW") {
    if (g == "HEX") return hexScrewModel(f);
    if (g == "SOCKET") return socketScrewModel(f);
    if (g == "COUNTERSUNK") return countersunkScrewModel(f);
    if (g == "BUTTON") return buttonScrewModel(f);
    if (g == "PAN") return panScrewModel(f);
    if (g == "CHEESE") return cheeseScrewModel(f);
    if (g == "SET") return setScrewModel(f);
    if (g == "TAPPING") return tappingScrewModel(f);
  } else if (c == "NUT") {
    return hexNutModel(f);
  } else if (c == "WASHER") {
    return washerModel(f);
  } else if (c == "SECTION") {
    if (g == "I-BEAM" || g == "H-BEAM") return beamModel(f);
    if (g == "CHANNEL") return channelModel(f);
    if (g == "ANGLE") return angleModel(f);
    if (g == "TEE") return teeModel(f);
    if (g == "HOLLOW-RECT") return rectHollowModel(f);
    if (g == "HOLLOW-ROUND") return roundHollowModel(f);
  }
  return {};
}

}  // namespace

Shape normPartShape(const CZelDataItem* part) {
  if (!part) return {};
  const norm::NormModel model = modelOf(norm::NormPartFigures(part));
  norm::ViewOptions options;
  CZelDataKey viewKey(L"VIEW"), axisKey(L"AXIS"), drawKey(L"DRAW");
  part->get(options.view, &viewKey);
  part->get(options.flags, &axisKey);
  CZelString draw;
  options.hatch = part->get(draw, &drawKey) && draw == L"SMDB" && (options.view == 0 || options.view == 32);
  return model.view(options);
}

}  // namespace ZEL::geo
