// What the standard-parts dialog tests share: a store on the real catalogue, the dialog
// run through its entry function under a script, and store readers.
#pragma once

#include "qen_mfc.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelDataDir.h"
#include "data/ZelDataFiles.h"
#include "norm/ZelNormGen.h"
#include "standardparts/QenNrmStore.h"
#include "tests/support/DialogRun.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <unistd.h>
#include <optional>
#include <string>
#include <vector>

class NrmDialogTest : public ::testing::Test {
protected:
  void SetUp() override {
    setenv("QEN_NORM_DB", QEN_NORM_DB_FILE, 1);
    // The article table and the libraries live in a data folder of the test's own.
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    m_dir = std::filesystem::temp_directory_path() /
            ("qen-nrm-" + std::to_string(::getpid()) + "-" + info->name());
    std::filesystem::create_directories(m_dir);
    ZEL::setDataFolder(m_dir.string());
    ZEL::cfgMgrPtr()->reset(CStoreFile::parse(R"json({"_COUNTRY": "de"})json", "store"));
    ZEL::norm_gen_init(false);
  }

  void TearDown() override {
    ZEL::setDataFolder(".");
    std::filesystem::remove_all(m_dir);
  }

  // Puts a JSON object's keys into the store (store-file form).
  static void store(const std::string& json) {
    std::unique_ptr<CZelDataItem> item(CStoreFile::parse(json, "prepared"));
    ASSERT_TRUE(item && item->isDir());
    for (int i = 0; i < item->getDir()->count(); ++i)
      ZEL::cfg_set(CZelDataKey(item->getDir()->nameAt(i)), item->getDir()->itemAt(i)->clone(), true);
  }

  static DialogRun run(const std::string& script, int projections = 0, bool editExisting = false, bool sheared = false,
                       CSharpDialogInterface* picker = nullptr) {
    qenDlgEnv_st env;
    return runUnderScript(script, [&] {
      return static_cast<INT_PTR>(qenNormMenu(env, projections, editExisting, sheared, picker));
    });
  }

  static std::optional<std::string> text(const wchar_t* path) {
    std::optional<CZelString> v = qen::nrm::getText(path);
    return v ? std::optional<std::string>(v->toUtf8()) : std::nullopt;
  }
  static std::optional<int> integer(const wchar_t* path) { return qen::nrm::getInt(path); }
  static std::optional<double> real(const wchar_t* path) { return qen::nrm::getReal(path); }
  static std::vector<std::string> stack(const wchar_t* path = L"*NM*\\STACK") {
    return qen::nrm::getStack(path).value_or(std::vector<std::string>{});
  }

  // A store whose "*NM*" selects a standard.
  static void select(const std::string& stackJson, const std::string& more = "") {
    store(R"({"*NM*": {"STACK": )" + stackJson + (more.empty() ? "" : ", " + more) + "}}");
  }

  std::filesystem::path m_dir;
};

inline const char* const kIso4017 = R"(["PIECE", "SCREW", "HEX", "ISO4017"])";
