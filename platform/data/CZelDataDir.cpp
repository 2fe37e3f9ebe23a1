#include "data/CZelDataDir.h"

#include "data/CStoreFile.h"
#include "data/CZelDataItem.h"

CZelDataDir::CZelDataDir() = default;
CZelDataDir::~CZelDataDir() = default;

std::size_t CZelDataDir::indexOf(const std::wstring& name) const {
  if (!m_index.empty()) {
    auto it = m_index.find(name);
    return it == m_index.end() ? std::wstring::npos : it->second;
  }
  for (std::size_t i = 0; i < m_entries.size(); ++i)
    if (m_entries[i].name.str() == name) return i;
  return std::wstring::npos;
}

void CZelDataDir::reindex() {
  m_index.clear();
  if (m_entries.size() < kIndexFrom) return;
  m_index.reserve(m_entries.size() * 2);
  for (std::size_t i = 0; i < m_entries.size(); ++i) m_index.emplace(m_entries[i].name.str(), i);
}

CZelDataItem* CZelDataDir::item(const CZelString& name) const {
  std::size_t i = indexOf(name.str());
  return i == std::wstring::npos ? nullptr : m_entries[i].item.get();
}

CZelDataItem* CZelDataDir::makeItem(const CZelDataKey& key) {
  if (key.isEmpty()) return nullptr;
  CZelString name = key.toString();
  if (CZelDataItem* existing = item(name)) return existing;
  auto* fresh = new CZelDataItem;
  insert(name, fresh, false);
  return fresh;
}

CZelDataItem* CZelDataDir::makeDir(const CZelDataKey& key) {
  CZelDataItem* it = makeItem(key);
  if (it) it->mkDir();
  return it;
}

bool CZelDataDir::insert(const CZelString& name, CZelDataItem* newItem, bool copy) {
  if (!newItem) return false;  // an empty name is a name too: catalogues keep a node's own values under it
  std::unique_ptr<CZelDataItem> owned(copy ? newItem->clone() : newItem);
  std::size_t i = indexOf(name.str());
  if (i != std::wstring::npos) {
    m_entries[i].item = std::move(owned);
    return true;
  }
  m_entries.push_back(Entry{name, std::move(owned)});
  if (!m_index.empty()) m_index.emplace(name.str(), m_entries.size() - 1);
  else if (m_entries.size() >= kIndexFrom) reindex();
  return true;
}

bool CZelDataDir::remove(const CZelString& name) {
  std::size_t i = indexOf(name.str());
  if (i == std::wstring::npos) return false;
  m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(i));
  if (!m_index.empty()) reindex();
  return true;
}

bool CZelDataDir::remove(const CZelDataKey& key) {
  if (key.isEmpty()) return false;
  if (!key.next() || key.next()->isEmpty()) return remove(key.toString());
  CZelDataItem* child = item(key.toString());
  return child && child->remove(key.next());
}

void CZelDataDir::clear() {
  m_entries.clear();
  m_index.clear();
}

void CZelDataDir::copyFrom(const CZelDataDir& other) {
  if (this == &other) return;
  clear();
  m_entries.reserve(other.m_entries.size());
  for (const auto& e : other.m_entries) m_entries.push_back(Entry{e.name, std::unique_ptr<CZelDataItem>(e.item->clone())});
  reindex();
}

void CZelDataDir::mergeFrom(const CZelDataDir& other, int flags) {
  if (this == &other) return;
  for (const auto& e : other.m_entries) {
    CZelDataItem* mine = item(e.name);
    if (!mine) {
      insert(e.name, e.item.get(), true);
    } else if (mine->isDir() && e.item->isDir()) {
      mine->getDir()->mergeFrom(*e.item->getDir(), flags);
    } else if (flags & 1) {
      mine->assign(*e.item);
    }
  }
}

bool CZelDataDir::saveToFile(const CZelString& path, const CZelDataKey* key) const {
  const CZelDataItem* what = nullptr;
  if (key && !key->isEmpty()) {
    CZelDataItem* child = item(key->toString());
    what = child ? child->find(key->next()) : nullptr;
    if (!what) {
      ZEL::setLastFileError(path.toUtf8() + ": nothing stored at " + key->toPath().toUtf8());
      return false;
    }
    return CStoreFile::save(path.toUtf8(), *what);
  }
  return CStoreFile::saveDir(path.toUtf8(), *this);
}

bool CZelDataDir::loadFromFile(const CZelString& path, const CZelDataKey* key) {
  // A sub-item may be a single value; the whole directory comes from a store file proper.
  bool whole = !key || key->isEmpty();
  std::unique_ptr<CZelDataItem> loaded(whole ? CStoreFile::loadDirectory(path.toUtf8()) : CStoreFile::load(path.toUtf8()));
  if (!loaded) return false;
  if (!whole) {
    CZelDataItem* child = makeItem(*key);
    CZelDataItem* target = child->make(key->next());
    if (!target) return false;
    target->assign(*loaded);
    return true;
  }
  copyFrom(*loaded->getDir());
  return true;
}
