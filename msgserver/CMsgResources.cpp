// The texts of the message server, read from resource files.
#include "msgserver/CMsgResources.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::string_view trim(std::string_view s) {
  auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
  while (!s.empty() && blank(s.front())) s.remove_prefix(1);
  while (!s.empty() && blank(s.back())) s.remove_suffix(1);
  return s;
}

std::string lower(std::string_view s) {
  std::string out(s);
  for (char& c : out)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return out;
}

bool unescape(std::string_view in, std::string& out) {
  out.clear();
  for (std::size_t i = 0; i < in.size(); ++i) {
    if (in[i] != '\\') { out += in[i]; continue; }
    if (++i == in.size()) return false;
    switch (in[i]) {
      case 'n': out += '\n'; break;
      case 't': out += '\t'; break;
      case '\\': out += '\\'; break;
      default: return false;
    }
  }
  return true;
}

}  // namespace

bool CMsgResources::load(std::string_view text, const std::string& source) {
  std::map<std::string, std::map<std::string, std::string>> read;
  std::string key;
  std::size_t lineNo = 0;
  auto fail = [&](const std::string& why) {
    m_error = source + ":" + std::to_string(lineNo) + ": " + why;
    return false;
  };
  if (text.substr(0, 3) == "\xEF\xBB\xBF") text.remove_prefix(3);  // a byte-order mark some editors write
  while (!text.empty()) {
    ++lineNo;
    std::size_t eol = text.find('\n');
    std::string_view line = trim(text.substr(0, eol));
    text.remove_prefix(eol == std::string_view::npos ? text.size() : eol + 1);
    if (line.empty() || line.front() == '#' || line.front() == ';') continue;
    if (line.front() == '[') {
      if (line.back() != ']') return fail("a key line must end with ']'");
      std::string_view name = trim(line.substr(1, line.size() - 2));
      if (name.empty()) return fail("empty text key");
      if (name.find_first_of(" \t") != std::string_view::npos) return fail("a text key holds no blanks");
      key = std::string(name);
      read[key];  // a key without texts is still a key
      continue;
    }
    std::size_t eq = line.find('=');
    if (eq == std::string_view::npos) return fail("expected '[KEY]' or 'codes = text'");
    if (key.empty()) return fail("a text before the first '[KEY]'");
    std::string value;
    if (!unescape(trim(line.substr(eq + 1)), value)) return fail("unknown escape in the text (only \\n, \\t, \\\\)");
    std::string_view codes = line.substr(0, eq);
    bool any = false;
    while (!codes.empty()) {
      std::size_t comma = codes.find(',');
      std::string_view code = trim(codes.substr(0, comma));
      codes.remove_prefix(comma == std::string_view::npos ? codes.size() : comma + 1);
      if (code.empty() || code.find_first_of(" \t") != std::string_view::npos) return fail("bad country code list");
      read[key][lower(code)] = value;
      any = true;
    }
    if (!any) return fail("no country code before '='");
  }
  for (auto& [k, texts] : read)
    for (auto& [code, value] : texts) m_texts[k][code] = std::move(value);
  for (auto& [k, texts] : read) m_texts[k];
  m_error.clear();
  return true;
}

bool CMsgResources::loadFile(const std::string& path) {
  // Opened without waiting, so that a FIFO without a writer cannot hold the server (and
  // every client with it); then only a regular file is read, and at most kMaxFileBytes.
  int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
  if (fd < 0) {
    m_error = path + ": cannot be read (" + std::strerror(errno) + ")";
    return false;
  }
  struct stat st {};
  if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
    ::close(fd);
    m_error = path + ": not a regular file";
    return false;
  }
  std::string bytes;
  char buf[65536];
  bool tooLarge = false, failed = false;
  for (;;) {
    ssize_t n = ::read(fd, buf, sizeof(buf));
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) { failed = true; break; }
    if (n == 0) break;
    if (bytes.size() + static_cast<std::size_t>(n) > kMaxFileBytes) { tooLarge = true; break; }
    bytes.append(buf, static_cast<std::size_t>(n));
  }
  ::close(fd);
  if (failed) {
    m_error = path + ": cannot be read (" + std::strerror(errno) + ")";
    return false;
  }
  if (tooLarge) {
    m_error = path + ": larger than " + std::to_string(kMaxFileBytes) + " bytes, not a resource file";
    return false;
  }
  return load(bytes, path);
}

std::string CMsgResources::text(const std::string& key, std::string_view country) const {
  auto k = m_texts.find(key);
  if (k == m_texts.end()) return {};
  auto t = k->second.find(lower(country));
  return t == k->second.end() ? std::string() : t->second;
}
