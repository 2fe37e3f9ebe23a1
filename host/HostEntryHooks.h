// What qen-host does around an entry call, per entry.
#pragma once

#include "HostEntries.h"

void prepareLayers(HostCall& c);
void finishLayers(HostCall& c, int code);
void prepareHatches(HostCall& c);
void finishHatches(HostCall& c, int code);
void prepareLabel(HostCall& c);
void finishLabel(HostCall& c, int code);
// The item dialog's call: the named object, else the setting block of the settings.
int callItem(HostCall& c);
