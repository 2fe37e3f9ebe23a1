#include "data/CStoreWriter.h"

#include "data/CJsonText.h"
#include "data/CZelDataDir.h"
#include "data/CZelDataItem.h"
#include "data/resbuf.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string_view>
#include <unordered_set>

namespace {

// Directories nested deeper than this are not indented further: the layout cannot make a
// save grow with the nesting depth.
constexpr std::size_t kMaxIndentLevels = 16;

// Text that is not written character for character: U+0000 and what CZelString's encoder
// replaces (surrogates, code points past U+10FFFF).
bool isAltered(std::wstring_view text) {
  for (wchar_t wc : text) {
    auto cp = static_cast<std::uint32_t>(wc);
    if (cp == 0 || (cp >= 0xD800 && cp <= 0xDFFF) || cp > 0x10FFFF) return true;
  }
  return false;
}

// A JSON string. U+0000 cannot be kept (values end at it, and the reader refuses it), so
// it becomes U+FFFD as ill-formed text does.
std::string quoted(std::wstring_view text) {
  std::string utf8 = CZelString(text).toUtf8();
  std::string out;
  out.reserve(utf8.size() + 2);
  out += '"';
  for (char ch : utf8) {
    auto c = static_cast<unsigned char>(ch);
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      case '\b': out += "\\b"; break;
      case '\f': out += "\\f"; break;
      case 0: out += "\xEF\xBF\xBD"; break;
      default:
        if (c < 0x20) {
          char buf[8];
          std::snprintf(buf, sizeof buf, "\\u%04x", c);
          out += buf;
        } else {
          out += ch;
        }
    }
  }
  out += '"';
  return out;
}

// The shortest digits that read back as the same double, always with '.' or an exponent
// so that the value reads back as a real and not as a long.
void writeReal(std::string& out, double v) {
  if (!std::isfinite(v)) { out += "null"; return; }  // JSON has no infinity; never produced by dialogs
  char buf[64];
  auto res = std::to_chars(buf, buf + sizeof buf, v);
  std::string_view s(buf, static_cast<std::size_t>(res.ptr - buf));
  out += s;
  if (s.find_first_of(".eE") == std::string_view::npos) out += ".0";
}

}  // namespace

void CStoreWriter::item(const CZelDataItem& item) {
  if (item.isDir()) dir(*item.getDir());
  else value(item.value());
}

void CStoreWriter::dir(const CZelDataDir& d) {
  if (!enter(1)) return;
  if (d.isEmpty()) {
    out += "{}";
    leave(1);
    return;
  }
  ++m_dirs;
  out += "{\n";
  std::size_t indent = std::min(m_dirs, kMaxIndentLevels) * 2;
  bool altered = false;
  for (int i = 0; i < d.count(); ++i) {
    out.append(indent, ' ');
    out += quoted(d.nameAt(i).view());
    altered = altered || isAltered(d.nameAt(i).view());
    out += ": ";
    item(*d.itemAt(i));
    out += i + 1 < d.count() ? ",\n" : "\n";
  }
  --m_dirs;
  out.append(std::min(m_dirs, kMaxIndentLevels) * 2, ' ');
  out += "}";
  leave(1);
  if (altered) checkNames(d);
}

void CStoreWriter::value(const resbuf* chain) {
  if (!chain) { out += "null"; return; }
  if (!ZEL::rbSkipElement(chain)) { element(chain); return; }  // one element
  if (!enter(1)) return;
  out += "[";
  elements(chain, nullptr);
  out += "]";
  leave(1);
}

bool CStoreWriter::enter(int levels) {
  if (m_depth + levels <= CJsonText::kMaxDepth) {
    m_depth += levels;
    return true;
  }
  if (error.empty())
    error = "nested more than " + std::to_string(CJsonText::kMaxDepth) + " levels deep (directories, lists and pairs)";
  out += "null";
  return false;
}

// Two names that differ only in characters written as U+FFFD would stand twice.
void CStoreWriter::checkNames(const CZelDataDir& d) {
  std::unordered_set<std::string> names;
  for (int i = 0; i < d.count(); ++i) {
    std::string name = quoted(d.nameAt(i).view());
    if (!names.insert(name).second && error.empty())
      error = "the name " + name + " would stand twice in one directory (U+0000 and ill-formed text are written as U+FFFD)";
  }
}

void CStoreWriter::text(const wchar_t* s) { out += quoted(s ? std::wstring_view(s) : std::wstring_view()); }

// One element starting at `e`: an atom, a dotted pair or a nested list.
void CStoreWriter::element(const resbuf* e) {
  switch (e->restype) {
    case RTREAL: writeReal(out, e->resval.rreal); return;
    case RTLONG: out += std::to_string(e->resval.rlong); return;
    case RTSHORT:
      if (!enter(1)) return;
      out += "{\"$short\": " + std::to_string(e->resval.rint) + "}";
      leave(1);
      return;
    case RTSTR: case RTDXF0: text(e->resval.rstring); return;
    case RTENAME:
      if (!enter(1)) return;
      out += "{\"$ename\": ";
      text(e->resval.rstring);
      out += "}";
      leave(1);
      return;
    case RTT: out += "true"; return;
    case RTVERTS: points(*e->resval.rverts); return;
    case RTLB: {
      const resbuf* code = e->rbnext;
      if (code && code->rbnext && code->rbnext->restype == RTDOTE && code->rbnext->rbnext) {
        if (!enter(2)) return;
        int c = code->restype == RTSHORT ? code->resval.rint : code->restype == RTLONG ? code->resval.rlong : 0;
        out += "{\"$pair\": [" + std::to_string(c) + ", ";
        element(code->rbnext->rbnext);
        out += "]}";
        leave(2);
        return;
      }
      if (code && code->restype == RTLE) { out += "null"; return; }  // () is nil
      if (!enter(1)) return;
      out += "[";
      elements(e->rbnext, ZEL::rbSkipElement(e));
      out += "]";
      leave(1);
      return;
    }
    default: out += "null"; return;
  }
}

void CStoreWriter::elements(const resbuf* first, const resbuf* stop) {
  bool any = false;
  for (const resbuf* e = first; e && e != stop && e->restype != RTLE; e = ZEL::rbSkipElement(e)) {
    if (any) out += ", ";
    any = true;
    element(e);
  }
}

void CStoreWriter::points(const CZelVertexArray& verts) {
  int levels = verts.isEmpty() ? 2 : 3;
  if (!enter(levels)) return;
  out += "{\"$points\": [";
  bool first = true;
  for (const auto& v : verts) {
    if (!first) out += ", ";
    first = false;
    out += "[";
    writeReal(out, v.x);
    out += ", ";
    writeReal(out, v.y);
    out += ", ";
    writeReal(out, v.bulge);
    out += "]";
  }
  out += "]}";
  leave(levels);
}
