// Result-buffer chains: the typed values of the settings store, coded as the CAD program
// codes them. A chain of one atom is a scalar; a chain of several top-level elements, or a
// single list (5016 … 5017), is a list. A dotted pair is 5016, group code, 5018, value, 5017.
#pragma once

#include "data/CZelArrayTempl.h"
#include "data/CZelString.h"
#include "data/CZelVertexArray.h"

#include <cstdint>

constexpr short RTNONE = 5000;
constexpr short RTREAL = 5001;
constexpr short RTSHORT = 5003;
constexpr short RTSTR = 5005;
constexpr short RTENAME = 5006;  // entity name; the drawing handle is kept as text
constexpr short RTLONG = 5010;
constexpr short RTLB = 5016;
constexpr short RTLE = 5017;
constexpr short RTDOTE = 5018;
constexpr short RTNIL = 5019;
constexpr short RTDXF0 = 5020;   // second string-like key part type
constexpr short RTT = 5021;
constexpr short RTNORM = 5100;
constexpr short RTERROR = -5001;
constexpr short RTVERTS = 5090;  // the platform's vertex array, one atom

struct resbuf {
  resbuf* rbnext = nullptr;
  short restype = RTNIL;
  union {
    double rreal;
    short rint;
    std::int32_t rlong;
    wchar_t* rstring;  // RTSTR and RTENAME: owned, released by zelRelRb
    CZelVertexArray* rverts;
  } resval{};
};

// Releases a whole chain, strings and vertex arrays included.
void zelRelRb(resbuf* chain);

namespace ZEL {

resbuf* newRb(short type);
resbuf* mkResbuf(const wchar_t* text, short type = RTSTR);
resbuf* mkResbuf(const CZelArrayTempl<CZelString>& strings);  // flat chain; empty list: nil
resbuf* mkResbuf(const CZelArrayTempl<int>& values);          // flat chain of longs; empty: nil
resbuf* mkResbuf(const CZelVertexArray& vertices);            // one vertex atom; empty: nil
resbuf* mkRbReal(double value);
resbuf* mkRbLong(std::int32_t value);
resbuf* mkRbShort(short value);
resbuf* mkRbBool(bool value);
resbuf* mkRbPair(short groupCode, resbuf* value);  // takes the value atom

resbuf* rbCopy(const resbuf* atom);        // one atom
resbuf* rbCopyAll(const resbuf* chain);    // the whole chain
resbuf* rbAppend(resbuf* chain, resbuf* tail);  // returns the head
resbuf* rbToList(resbuf* chain);           // wraps the chain in 5016 … 5017
resbuf* rbLast(resbuf* chain);
// A single list (not a dotted pair) gives its members, freeing the brackets; else the chain.
resbuf* rbUnwrapList(resbuf* chain);
bool rbEqual(const resbuf* a, const resbuf* b);  // whole chains, exact

// The element after the one starting at `atom` (skipping a nested list), or none.
const resbuf* rbSkipElement(const resbuf* atom);
bool rbIsNil(const resbuf* chain);

// The top-level elements of a value: the members of a single list, else the chain itself.
const resbuf* rbElements(const resbuf* chain);
// Within a list of dotted pairs, the value atom of the pair with that group code.
const resbuf* rbFindPair(const resbuf* chain, short groupCode);

// Holds a chain and releases it; `release` hands it on.
class CSmartResbuf {
public:
  CSmartResbuf() = default;
  explicit CSmartResbuf(resbuf* rb) : m_rb(rb) {}
  CSmartResbuf(const CSmartResbuf&) = delete;
  CSmartResbuf& operator=(const CSmartResbuf&) = delete;
  ~CSmartResbuf() { zelRelRb(m_rb); }
  resbuf* get() const { return m_rb; }
  resbuf* release() { resbuf* r = m_rb; m_rb = nullptr; return r; }
  void reset(resbuf* rb = nullptr) { if (rb != m_rb) { zelRelRb(m_rb); m_rb = rb; } }
  // Frees the chain and clears the holder; always the normal result.
  int relRb() { reset(); return RTNORM; }

private:
  resbuf* m_rb = nullptr;
};

}  // namespace ZEL
