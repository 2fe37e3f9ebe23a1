// A directory of the settings store: named children in the order they were inserted.
#pragma once

#include "data/CZelDataKey.h"
#include "data/CZelString.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

class CZelDataItem;

class CZelDataDir {
public:
  CZelDataDir();
  virtual ~CZelDataDir();
  CZelDataDir(const CZelDataDir&) = delete;
  CZelDataDir& operator=(const CZelDataDir&) = delete;

  int count() const { return static_cast<int>(m_entries.size()); }
  bool isEmpty() const { return m_entries.empty(); }
  const CZelString& nameAt(int i) const { return m_entries[static_cast<std::size_t>(i)].name; }
  CZelDataItem* itemAt(int i) const { return m_entries[static_cast<std::size_t>(i)].item.get(); }

  CZelDataItem* item(const CZelString& name) const;
  // The child named by the key's first part, created as a value item / as a directory.
  CZelDataItem* makeItem(const CZelDataKey& key);
  CZelDataItem* makeDir(const CZelDataKey& key);
  // Puts an item under a name, replacing any child there; with copy false the item
  // becomes the directory's.
  virtual bool insert(const CZelString& name, CZelDataItem* item, bool copy);
  bool remove(const CZelDataKey& key);
  bool remove(const CZelString& name);
  void clear();

  // Takes over what `other` holds: missing children are added (copied); with flag bit 1
  // existing values are overwritten too. Directories present on both sides merge.
  void mergeFrom(const CZelDataDir& other, int flags);

  // File persistence of the directory, or of the sub-item at `key` (none: all of it).
  // Errors name the file and the place; `ZEL::lastFileError()` holds the last one.
  bool saveToFile(const CZelString& path, const CZelDataKey* key = nullptr) const;
  bool loadFromFile(const CZelString& path, const CZelDataKey* key = nullptr);

  void copyFrom(const CZelDataDir& other);

private:
  struct Entry {
    CZelString name;
    std::unique_ptr<CZelDataItem> item;
  };
  std::size_t indexOf(const std::wstring& name) const;  // npos when absent
  void reindex();

  static constexpr std::size_t kIndexFrom = 12;  // small directories are searched linearly
  std::vector<Entry> m_entries;
  std::unordered_map<std::wstring, std::size_t> m_index;
};
