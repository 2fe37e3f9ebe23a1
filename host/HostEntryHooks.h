// What qen-host does around an entry call, per entry.
#pragma once

#include "HostEntries.h"

#include <functional>
#include <span>

void prepareLayers(HostCall& c);
void finishLayers(HostCall& c, int code);
void prepareHatches(HostCall& c);
void finishHatches(HostCall& c, int code);
void prepareLabel(HostCall& c);
void finishLabel(HostCall& c, int code);
// The item dialog's call: the named object, else the setting block of the settings.
int callItem(HostCall& c);

// The accessory dialogs (setting block, …): an object named by --record object=HANDLE is
// edited: its values are put into the type's settings and "ORIG" marks the edit; after
// OK the object takes the settings back. "Objekt <" (end code 103) is answered with the
// next --pick HANDLE: that object is edited and the dialog opens again, on the tab "MODE"
// names.
//
// A dialog may also end to let the user pick a value in the drawing (the insulation's
// thickness buttons): for an end code listed in `values` the next --pick VALUE is that
// value, a length in the object's unit; it is stored under the listed key of the type's
// settings and the dialog opens again, on the tab "MODE" names. A code listed without a key
// is a pick the host does not model: the run ends with it. A VALUE that is no finite number
// ends the run too, with a message, and nothing is stored.
//
// Where storing the value takes more than one key (the further dimension of a standard part
// and what follows from it), `take` stores it instead: it returns the key it stored the
// value under, or nothing after it has said why it refuses the value (the run then ends).
struct HostValuePick {
  int code;
  const wchar_t* key;
  CZelString (*take)(double value) = nullptr;
};
// What "Objekt <" (103) does with the picked object: it becomes the object being edited
// (the accessories), or only its values are taken into the type's settings (the standard
// parts: the part of the object becomes the current part).
enum class HostObjectPick { Edit, TakeValues };
void prepareAccessory(HostCall& c, const wchar_t* type);
void finishAccessory(HostCall& c, int code, const wchar_t* type);
int callAccessory(HostCall& c, const wchar_t* type, const std::function<int(qenDlgEnv_st&)>& entry,
                  std::span<const HostValuePick> values = {}, HostObjectPick objectPick = HostObjectPick::Edit);
// The object named by `handle` when the drawing has one of `type`, else none (with a message
// naming what was asked for).
CZelDataItem* drawingObjectOfType(const wchar_t* type, const CZelString& handle);
// Keys of an object's data that are the drawing's, not the type's settings.
bool drawingOnlyKey(const CZelString& name);
// The object becomes the one being edited: its values go into the type's settings, "ORIG"
// names it and the call's record and object are it. With `edit` false only the values are
// taken: the object being edited stays as it was. False (with a message) when the drawing
// has no such object of the type.
bool editObject(HostCall& c, const wchar_t* type, const CZelString& handle, bool edit = true);
// After OK the edited object takes the settings, less what only lives while a dialog runs.
void takeSettings(CZelDataItem* object, const CZelDataItem& settings);
// The axis entry removes "ORIG" itself on OK, so the axis of the drawing being edited is
// the one the call names; after OK it takes the settings back.
void finishAxis(HostCall& c, int code);
