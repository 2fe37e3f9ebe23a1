#include "data/CStoreFile.h"

#include "data/CJsonText.h"
#include "data/CStoreWriter.h"
#include "data/CZelDataDir.h"
#include "data/CZelDataItem.h"
#include "data/resbuf.h"

#include <nlohmann/json.hpp>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <limits>
#include <memory>
#include <sys/stat.h>
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

using TrackedIter = CJsonText::TrackedIter;

std::string describe(const std::string& raw) { return raw.size() > 40 ? raw.substr(0, 37) + "..." : raw; }

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
      resbuf* list = ZEL::newRb(RTLB);
      resbuf* tail = list;
      for (const auto& e : v) {
        resbuf* rb = jsonToRb(e, err);
        if (!rb) { zelRelRb(list); return nullptr; }
        tail->rbnext = rb;
        tail = ZEL::rbLast(rb);
      }
      tail->rbnext = ZEL::newRb(RTLE);
      return list;
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
  bool number_float(number_float_t val, const string_t& raw) override {
    if (CJsonText::isOverlongInteger(raw))
      return fail("integer " + describe(raw) + " does not fit a long (32 bits); write it with a '.' to store a real");
    if (CJsonText::underflows(val, raw)) return fail("real " + describe(raw) + " is too small to be kept: it would read as 0.0");
    return scalar(ZEL::mkRbReal(val), json(val));
  }
  bool string(string_t& val) override {
    if (val.find('\0') != std::string::npos) return fail("U+0000 cannot stand in a string");
    if (capturing()) return scalar(nullptr, json(val));
    return scalar(ZEL::mkResbuf(CZelString::fromUtf8(val).c_str()), nullptr);
  }
  bool binary(binary_t&) override { return fail("binary values are not supported"); }

  bool start_object(std::size_t) override {
    if (!enter()) return false;
    if (capturing()) return captureOpen(json::object());
    m_frames.push_back(Frame(Frame::Pending));
    return true;
  }
  bool key(string_t& val) override {
    if (val.find('\0') != std::string::npos) return fail("U+0000 cannot stand in a name");
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
    --m_depth;
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
    if (!enter()) return false;
    if (capturing()) return captureOpen(json::array());
    m_frames.push_back(Frame(Frame::List));
    return true;
  }
  bool end_array() override {
    --m_depth;
    if (capturing()) return captureClose();
    Frame f = std::move(m_frames.back());
    m_frames.pop_back();
    if (!f.chain) return deliver(ZEL::newRb(RTNIL));
    resbuf* list = ZEL::newRb(RTLB);  // wrapped by hand: the tail is known, the chain is not walked again
    list->rbnext = f.chain;
    f.tail->rbnext = ZEL::newRb(RTLE);
    return deliver(list);
  }
  bool parse_error(std::size_t position, const std::string&, const nlohmann::detail::exception& ex) override {
    syntaxError = true;
    error = CJsonText::cleanMessage(ex.what());
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
    resbuf* tail = nullptr;        // List: the last atom of the chain, so that appending is not a walk
    std::string form;              // Special: "$short", …
    std::vector<json> captured;    // Special: the value being captured, nested containers open
    std::vector<std::string> captureKeys;
    int openDepth = 0;             // Special: containers of the captured value still open
  };

  bool enter() {
    if (++m_depth <= CJsonText::kMaxDepth) return true;
    return fail("nested more than " + std::to_string(CJsonText::kMaxDepth) +
                " levels deep (objects and arrays within each other)");
  }

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
        if (f.tail) f.tail->rbnext = rb;
        else f.chain = rb;
        f.tail = ZEL::rbLast(rb);
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
  int m_depth = 0;
};

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
  std::size_t offset =
      builder.syntaxError ? CJsonText::tokenStart(text, builder.syntaxOffset())
      : builder.errorAt   ? CJsonText::tokenStart(text, static_cast<std::size_t>(builder.errorAt - text.data()), true)
                          : text.size();
  std::string message = builder.error.empty() ? "the file holds no value" : builder.error;
  ZEL::setLastFileError(source + ":" + CJsonText::place(text, offset) + ": " + message);
  return nullptr;
}

CZelDataItem* CStoreFile::parseDirectory(std::string_view text, const std::string& source) {
  std::unique_ptr<CZelDataItem> item(parse(text, source));
  if (!item || item->isDir()) return item.release();
  std::size_t at = text.find_first_not_of(" \t\r\n");
  if (at == std::string_view::npos) at = 0;
  const char* what = text[at] == '[' ? "a list" : text[at] == '"' ? "a string" : "a single value";
  ZEL::setLastFileError(source + ":" + CJsonText::place(text, at) +
                        ": a store file holds a directory (a JSON object) at its top, not " + what);
  return nullptr;
}

bool CStoreFile::readFile(const std::string& path, std::string& bytes) {
  auto refuse = [&](int err) {
    ZEL::setLastFileError(path + ": cannot be read: " + std::strerror(err));
    return false;
  };
  int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return refuse(errno);
  struct stat st {};
  if (::fstat(fd, &st) != 0 || S_ISDIR(st.st_mode)) {
    int err = S_ISDIR(st.st_mode) ? EISDIR : errno;
    ::close(fd);
    return refuse(err);
  }
  std::string out;
  if (S_ISREG(st.st_mode)) out.reserve(static_cast<std::size_t>(st.st_size));
  char buf[65536];
  for (;;) {
    ssize_t n = ::read(fd, buf, sizeof buf);
    if (n == 0) break;
    if (n < 0) {
      if (errno == EINTR) continue;
      int err = errno;
      ::close(fd);
      return refuse(err);
    }
    out.append(buf, static_cast<std::size_t>(n));
  }
  ::close(fd);
  bytes = std::move(out);
  return true;
}

CZelDataItem* CStoreFile::load(const std::string& path) {
  std::string bytes;
  if (!readFile(path, bytes)) return nullptr;
  return parse(bytes, path);
}

CZelDataItem* CStoreFile::loadDirectory(const std::string& path) {
  std::string bytes;
  if (!readFile(path, bytes)) return nullptr;
  return parseDirectory(bytes, path);
}

bool CStoreFile::toText(const CZelDataItem& item, std::string& text, std::string& why) {
  CStoreWriter w;
  w.item(item);
  w.out += '\n';
  text = std::move(w.out);
  why = std::move(w.error);
  return why.empty();
}

std::string CStoreFile::toText(const CZelDataItem& item) {
  std::string text, why;
  toText(item, text, why);
  return text;
}

std::string CStoreFile::dirToText(const CZelDataDir& dir) {
  CStoreWriter w;
  w.dir(dir);
  w.out += '\n';
  return w.out;
}

std::string CStoreFile::valueToText(const resbuf* chain) {
  CStoreWriter w;
  w.value(chain);
  return w.out;
}

bool CStoreFile::save(const std::string& path, const CZelDataItem& item) {
  std::string text, why;
  if (!toText(item, text, why)) {
    ZEL::setLastFileError(path + ": not saved: " + why);
    return false;
  }
  return writeAtomic(path, text);
}

bool CStoreFile::saveDir(const std::string& path, const CZelDataDir& dir) {
  CStoreWriter w;
  w.dir(dir);
  if (!w.error.empty()) {
    ZEL::setLastFileError(path + ": not saved: " + w.error);
    return false;
  }
  w.out += '\n';
  return writeAtomic(path, w.out);
}

namespace {

// The file that a path names once symbolic links are followed: a save replaces the link's
// target, not the link. A dangling link names the file it would create.
bool followLinks(const std::string& path, std::string& target, int& err) {
  target = path;
  for (int hops = 0; hops < 40; ++hops) {
    struct stat st {};
    if (::lstat(target.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) return true;
    std::vector<char> buf(static_cast<std::size_t>(st.st_size > 0 ? st.st_size : 255) + 1);
    ssize_t n = ::readlink(target.c_str(), buf.data(), buf.size());
    if (n < 0) { err = errno; return false; }
    std::string link(buf.data(), static_cast<std::size_t>(n));
    if (link.empty() || link[0] != '/') {
      std::size_t slash = target.rfind('/');
      link = (slash == std::string::npos ? std::string() : target.substr(0, slash + 1)) + link;
    }
    target = std::move(link);
  }
  err = ELOOP;
  return false;
}

bool writeAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    ssize_t n = ::write(fd, bytes.data(), bytes.size());
    if (n < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(n));
  }
  return true;
}

}  // namespace

bool CStoreFile::writeAtomic(const std::string& path, std::string_view bytes) {
  auto refuse = [&](int err, const std::string& doing = {}) {
    ZEL::setLastFileError(path + ": cannot be written: " + std::strerror(err) + doing);
    return false;
  };
  std::string target;
  int err = 0;
  if (!followLinks(path, target, err)) return refuse(err, " (following the symbolic link)");
  struct stat old {};
  bool exists = ::stat(target.c_str(), &old) == 0;
  if (exists && S_ISDIR(old.st_mode)) return refuse(EISDIR);
  if (exists && !S_ISREG(old.st_mode)) {
    ZEL::setLastFileError(path + ": cannot be written: not a regular file");
    return false;
  }
  std::string tmp = target + ".tmp" + std::to_string(::getpid());
  // A new file gets the usual mode (0666 less the umask); a replaced one keeps its mode
  // and, where the system allows it, its owner, so a private store stays private.
  int fd = ::open(tmp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, exists ? 0600 : 0666);
  if (fd < 0) return refuse(errno, " (creating " + tmp + ")");
  bool ok = true;
  if (exists) {
    if (::fchown(fd, old.st_uid, old.st_gid) != 0) { /* not allowed to give it away: it stays the saver's */ }
    ok = ::fchmod(fd, old.st_mode & 07777) == 0;
  }
  ok = ok && writeAll(fd, bytes) && ::fsync(fd) == 0;
  err = errno;
  if (::close(fd) != 0 && ok) {
    ok = false;
    err = errno;
  }
  if (ok && ::rename(tmp.c_str(), target.c_str()) != 0) {
    ok = false;
    err = errno;
  }
  if (!ok) {
    ::unlink(tmp.c_str());
    return refuse(err);
  }
  // The rename itself is on the disk once the folder is.
  std::size_t slash = target.rfind('/');
  std::string folder = slash == std::string::npos ? std::string(".") : slash == 0 ? std::string("/") : target.substr(0, slash);
  int dfd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (dfd >= 0) {
    ::fsync(dfd);
    ::close(dfd);
  }
  return true;
}
