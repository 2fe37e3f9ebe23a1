// Store files: every value type reads and writes back exactly, bad files are refused with
// their line and column, saving is atomic.
#include "data/CStoreFile.h"
#include "data/CZelDataDir.h"
#include "data/CZelDataItem.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>

namespace {

const char* const kEveryType =
    "{\n"
    "  \"REAL\": 0.1,\n"
    "  \"BIG\": 1e+300,\n"
    "  \"TINY\": 5e-324,\n"
    "  \"NEG\": -0.0,\n"
    "  \"WHOLE\": 30.0,\n"
    "  \"LONG\": -2147483648,\n"
    "  \"SHORT\": {\"$short\": 62},\n"
    "  \"TEXT\": \"Dämmung \\\"40\\\"\\n2. Zeile\\\\\",\n"
    "  \"ENAME\": {\"$ename\": \"2F\"},\n"
    "  \"T\": true,\n"
    "  \"NIL\": null,\n"
    "  \"LIST\": [\"a\", 1, 2.5, [\"nested\", [true]]],\n"
    "  \"ONE\": [\"a\"],\n"
    "  \"PAIRS\": [{\"$pair\": [62, 7]}, {\"$pair\": [2, \"ANSI31\"]}, {\"$pair\": [40, {\"$short\": 3}]}],\n"
    "  \"PAIR\": {\"$pair\": [50, 0.7853981633974483]},\n"
    "  \"VL\": {\"$points\": [[0.0, 0.0, 0.0], [100.0, 0.0, 0.41421356237309503], [100.0, 50.0, 0.0]]},\n"
    "  \"EMPTY\": {},\n"
    "  \"\": {\n"
    "    \"\": \"a node's own value under the empty name\"\n"
    "  },\n"
    "  \"DEEP\": {\n"
    "    \"A\": {\n"
    "      \"B\": {\n"
    "        \"C\": \"x\"\n"
    "      }\n"
    "    }\n"
    "  }\n"
    "}\n";

std::unique_ptr<CZelDataItem> parse(std::string_view text) {
  return std::unique_ptr<CZelDataItem>(CStoreFile::parse(text, "mem.json"));
}

std::string errorOf(std::string_view text) {
  EXPECT_EQ(parse(text), nullptr) << "accepted: " << text;
  return ZEL::lastFileError();
}

std::filesystem::path tempDir() {
  auto dir = std::filesystem::temp_directory_path() / ("qen-storefile-" + std::to_string(::getpid()));
  std::filesystem::create_directories(dir);
  return dir;
}

}  // namespace

TEST(CStoreFile, EveryValueTypeWritesBackTheSameText) {
  auto item = parse(kEveryType);
  ASSERT_TRUE(item) << ZEL::lastFileError();
  EXPECT_EQ(CStoreFile::toText(*item), kEveryType);
  // Read again from its own output: the same values.
  auto again = parse(CStoreFile::toText(*item));
  ASSERT_TRUE(again);
  EXPECT_TRUE(*item == *again);
}

TEST(CStoreFile, RealsReadBackAsTheSameDouble) {
  for (double v : {0.1, 1.0 / 3.0, 2.0 / 3.0 * 1e-7, 123456789.123456789, std::numeric_limits<double>::max(),
                   std::numeric_limits<double>::denorm_min(), -1e-300, 30.0, 1e21, 1e22}) {
    CZelDataItem item(ZEL::mkRbReal(v));
    std::string text = CStoreFile::toText(item);
    auto back = parse(text);
    ASSERT_TRUE(back) << text;
    ASSERT_EQ(back->value()->restype, RTREAL) << text;  // never read back as a long
    EXPECT_EQ(std::memcmp(&back->value()->resval.rreal, &v, sizeof v), 0) << text;
  }
}

TEST(CStoreFile, TypesAreTakenFromTheTextAsWritten) {
  auto item = parse(R"({"A": 1, "B": 1.0, "C": 1e3, "D": false, "E": []})");
  ASSERT_TRUE(item);
  CZelDataKey a(L"A"), b(L"B"), c(L"C"), d(L"D"), e(L"E");
  EXPECT_EQ(item->valueAt(&a)->restype, RTLONG);
  EXPECT_EQ(item->valueAt(&b)->restype, RTREAL);
  EXPECT_EQ(item->valueAt(&c)->restype, RTREAL);
  EXPECT_EQ(item->valueAt(&d)->restype, RTNIL);
  EXPECT_EQ(item->valueAt(&e)->restype, RTNIL);
  // false and [] are written back as null
  EXPECT_NE(CStoreFile::toText(*item).find("\"D\": null"), std::string::npos);
  EXPECT_NE(CStoreFile::toText(*item).find("\"E\": null"), std::string::npos);
}

TEST(CStoreFile, RefusesBadFilesNamingLineAndColumn) {
  EXPECT_EQ(errorOf("{\n  \"A\": 1,\n  \"B\": tru\n}").substr(0, 12), "mem.json:3:8");
  EXPECT_EQ(errorOf("{\n  \"A\": 1\n  \"B\": 2\n}").substr(0, 12), "mem.json:3:3");
  std::string dup = errorOf("{\"A\": 1,\n \"A\": 2}");
  EXPECT_EQ(dup.substr(0, 12), "mem.json:2:2") << dup;
  EXPECT_NE(dup.find("stands twice"), std::string::npos) << dup;
  std::string big = errorOf("{\"A\": 4294967296}");
  EXPECT_EQ(big.substr(0, 12), "mem.json:1:7") << big;
  EXPECT_NE(big.find("does not fit"), std::string::npos) << big;
  EXPECT_NE(errorOf(R"({"A": {"$float": 1}})").find("unknown form"), std::string::npos);
  EXPECT_NE(errorOf(R"({"A": [{"X": 1}]})").find("cannot stand inside a list"), std::string::npos);
  EXPECT_NE(errorOf(R"({"A": {"$short": 70000}})").find("$short"), std::string::npos);
  EXPECT_NE(errorOf(R"({"A": {"$short": 1, "B": 2}})").find("exactly one member"), std::string::npos);
  EXPECT_NE(errorOf(R"({"A": {"B": 1, "$short": 2}})").find("never start with '$'"), std::string::npos);
  EXPECT_NE(errorOf("").find("mem.json:1:1"), std::string::npos);
  EXPECT_NE(errorOf("{} {}").find("mem.json:"), std::string::npos);
}

TEST(CStoreFile, SaveReplacesTheFileAtomicallyAndLeavesNoTemporary) {
  auto dir = tempDir();
  auto path = (dir / "store.json").string();
  auto item = parse(kEveryType);
  ASSERT_TRUE(item);
  ASSERT_TRUE(CStoreFile::save(path, *item));
  ASSERT_TRUE(CStoreFile::save(path, *item));
  int files = 0;
  for (auto& e : std::filesystem::directory_iterator(dir)) {
    (void)e;
    ++files;
  }
  EXPECT_EQ(files, 1);
  std::unique_ptr<CZelDataItem> loaded(CStoreFile::load(path));
  ASSERT_TRUE(loaded);
  EXPECT_TRUE(*loaded == *item);
  EXPECT_FALSE(CStoreFile::save((dir / "no-such-dir" / "x.json").string(), *item));
  EXPECT_NE(ZEL::lastFileError().find("no-such-dir"), std::string::npos);
  EXPECT_EQ(CStoreFile::load((dir / "missing.json").string()), nullptr);
  EXPECT_NE(ZEL::lastFileError().find("missing.json"), std::string::npos);
  std::filesystem::remove_all(dir);
}

TEST(CStoreFile, DirectoriesSaveAndLoadWholeOrASubItem) {
  auto dir = tempDir();
  auto item = parse(R"({"*HZ_KLOTZ*": {"B": 30.0, "SUB": {"X": "y"}}, "*AXIS*": {}})");
  ASSERT_TRUE(item);
  CZelDataDir* d = item->getDir();
  auto whole = (dir / "whole.json").string();
  auto part = (dir / "part.json").string();
  ASSERT_TRUE(d->saveToFile(CZelString::fromUtf8(whole)));
  CZelDataKey sub;
  sub.set(5005, L"*HZ_KLOTZ*", 5005, L"SUB", 0);
  ASSERT_TRUE(d->saveToFile(CZelString::fromUtf8(part), &sub));
  CZelDataKey missing(L"*NOPE*");
  EXPECT_FALSE(d->saveToFile(CZelString::fromUtf8(part), &missing));

  CZelDataItem target;
  ASSERT_TRUE(target.mkDir()->loadFromFile(CZelString::fromUtf8(whole)));
  EXPECT_TRUE(target == *item);
  CZelDataKey into;
  into.set(5005, L"*COPY*", 5005, L"HERE", 0);
  ASSERT_TRUE(target.getDir()->loadFromFile(CZelString::fromUtf8(part), &into));
  CZelString x;
  CZelDataKey kx;
  kx.set(5005, L"*COPY*", 5005, L"HERE", 5005, L"X", 0);
  EXPECT_TRUE(target.get(x, &kx));
  EXPECT_EQ(x, CZelString(L"y"));
  EXPECT_FALSE(target.getDir()->loadFromFile(CZelString::fromUtf8((dir / "none.json").string())));
  EXPECT_TRUE(target == target);
  std::filesystem::remove_all(dir);
}
