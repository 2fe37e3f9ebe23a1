#include "backend/CStoreWatch.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelDataDir.h"

void CStoreWatch::flatten(const CZelDataItem& item, const std::string& path, std::map<std::string, std::string>& out) {
  if (!item.isDir()) {
    out[path] = CStoreFile::valueToText(item.value());
    return;
  }
  const CZelDataDir* dir = item.getDir();
  if (dir->isEmpty() && !path.empty()) out[path] = "{}";
  for (int i = 0; i < dir->count(); ++i) {
    std::string child = path.empty() ? dir->nameAt(i).toUtf8() : path + "\\" + dir->nameAt(i).toUtf8();
    flatten(*dir->itemAt(i), child, out);
  }
}

void CStoreWatch::reset() {
  m_last.clear();
  if (CZelDataItem* root = ZEL::cfgMgrPtr()->root()) flatten(*root, "", m_last);
}

std::vector<std::string> CStoreWatch::changes() {
  std::map<std::string, std::string> now;
  if (CZelDataItem* root = ZEL::cfgMgrPtr()->root()) flatten(*root, "", now);
  std::vector<std::string> out;
  for (const auto& [path, value] : now) {
    auto it = m_last.find(path);
    if (it == m_last.end() || it->second != value) out.push_back(path + " = " + value);
  }
  for (const auto& [path, value] : m_last) {
    if (now.count(path)) continue;
    // An empty directory that got children is no removal.
    auto child = now.lower_bound(path + "\\");
    if (child != now.end() && child->first.rfind(path + "\\", 0) == 0) continue;
    out.push_back(path + " removed");
  }
  m_last = std::move(now);
  return out;
}
