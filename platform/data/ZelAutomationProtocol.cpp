// The wire format between automation clients and local automation servers.
#include "data/ZelAutomationProtocol.h"

#include <cstdlib>
#include <unistd.h>

namespace ZEL::automation {

std::string socketPath(std::string_view progId) {
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  std::string folder = runtime && *runtime ? std::string(runtime) + "/qen"
                                           : "/tmp/qen-" + std::to_string(::getuid());
  return folder + "/" + std::string(progId) + ".sock";
}

std::string encodeLine(const std::vector<std::string>& fields) {
  std::string out;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i) out += '\t';
    for (char c : fields[i]) {
      switch (c) {
        case '\\': out += "\\\\"; break;
        case '\t': out += "\\t"; break;
        case '\n': out += "\\n"; break;
        case '\r': out += "\\r"; break;
        default: out += c;
      }
    }
  }
  out += '\n';
  return out;
}

bool decodeLine(std::string_view line, std::vector<std::string>& fields) {
  fields.assign(1, std::string());
  for (std::size_t i = 0; i < line.size(); ++i) {
    char c = line[i];
    if (c == '\t') {
      fields.emplace_back();
    } else if (c == '\\') {
      if (++i == line.size()) return false;
      switch (line[i]) {
        case '\\': fields.back() += '\\'; break;
        case 't': fields.back() += '\t'; break;
        case 'n': fields.back() += '\n'; break;
        case 'r': fields.back() += '\r'; break;
        default: return false;
      }
    } else {
      fields.back() += c;
    }
  }
  return true;
}

}  // namespace ZEL::automation
