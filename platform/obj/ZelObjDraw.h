// The host's drawing of an object into a preview: the object's shape in the colours of
// the layers its parts lie on, its faces filled or hatched with its effective hatch.
#pragma once

#include "data/CZelDataItem.h"
#include "obj/geometry/ZelShape.h"
#include "ui/CDisplayList.h"

namespace ZEL {

// The physical layer of a logical one ("PART_CON") for an object: the object's own
// assignment, else its material's, else the system's.
CZelString objLayerName(const CZelDataItem* object, const wchar_t* logicalLayer);
// The colour of that layer in the drawing (7 when the drawing has no such layer).
CZelColor objLayerColor(const CZelDataItem* object, geo::Layer layer);

// Draws a shape of the object (its layers and hatches are read from the object) into
// the list. With "COORD" set in the options, the insertion point is marked.
void objDraw(CDisplayList& list, const CZelDataItem* object, const geo::Shape& shape, const CZelDataItem* options);
// The same for the shape the object's parameters give.
void objDraw(CDisplayList& list, const CZelDataItem* object, const CZelDataItem* options);

}  // namespace ZEL
