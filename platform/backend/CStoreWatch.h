// Notices writes to the settings store for traces: it keeps a flat picture of the store
// (path → value in store-file JSON) and reports what changed since the last look. Looking
// after every message catches every write, however it was made (keys, items, sections).
#pragma once

#include <map>
#include <string>
#include <vector>

class CZelDataItem;

class CStoreWatch {
public:
  // Takes the current state as the starting point.
  void reset();
  // "*HZ_KLOTZ*\B = 30.0", "*HZ_KLOTZ*\MODE removed" for each change since the last call.
  std::vector<std::string> changes();

private:
  static void flatten(const CZelDataItem& item, const std::string& path, std::map<std::string, std::string>& out);
  std::map<std::string, std::string> m_last;
};
