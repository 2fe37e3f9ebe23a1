// The models of the standard-part families, each built from the part's figures (the
// catalogue table's column names). Coordinates and views: NormModel.h. Every builder
// answers an empty model when a figure it needs is missing or not positive.
#pragma once

#include "obj/geometry/NormModel.h"
#include "obj/geometry/NormPartFigures.h"

namespace ZEL::geo::norm {

// Radius of the thread root of a metric thread: (d - 1.2268 P) / 2.
double threadMinorRadius(double d, double pitch);
// Adds the shank of a screw from x0 to the tip at `length`: plain up to the thread, the
// thread of length `threadLength` (whole shank when 0 or longer), the tip chamfered down to
// the root diameter.
void addShank(NormModel& model, double x0, double length, double d, double minorRadius, double threadLength);
// A rounded head from x = bearing (radius r0) to x = bearing - height (radius rTop), as
// frustums whose joints are tangent edges; `flat` of the height stays cylindrical first.
void addDomeHead(NormModel& model, double bearing, double height, double r0, double rTop, double flat);
// A cross recess (plus-shaped, arms of length `size`) open at the head's top face.
void addCrossRecess(NormModel& model, double top, double size, double depth);
// A hexagon socket (across flats s) open at the head's top face.
void addHexSocket(NormModel& model, double top, double s, double depth, bool openAtStart = true);

// Fasteners.
NormModel hexScrewModel(const NormPartFigures& f);       // ISO 4014, ISO 4017, DIN 933
NormModel hexNutModel(const NormPartFigures& f);         // hex, thin and prevailing-torque nuts
NormModel socketScrewModel(const NormPartFigures& f);    // ISO 4762
NormModel countersunkScrewModel(const NormPartFigures& f); // ISO 10642
NormModel buttonScrewModel(const NormPartFigures& f);    // ISO 7380-1, -2
NormModel setScrewModel(const NormPartFigures& f);       // ISO 4026 - 4029
NormModel cheeseScrewModel(const NormPartFigures& f);    // ISO 1207, DIN 84
NormModel panScrewModel(const NormPartFigures& f);       // ISO 7045
NormModel tappingScrewModel(const NormPartFigures& f);   // ISO 7049
NormModel washerModel(const NormPartFigures& f);         // ISO 7089, 7090, 7091, 7093-1

// Sections (the length "LEN"; a bar without one is drawn 1000 mm long).
NormModel beamModel(const NormPartFigures& f);           // I- and H-beams
NormModel channelModel(const NormPartFigures& f);
NormModel angleModel(const NormPartFigures& f);
NormModel teeModel(const NormPartFigures& f);
NormModel rectHollowModel(const NormPartFigures& f);
NormModel roundHollowModel(const NormPartFigures& f);

// The length a bar is drawn with.
double barLength(const NormPartFigures& f);

}  // namespace ZEL::geo::norm
