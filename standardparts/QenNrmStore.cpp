#include "standardparts/QenNrmStore.h"

#include "data/CConfig.h"
#include "data/CZelDataDir.h"
#include "data/CZelDataKey.h"
#include "data/ZelDataAccess.h"
#include "data/resbuf.h"
#include "standardparts/QenNrmCatalogue.h"
#include "store/QenStoreAccess.h"

#include <algorithm>

namespace qen::nrm {

CZelString wide(const std::string& text) { return CZelString::fromUtf8(text); }
std::string utf8(const CZelString& text) { return text.toUtf8(); }

CZelString nmPath(const wchar_t* name) { return CZelString(kSection) + L"\\" + name; }

namespace {
CZelDataItem* itemAt(const CZelString& path) { return ZEL::cfg_get(CZelDataKey::fromPath(path)); }

void store(const CZelString& path, resbuf* chain) { ZEL::cfg_set(CZelDataKey::fromPath(path), ZEL::mkDataItem(chain), true); }
}  // namespace

std::optional<CZelString> getText(const CZelString& path) {
  CZelString v;
  CZelDataItem* item = itemAt(path);
  if (!item || item->isDir() || !item->get(v)) return std::nullopt;
  return v;
}

std::optional<int> getInt(const CZelString& path) {
  int v = 0;
  CZelDataItem* item = itemAt(path);
  if (!item || item->isDir() || !item->get(v)) return std::nullopt;
  return v;
}

std::optional<double> getReal(const CZelString& path) {
  double v = 0;
  CZelDataItem* item = itemAt(path);
  if (!item || item->isDir() || !item->get(v)) return std::nullopt;
  return v;
}

void setText(const CZelString& path, const CZelString& value) { store(path, ZEL::mkResbuf(value.c_str())); }

void setTextOrRemove(const CZelString& path, const CZelString& value) {
  if (value.isEmpty()) ZEL::cfg_remove(CZelDataKey::fromPath(path));
  else setText(path, value);
}

void setInt(const CZelString& path, int value) { store(path, ZEL::mkRbLong(value)); }
void setReal(const CZelString& path, double value) { store(path, ZEL::mkRbReal(value)); }

std::optional<Stack> getStack(const CZelString& path) {
  CZelDataItem* item = itemAt(path);
  if (!item || item->isDir()) return std::nullopt;
  CZelArrayTempl<CZelString> parts;
  Stack out;
  if (item->get(parts)) {
    for (int i = 0; i < parts.count(); ++i) out.push_back(utf8(parts[i]));
    return out;
  }
  CZelString single;
  if (item->get(single)) return Stack{utf8(single)};
  return std::nullopt;
}

void setStack(const CZelString& path, const Stack& stack) {
  QEN::StringList parts;
  for (const std::string& s : stack) parts.add(wide(s));
  const CZelDataKey key = CZelDataKey::fromPath(path);
  QEN::storeSet(&key, parts);
}

std::vector<Stack> getStackList(const CZelString& path) {
  std::vector<Stack> out;
  CZelDataItem* item = itemAt(path);
  if (!item || item->isDir()) return out;
  Stack* current = nullptr;
  int depth = 0;
  for (const resbuf* rb = item->value(); rb; rb = rb->rbnext) {
    if (rb->restype == RTLB) {
      if (++depth == 1) {
        out.emplace_back();
        current = &out.back();
      }
    } else if (rb->restype == RTLE) {
      if (--depth <= 0) current = nullptr, depth = 0;
    } else if (rb->restype == RTSTR && current) {
      current->push_back(utf8(CZelString(rb->resval.rstring)));
    }
  }
  return out;
}

void setStackList(const CZelString& path, const std::vector<Stack>& stacks) {
  QEN::StringLists lists;
  for (const Stack& stack : stacks) {
    QEN::StringList parts;
    for (const std::string& part : stack) parts.add(wide(part));
    lists.add(parts);
  }
  const CZelDataKey key = CZelDataKey::fromPath(path);
  QEN::storeSet(&key, lists);
}

std::vector<std::string> callerFilter() { return getStack(L"*NORM_PARM*\\FILTER").value_or(Stack{}); }

bool onlyArticles() { return getInt(L"_QEN_NORM_ORDER").has_value(); }

std::string releaseMask(bool writeDefault) {
  std::optional<CZelString> mask = getText(L"_QEN_NM_REL");
  if (!mask) {
    if (!writeDefault) return "";
    setText(L"_QEN_NM_REL", L"f");
    return "f";
  }
  return utf8(*mask);
}

// The catalogue answers a node's properties on the node's own stack.
std::string nodeProp(const Stack& stack, const std::string& name) { return ZEL::norm_get(stack, name).value_or(""); }

std::optional<std::string> sizeProp(const Stack& sizeStack, const std::string& name) {
  return ZEL::norm_get(sizeStack, name);
}

CZelString domainPath(bool barp, const wchar_t* name) {
  return CZelString(barp ? L"*NM_SET*\\DIN\\*BAR*\\" : L"*NM_SET*\\DIN\\*PIECE*\\") + name;
}

namespace {
std::string pick(const std::vector<std::string>& list, const std::optional<CZelString>& stored) {
  const std::string value = stored ? utf8(*stored) : std::string();
  if (std::find(list.begin(), list.end(), value) != list.end()) return value;
  return list.empty() ? std::string() : list.front();
}
}  // namespace

Selection resolve(const std::vector<Stack>* treeStacks) {
  Selection s;
  s.stack = getStack(nmPath(L"STACK")).value_or(Stack{"BAR"});
  if (treeStacks && !treeStacks->empty() &&
      std::find(treeStacks->begin(), treeStacks->end(), s.stack) == treeStacks->end())
    s.stack = treeStacks->front();
  s.articles = onlyArticles();
  s.type = nodeProp(s.stack, "TYPE");
  s.isNorm = s.type == "NORM";
  if (s.isNorm) {
    s.materials = ZEL::norm_mat_lst(s.stack, s.articles);
    s.mat = pick(s.materials, getText(nmPath(L"MAT")));
    s.variants = variantList(s.stack, s.mat, s.articles);
    s.var = pick(s.variants, getText(nmPath(L"VAR")));
    s.sizes = ZEL::norm_nd_lst(s.stack, s.mat, s.var, s.articles);
    s.nd = resolveSize(s.stack, s.sizes, utf8(getText(nmPath(L"ND")).value_or(L"")));
  }
  const std::string barp = nodeProp(s.stack, "BARP");
  s.barp = barp == "1" || barp == "T" || barp == "true";
  return s;
}

std::string resolveSize(const Stack& stack, const std::vector<std::string>& sizes, const std::string& stored) {
  if (sizes.empty()) return "";
  if (std::find(sizes.begin(), sizes.end(), stored) != sizes.end()) return stored;
  for (const std::string& size : sizes) {
    Stack path = stack;
    path.push_back(size);
    if (!ZEL::norm_get(path, "AVOID")) return size;
  }
  return stored;
}

CZelDataItem* section() { return ZEL::cfg_get(CZelDataKey::fromPath(kSection)); }

void mergeInto(const CZelDataItem& from, const CZelString& alsoTo) {
  if (!from.isDir()) return;
  CZelDataItem* nm = section();
  if (!nm || !nm->isDir()) {
    ZEL::cfg_set(CZelDataKey::fromPath(kSection), from.clone(), true);
  } else {
    nm->getDir()->mergeFrom(*from.getDir(), 1);
  }
  if (alsoTo.isEmpty()) return;
  CZelDataItem* target = ZEL::cfg_dir_make(CZelDataKey::fromPath(alsoTo));
  if (target) target->mkDir()->mergeFrom(*from.getDir(), 1);
}

}  // namespace qen::nrm
