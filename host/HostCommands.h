// The commands of qen-host. Each returns the exit status: 0 done, 1 the answer is no
// (absent key, nothing removed, a failing script), 2 bad arguments or an unreadable file.
#pragma once

#include "CHostOptions.h"

int hostList();
int hostInit(const CHostOptions& options);
int hostRun(const CHostOptions& options);
int hostStore(const std::vector<std::string>& args);

// The user's own store: ${XDG_CONFIG_HOME:-~/.config}/qen/settings.json.
std::string hostUserStorePath();
// Makes sure the store file exists, writing the factory settings when it does not.
bool hostEnsureStore(const std::string& path, std::string& error);
