// Builds the standard-parts database from the catalogue folder (resources/catalogue):
// the tree of domains, categories, groups, standards and sizes with their node properties,
// the families, the length series with the size ranges, and the materials per standard.
#pragma once

#include <string>

class CNormDbBuilder {
public:
    // Writes the database to `dbPath`, replacing it only when the whole build succeeded
    // (the file is written beside it first and then renamed). On failure returns false and
    // `why` names the file and line or the database fault.
    static bool build(const std::string& folder, const std::string& dbPath, std::string& why);
};
