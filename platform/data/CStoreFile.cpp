#include "data/CStoreFile.h"

#include "data/CZelDataDir.h"
#include "data/CZelDataItem.h"
#include "data/resbuf.h"

#include <nlohmann/json.hpp>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <limits>
#include <memory>
#include <sstream>
#include <unistd.h>
#include <vector>

namespace ZEL {
namespace {
std::string& lastErrorSlot() {
  static std::string message;
  return message;
}
}  // namespace
const std::string& lastFileError() { return lastErrorSlot(); }
void setLastFileError(std::string message) { lastErrorSlot() = std::move(message); }
}  // namespace ZEL

namespace {

using json = nlohmann::json;

// An input iterator over the file's bytes that tells the parser's reading position, so
// that errors found while building items can name the line and column too.
struct TrackedIter {
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;
  const char* p = nullptr;
  const char** pos = nullptr;
  const char& operator*() const { return *p; }
  TrackedIter& operator++() { ++p; if (pos) *pos = p; return *this; }
  TrackedIter operator++(int) { TrackedIter t = *this; ++*this; return t; }
  friend bool operator==(const TrackedIter& a, const TrackedIter& b) { return a.p == b.p; }
  friend bool operator!=(const TrackedIter& a, const TrackedIter& b) { return a.p != b.p; }
};

// The parser stops just past the token it could not use; point at that token's start.
// Values found wrong while building were read with one character of lookahead past them.
std::size_t tokenStart(std::string_view text, std::size_t end, bool lookahead = false) {
  auto space = [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; };
  auto structural = [](char c) { return c == '{' || c == '}' || c == '[' || c == ']' || c == ',' || c == ':'; };
  if (end > text.size()) end = text.size();
  std::size_t i = end;
  if (lookahead && i > 0 && structural(text[i - 1]) && i >= 2 && !structural(text[i - 2]) && !space(text[i - 2])) --i;
  while (i > 0 && space(text[i - 1])) --i;
  if (i > 0 && structural(text[i - 1])) return i - 1;
  while (i > 0 && !space(text[i - 1]) && !structural(text[i - 1])) --i;
  return i;
}

std::string place(std::string_view text, std::size_t offset) {
  if (offset > text.size()) offset = text.size();
  std::size_t line = 1;
  std::size_t col = 1;
  for (std::size_t i = 0; i < offset; ++i) {
    auto c = static_cast<unsigned char>(text[i]);
    if (c == '\n') { ++line; col = 1; }
    else if ((c & 0xC0) != 0x80) ++col;  // count characters, not UTF-8 bytes
  }
  return std::to_string(line) + ":" + std::to_string(col);
}

// nlohmann's message without its own "[json.exception…] parse error at …:" prefix.
std::string cleanMessage(const std::string& what) {
  std::size_t at = what.find("column ");
  if (at != std::string::npos) {
    std::size_t colon = what.find(": ", at);
    if (colon != std::string::npos) return what.substr(colon + 2);
  }
  std::size_t bracket = what.find("] ");
  return bracket == std::string::npos ? what : what.substr(bracket + 2);
}

resbuf* specialToRb(const std::string& form, const json& v, std::string& err);

// A scalar JSON value (or a special form inside a list or a pair) as one resbuf element.
resbuf* jsonToRb(const json& v, std::string& err) {
  switch (v.type()) {
    case json::value_t::null: return ZEL::newRb(RTNIL);
    case json::value_t::boolean: return ZEL::newRb(v.get<bool>() ? RTT : RTNIL);
    case json::value_t::string: return ZEL::mkResbuf(CZelString::fromUtf8(v.get_ref<const std::string&>()).c_str());
    case json::value_t::number_float: return ZEL::mkRbReal(v.get<double>());
    case json::value_t::number_integer:
    case json::value_t::number_unsigned: {
      if (v.is_number_unsigned() ? v.get<std::uint64_t>() > static_cast<std::uint64_t>(std::numeric_limits<std::int32_t>::max())
                                 : (v.get<std::int64_t>() < std::numeric_limits<std::int32_t>::min() ||
                                    v.get<std::int64_t>() > std::numeric_limits<std::int32_t>::max())) {
        err = "integer " + v.dump() + " does not fit a long (32 bits); write it with a '.' to store a real";
        return nullptr;
      }
      return ZEL::mkRbLong(static_cast<std::int32_t>(v.get<std::int64_t>()));
    }
    case json::value_t::array: {
      if (v.empty()) return ZEL::newRb(RTNIL);
      resbuf* chain = nullptr;
      for (const auto& e : v) {
        resbuf* rb = jsonToRb(e, err);
        if (!rb) { zelRelRb(chain); return nullptr; }
        chain = ZEL::rbAppend(chain, rb);
      }
      return ZEL::rbToList(chain);
    }
    case json::value_t::object: {
      if (v.size() != 1 || v.begin().key().empty() || v.begin().key()[0] != '$') {
        err = "a directory cannot stand inside a list or a pair";
        return nullptr;
      }
      return specialToRb(v.begin().key(), v.begin().value(), err);
    }
    default:
      err = "unsupported JSON value";
      return nullptr;
  }
}

resbuf* specialToRb(const std::string& form, const json& v, std::string& err) {
  if (form == "$short") {
    if (!v.is_number_integer() || v.get<std::int64_t>() < std::numeric_limits<short>::min() ||
        v.get<std::int64_t>() > std::numeric_limits<short>::max()) {
      err = "\"$short\" takes an integer from -32768 to 32767";
      return nullptr;
    }
    return ZEL::mkRbShort(static_cast<short>(v.get<std::int64_t>()));
  }
  if (form == "$ename") {
    if (!v.is_string() || v.get_ref<const std::string&>().empty()) {
      err = "\"$ename\" takes a drawing handle as a string";
      return nullptr;
    }
    return ZEL::mkResbuf(CZelString::fromUtf8(v.get_ref<const std::string&>()).c_str(), RTENAME);
  }
  if (form == "$pair") {
    if (!v.is_array() || v.size() != 2 || !v[0].is_number_integer() || v[0].get<std::int64_t>() < -32768 ||
        v[0].get<std::int64_t>() > 32767 || v[1].is_array()) {
      err = "\"$pair\" takes [group code, value]";
      return nullptr;
    }
    resbuf* value = jsonToRb(v[1], err);
    if (!value) return nullptr;
    return ZEL::mkRbPair(static_cast<short>(v[0].get<std::int64_t>()), value);
  }
  if (form == "$points") {
    if (!v.is_array()) { err = "\"$points\" takes a list of [x, y, bulge]"; return nullptr; }
    CZelVertexArray verts;
    for (const auto& p : v) {
      if (!p.is_array() || p.size() < 2 || p.size() > 3) { err = "\"$points\" takes a list of [x, y, bulge]"; return nullptr; }
      for (const auto& c : p)
        if (!c.is_number()) { err = "\"$points\" takes numbers"; return nullptr; }
      verts.add(p[0].get<double>(), p[1].get<double>(), p.size() == 3 ? p[2].get<double>() : 0.0);
    }
    resbuf* rb = ZEL::newRb(RTVERTS);
    *rb->resval.rverts = std::move(verts);
    return rb;
  }
  err = "unknown form \"" + form + "\" (names never start with '$')";
  return nullptr;
}

// Builds store items straight from the parser's events: directories, lists and the
// "$" forms, the latter captured as small JSON values and converted when they close.
class ItemBuilder : public nlohmann::json_sax<json> {
public:
  explicit ItemBuilder(const char** pos) : m_pos(pos) {}

  std::unique_ptr<CZelDataItem> root;
  std::string error;
  const char* errorAt = nullptr;
  bool syntaxError = false;

  bool null() override { return scalar(ZEL::newRb(RTNIL), nullptr); }
  bool boolean(bool val) override { return scalar(ZEL::newRb(val ? RTT : RTNIL), val ? json(true) : json(false)); }
  bool number_integer(number_integer_t val) override { return number(json(val)); }
  bool number_unsigned(number_unsigned_t val) override { return number(json(val)); }
  bool number_float(number_float_t val, const string_t&) override { return scalar(ZEL::mkRbReal(val), json(val)); }
  bool string(string_t& val) override {
    if (capturing()) return scalar(nullptr, json(val));
    return scalar(ZEL::mkResbuf(CZelString::fromUtf8(val).c_str()), nullptr);
  }
  bool binary(binary_t&) override { return fail("binary values are not supported"); }

  bool start_object(std::size_t) override {
    if (capturing()) return captureOpen(json::object());
    m_frames.push_back(Frame(Frame::Pending));
    return true;
  }
  bool key(string_t& val) override {
    if (capturing() && m_frames.back().openDepth > 0) { m_frames.back().pendingKey = val; return true; }
    Frame& f = m_frames.back();
    if (f.kind == Frame::Pending) {
      if (!val.empty() && val[0] == '$') {
        f.kind = Frame::Special;
        f.form = val;
        return true;
      }
      CZelDataItem* dirItem = openValueSlot();
      if (!dirItem) return false;
      dirItem->mkDir();
      f.kind = Frame::Dir;
      f.dir = dirItem;
    } else if (f.kind == Frame::Special) {
      return fail("\"" + f.form + "\" takes exactly one member");
    }
    if (!val.empty() && val[0] == '$') return fail("names never start with '$': \"" + val + "\"");
    CZelString name = CZelString::fromUtf8(val);
    if (f.dir->getDir()->item(name)) return fail("the name \"" + val + "\" stands twice in one directory");
    f.pendingKey = val;
    f.pendingName = std::move(name);
    return true;
  }
  bool end_object() override {
    if (capturing() && m_frames.back().openDepth > 0) return captureClose();
    Frame f = std::move(m_frames.back());
    m_frames.pop_back();
    if (f.kind == Frame::Pending) {  // {}: an empty directory
      m_frames.push_back(Frame(Frame::Pending));
      CZelDataItem* item = openValueSlot();
      m_frames.pop_back();
      if (!item) return false;
      item->mkDir();
      return true;
    }
    if (f.kind == Frame::Dir) return true;
    std::string err;
    resbuf* rb = specialToRb(f.form, f.captured.empty() ? json() : f.captured.back(), err);
    if (!rb) return fail(err);
    return deliver(rb);
  }
  bool start_array(std::size_t) override {
    if (capturing()) return captureOpen(json::array());
    m_frames.push_back(Frame(Frame::List));
    return true;
  }
  bool end_array() override {
    if (capturing()) return captureClose();
    Frame f = std::move(m_frames.back());
    m_frames.pop_back();
    return deliver(f.chain ? ZEL::rbToList(f.chain) : ZEL::newRb(RTNIL));
  }
  bool parse_error(std::size_t position, const std::string&, const nlohmann::detail::exception& ex) override {
    syntaxError = true;
    error = cleanMessage(ex.what());
    m_syntaxOffset = position;
    return false;
  }

  std::size_t syntaxOffset() const { return m_syntaxOffset; }

  ~ItemBuilder() override {
    for (auto& f : m_frames) zelRelRb(f.chain);
  }

private:
  struct Frame {
    enum Kind { Pending, Dir, List, Special } kind = Pending;
    explicit Frame(Kind k) : kind(k) {}
    CZelDataItem* dir = nullptr;   // Dir: the directory item
    std::string pendingKey;        // Dir: the name the next value goes under
    CZelString pendingName;
    resbuf* chain = nullptr;       // List: the elements so far
    std::string form;              // Special: "$short", …
    std::vector<json> captured;    // Special: the value being captured, nested containers open
    std::vector<std::string> captureKeys;
    int openDepth = 0;             // Special: containers of the captured value still open
  };

  bool capturing() const { return !m_frames.empty() && m_frames.back().kind == Frame::Special; }

  bool fail(std::string message) {
    error = std::move(message);
    errorAt = *m_pos;
    return false;
  }

  // The item that the next value of the current container becomes.
  CZelDataItem* openValueSlot() {
    std::size_t n = m_frames.size();
    const Frame* parent = n >= 2 ? &m_frames[n - 2] : nullptr;
    if (!parent) {
      if (root) { fail("more than one value at the top of the file"); return nullptr; }
      root = std::make_unique<CZelDataItem>();
      return root.get();
    }
    if (parent->kind == Frame::List || parent->kind == Frame::Special) {
      fail("a directory cannot stand inside a list or a pair");
      return nullptr;
    }
    auto* item = new CZelDataItem;
    if (!parent->dir->getDir()->insert(parent->pendingName, item, false)) {
      delete item;
      fail("\"" + parent->pendingKey + "\" cannot be stored");
      return nullptr;
    }
    return item;
  }

  bool deliver(resbuf* rb) {
    if (m_frames.empty()) {
      if (root) { zelRelRb(rb); return fail("more than one value at the top of the file"); }
      root = std::make_unique<CZelDataItem>(rb);
      return true;
    }
    Frame& f = m_frames.back();
    switch (f.kind) {
      case Frame::List:
        f.chain = ZEL::rbAppend(f.chain, rb);
        return true;
      case Frame::Dir: {
        auto* item = new CZelDataItem(rb);
        if (f.dir->getDir()->insert(f.pendingName, item, false)) return true;
        delete item;
        return fail("\"" + f.pendingKey + "\" cannot be stored");
      }
      default:
        zelRelRb(rb);
        return fail("unexpected value");
    }
  }

  bool number(json v) {
    if (capturing()) return scalar(nullptr, std::move(v));
    std::string err;
    resbuf* rb = jsonToRb(v, err);
    if (!rb) return fail(err);
    return deliver(rb);
  }

  bool scalar(resbuf* rb, json v) {
    if (!capturing()) return deliver(rb);
    zelRelRb(rb);
    return captureValue(std::move(v));
  }

  bool captureValue(json v) {
    Frame& f = m_frames.back();
    if (f.openDepth == 0) {
      if (!f.captured.empty()) return fail("\"" + f.form + "\" takes one value");
      f.captured.push_back(std::move(v));
      return true;
    }
    json& top = f.captured.back();
    if (top.is_array()) top.push_back(std::move(v));
    else top[f.pendingKey] = std::move(v);
    return true;
  }
  bool captureOpen(json container) {
    Frame& f = m_frames.back();
    if (f.openDepth == 0 && !f.captured.empty()) return fail("\"" + f.form + "\" takes one value");
    if (!f.captured.empty() && f.captured.back().is_object()) f.captureKeys.push_back(f.pendingKey);
    f.captured.push_back(std::move(container));
    ++f.openDepth;
    return true;
  }
  bool captureClose() {
    Frame& f = m_frames.back();
    if (--f.openDepth == 0) return true;  // the form's own value is complete
    json done = std::move(f.captured.back());
    f.captured.pop_back();
    json& parent = f.captured.back();
    if (parent.is_array()) parent.push_back(std::move(done));
    else { parent[f.captureKeys.back()] = std::move(done); f.captureKeys.pop_back(); }
    return true;
  }

  const char** m_pos;
  std::vector<Frame> m_frames;
  std::size_t m_syntaxOffset = 0;
};

// --- writing -----------------------------------------------------------------------------

void writeString(std::string& out, const wchar_t* text) {
  std::string utf8 = CZelString(text).toUtf8();
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

void writeElements(std::string& out, const resbuf* first, const resbuf* stop);

// One element starting at `e`: an atom, a dotted pair or a nested list.
void writeElement(std::string& out, const resbuf* e) {
  switch (e->restype) {
    case RTREAL: writeReal(out, e->resval.rreal); return;
    case RTLONG: out += std::to_string(e->resval.rlong); return;
    case RTSHORT: out += "{\"$short\": " + std::to_string(e->resval.rint) + "}"; return;
    case RTSTR: case RTDXF0: writeString(out, e->resval.rstring); return;
    case RTENAME: out += "{\"$ename\": "; writeString(out, e->resval.rstring); out += "}"; return;
    case RTT: out += "true"; return;
    case RTVERTS: {
      out += "{\"$points\": [";
      bool first = true;
      for (const auto& v : *e->resval.rverts) {
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
      return;
    }
    case RTLB: {
      const resbuf* code = e->rbnext;
      if (code && code->rbnext && code->rbnext->restype == RTDOTE && code->rbnext->rbnext) {
        int c = code->restype == RTSHORT ? code->resval.rint : code->restype == RTLONG ? code->resval.rlong : 0;
        out += "{\"$pair\": [" + std::to_string(c) + ", ";
        writeElement(out, code->rbnext->rbnext);
        out += "]}";
        return;
      }
      if (code && code->restype == RTLE) { out += "null"; return; }  // () is nil
      out += "[";
      writeElements(out, e->rbnext, ZEL::rbSkipElement(e));
      out += "]";
      return;
    }
    default: out += "null"; return;
  }
}

void writeElements(std::string& out, const resbuf* first, const resbuf* stop) {
  bool any = false;
  for (const resbuf* e = first; e && e != stop && e->restype != RTLE; e = ZEL::rbSkipElement(e)) {
    if (any) out += ", ";
    any = true;
    writeElement(out, e);
  }
}

void writeValue(std::string& out, const resbuf* chain) {
  if (!chain) { out += "null"; return; }
  if (!ZEL::rbSkipElement(chain)) { writeElement(out, chain); return; }  // one element
  out += "[";
  writeElements(out, chain, nullptr);
  out += "]";
}

void writeDir(std::string& out, const CZelDataDir& dir, int depth);

void writeItem(std::string& out, const CZelDataItem& item, int depth) {
  if (item.isDir()) writeDir(out, *item.getDir(), depth);
  else writeValue(out, item.value());
}

void writeDir(std::string& out, const CZelDataDir& dir, int depth) {
  if (dir.isEmpty()) { out += "{}"; return; }
  out += "{\n";
  std::string indent(static_cast<std::size_t>(depth + 1) * 2, ' ');
  for (int i = 0; i < dir.count(); ++i) {
    out += indent;
    writeString(out, dir.nameAt(i).c_str());
    out += ": ";
    writeItem(out, *dir.itemAt(i), depth + 1);
    out += i + 1 < dir.count() ? ",\n" : "\n";
  }
  out.append(static_cast<std::size_t>(depth) * 2, ' ');
  out += "}";
}

}  // namespace

CZelDataItem* CStoreFile::parse(std::string_view text, const std::string& source) {
  const char* pos = text.data();
  TrackedIter first{text.data(), &pos};
  TrackedIter last{text.data() + text.size(), nullptr};
  ItemBuilder builder(&pos);
  bool ok = json::sax_parse(first, last, &builder, json::input_format_t::json, true, false);
  if (ok && builder.root) {
    ZEL::setLastFileError({});
    return builder.root.release();
  }
  std::size_t offset = builder.syntaxError ? tokenStart(text, builder.syntaxOffset())
                       : builder.errorAt ? tokenStart(text, static_cast<std::size_t>(builder.errorAt - text.data()), true)
                                         : text.size();
  std::string message = builder.error.empty() ? "the file holds no value" : builder.error;
  ZEL::setLastFileError(source + ":" + place(text, offset) + ": " + message);
  return nullptr;
}

bool CStoreFile::readFile(const std::string& path, std::string& bytes) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    ZEL::setLastFileError(path + ": cannot be read (missing or not accessible)");
    return false;
  }
  std::ostringstream ss;
  ss << in.rdbuf();
  bytes = std::move(ss).str();
  return true;
}

CZelDataItem* CStoreFile::load(const std::string& path) {
  std::string bytes;
  if (!readFile(path, bytes)) return nullptr;
  return parse(bytes, path);
}

std::string CStoreFile::toText(const CZelDataItem& item) {
  std::string out;
  writeItem(out, item, 0);
  out += '\n';
  return out;
}

std::string CStoreFile::dirToText(const CZelDataDir& dir) {
  std::string out;
  writeDir(out, dir, 0);
  out += '\n';
  return out;
}

std::string CStoreFile::valueToText(const resbuf* chain) {
  std::string out;
  writeValue(out, chain);
  return out;
}

bool CStoreFile::save(const std::string& path, const CZelDataItem& item) { return writeAtomic(path, toText(item)); }
bool CStoreFile::saveDir(const std::string& path, const CZelDataDir& dir) { return writeAtomic(path, dirToText(dir)); }

bool CStoreFile::writeAtomic(const std::string& path, std::string_view bytes) {
  std::string tmp = path + ".tmp" + std::to_string(::getpid());
  std::FILE* f = std::fopen(tmp.c_str(), "wb");
  if (!f) {
    ZEL::setLastFileError(path + ": cannot be written (cannot create " + tmp + ")");
    return false;
  }
  bool ok = std::fwrite(bytes.data(), 1, bytes.size(), f) == bytes.size();
  ok = std::fflush(f) == 0 && ok;
  ok = ::fsync(fileno(f)) == 0 && ok;
  ok = std::fclose(f) == 0 && ok;
  if (!ok || std::rename(tmp.c_str(), path.c_str()) != 0) {
    std::remove(tmp.c_str());
    ZEL::setLastFileError(path + ": cannot be written");
    return false;
  }
  return true;
}
