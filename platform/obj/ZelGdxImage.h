// Pictures of objects drawn into a preview drawing by kind: "NORM" draws a standard part
// (the part item the catalogue generates) in its view, layer colours and hatch.
#pragma once

#include "data/CZelDataItem.h"
#include "ui/CZelGDX.h"

// Draws the object into the drawing's display list (adding to what it holds). False, and
// nothing drawn, for an unknown kind or an object that gives no drawing.
bool zel_gdx_image(const wchar_t* kind, CZelGDX& gdx, const CZelDataItem* part);
