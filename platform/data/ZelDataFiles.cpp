#include "data/ZelDataFiles.h"

#include <filesystem>

namespace ZEL {

namespace {
std::string& folder() {
  static std::string f = ".";
  return f;
}
}  // namespace

void setDataFolder(const std::string& f) { folder() = f.empty() ? std::string(".") : f; }
const std::string& dataFolder() { return folder(); }

std::string dataFilePath(const char* fileName) { return (std::filesystem::path(folder()) / fileName).string(); }

}  // namespace ZEL
