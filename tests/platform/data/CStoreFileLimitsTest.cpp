// Store files at their limits: text that is not valid Unicode, U+0000, deep nesting, long
// lists, numbers that cannot be kept, and saves that fail, through links, keeping modes.
// Whatever a save writes loads again; whatever loading refuses is named with its place.
#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelDataDir.h"
#include "data/CZelDataItem.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::unique_ptr<CZelDataItem> parse(std::string_view text) {
  return std::unique_ptr<CZelDataItem>(CStoreFile::parse(text, "mem.json"));
}

std::string errorOf(std::string_view text) {
  std::unique_ptr<CZelDataItem> item(CStoreFile::parse(text, "mem.json"));
  EXPECT_EQ(item, nullptr) << "accepted: " << text.substr(0, 80);
  return ZEL::lastFileError();
}

std::string repeat(const std::string& s, int n) {
  std::string out;
  out.reserve(s.size() * static_cast<std::size_t>(n));
  for (int i = 0; i < n; ++i) out += s;
  return out;
}

std::string slurp(const std::filesystem::path& p) {
  std::ifstream in(p, std::ios::binary);
  std::stringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

class CStoreFileLimitsTest : public ::testing::Test {
protected:
  void SetUp() override {
    m_dir = std::filesystem::temp_directory_path() /
            ("qen-storelimits-" + std::to_string(::getpid()) + "-" +
             ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::create_directories(m_dir);
  }
  void TearDown() override { std::filesystem::remove_all(m_dir); }
  std::string path(const char* name) const { return (m_dir / name).string(); }
  void write(const char* name, const std::string& text) const {
    std::ofstream out(m_dir / name, std::ios::binary);
    out << text;
  }
  std::filesystem::path m_dir;
};

// A directory item with the given names, each holding its own name's length.
std::unique_ptr<CZelDataItem> dirWithNames(std::initializer_list<std::wstring> names) {
  auto item = std::make_unique<CZelDataItem>();
  for (const auto& n : names) item->mkDir()->insert(CZelString(n), new CZelDataItem(ZEL::mkRbLong(static_cast<int>(n.size()))), false);
  return item;
}

}  // namespace

// --- Unicode -------------------------------------------------------------------------

TEST_F(CStoreFileLimitsTest, TextThatIsNotValidUnicodeIsSavedAsReplacementCharactersAndLoadsAgain) {
  std::wstring surrogate = L"A";
  surrogate += static_cast<wchar_t>(0xD800);
  std::wstring beyond = L"B";
  beyond += static_cast<wchar_t>(0x110000);
  auto item = dirWithNames({surrogate, L"TEXT"});
  CZelDataKey text(L"TEXT");
  ASSERT_TRUE(item->put(&text, ZEL::mkResbuf(beyond.c_str())));
  ASSERT_TRUE(CStoreFile::save(path("s.json"), *item)) << ZEL::lastFileError();
  std::unique_ptr<CZelDataItem> back(CStoreFile::load(path("s.json")));
  ASSERT_NE(back, nullptr) << ZEL::lastFileError();
  CZelString value;
  ASSERT_TRUE(back->get(value, &text));
  EXPECT_EQ(value, CZelString(L"B\xFFFD"));
  EXPECT_NE(back->getDir()->item(CZelString(L"A\xFFFD")), nullptr);
}

TEST_F(CStoreFileLimitsTest, NamesThatWouldBeWrittenAlikeAreNotSaved) {
  std::wstring surrogate = L"A";
  surrogate += static_cast<wchar_t>(0xD800);
  auto item = dirWithNames({surrogate, L"A\xFFFD"});
  EXPECT_FALSE(CStoreFile::save(path("s.json"), *item));
  EXPECT_NE(ZEL::lastFileError().find(path("s.json")), std::string::npos) << ZEL::lastFileError();
  EXPECT_NE(ZEL::lastFileError().find("twice"), std::string::npos) << ZEL::lastFileError();
  EXPECT_FALSE(std::filesystem::exists(path("s.json")));
}

TEST_F(CStoreFileLimitsTest, UPlus0000IsRefusedWhenReadingAndNeverWritten) {
  std::string names = errorOf(R"({"A\u0000x": 1, "A\u0000y": 2})");
  EXPECT_EQ(names.substr(0, 13), "mem.json:1:2:") << names;
  EXPECT_NE(names.find("U+0000"), std::string::npos) << names;
  std::string value = errorOf("{\n  \"A\": \"cut \\u0000 here\"\n}");
  EXPECT_EQ(value.substr(0, 13), "mem.json:2:8:") << value;
  EXPECT_NE(errorOf(R"({"A": {"$ename": "2\u0000F"}})").find("U+0000"), std::string::npos);

  // Names held in memory with U+0000 are written with U+FFFD in its place: two names stay two.
  auto item = dirWithNames({std::wstring(L"A\0x", 3), std::wstring(L"A\0y", 3)});
  ASSERT_TRUE(CStoreFile::save(path("s.json"), *item)) << ZEL::lastFileError();
  std::unique_ptr<CZelDataItem> back(CStoreFile::load(path("s.json")));
  ASSERT_NE(back, nullptr) << ZEL::lastFileError();
  ASSERT_EQ(back->getDir()->count(), 2);
  EXPECT_EQ(back->getDir()->nameAt(0), CZelString(L"A\xFFFDx"));
  EXPECT_EQ(back->getDir()->nameAt(1), CZelString(L"A\xFFFDy"));
}

// --- the top of a store file ---------------------------------------------------------

TEST_F(CStoreFileLimitsTest, AStoreWhoseTopIsNotADirectoryIsRefusedWithItsPlace) {
  ZEL::CConfig config;
  for (const std::string& text : {std::string("[1, 2]\n"), std::string("\n  5\n"), std::string("\"x\"")}) {
    write("s.json", text);
    EXPECT_FALSE(config.loadFromFile(path("s.json"))) << text;
    EXPECT_NE(ZEL::lastFileError().find("directory"), std::string::npos) << ZEL::lastFileError();
  }
  EXPECT_NE(ZEL::lastFileError().find("s.json:1:1:"), std::string::npos) << ZEL::lastFileError();
  write("s.json", "\n  5\n");
  config.loadFromFile(path("s.json"));
  EXPECT_NE(ZEL::lastFileError().find("s.json:2:3:"), std::string::npos) << ZEL::lastFileError();
}

// --- nesting -------------------------------------------------------------------------

TEST_F(CStoreFileLimitsTest, DeepNestingIsRefusedWithItsPlaceInsteadOfOverflowingTheStack) {
  const std::pair<const char*, std::string> cases[] = {
      {"points", "{\"A\": {\"$points\": " + repeat("[", 12000) + repeat("]", 12000) + "}}"},
      {"arrays", "{\"A\": " + repeat("[", 21000) + "1" + repeat("]", 21000) + "}"},
      {"pairs", "{\"A\": " + repeat("{\"$pair\": [1, ", 5000) + "1" + repeat("]}", 5000) + "}"},
      {"directories", repeat("{\"a\": ", 16000) + "1" + repeat("}", 16000)},
  };
  for (const auto& [what, text] : cases) {
    std::string error = errorOf(text);
    EXPECT_NE(error.find("nested more than 128 levels"), std::string::npos) << what << ": " << error;
    EXPECT_EQ(error.substr(0, 11), "mem.json:1:") << what;
  }
  // The 129th level is named: "{\"a\": " is six characters wide.
  EXPECT_EQ(errorOf(repeat("{\"a\": ", 129) + "1" + repeat("}", 129)).substr(0, 15), "mem.json:1:769:");
}

TEST_F(CStoreFileLimitsTest, NestingUpToTheLimitReadsAndWritesBackWithBoundedIndentation) {
  for (const std::string& text : {repeat("{\"a\": ", 128) + "1" + repeat("}", 128),
                                  "{\"A\": " + repeat("[", 127) + "1" + repeat("]", 127) + "}",
                                  "{\"A\": " + repeat("{\"$pair\": [1, ", 63) + "{\"$short\": 1}" + repeat("]}", 63) + "}"}) {
    auto item = parse(text);
    ASSERT_NE(item, nullptr) << ZEL::lastFileError();
    ASSERT_TRUE(CStoreFile::save(path("s.json"), *item)) << ZEL::lastFileError();
    std::string saved = slurp(m_dir / "s.json");
    auto again = parse(saved);
    ASSERT_NE(again, nullptr) << ZEL::lastFileError();
    EXPECT_TRUE(*item == *again);
    EXPECT_LT(saved.size(), 16 * text.size());  // the layout grows with the data, not with the depth
    std::istringstream lines(saved);
    for (std::string line; std::getline(lines, line);) ASSERT_LE(line.find_first_not_of(' '), 32u) << line.substr(0, 60);
  }
}

TEST_F(CStoreFileLimitsTest, ATreeDeeperThanAFileMayBeIsNotSaved) {
  CZelDataItem root;
  CZelDataKey key;
  for (int i = 0; i < 200; ++i) key.append(5005, L"D");
  ASSERT_TRUE(root.put(&key, ZEL::mkRbLong(1)));
  EXPECT_FALSE(CStoreFile::save(path("deep.json"), root));
  EXPECT_NE(ZEL::lastFileError().find("nested more than 128"), std::string::npos) << ZEL::lastFileError();
  EXPECT_FALSE(std::filesystem::exists(path("deep.json")));
  // A list nested past the limit inside a shallow store is refused just the same.
  resbuf* list = ZEL::mkRbLong(1);
  for (int i = 0; i < 130; ++i) list = ZEL::rbToList(list);
  CZelDataItem shallow;
  CZelDataKey a(L"A");
  ASSERT_TRUE(shallow.put(&a, list));
  EXPECT_FALSE(CStoreFile::save(path("deep.json"), shallow));
  EXPECT_FALSE(std::filesystem::exists(path("deep.json")));
}

// --- long lists ----------------------------------------------------------------------

TEST_F(CStoreFileLimitsTest, AListLoadsInLinearTime) {
  auto seconds = [](int n) {
    std::string text = "{\"A\": [" + repeat("1, ", n - 1) + "2]}";
    auto start = std::chrono::steady_clock::now();
    auto item = parse(text);
    double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    EXPECT_NE(item, nullptr);
    CZelArrayTempl<int> values;
    CZelDataKey a(L"A");
    EXPECT_TRUE(item && item->get(values, &a));
    EXPECT_EQ(values.count(), n);
    EXPECT_EQ(values.count() ? values[values.count() - 1] : 0, 2);
    return s;
  };
  seconds(20000);  // warm up the allocator
  double small = seconds(50000);
  double large = seconds(400000);
  // Eight times the elements: about eight times the time when linear, 64 times when quadratic.
  EXPECT_LT(large, 24 * small + 0.05) << small << " s for 50,000, " << large << " s for 400,000";
}

// --- numbers -------------------------------------------------------------------------

TEST_F(CStoreFileLimitsTest, NumbersThatWouldChangeValueAreRefusedWithTheirPlace) {
  std::string huge = errorOf("{\n  \"A\": 123456789012345678901234567890\n}");
  EXPECT_EQ(huge.substr(0, 13), "mem.json:2:8:") << huge;
  EXPECT_NE(huge.find("does not fit"), std::string::npos) << huge;
  EXPECT_NE(errorOf(R"({"A": -98765432109876543210})").find("does not fit"), std::string::npos);
  std::string tiny = errorOf(R"({"A": [1.0, 1e-400]})");
  EXPECT_EQ(tiny.substr(0, 13), "mem.json:1:13") << tiny;
  EXPECT_NE(tiny.find("too small"), std::string::npos) << tiny;
  EXPECT_NE(errorOf(R"({"A": -2.5e-999})").find("too small"), std::string::npos);
  EXPECT_NE(errorOf(R"({"A": {"$points": [[0.0, 1e-400]]}})").find("too small"), std::string::npos);
  EXPECT_NE(errorOf(R"({"A": {"$points": [[0.0, 100000000000000000000000]]}})").find("does not fit"), std::string::npos);
  EXPECT_NE(errorOf(R"({"A": 1e400})").find("mem.json:1:7"), std::string::npos);
  // Zero written in any form, and reals near the smallest, are kept.
  for (const char* ok : {R"({"A": 0e-400})", R"({"A": 0.000e5})", R"({"A": -0.0})", R"({"A": 1e-310})", R"({"A": 5e-324})"})
    EXPECT_NE(parse(ok), nullptr) << ok << ": " << ZEL::lastFileError();
}

// --- reading and writing files -------------------------------------------------------

TEST_F(CStoreFileLimitsTest, ReadErrorsNameTheFileAndTheSystemsReason) {
  std::filesystem::create_directories(m_dir / "folder");
  EXPECT_EQ(CStoreFile::load(path("folder")), nullptr);
  EXPECT_EQ(ZEL::lastFileError(), path("folder") + ": cannot be read: " + std::strerror(EISDIR));
  EXPECT_EQ(CStoreFile::load(path("missing.json")), nullptr);
  EXPECT_EQ(ZEL::lastFileError(), path("missing.json") + ": cannot be read: " + std::strerror(ENOENT));
}

TEST_F(CStoreFileLimitsTest, SaveErrorsNameTheFileAndTheSystemsReason) {
  auto item = parse(R"({"A": 1})");
  ASSERT_NE(item, nullptr);
  std::filesystem::create_directories(m_dir / "folder");
  EXPECT_FALSE(CStoreFile::save(path("folder"), *item));
  EXPECT_EQ(ZEL::lastFileError(), path("folder") + ": cannot be written: " + std::strerror(EISDIR));
  EXPECT_TRUE(std::filesystem::is_directory(m_dir / "folder"));

  EXPECT_FALSE(CStoreFile::save(path("none/s.json"), *item));
  EXPECT_NE(ZEL::lastFileError().find(std::strerror(ENOENT)), std::string::npos) << ZEL::lastFileError();

  // A write that the system stops (here: a file size limit, as a full disk would) names
  // the reason and leaves the old file and no temporary behind.
  write("s.json", "{\"OLD\": 1}\n");
  auto big = std::make_unique<CZelDataItem>();
  CZelDataKey text(L"TEXT");
  ASSERT_TRUE(big->put(&text, ZEL::mkResbuf(std::wstring(100000, L'x').c_str())));
  struct rlimit before {};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
  struct rlimit small = before;
  small.rlim_cur = 4096;
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
  bool saved = CStoreFile::save(path("s.json"), *big);
  ::setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, oldHandler);
  EXPECT_FALSE(saved);
  EXPECT_EQ(ZEL::lastFileError(), path("s.json") + ": cannot be written: " + std::strerror(EFBIG));
  EXPECT_EQ(slurp(m_dir / "s.json"), "{\"OLD\": 1}\n");
  int files = 0;
  for (const auto& e : std::filesystem::directory_iterator(m_dir)) files += e.is_regular_file() ? 1 : 0;
  EXPECT_EQ(files, 1);
}

TEST_F(CStoreFileLimitsTest, ASaveThroughASymbolicLinkReplacesTheTargetAndKeepsTheLink) {
  std::filesystem::create_directories(m_dir / "real");
  write("real/store.json", "{\"A\": 1}\n");
  std::filesystem::create_symlink("real/store.json", m_dir / "link.json");
  std::filesystem::create_symlink("link.json", m_dir / "chain.json");
  auto item = parse(R"({"A": 2})");
  ASSERT_TRUE(CStoreFile::save(path("chain.json"), *item)) << ZEL::lastFileError();
  EXPECT_TRUE(std::filesystem::is_symlink(m_dir / "chain.json"));
  EXPECT_TRUE(std::filesystem::is_symlink(m_dir / "link.json"));
  EXPECT_EQ(slurp(m_dir / "real" / "store.json"), "{\n  \"A\": 2\n}\n");
  // A dangling link: the save creates the file it points to.
  std::filesystem::create_symlink("real/new.json", m_dir / "dangling.json");
  ASSERT_TRUE(CStoreFile::save(path("dangling.json"), *item)) << ZEL::lastFileError();
  EXPECT_TRUE(std::filesystem::is_symlink(m_dir / "dangling.json"));
  EXPECT_EQ(slurp(m_dir / "real" / "new.json"), "{\n  \"A\": 2\n}\n");
  // No temporary is left beside the link or the target.
  int entries = 0;
  for (const auto& e : std::filesystem::directory_iterator(m_dir / "real")) entries += e.is_regular_file() ? 1 : 0;
  EXPECT_EQ(entries, 2);
}

TEST_F(CStoreFileLimitsTest, ASaveKeepsTheFilesModeAndSplitsAHardLink) {
  auto item = parse(R"({"A": 2})");
  for (mode_t mode : {0600, 0640, 0444}) {
    write("s.json", "{\"A\": 1}\n");
    ASSERT_EQ(::chmod(path("s.json").c_str(), mode), 0);
    ASSERT_TRUE(CStoreFile::save(path("s.json"), *item)) << ZEL::lastFileError();
    struct stat st {};
    ASSERT_EQ(::stat(path("s.json").c_str(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, mode);
  }
  // A hard link is split: the saved name holds the new content, the other name the old.
  write("one.json", "{\"A\": 1}\n");
  std::filesystem::create_hard_link(m_dir / "one.json", m_dir / "two.json");
  ASSERT_TRUE(CStoreFile::save(path("one.json"), *item));
  EXPECT_EQ(slurp(m_dir / "one.json"), "{\n  \"A\": 2\n}\n");
  EXPECT_EQ(slurp(m_dir / "two.json"), "{\"A\": 1}\n");
}
