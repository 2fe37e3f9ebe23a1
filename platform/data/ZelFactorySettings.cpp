#include "data/ZelFactorySettings.h"

#include "data/CStoreFile.h"

namespace qen_res {
extern const std::string_view qen_factory_settings;
}

namespace ZEL {

std::string_view factorySettingsText() { return qen_res::qen_factory_settings; }

CZelDataItem* factorySettings() { return CStoreFile::parse(qen_res::qen_factory_settings, "factory settings"); }

}  // namespace ZEL
