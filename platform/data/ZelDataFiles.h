// Where the add-on keeps its data files (article table, supplementary lists, presets):
// a folder the host names, beside its settings store.
#pragma once

#include "data/CZelString.h"

#include <string>

namespace ZEL {

void setDataFolder(const std::string& folder);
const std::string& dataFolder();
// The full path of a data file of the add-on.
std::string dataFilePath(const char* fileName);

}  // namespace ZEL
