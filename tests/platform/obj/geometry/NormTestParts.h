// Standard-part items built by hand for the drawing tests, with the figures of the
// catalogue tables (ISO 4017 M12, ISO 4032 M12, IPE200, ...).
#pragma once

#include "data/CZelDataItem.h"
#include "data/resbuf.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace normtest {

inline void put(CZelDataItem& item, const std::wstring& path, resbuf* value) {
  const CZelDataKey key = CZelDataKey::fromPath(path.c_str());
  item.put(&key, value);
}

inline std::unique_ptr<CZelDataItem> part(const char* category, const char* group, const char* norm,
                                          const std::vector<std::pair<const char*, double>>& dims, double length,
                                          int view = 0, int flags = 0) {
  auto item = std::make_unique<CZelDataItem>();
  item->mkDir();
  put(*item, L"TYPE", ZEL::mkResbuf(L"DIN"));
  put(*item, L"CATEGORY", ZEL::mkResbuf(CZelString::fromUtf8(category).c_str()));
  put(*item, L"GROUP", ZEL::mkResbuf(CZelString::fromUtf8(group).c_str()));
  put(*item, L"NORM", ZEL::mkResbuf(CZelString::fromUtf8(norm).c_str()));
  for (const auto& [name, value] : dims) put(*item, L"DIM\\" + CZelString::fromUtf8(name).str(), ZEL::mkRbReal(value));
  if (length > 0.0) put(*item, L"LEN", ZEL::mkRbReal(length));
  put(*item, L"VIEW", ZEL::mkRbLong(view));
  put(*item, L"AXIS", ZEL::mkRbLong(flags));
  return item;
}

inline void setView(CZelDataItem& item, int view, int flags) {
  put(item, L"VIEW", ZEL::mkRbLong(view));
  put(item, L"AXIS", ZEL::mkRbLong(flags));
}

inline std::unique_ptr<CZelDataItem> iso4017M12(double length = 60.0, int view = 0, int flags = 0) {
  return part("SCREW", "HEX", "ISO4017",
              {{"d", 12}, {"P", 1.75}, {"c", 0.6}, {"dw", 16.63}, {"e", 20.03}, {"k", 7.5}, {"r", 0.6}, {"s", 18}}, length,
              view, flags);
}

inline std::unique_ptr<CZelDataItem> ipe200(int view = 0, int flags = 0) {
  return part("SECTION", "I-BEAM", "IPE", {{"h", 200}, {"b", 100}, {"tw", 5.6}, {"tf", 8.5}}, 1000.0, view, flags);
}

}  // namespace normtest
