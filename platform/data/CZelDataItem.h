// A node of the settings store: a typed value (a result-buffer chain) or a directory of
// named children. Every read is typed and answers false when the value is absent or of
// another type, so callers keep their defaults.
#pragma once

#include "data/CZelDataKey.h"
#include "data/CZelString.h"
#include "data/CZelVertexArray.h"
#include "data/resbuf.h"

#include <memory>

class CZelDataDir;

class CZelDataItem {
public:
  CZelDataItem();
  explicit CZelDataItem(resbuf* value);  // takes the chain
  ~CZelDataItem();
  CZelDataItem(const CZelDataItem&) = delete;
  CZelDataItem& operator=(const CZelDataItem&) = delete;

  CZelDataItem* clone() const;
  // Replaces this item's content with a deep copy of another's.
  void assign(const CZelDataItem& other);

  bool isDir() const { return m_dir != nullptr; }
  CZelDataDir* getDir() const { return m_dir.get(); }
  CZelDataDir* mkDir();  // a value item becomes an empty directory; a directory stays

  // The item's own value; none for a directory.
  const resbuf* value() const { return m_value; }
  // Replaces the own value (the item stops being a directory). With copy false the
  // chain becomes the item's.
  bool setData(resbuf* chain, bool copy);

  // The item at a relative key of string parts (none: this item), or none.
  CZelDataItem* find(const CZelDataKey* key) const;
  // The value at a relative key; a trailing short part selects a dotted pair's value.
  const resbuf* valueAt(const CZelDataKey* key) const;
  // The item at a relative key, created with all levels when missing. A trailing short
  // part is not followed: `*groupCode` receives it (0 when there is none).
  CZelDataItem* make(const CZelDataKey* key, short* groupCode = nullptr);
  // Sets a value at a relative key, creating levels; takes the chain.
  bool put(const CZelDataKey* key, resbuf* chain);
  bool remove(const CZelDataKey* key);

  bool get(bool& out, const CZelDataKey* key = nullptr) const;
  bool get(int& out, const CZelDataKey* key = nullptr) const;
  bool get(double& out, const CZelDataKey* key = nullptr) const;
  bool get(CZelString& out, const CZelDataKey* key = nullptr) const;
  bool get(CZelArrayTempl<CZelString>& out, const CZelDataKey* key = nullptr) const;
  bool get(CZelArrayTempl<int>& out, const CZelDataKey* key = nullptr) const;
  bool get(CZelArrayTempl<double>& out, const CZelDataKey* key = nullptr) const;
  bool get(CZelVertexArray& out, const CZelDataKey* key = nullptr) const;
  bool getEname(CZelString& handle, const CZelDataKey* key = nullptr) const;

  friend bool operator==(const CZelDataItem& a, const CZelDataItem& b);

private:
  resbuf* m_value = nullptr;
  std::unique_ptr<CZelDataDir> m_dir;
};

// Walks the children of a directory item in their order.
namespace ZEL {
class CDataIterator {
public:
  explicit CDataIterator(const CZelDataItem* item);
  bool done() const;
  void next() { ++m_index; }
  const CZelString& name() const;
  CZelDataItem* item() const;

private:
  const CZelDataDir* m_dir = nullptr;
  int m_index = 0;
};
}  // namespace ZEL
