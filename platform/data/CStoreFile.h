// Store files: the settings store, its sections and the add-on's data files as UTF-8 JSON
// (store file format 1). Loading refuses a file that does not parse and names the file,
// line and column; saving writes a temporary file and renames it over the old one.
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

  static bool save(const std::string& path, const CZelDataItem& item);
  static bool saveDir(const std::string& path, const CZelDataDir& dir);

  // Store-file JSON of an item (pretty, two-space indent) or of one value (one line).
  static std::string toText(const CZelDataItem& item);
  static std::string dirToText(const CZelDataDir& dir);
  static std::string valueToText(const resbuf* chain);

  // Writes bytes to a temporary file beside `path` and renames it over `path`.
  static bool writeAtomic(const std::string& path, std::string_view bytes);
  static bool readFile(const std::string& path, std::string& bytes);
};

namespace ZEL {
const std::string& lastFileError();
void setLastFileError(std::string message);
}  // namespace ZEL
