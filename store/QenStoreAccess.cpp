#include "store/QenStoreAccess.h"

#include "data/CConfig.h"
#include "data/CZelDataDir.h"

#include <memory>

namespace QEN {

namespace {

bool isStringKey(const CZelDataKey* key) { return key && !key->isEmpty() && key->isStringPart(); }
bool hasRest(const CZelDataKey* key) { return key->next() && !key->next()->isEmpty(); }

// The shared walk of every store setter: the section's item for a one-part key, else the
// section's directory with the rest of the key below it.
template <class SetFn>
bool storeSetWith(const CZelDataKey* key, SetFn set) {
  if (!isStringKey(key)) return false;
  CZelDataItem* root = ZEL::cfgMgrPtr()->getCfgRoot(key->text());
  if (!root || !root->getDir()) return false;
  if (!hasRest(key)) {
    CZelDataItem* item = root->getDir()->makeItem(*key);
    return item && set(item, nullptr);
  }
  CZelDataKey section;
  section.append(key->type(), key->text().c_str());
  CZelDataItem* dir = root->getDir()->makeDir(section);
  return dir && set(dir, key->next());
}

// Replaces or removes the child at a relative key: a nil value removes it.
bool putOrRemove(CZelDataItem* item, const CZelDataKey* key, resbuf* rb) {
  if (!item) { zelRelRb(rb); return false; }
  if (!key || key->isEmpty()) return item->setData(rb, false);
  item->mkDir();
  if (ZEL::rbIsNil(rb)) {
    zelRelRb(rb);
    item->remove(key);
    return true;
  }
  return item->put(key, rb);
}

resbuf* listOfLists(const StringLists& lists) {
  resbuf* built = nullptr;
  for (int i = lists.count() - 1; i >= 0; --i) {
    resbuf* inner = lists[i].isEmpty() ? nullptr : ZEL::mkResbuf(lists[i]);
    built = ZEL::rbAppend(ZEL::rbToList(inner), built);
  }
  return built ? built : ZEL::newRb(RTNIL);
}

template <class T>
bool sectionSetWith(ZEL::CDtaFilePointer* section, T set) {
  if (!section) return false;
  CZelDataItem* root = section->get(nullptr, false);
  if (!root) {
    CZelDataItem dir;
    dir.mkDir();
    section->set(&dir, nullptr);
    root = section->get(nullptr, false);
  }
  return root && set(root);
}

std::unique_ptr<CZelDataKey> relKey(const wchar_t* key) {
  if (!key || !*key) return nullptr;
  return std::make_unique<CZelDataKey>(key);
}

}  // namespace

bool storeSet(const CZelDataKey* key, const int* value) {
  if (!value) return false;
  return storeSetWith(key, [&](CZelDataItem* i, const CZelDataKey* k) { return ZEL::dataItemSet(i, k, *value); });
}
bool storeSet(const CZelDataKey* key, const double* value) {
  if (!value) return false;
  return storeSetWith(key, [&](CZelDataItem* i, const CZelDataKey* k) { return ZEL::dataItemSet(i, k, *value); });
}
bool storeSet(const CZelDataKey* key, const bool* value) {
  if (!value) return false;
  return storeSetWith(key, [&](CZelDataItem* i, const CZelDataKey* k) { return ZEL::dataItemSet(i, k, *value); });
}
bool storeSet(const CZelDataKey* key, const wchar_t* value) {
  return storeSetWith(key, [&](CZelDataItem* i, const CZelDataKey* k) { return ZEL::dataItemSet(i, k, value); });
}
bool storeSet(const CZelDataKey* key, const CZelString& value) {
  return storeSetWith(key, [&](CZelDataItem* i, const CZelDataKey* k) { return ZEL::dataItemSet(i, k, value); });
}
bool storeSet(const CZelDataKey* key, const StringList& value) {
  return storeSetWith(key, [&](CZelDataItem* i, const CZelDataKey* k) { return itemSet(i, k, value); });
}
bool storeSet(const CZelDataKey* key, const StringLists& value) {
  return storeSetWith(key, [&](CZelDataItem* i, const CZelDataKey* k) { return itemSet(i, k, value); });
}

bool itemSet(CZelDataItem* item, const CZelDataKey* key, const StringList& value) {
  return putOrRemove(item, key, ZEL::mkResbuf(value));
}
bool itemSet(CZelDataItem* item, const CZelDataKey* key, const StringLists& value) {
  return putOrRemove(item, key, listOfLists(value));
}
bool itemSet(CZelDataItem* item, const CZelDataKey* key, const CZelVertexArray& value) {
  return putOrRemove(item, key, ZEL::mkResbuf(value));
}
bool itemSet(CZelDataItem* item, const CZelDataKey* key, const CZelArrayTempl<int>& value) {
  return putOrRemove(item, key, ZEL::mkResbuf(value));
}

bool sectionSet(ZEL::CDtaFilePointer* section, const CZelDataKey* key, const StringList& value) {
  return sectionSetWith(section, [&](CZelDataItem* root) { return itemSet(root, key, value); });
}
bool sectionSet(ZEL::CDtaFilePointer* section, const CZelDataKey* key, const CZelString& value) {
  return sectionSetWith(section, [&](CZelDataItem* root) { return ZEL::dataItemSet(root, key, value); });
}
bool sectionSet(ZEL::CDtaFilePointer* section, const CZelDataKey* key, int value) {
  return sectionSetWith(section, [&](CZelDataItem* root) { return ZEL::dataItemSet(root, key, value); });
}
bool sectionSet(ZEL::CDtaFilePointer* section, const CZelDataKey* key, double value) {
  return sectionSetWith(section, [&](CZelDataItem* root) { return ZEL::dataItemSet(root, key, value); });
}
bool sectionSet(ZEL::CDtaFilePointer* section, const CZelDataKey* key, Zel::PropMode value) {
  return sectionSetWith(section, [&](CZelDataItem* root) { return ZEL::dataItemSet(root, key, value); });
}

bool itemGet(const CZelDataItem* item, const wchar_t* key, int& out) { return item && item->get(out, relKey(key).get()); }
bool itemGet(const CZelDataItem* item, const wchar_t* key, double& out) { return item && item->get(out, relKey(key).get()); }
bool itemGet(const CZelDataItem* item, const wchar_t* key, CZelString& out) { return item && item->get(out, relKey(key).get()); }
bool itemGet(const CZelDataItem* item, const wchar_t* key, bool& out) { return item && item->get(out, relKey(key).get()); }
bool itemGet(const CZelDataItem* item, const wchar_t* key, StringList& out) { return item && item->get(out, relKey(key).get()); }
bool itemGet(const CZelDataItem* item, const wchar_t* key, CZelVertexArray& out) { return item && item->get(out, relKey(key).get()); }
bool itemGet(const CZelDataItem* item, const wchar_t* key, Zel::PropMode& out) {
  return item && ZEL::dataItemGet(item, relKey(key).get(), out);
}
bool itemGet(const CZelDataItem* item, const wchar_t* key, CZelArrayTempl<CZelVertexArray>& out) {
  return item && ZEL::dataItemGet(item, relKey(key).get(), out);
}

bool itemSet(CZelDataItem* item, const wchar_t* key, int value) { return item && ZEL::dataItemSet(item, relKey(key).get(), value); }
bool itemSet(CZelDataItem* item, const wchar_t* key, const CZelString& value) { return item && ZEL::dataItemSet(item, relKey(key).get(), value); }
bool itemSet(CZelDataItem* item, const wchar_t* key, double value) { return item && ZEL::dataItemSet(item, relKey(key).get(), value); }
bool itemSet(CZelDataItem* item, const wchar_t* key, const wchar_t* value) { return item && ZEL::dataItemSet(item, relKey(key).get(), value); }
bool itemSet(CZelDataItem* item, const wchar_t* key, const CZelVertexArray& value) {
  return item && item->put(relKey(key).get(), ZEL::mkResbuf(value));
}

int relRb(ZEL::CSmartResbuf& holder) { return holder.relRb(); }

}  // namespace QEN
