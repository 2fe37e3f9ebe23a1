// Fuzzes the drawing reader. Any input is either read or refused with a message naming
// the file; a drawing that was read saves, and what was saved reads again.
#include "data/CStoreFile.h"
#include "data/CZelDrawing.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <unistd.h>

namespace {

[[noreturn]] void broken(const char* what, const std::string& detail) {
  std::fprintf(stderr, "drawing: %s\n%s\n", what, detail.c_str());
  std::abort();
}

// Saved drawings go to memory where the system has a RAM folder: a save syncs the file.
const std::string& savePath() {
  static const std::string path = (access("/dev/shm", W_OK) == 0 ? std::string("/dev/shm") : std::string("/tmp")) +
                                  "/qen-drawing-fuzz-" + std::to_string(getpid()) + ".json";
  return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text(reinterpret_cast<const char*>(data), size);
  CZelDrawing drawing;
  if (!drawing.loadText(text, "in.json")) {
    const std::string& error = ZEL::lastFileError();
    if (error.rfind("in.json", 0) != 0) broken("a refusal that does not name the file", error);
    return 0;
  }
  if (!drawing.save(savePath())) broken("a drawing that was read cannot be saved", ZEL::lastFileError());
  CZelDrawing again;
  if (!again.load(savePath())) broken("the reader refuses what the writer wrote", ZEL::lastFileError());
  if (again.layers.size() != drawing.layers.size() || again.objectHandles().size() != drawing.objectHandles().size())
    broken("layers or objects were lost on the way through a file", savePath());
  unlink(savePath().c_str());
  return 0;
}
