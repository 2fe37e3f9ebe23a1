#include "data/CZelDataItem.h"

#include "data/CZelDataDir.h"

#include <cmath>
#include <limits>

CZelDataItem::CZelDataItem() = default;
CZelDataItem::CZelDataItem(resbuf* value) : m_value(value) {}
CZelDataItem::~CZelDataItem() { zelRelRb(m_value); }

CZelDataItem* CZelDataItem::clone() const {
  auto* copy = new CZelDataItem;
  copy->assign(*this);
  return copy;
}

void CZelDataItem::assign(const CZelDataItem& other) {
  if (this == &other) return;
  resbuf* value = ZEL::rbCopyAll(other.m_value);
  std::unique_ptr<CZelDataDir> dir;
  if (other.m_dir) {
    dir = std::make_unique<CZelDataDir>();
    dir->copyFrom(*other.m_dir);
  }
  zelRelRb(m_value);
  m_value = value;
  m_dir = std::move(dir);
}

CZelDataDir* CZelDataItem::mkDir() {
  if (!m_dir) {
    zelRelRb(m_value);
    m_value = nullptr;
    m_dir = std::make_unique<CZelDataDir>();
  }
  return m_dir.get();
}

bool CZelDataItem::setData(resbuf* chain, bool copy) {
  resbuf* value = copy ? ZEL::rbCopyAll(chain) : chain;
  m_dir.reset();
  zelRelRb(m_value);
  m_value = value;
  return true;
}

CZelDataItem* CZelDataItem::find(const CZelDataKey* key) const {
  auto* item = const_cast<CZelDataItem*>(this);
  for (; key && !key->isEmpty(); key = key->next()) {
    if (!key->isStringPart()) return key->type() == 5003 ? item : nullptr;
    if (!item->m_dir) return nullptr;
    item = item->m_dir->item(key->text());
    if (!item) return nullptr;
  }
  return item;
}

const resbuf* CZelDataItem::valueAt(const CZelDataKey* key) const {
  const CZelDataItem* item = this;
  for (; key && !key->isEmpty(); key = key->next()) {
    if (key->type() == 5003) {
      const resbuf* v = ZEL::rbFindPair(item->m_value, key->groupCode());
      if (!v) return nullptr;
      // One short part ends a key: pairs hold single values.
      if (key->next() && !key->next()->isEmpty()) return nullptr;
      return v;
    }
    if (!key->isStringPart() || !item->m_dir) return nullptr;
    item = item->m_dir->item(key->text());
    if (!item) return nullptr;
  }
  return item->m_dir ? nullptr : item->m_value;
}

CZelDataItem* CZelDataItem::make(const CZelDataKey* key, short* groupCode) {
  if (groupCode) *groupCode = 0;
  CZelDataItem* item = this;
  for (; key && !key->isEmpty(); key = key->next()) {
    if (key->type() == 5003) {
      if (groupCode) *groupCode = key->groupCode();
      return item;
    }
    if (!key->isStringPart()) return nullptr;
    item = item->mkDir()->makeItem(*key);
  }
  return item;
}

namespace {

// Replaces or adds the dotted pair (code . value) in an item's list of pairs.
bool setPair(CZelDataItem* item, short code, resbuf* value) {
  if (item->isDir()) item->setData(nullptr, false);
  resbuf* chain = ZEL::rbUnwrapList(ZEL::rbCopyAll(item->value()));
  if (ZEL::rbIsNil(chain)) { zelRelRb(chain); chain = nullptr; }
  resbuf* out = nullptr;
  bool replaced = false;
  for (const resbuf* e = chain; e;) {
    const resbuf* next = ZEL::rbSkipElement(e);
    bool match = e->restype == RTLB && e->rbnext &&
                 ((e->rbnext->restype == RTSHORT && e->rbnext->resval.rint == code) ||
                  (e->rbnext->restype == RTLONG && e->rbnext->resval.rlong == code)) &&
                 e->rbnext->rbnext && e->rbnext->rbnext->restype == RTDOTE;
    if (match && !replaced) {
      out = ZEL::rbAppend(out, ZEL::mkRbPair(code, value));
      replaced = true;
    } else {
      for (const resbuf* a = e; a != next; a = a->rbnext) out = ZEL::rbAppend(out, ZEL::rbCopy(a));
    }
    e = next;
  }
  if (!replaced) out = ZEL::rbAppend(out, ZEL::mkRbPair(code, value));
  zelRelRb(chain);
  return item->setData(out, false);
}

}  // namespace

bool CZelDataItem::put(const CZelDataKey* key, resbuf* chain) {
  short code = 0;
  CZelDataItem* target = make(key, &code);
  if (!target) { zelRelRb(chain); return false; }
  if (code != 0) {
    if (!chain || chain->rbnext) { zelRelRb(chain); return false; }  // a pair holds one atom
    return setPair(target, code, chain);
  }
  return target->setData(chain, false);
}

bool CZelDataItem::remove(const CZelDataKey* key) {
  if (!key || key->isEmpty()) return false;
  CZelDataItem* parent = this;
  const CZelDataKey* k = key;
  while (k->next() && !k->next()->isEmpty()) {
    if (!k->isStringPart() || !parent->m_dir) return false;
    parent = parent->m_dir->item(k->text());
    if (!parent) return false;
    k = k->next();
  }
  if (!k->isStringPart() || !parent->m_dir) return false;
  return parent->m_dir->remove(k->text());
}

namespace {

// A single atom: a chain of one, or the value of a dotted pair (followed by the pair's 5017).
const resbuf* scalar(const resbuf* v) {
  if (!v || v->restype == RTLB) return nullptr;
  if (v->rbnext == nullptr || v->rbnext->restype == RTLE) return v;
  return nullptr;
}

// One atom read as a value of the module's types; whole numbers widen to reals losslessly,
// so a length typed as 30 in a file still reads as 30.0.
bool readAtom(const resbuf* v, bool& out) {
  if (v->restype != RTT && v->restype != RTNIL) return false;
  out = v->restype == RTT;
  return true;
}
bool readAtom(const resbuf* v, int& out) {
  if (v->restype == RTLONG) out = v->resval.rlong;
  else if (v->restype == RTSHORT) out = v->resval.rint;
  else return false;
  return true;
}
bool readAtom(const resbuf* v, double& out) {
  int whole = 0;
  if (v->restype == RTREAL) out = v->resval.rreal;
  else if (readAtom(v, whole)) out = whole;
  else return false;
  return true;
}
bool readAtom(const resbuf* v, CZelString& out) {
  if (v->restype != RTSTR) return false;
  out = CZelString(v->resval.rstring);
  return true;
}

template <class T>
bool readScalar(const resbuf* value, T& out) {
  const resbuf* v = scalar(value);
  T read{};
  if (!v || !readAtom(v, read)) return false;
  out = std::move(read);
  return true;
}

// A list of atoms of one type; a single atom counts as a list of one.
template <class T>
bool readList(const resbuf* value, CZelArrayTempl<T>& out) {
  if (!value || ZEL::rbIsNil(value)) return false;
  CZelArrayTempl<T> result;
  for (const resbuf* e = ZEL::rbElements(value); e && e->restype != RTLE; e = ZEL::rbSkipElement(e)) {
    T read{};
    if (!readAtom(e, read)) return false;
    result.add(std::move(read));
  }
  out = std::move(result);
  return true;
}

}  // namespace

bool CZelDataItem::get(bool& out, const CZelDataKey* key) const { return readScalar(valueAt(key), out); }
bool CZelDataItem::get(int& out, const CZelDataKey* key) const { return readScalar(valueAt(key), out); }
bool CZelDataItem::get(double& out, const CZelDataKey* key) const { return readScalar(valueAt(key), out); }
bool CZelDataItem::get(CZelString& out, const CZelDataKey* key) const { return readScalar(valueAt(key), out); }
bool CZelDataItem::get(CZelArrayTempl<CZelString>& out, const CZelDataKey* key) const { return readList(valueAt(key), out); }
bool CZelDataItem::get(CZelArrayTempl<int>& out, const CZelDataKey* key) const { return readList(valueAt(key), out); }
bool CZelDataItem::get(CZelArrayTempl<double>& out, const CZelDataKey* key) const { return readList(valueAt(key), out); }

bool CZelDataItem::get(CZelVertexArray& out, const CZelDataKey* key) const {
  const resbuf* v = scalar(valueAt(key));
  if (!v || v->restype != RTVERTS) return false;
  out = *v->resval.rverts;
  return true;
}

bool CZelDataItem::getEname(CZelString& handle, const CZelDataKey* key) const {
  const resbuf* v = scalar(valueAt(key));
  if (!v || v->restype != RTENAME) return false;
  handle = CZelString(v->resval.rstring);
  return true;
}

bool operator==(const CZelDataItem& a, const CZelDataItem& b) {
  if (a.isDir() != b.isDir()) return false;
  if (!a.isDir()) return ZEL::rbEqual(a.m_value, b.m_value);
  const CZelDataDir& da = *a.m_dir;
  const CZelDataDir& db = *b.m_dir;
  if (da.count() != db.count()) return false;
  for (int i = 0; i < da.count(); ++i)
    if (!(da.nameAt(i) == db.nameAt(i)) || !(*da.itemAt(i) == *db.itemAt(i))) return false;
  return true;
}

namespace ZEL {

CDataIterator::CDataIterator(const CZelDataItem* item) : m_dir(item ? item->getDir() : nullptr) {}
bool CDataIterator::done() const { return !m_dir || m_index >= m_dir->count(); }
const CZelString& CDataIterator::name() const { return m_dir->nameAt(m_index); }
CZelDataItem* CDataIterator::item() const { return m_dir->itemAt(m_index); }

}  // namespace ZEL
