#include "data/resbuf.h"

#include <cstring>
#include <cwchar>

namespace {

wchar_t* dupText(const wchar_t* text) {
  std::size_t n = text ? std::wcslen(text) : 0;
  auto* copy = new wchar_t[n + 1];
  if (n) std::wmemcpy(copy, text, n);
  copy[n] = L'\0';
  return copy;
}

bool ownsText(short type) { return type == RTSTR || type == RTENAME || type == RTDXF0; }

}  // namespace

void zelRelRb(resbuf* chain) {
  while (chain) {
    resbuf* next = chain->rbnext;
    if (ownsText(chain->restype)) delete[] chain->resval.rstring;
    else if (chain->restype == RTVERTS) delete chain->resval.rverts;
    delete chain;
    chain = next;
  }
}

namespace ZEL {

resbuf* newRb(short type) {
  auto* rb = new resbuf;
  rb->restype = type;
  if (ownsText(type)) rb->resval.rstring = dupText(L"");
  else if (type == RTVERTS) rb->resval.rverts = new CZelVertexArray;
  return rb;
}

resbuf* mkResbuf(const wchar_t* text, short type) {
  auto* rb = new resbuf;
  rb->restype = ownsText(type) ? type : RTSTR;
  rb->resval.rstring = dupText(text);
  return rb;
}

resbuf* mkResbuf(const CZelArrayTempl<CZelString>& strings) {
  resbuf* head = nullptr;
  resbuf* tail = nullptr;
  for (const auto& s : strings) {
    resbuf* rb = mkResbuf(s.c_str());
    if (tail) tail->rbnext = rb; else head = rb;
    tail = rb;
  }
  return head ? head : newRb(RTNIL);
}

resbuf* mkResbuf(const CZelArrayTempl<int>& values) {
  resbuf* head = nullptr;
  resbuf* tail = nullptr;
  for (int v : values) {
    resbuf* rb = mkRbLong(v);
    if (tail) tail->rbnext = rb; else head = rb;
    tail = rb;
  }
  return head ? head : newRb(RTNIL);
}

resbuf* mkResbuf(const CZelVertexArray& vertices) {
  if (vertices.isEmpty()) return newRb(RTNIL);
  resbuf* rb = newRb(RTVERTS);
  *rb->resval.rverts = vertices;
  return rb;
}

resbuf* mkRbReal(double value) { resbuf* rb = newRb(RTREAL); rb->resval.rreal = value; return rb; }
resbuf* mkRbLong(std::int32_t value) { resbuf* rb = newRb(RTLONG); rb->resval.rlong = value; return rb; }
resbuf* mkRbShort(short value) { resbuf* rb = newRb(RTSHORT); rb->resval.rint = value; return rb; }
resbuf* mkRbBool(bool value) { return newRb(value ? RTT : RTNIL); }

resbuf* mkRbPair(short groupCode, resbuf* value) {
  resbuf* lb = newRb(RTLB);
  resbuf* code = mkRbShort(groupCode);
  resbuf* dot = newRb(RTDOTE);
  lb->rbnext = code;
  code->rbnext = dot;
  dot->rbnext = value;
  rbLast(value)->rbnext = newRb(RTLE);
  return lb;
}

resbuf* rbCopy(const resbuf* atom) {
  if (!atom) return nullptr;
  auto* rb = new resbuf;
  rb->restype = atom->restype;
  if (ownsText(atom->restype)) rb->resval.rstring = dupText(atom->resval.rstring);
  else if (atom->restype == RTVERTS) rb->resval.rverts = new CZelVertexArray(*atom->resval.rverts);
  else rb->resval = atom->resval;
  return rb;
}

resbuf* rbCopyAll(const resbuf* chain) {
  resbuf* head = nullptr;
  resbuf* tail = nullptr;
  for (; chain; chain = chain->rbnext) {
    resbuf* rb = rbCopy(chain);
    if (tail) tail->rbnext = rb; else head = rb;
    tail = rb;
  }
  return head;
}

resbuf* rbLast(resbuf* chain) {
  while (chain && chain->rbnext) chain = chain->rbnext;
  return chain;
}

resbuf* rbUnwrapList(resbuf* chain) {
  if (!chain || chain->restype != RTLB || rbSkipElement(chain) != nullptr) return chain;
  if (rbElements(chain) == chain) return chain;  // a dotted pair
  resbuf* members = chain->rbnext;
  chain->rbnext = nullptr;
  zelRelRb(chain);
  if (members->restype == RTLE) { zelRelRb(members); return nullptr; }
  resbuf* beforeEnd = members;
  while (beforeEnd->rbnext && beforeEnd->rbnext->rbnext) beforeEnd = beforeEnd->rbnext;
  zelRelRb(beforeEnd->rbnext);
  beforeEnd->rbnext = nullptr;
  return members;
}

resbuf* rbAppend(resbuf* chain, resbuf* tail) {
  if (!chain) return tail;
  rbLast(chain)->rbnext = tail;
  return chain;
}

resbuf* rbToList(resbuf* chain) {
  resbuf* lb = newRb(RTLB);
  lb->rbnext = chain;
  rbAppend(lb, newRb(RTLE));
  return lb;
}

bool rbEqual(const resbuf* a, const resbuf* b) {
  for (; a && b; a = a->rbnext, b = b->rbnext) {
    if (a->restype != b->restype) return false;
    switch (a->restype) {
      case RTREAL:
        if (std::memcmp(&a->resval.rreal, &b->resval.rreal, sizeof(double)) != 0) return false;
        break;
      case RTSHORT: if (a->resval.rint != b->resval.rint) return false; break;
      case RTLONG: if (a->resval.rlong != b->resval.rlong) return false; break;
      case RTSTR: case RTENAME: case RTDXF0:
        if (std::wcscmp(a->resval.rstring, b->resval.rstring) != 0) return false;
        break;
      case RTVERTS: if (!(*a->resval.rverts == *b->resval.rverts)) return false; break;
      default: break;
    }
  }
  return a == nullptr && b == nullptr;
}

const resbuf* rbSkipElement(const resbuf* atom) {
  if (!atom) return nullptr;
  if (atom->restype != RTLB) return atom->rbnext;
  int depth = 0;
  for (; atom; atom = atom->rbnext) {
    if (atom->restype == RTLB) ++depth;
    else if (atom->restype == RTLE && --depth == 0) return atom->rbnext;
  }
  return nullptr;
}

bool rbIsNil(const resbuf* chain) { return !chain || (chain->restype == RTNIL && !chain->rbnext); }

const resbuf* rbElements(const resbuf* chain) {
  if (chain && chain->restype == RTLB && rbSkipElement(chain) == nullptr) {
    // A single list: its members, unless it is a dotted pair.
    const resbuf* first = chain->rbnext;
    if (first && first->rbnext && first->rbnext->restype == RTDOTE) return chain;
    return (first && first->restype == RTLE) ? nullptr : first;
  }
  return chain;
}

const resbuf* rbFindPair(const resbuf* chain, short groupCode) {
  for (const resbuf* e = rbElements(chain); e && e->restype != RTLE; e = rbSkipElement(e)) {
    if (e->restype != RTLB) continue;
    const resbuf* code = e->rbnext;
    if (!code || (code->restype != RTSHORT && code->restype != RTLONG)) continue;
    int c = code->restype == RTSHORT ? code->resval.rint : code->resval.rlong;
    if (c != groupCode || !code->rbnext || code->rbnext->restype != RTDOTE) continue;
    return code->rbnext->rbnext;
  }
  return nullptr;
}

}  // namespace ZEL
