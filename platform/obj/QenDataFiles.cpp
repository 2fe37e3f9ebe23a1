// Full names of the add-on's data files ("qen_obj_prop.dex" and the like).
#include "obj/QenDataFiles.h"

#include "data/ZelDataFiles.h"

#include <filesystem>
#include <system_error>

namespace QEN {

CZelString dataFileName(const CZelString& name, int use) {
  if (use == kDataFileWrite) {
    std::error_code ec;  // reported later by whoever opens the file
    std::filesystem::create_directories(ZEL::dataFolder(), ec);
  }
  return CZelString::fromUtf8(ZEL::dataFilePath(name.toUtf8().c_str()));
}

}  // namespace QEN
