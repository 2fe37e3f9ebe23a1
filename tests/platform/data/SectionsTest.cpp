// The settings store by key and path, sections opened as working copies or as the stored
// section, object data, in-memory items, and snapshots of a subtree.
#include "data/CCfgBackup.h"
#include "data/CConfig.h"
#include "data/CDtaFilePointer.h"
#include "data/CStoreFile.h"
#include "data/CUniqPointer.h"
#include "data/CZelDrawing.h"
#include "data/ZelDataAccess.h"

#include <gtest/gtest.h>

namespace {

class SectionsTest : public ::testing::Test {
protected:
  void SetUp() override {
    ZEL::cfgMgrPtr()->reset(CStoreFile::parse(R"({"*HZ_KLOTZ*": {"B": 30.0, "MAT": "ALMG3"}, "*AXIS*": {"A": 1}})", "t"));
    CZelDrawing::current().reset();
  }
  static double width() {
    double b = 0;
    CZelDataItem* item = ZEL::cfg_get(L"*HZ_KLOTZ*\\B");
    return item && item->get(b) ? b : -1;
  }
};

}  // namespace

TEST_F(SectionsTest, StoreOperationsByKeyAndByPath) {
  EXPECT_EQ(width(), 30.0);
  CZelDataKey key;
  key.set(5005, L"*HZ_KLOTZ*", 5005, L"SUB", 5005, L"H", 0);
  ASSERT_TRUE(ZEL::cfg_set(key, ZEL::mkDataItem(ZEL::mkRbReal(5.0)), true));
  double h = 0;
  ASSERT_TRUE(ZEL::cfg_get(L"*HZ_KLOTZ*\\SUB\\H")->get(h));
  EXPECT_EQ(h, 5.0);
  EXPECT_TRUE(ZEL::cfg_remove(L"*HZ_KLOTZ*\\SUB"));
  EXPECT_FALSE(ZEL::cfg_remove(L"*HZ_KLOTZ*\\SUB"));
  EXPECT_EQ(ZEL::cfg_get(L"*HZ_KLOTZ*\\SUB\\H"), nullptr);
  CZelDataItem* dir = ZEL::cfg_dir_make(CZelDataKey(L"*NEW*"));
  ASSERT_NE(dir, nullptr);
  EXPECT_TRUE(dir->isDir());
  CZelDataKey numeric;
  numeric.set(5003, 62, 0);
  EXPECT_FALSE(ZEL::cfg_set(numeric, ZEL::mkDataItem(ZEL::mkRbLong(1)), true));
}

TEST_F(SectionsTest, WorkingCopyIsIndependentAndStoredSectionIsLive) {
  CZelDataKey key(L"*HZ_KLOTZ*");
  ZEL::CUniqPointer<ZEL::CDtaFilePointer> copy(ZEL::dtaOpen(1, 1, &key, nullptr));
  ZEL::CUniqPointer<ZEL::CDtaFilePointer> stored(ZEL::dtaOpen(1, 3, &key, nullptr));
  ASSERT_TRUE(copy && stored);
  CZelDataKey b(L"B");
  ZEL::dataItemSet(copy->get(), &b, 99.0);
  EXPECT_EQ(width(), 30.0);
  ZEL::dataItemSet(stored->get(), &b, 40.0);
  EXPECT_EQ(width(), 40.0);
  double fromCopy = 0;
  copy->get()->get(fromCopy, &b);
  EXPECT_EQ(fromCopy, 99.0);
  // Mode 3 with content replaces the stored section by a copy of the content.
  ZEL::CUniqPointer<ZEL::CDtaFilePointer> back(ZEL::dtaOpen(1, 3, &key, copy->get()));
  EXPECT_EQ(width(), 99.0);
  ZEL::dataItemSet(copy->get(), &b, 1.0);
  EXPECT_EQ(width(), 99.0);
}

TEST_F(SectionsTest, AMissingSectionOpensEmptyAndSetCreatesIt) {
  CZelDataKey key(L"*QEN_OBJ_HATCH*");
  ZEL::CUniqPointer<ZEL::CDtaFilePointer> copy(ZEL::dtaOpen(1, 1, &key, nullptr));
  ASSERT_TRUE(copy);
  EXPECT_EQ(copy->get(), nullptr);
  ZEL::CUniqPointer<ZEL::CDtaFilePointer> stored(ZEL::dtaOpen(1, 3, &key, nullptr));
  EXPECT_EQ(stored->get(), nullptr);
  ASSERT_NE(stored->get(nullptr, true), nullptr);
  EXPECT_NE(ZEL::cfg_get(key), nullptr);
  CZelDataKey numeric;
  numeric.set(5003, 62, 0);
  EXPECT_EQ(ZEL::dtaOpen(1, 1, &numeric, nullptr), nullptr);
  EXPECT_EQ(ZEL::dtaOpen(1, 1, nullptr, nullptr), nullptr);
}

TEST_F(SectionsTest, ObjectDataAndInMemoryItems) {
  CZelDataItem data;
  CZelDataKey type(L"TYPE");
  ZEL::dataItemSet(&data, &type, L"KLOTZ");
  CZelString handle = CZelDrawing::current().addObject(data);
  CZelDataKey objKey;
  objKey.set(5006, handle.c_str(), 0);
  ZEL::CUniqPointer<ZEL::CDtaFilePointer> obj(ZEL::dtaOpen(3, 3, &objKey, nullptr));
  ASSERT_TRUE(obj);
  CZelDataKey b(L"B");
  ZEL::dataItemSet(obj->get(), &b, 12.0);
  double v = 0;
  EXPECT_TRUE(CZelDrawing::current().objectData(handle)->get(v, &b));
  EXPECT_EQ(v, 12.0);
  CZelDataKey none;
  none.set(5006, L"FFFF", 0);
  EXPECT_EQ(ZEL::dtaOpen(3, 3, &none, nullptr), nullptr);

  CZelDataItem memory;
  ZEL::CUniqPointer<ZEL::CDtaFilePointer> mem(ZEL::dtaOpen(6, 1, nullptr, &memory));
  ASSERT_TRUE(mem);
  EXPECT_EQ(mem->get(), &memory);
  mem->set(&data);
  CZelString t;
  EXPECT_TRUE(memory.get(t, &type));
  EXPECT_EQ(t, CZelString(L"KLOTZ"));
}

TEST_F(SectionsTest, BackupPutsTheSubtreeBackAndRemovesWhatDidNotExist) {
  ZEL::CCfgBackup axis;
  ASSERT_TRUE(axis.attach(L"*AXIS*"));
  ZEL::cfg_set(L"*AXIS*\\A", ZEL::mkDataItem(ZEL::mkRbLong(2)), true);
  ZEL::cfg_set(L"*AXIS*\\ORIG", ZEL::mkDataItem(ZEL::mkRbBool(true)), true);
  ASSERT_TRUE(axis.restore());
  int a = 0;
  EXPECT_TRUE(ZEL::cfg_get(L"*AXIS*\\A")->get(a));
  EXPECT_EQ(a, 1);
  EXPECT_EQ(ZEL::cfg_get(L"*AXIS*\\ORIG"), nullptr);

  ZEL::CCfgBackup absent;
  absent.attach(L"*NOT_THERE*");
  ZEL::cfg_dir_make(CZelDataKey(L"*NOT_THERE*"));
  absent.restore();
  EXPECT_EQ(ZEL::cfg_get(L"*NOT_THERE*"), nullptr);
  ZEL::CCfgBackup never;
  EXPECT_FALSE(never.restore());
}
