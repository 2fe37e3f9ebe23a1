// What the host may ask the module about its entry functions before calling one.
#pragma once

#include "qen_api.h"

// True when this build of the module has the dialog the entry function (its exported name,
// "qenDlgHzKl") runs; false for an entry whose dialog is not built yet or an unknown name.
QEN_API bool qenEntryAvailable(const char* entryFunction);
