// What qen-host does around the standard-parts dialog (run DIN): the part being edited, the
// picture choice behind the preview, and the picks in the drawing the dialog ends for.
#pragma once

#include "HostEntries.h"

// An object named by --record object=HANDLE is the part being edited: its values go into
// "*NM*" ("ORIG" names it), the dialog is told so (editing, the object's "PROJECTIONS"
// unless --projections says otherwise, sheared with --sheared or when the drawing shows
// standard parts sheared).
void prepareNorm(HostCall& c);
// Runs the dialog with the host's picture choice. End code 3 (the further dimension) takes
// the next --pick VALUE as the part's clamping length, radius or countersink depth, whichever
// its standard has (a clamping length sets the length that gives it, none: refused; a radius
// must lie within the size's range); 4 takes it as a free length ("LEN", "NODIN" 1); 103
// takes the part of the object the next --pick HANDLE names into "*NM*". Dimensions are also
// kept in the per-domain settings. After each the dialog opens again; a refused value ends
// the run with the code.
int callNorm(HostCall& c);
// After OK the edited object becomes the part "*NM*" describes; "ORIG" is removed.
void finishNorm(HostCall& c, int code);
// The key of the further dimension the current standard part has: "KLM", "RAD" or "SENK";
// empty when it has none.
CZelString normFurtherDimensionKey();
// The material types: an object named by --record object=HANDLE is the part whose standard
// the dialog shows; its values go into "*NM*" (nothing is edited).
void prepareNormMat(HostCall& c);
