// The initialisers of the object types: each writes its type's settings section in the
// factory state. They take the section from the factory settings themselves, so that a
// "Reset" and a new user's store never disagree.
#pragma once

#include "data/CZelDataItem.h"
#include "data/CZelString.h"

namespace ZEL {

// The factory state of a section (a copy the caller owns), or none when the factory
// settings have no such section.
CZelDataItem* factorySection(const CZelString& section);
// Writes the factory state of a section into the store, replacing what is there; a
// section the factory settings leave empty becomes an empty directory.
bool sectionInit(const CZelString& section);
// The initialiser of an object type (by its section); false for a type without one.
bool objTypeInit(const CZelString& type);

bool hz_si_init();
bool bl_init();
bool hz_init();

}  // namespace ZEL

bool zel_hz_kl_init();
bool zel_hz_di_init();
bool zel_hz_fo_init();
bool zel_dm_init();
bool zel_axis_init();
