// Fuzzes the store-file reader and writer. Any input is either read or refused with a
// message that names the source and a place; what was read can always be written, and
// what was written reads back as the same values and writes the same text again.
#include "data/CStoreFile.h"
#include "data/CZelDataItem.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

namespace {

[[noreturn]] void broken(const char* what, const std::string& detail) {
  std::fprintf(stderr, "store file: %s\n%s\n", what, detail.c_str());
  std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view text(reinterpret_cast<const char*>(data), size);
  std::unique_ptr<CZelDataItem> item(CStoreFile::parse(text, "in"));
  if (!item) {
    const std::string& error = ZEL::lastFileError();
    if (error.rfind("in:", 0) != 0 || error.find(": ", 3) == std::string::npos) broken("a refusal without its place", error);
    return 0;
  }
  std::string out;
  std::string why;
  if (!CStoreFile::toText(*item, out, why)) broken("what was read cannot be written", why);
  std::unique_ptr<CZelDataItem> again(CStoreFile::parse(out, "out"));
  if (!again) broken("the reader refuses what the writer wrote", ZEL::lastFileError() + "\n" + out);
  if (!(*item == *again)) broken("the values changed on the way through a file", out);
  if (CStoreFile::toText(*again) != out) broken("writing again gives other text", out);
  std::unique_ptr<CZelDataItem> asStore(CStoreFile::parseDirectory(text, "in"));
  if (!asStore != !item->isDir()) broken("a store file is a directory at its top", ZEL::lastFileError());
  return 0;
}
