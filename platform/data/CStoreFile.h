// Store files: the settings store, its sections and the add-on's data files as UTF-8 JSON
// (store file format 1). Loading refuses a file that does not parse, is nested too deep or
// holds what cannot be kept exactly, and names the file, line and column; saving never
// writes what loading would refuse, and replaces the file atomically.
#pragma once

#include <string>
#include <string_view>

class CZelDataItem;
class CZelDataDir;
struct resbuf;

class CStoreFile {
public:
  // The file's content as an item (a directory for a JSON object), or none with
  // ZEL::lastFileError() set. The caller owns the item.
  static CZelDataItem* load(const std::string& path);
  static CZelDataItem* parse(std::string_view text, const std::string& source);
  // As above, for a store file proper: anything but a directory at the top is refused.
  static CZelDataItem* loadDirectory(const std::string& path);
  static CZelDataItem* parseDirectory(std::string_view text, const std::string& source);

  // Refuse (false, ZEL::lastFileError() naming the file and the reason) what would not
  // load again: nesting past the reader's limit, names that would stand twice.
  static bool save(const std::string& path, const CZelDataItem& item);
  static bool saveDir(const std::string& path, const CZelDataDir& dir);

  // Store-file JSON of an item (pretty, two-space indent) or of one value (one line).
  // Whatever cannot be written (too deep) is written as null; the first form says why.
  static bool toText(const CZelDataItem& item, std::string& text, std::string& why);
  static std::string toText(const CZelDataItem& item);
  static std::string dirToText(const CZelDataDir& dir);
  static std::string valueToText(const resbuf* chain);

  // Writes bytes to a temporary file beside the file that `path` names (symbolic links
  // followed) and renames it over it, keeping the file's mode. Errors name the path and
  // the system's reason.
  static bool writeAtomic(const std::string& path, std::string_view bytes);
  static bool readFile(const std::string& path, std::string& bytes);
};

namespace ZEL {
const std::string& lastFileError();
void setLastFileError(std::string message);
}  // namespace ZEL
