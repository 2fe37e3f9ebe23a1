// The factory settings: the store a new user starts from, built into the platform.
#pragma once

#include "data/CZelDataItem.h"

#include <string_view>

namespace ZEL {

std::string_view factorySettingsText();
// A new item holding the factory settings (the caller owns it).
CZelDataItem* factorySettings();

}  // namespace ZEL
