// The entry functions qen-host can call, by exported name and by object type.
#pragma once

#include "qen_mfc.h"

#include <string>
#include <vector>

struct HostCall {
  qenDlgEnv_st& record;
  CZelDataItem* object;  // the object data of the labeling and item entries (--record object=HANDLE)
  // The answers to the dialogs' picks in the drawing (--pick), taken in order.
  std::vector<std::string> picks = {};
  std::size_t nextPick = 0;
  // The further arguments of the standard-parts dialog: the edited part's projections in
  // the drawing (given: --projections, else the object's), whether an existing part is
  // edited and whether it is sheared.
  int projections = 0;
  bool projectionsGiven = false;
  bool editing = false;
  bool sheared = false;
};

struct HostEntry {
  const char* function;
  const char* objectType;
  const char* serves;
  int (*call)(HostCall&);  // none: the module has no such entry function yet
  // What the host does around the call: prepare the sections for the object, and take the
  // user's choices back into the object afterwards (none: nothing).
  void (*prepare)(HostCall&) = nullptr;
  void (*finish)(HostCall&, int code) = nullptr;
  // Whether the entry takes --projections, --editing and --sheared (the standard parts).
  bool takesPartArguments = false;
};

const std::vector<HostEntry>& hostEntries();
// The entry by exported name or object type, either without regard to case.
const HostEntry* findHostEntry(const std::string& nameOrType);
// Whether a run of the entry opens its dialog: the host can call it and the module has the
// dialog registered. False: the run says the dialog does not exist yet.
bool hostEntryAvailable(const HostEntry& entry);
