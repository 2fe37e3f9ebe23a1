// Store-file JSON of items and values, as CStoreFile saves them. Nesting is counted as the
// reader counts it: what the reader would refuse (nested too deep, two names written
// alike) is written as null and named in `error`, and CStoreFile never saves such text.
#pragma once

#include <cstddef>
#include <string>

class CZelDataItem;
class CZelDataDir;
class CZelVertexArray;
struct resbuf;

class CStoreWriter {
public:
  std::string out;
  std::string error;  // the first reason the text would not load again; empty when it would

  void item(const CZelDataItem& item);
  void dir(const CZelDataDir& d);
  void value(const resbuf* chain);

private:
  bool enter(int levels);
  void leave(int levels) { m_depth -= levels; }
  void checkNames(const CZelDataDir& d);
  void text(const wchar_t* s);
  void element(const resbuf* e);
  void elements(const resbuf* first, const resbuf* stop);
  void points(const CZelVertexArray& verts);

  int m_depth = 0;         // objects and arrays open
  std::size_t m_dirs = 0;  // directories open, for the indentation
};
