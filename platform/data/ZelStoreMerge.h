// Saving what a program changed in a shared store file, not the whole store it loaded:
// several programs (qen-host runs, `store set`, the CAD program) work on one settings store,
// and each must keep the changes the others saved while it was running.
#pragma once

#include "data/ZelDataFileUpdate.h"

#include <string>

class CZelDataDir;
class CZelDataItem;

namespace ZEL {

// Applies to `target` what differs between `before` (the directory as it was loaded; none:
// empty) and `after` (as the program left it): entries added or whose value changed are
// set, entries removed are removed, directories present in both are compared entry by
// entry. Entries the program did not change keep what `target` holds. A directory the
// program changed but `target` no longer holds as a directory is set as the program has it.
// True when `target` was changed.
bool applyStoreChanges(const CZelDataDir* before, const CZelDataDir& after, CZelDataDir& target);

// Under the file's lock: re-reads `path`, applies the changes between `before` and `after`
// (applyStoreChanges) and saves it. A file that is gone by now is written whole from
// `after`; a file that no longer parses is left alone and the save fails.
DataFileUpdateResult saveStoreChanges(const std::string& path, const CZelDataItem& before, const CZelDataItem& after,
                                      int waitMs = kDataFileWaitMs);

}  // namespace ZEL
