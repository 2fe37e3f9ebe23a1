// The host functions of qen-host, reached through the module's command functions as the
// dialogs reach them: favourites, the object library, selections.
#include "HostLispFunctions.h"

#include "qen_mfc.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelApp.h"
#include "data/ZelDataAccess.h"
#include "data/CZelDrawing.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>

namespace {

class HostLispFunctionsTest : public ::testing::Test {
protected:
  void SetUp() override {
    m_dir = std::filesystem::temp_directory_path() / ("qen-lisp-" + std::to_string(::getpid()));
    std::filesystem::create_directories(m_dir);
    std::ofstream(m_dir / "d.json") << "{}";
    ASSERT_TRUE(CZelDrawing::current().load((m_dir / "d.json").string()));
    ZEL::cfgMgrPtr()->reset(CStoreFile::parse(R"({"*HZ_KLOTZ*": {"MAT": "PP", "B": 30.0, "H": 5.0, "MODE": "MAIN"}})", "s"));
    hostRegisterLispFunctions();
  }
  void TearDown() override {
    CZelDrawing::current().reset();
    std::filesystem::remove_all(m_dir);
  }
  static double width() {
    double b = 0;
    ZEL::cfg_get(L"*HZ_KLOTZ*\\B")->get(b);
    return b;
  }
  std::filesystem::path m_dir;
};

}  // namespace

TEST_F(HostLispFunctionsTest, FavouritesSaveAndRestoreTheTypesSettings) {
  fav_save(L"KLOTZ");
  EXPECT_TRUE(std::filesystem::exists(m_dir / "favourites" / "KLOTZ.json"));
  ZEL::cfg_set(L"*HZ_KLOTZ*\\B", ZEL::mkDataItem(ZEL::mkRbReal(99.0)), true);
  fav_restore(L"KLOTZ");
  EXPECT_EQ(width(), 30.0);
  fav_restore(L"DICHT");  // no favourite: nothing changes, nothing breaks
  EXPECT_EQ(ZEL::cfg_get(L"*HZ_DICHT*"), nullptr);
}

TEST_F(HostLispFunctionsTest, SavedObjectsComeBackFromTheLibraryAndBecomeCurrent) {
  EXPECT_FALSE(obj_lib1(nullptr));
  EXPECT_EQ(obj_restore(L"KLOTZ", 1, nullptr), 0);
  ASSERT_TRUE(obj_save(L"KLOTZ"));
  EXPECT_TRUE(std::filesystem::exists(m_dir / "library" / "KLOTZ" / "KLOTZ_PP_B=30_H=5.json"));
  ZEL::CAdsName current;
  ASSERT_TRUE(ZEL::zelAppPtr()->editedObject(L"KLOTZ", current));
  CZelString type;
  CZelDataKey k(L"TYPE");
  EXPECT_TRUE(CZelDrawing::current().objectData(current.handle())->get(type, &k));
  EXPECT_EQ(type, CZelString(L"KLOTZ"));
  CZelDataKey mode(L"MODE");
  EXPECT_EQ(CZelDrawing::current().objectData(current.handle())->find(&mode), nullptr);

  ZEL::cfg_set(L"*HZ_KLOTZ*\\B", ZEL::mkDataItem(ZEL::mkRbReal(99.0)), true);
  EXPECT_EQ(obj_restore(L"KLOTZ", 1, nullptr), 1);
  EXPECT_EQ(width(), 30.0);
  EXPECT_EQ(ZEL::cfg_get(L"*HZ_KLOTZ*\\TYPE"), nullptr);
  EXPECT_TRUE(obj_lib1(nullptr));
  EXPECT_NE(obj_lib1_init(L"KLOTZ").toUtf8().find("library"), std::string::npos);

  std::unique_ptr<CZelDataItem> names(dwg_dict_import(L"KLOTZ"));
  ASSERT_TRUE(names);
  CZelArrayTempl<CZelString> list;
  EXPECT_TRUE(names->get(list));
  EXPECT_EQ(list.count(), 1);
  std::unique_ptr<CZelDataItem> handles(ate_select_init(L"KLOTZ"));
  ASSERT_TRUE(handles);
  EXPECT_TRUE(handles->get(list));
  EXPECT_EQ(list.count(), 2);  // the saved and the restored object
  EXPECT_TRUE(ate_select(nullptr));
  EXPECT_FALSE(mat_edge());
}
