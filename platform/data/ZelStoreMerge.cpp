// Saving what a program changed in a shared store file.
#include "data/ZelStoreMerge.h"

#include "data/CZelDataDir.h"
#include "data/CZelDataItem.h"

namespace ZEL {

bool applyStoreChanges(const CZelDataDir* before, const CZelDataDir& after, CZelDataDir& target) {
  bool changed = false;
  for (int i = 0; i < after.count(); ++i) {
    const CZelString& name = after.nameAt(i);
    const CZelDataItem* mine = after.itemAt(i);
    const CZelDataItem* old = before ? before->item(name) : nullptr;
    if (old && *old == *mine) continue;
    CZelDataItem* now = target.item(name);
    if (old && old->isDir() && mine->isDir() && now && now->isDir()) {
      changed = applyStoreChanges(old->getDir(), *mine->getDir(), *now->getDir()) || changed;
      continue;
    }
    if (now && *now == *mine) continue;
    target.insert(name, mine->clone(), false);
    changed = true;
  }
  if (!before) return changed;
  for (int i = 0; i < before->count(); ++i) {
    const CZelString& name = before->nameAt(i);
    if (!after.item(name)) changed = target.remove(name) || changed;
  }
  return changed;
}

DataFileUpdateResult saveStoreChanges(const std::string& path, const CZelDataItem& before, const CZelDataItem& after,
                                      int waitMs) {
  return updateStoreFile(
      path, waitMs,
      [&](CZelDataDir& now, bool existed) {
        if (!after.isDir()) return false;
        if (!existed) {
          now.copyFrom(*after.getDir());
          return true;
        }
        return applyStoreChanges(before.getDir(), *after.getDir(), now);
      },
      DamagedFile::Refuse);
}

}  // namespace ZEL
