// qen-host store FILE get|set|remove|check: direct work on a store file.
#include "HostCommands.h"

#include "data/CJsonText.h"
#include "data/CStoreFile.h"
#include "data/CZelDataDir.h"
#include "data/CZelDataItem.h"
#include "data/ZelDataFileUpdate.h"

#include <algorithm>
#include <iostream>
#include <memory>

namespace {

int fail(const std::string& message, int status = 2) {
  std::cerr << "qen-host: " << message << "\n";
  return status;
}

struct Counts {
  long values = 0;
  long dirs = 0;
};

void count(const CZelDataItem& item, Counts& c) {
  if (!item.isDir()) { ++c.values; return; }
  ++c.dirs;
  for (int i = 0; i < item.getDir()->count(); ++i) count(*item.getDir()->itemAt(i), c);
}

// The item at a path, or the parent and last part for a pair selection.
const CZelDataItem* findItem(const CZelDataItem& root, const CZelDataKey& key) {
  for (const CZelDataKey* k = &key; k && !k->isEmpty(); k = k->next())
    if (k->type() == 5003) return nullptr;
  return root.find(&key);
}

}  // namespace

int hostStore(const std::vector<std::string>& args) {
  if (args.size() < 2) return fail(std::string("store needs a file and a verb\n") + CHostOptions::usage());
  const std::string& path = args[0];
  const std::string& verb = args[1];
  auto needs = [&](std::size_t n) { return args.size() == n; };

  if (verb == "check") {
    if (!needs(2)) return fail("store FILE check takes no further arguments");
    std::string bytes;
    if (!CStoreFile::readFile(path, bytes)) return fail(ZEL::lastFileError());
    std::unique_ptr<CZelDataItem> item(CStoreFile::parseDirectory(bytes, path));
    if (!item) return fail(ZEL::lastFileError(), 1);
    Counts c;
    count(*item, c);
    std::cout << path << ": sound, " << c.values << " values in " << c.dirs << " directories";
    if (CStoreFile::toText(*item) == bytes) std::cout << "; saving writes it back unchanged\n";
    else std::cout << "; saving writes the same values in the store's own layout\n";
    return 0;
  }

  // No store nests deeper than its files may, so neither does a key.
  if (args.size() >= 3 && std::count(args[2].begin(), args[2].end(), '\\') >= CJsonText::kMaxDepth)
    return fail(args[2].substr(0, 40) + "...: a key has at most " + std::to_string(CJsonText::kMaxDepth) + " parts");
  if (verb == "get") {
    if (!needs(3)) return fail("store FILE get takes one KEY");
    // Saves rename a finished file into place, so a read needs no lock (and leaves none).
    std::unique_ptr<CZelDataItem> root(CStoreFile::loadDirectory(path));
    if (!root) return fail(ZEL::lastFileError());
    CZelDataKey key = CZelDataKey::fromPath(CZelString::fromUtf8(args[2]));
    if (const CZelDataItem* item = findItem(*root, key)) {
      std::cout << CStoreFile::toText(*item);
      return 0;
    }
    if (const resbuf* v = root->valueAt(&key)) {
      // A pair's value stands inside the pair's list: print that one element.
      ZEL::CSmartResbuf one(v->restype == RTLB ? ZEL::rbCopyAll(v) : ZEL::rbCopy(v));
      std::cout << CStoreFile::valueToText(one.get()) << "\n";
      return 0;
    }
    return fail(args[2] + ": nothing stored there", 1);
  }
  if (verb == "set" || verb == "remove") {
    if (verb == "set" && !needs(4)) return fail("store FILE set takes KEY and a JSON value");
    if (verb == "remove" && !needs(3)) return fail("store FILE remove takes one KEY");
    CZelDataKey key = CZelDataKey::fromPath(CZelString::fromUtf8(args[2]));
    if (key.isEmpty()) return fail("store FILE " + verb + " needs a non-empty KEY");
    std::unique_ptr<CZelDataItem> value;
    if (verb == "set") {
      value.reset(CStoreFile::parse(args[3], "the value"));
      if (!value) return fail(ZEL::lastFileError());
    }
    // The change is made to the file as it is under its lock, so that two programs changing
    // different keys at the same moment both keep their change.
    std::string refused;
    int refusedStatus = 2;
    ZEL::DataFileUpdateResult r = ZEL::updateStoreFile(
        path, ZEL::kDataFileWaitMs,
        [&](CZelDataDir& dir, bool existed) {
          if (!existed) {
            refused = path + ": cannot be read (missing or not accessible)";
            return false;
          }
          CZelDataItem root;
          root.mkDir()->copyFrom(dir);  // the change works on a copy: a refused one leaves nothing half-done
          bool ok = false;
          if (verb == "remove") {
            ok = root.remove(&key);
            if (!ok) { refused = args[2] + ": nothing stored there"; refusedStatus = 1; }
          } else if (value->isDir()) {
            const CZelDataKey* last = &key;
            CZelDataKey parentKey;
            for (const CZelDataKey* k = &key; k && !k->isEmpty(); k = k->next()) {
              if (k->next() && !k->next()->isEmpty()) parentKey.append(k->type(), k->text().c_str());
              last = k;
            }
            if (!last->isStringPart()) { refused = "a directory cannot be set into a pair"; return false; }
            CZelDataItem* parent = root.make(parentKey.isEmpty() ? nullptr : &parentKey);
            ok = parent && parent->mkDir()->insert(last->text(), value->clone(), false);
          } else {
            ok = root.put(&key, ZEL::rbCopyAll(value->value()));
          }
          if (!ok && refused.empty()) refused = args[2] + ": cannot be set (a pair holds one value)";
          if (ok) dir.copyFrom(*root.getDir());
          return ok;
        },
        ZEL::DamagedFile::Refuse);
    if (!r.ok()) return fail(r.message);
    if (!refused.empty()) return fail(refused, refusedStatus);
    return 0;
  }
  return fail("unknown store verb \"" + verb + "\" (get, set, remove, check)");
}
