// Full names of the add-on's data files ("qen_obj_prop.dex" and the like).
#pragma once

#include "data/CZelString.h"

namespace QEN {

// What the caller means to do with the data file.
enum DataFileUse : int {
  kDataFileRead = 0,   // only the name: the folder is not touched
  kDataFileWrite = 1,  // the file is about to be written: its folder is created when missing
};

// The full path of the data file `name` in the add-on's data folder (ZEL::dataFilePath).
// With kDataFileWrite (1) the folder is made first, so that a lock file and a save can be
// put there on a fresh installation; a folder that cannot be made shows up as the error
// of the lock or the save, which name the path.
CZelString dataFileName(const CZelString& name, int use);

}  // namespace QEN
