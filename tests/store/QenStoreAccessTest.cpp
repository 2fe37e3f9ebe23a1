// The module's store setters, item setters and getters, section setters.
#include "store/QenStoreAccess.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CUniqPointer.h"
#include "data/CZelDataDir.h"

#include <gtest/gtest.h>

namespace {

class QenStoreAccessTest : public ::testing::Test {
protected:
  void SetUp() override { ZEL::cfgMgrPtr()->reset(); }
  static CZelDataKey key2(const wchar_t* a, const wchar_t* b) {
    CZelDataKey k;
    k.set(5005, a, 5005, b, 0);
    return k;
  }
};

}  // namespace

TEST_F(QenStoreAccessTest, SettingInAMissingSectionCreatesSectionAndValue) {
  CZelDataKey mode = key2(L"*HZ_KLOTZ*", L"MODE");
  ASSERT_TRUE(QEN::storeSet(&mode, CZelString(L"MAIN")));
  CZelString v;
  ASSERT_TRUE(ZEL::cfg_get(L"*HZ_KLOTZ*")->isDir());
  ASSERT_TRUE(ZEL::cfg_get(mode)->get(v));
  EXPECT_EQ(v, CZelString(L"MAIN"));
  // Deeper keys create the directories in between.
  CZelDataKey deep;
  deep.set(5005, L"*HZ_PROFIL*", 5005, L"A", 5005, L"B", 0);
  double d = 2.5;
  ASSERT_TRUE(QEN::storeSet(&deep, &d));
  EXPECT_TRUE(ZEL::cfg_get(L"*HZ_PROFIL*\\A")->isDir());
}

TEST_F(QenStoreAccessTest, AOnePartKeySetsAValueDirectlyUnderTheRoot) {
  CZelDataKey section(L"*HZ_KLOTZ*");
  int v = 7;
  ASSERT_TRUE(QEN::storeSet(&section, &v));
  CZelDataItem* item = ZEL::cfg_get(section);
  ASSERT_NE(item, nullptr);
  EXPECT_FALSE(item->isDir());
  int back = 0;
  EXPECT_TRUE(item->get(back));
  EXPECT_EQ(back, 7);
  bool t = true;
  ASSERT_TRUE(QEN::storeSet(&section, &t));
  bool b = false;
  EXPECT_TRUE(ZEL::cfg_get(section)->get(b));
  EXPECT_TRUE(b);
}

TEST_F(QenStoreAccessTest, AKeyWhoseFirstPartIsNotAStringIsRefusedAndWritesNothing) {
  CZelDataKey bad;
  bad.set(5003, 62, 5005, L"X", 0);
  int v = 1;
  EXPECT_FALSE(QEN::storeSet(&bad, &v));
  EXPECT_FALSE(QEN::storeSet(nullptr, &v));
  EXPECT_TRUE(ZEL::cfgMgrPtr()->root()->getDir()->isEmpty());
  CZelDataKey dxf;
  dxf.set(5020, L"*HZ_DICHT*", 5005, L"X", 0);
  EXPECT_TRUE(QEN::storeSet(&dxf, &v));  // the second string-like part type is accepted
}

TEST_F(QenStoreAccessTest, AnEmptyListRemovesTheEntry) {
  CZelDataKey key = key2(L"*QEN_OBJ_PROP*", L"TXTLST");
  QEN::StringList list{L"Zeile 1", L"Zeile 2", L"Zeile 3"};
  ASSERT_TRUE(QEN::storeSet(&key, list));
  QEN::StringList back;
  ASSERT_TRUE(QEN::itemGet(ZEL::cfg_get(L"*QEN_OBJ_PROP*"), L"TXTLST", back));
  EXPECT_EQ(back.count(), 3);
  EXPECT_TRUE(QEN::storeSet(&key, QEN::StringList{}));
  EXPECT_EQ(ZEL::cfg_get(key), nullptr);
  EXPECT_FALSE(QEN::itemGet(ZEL::cfg_get(L"*QEN_OBJ_PROP*"), L"TXTLST", back));
  // Removing what is not there is no failure either.
  EXPECT_TRUE(QEN::storeSet(&key, QEN::StringList{}));
}

TEST_F(QenStoreAccessTest, ListsOfListsKeepTheirOrderAndAnEmptyOuterListRemoves) {
  CZelDataKey key = key2(L"*NM*", L"ROWS");
  QEN::StringLists rows;
  rows.add(QEN::StringList{L"M6", L"8.8"});
  rows.add(QEN::StringList{L"M8"});
  rows.add(QEN::StringList{});
  ASSERT_TRUE(QEN::storeSet(&key, rows));
  EXPECT_EQ(CStoreFile::valueToText(ZEL::cfg_get(key)->value()), R"([["M6", "8.8"], ["M8"], null])");
  ASSERT_TRUE(QEN::storeSet(&key, QEN::StringLists{}));
  EXPECT_EQ(ZEL::cfg_get(key), nullptr);
}

TEST_F(QenStoreAccessTest, ItemSettersAndGettersByRelativeKey) {
  CZelDataItem item;
  EXPECT_TRUE(QEN::itemSet(&item, L"B", 30.0));
  EXPECT_TRUE(QEN::itemSet(&item, L"N", 3));
  EXPECT_TRUE(QEN::itemSet(&item, L"MAT", CZelString(L"EPDM")));
  CZelVertexArray outline;
  outline.add(0, 0);
  outline.add(10, 0, 0.5);
  EXPECT_TRUE(QEN::itemSet(&item, L"VL", outline));
  double b = 0;
  int n = 0;
  CZelString mat;
  CZelVertexArray vl;
  EXPECT_TRUE(QEN::itemGet(&item, L"B", b));
  EXPECT_TRUE(QEN::itemGet(&item, L"N", n));
  EXPECT_TRUE(QEN::itemGet(&item, L"MAT", mat));
  EXPECT_TRUE(QEN::itemGet(&item, L"VL", vl));
  EXPECT_EQ(b, 30.0);
  EXPECT_EQ(n, 3);
  EXPECT_EQ(mat, CZelString(L"EPDM"));
  EXPECT_EQ(vl, outline);
  EXPECT_FALSE(QEN::itemGet(&item, L"MAT", n));
  EXPECT_FALSE(QEN::itemGet(nullptr, L"B", b));
  CZelArrayTempl<int> ints{1, 2};
  CZelDataKey k(L"INTS");
  EXPECT_TRUE(QEN::itemSet(&item, &k, ints));
  EXPECT_TRUE(QEN::itemSet(&item, &k, CZelArrayTempl<int>{}));
  EXPECT_EQ(item.find(&k), nullptr);
  // No key: the item's own value.
  CZelDataItem own;
  EXPECT_TRUE(QEN::itemSet(&own, nullptr, QEN::StringList{L"a", L"b"}));
  QEN::StringList l;
  EXPECT_TRUE(QEN::itemGet(&own, nullptr, l));
  EXPECT_EQ(l.count(), 2);
}

TEST_F(QenStoreAccessTest, SectionSettersCreateTheRootItemOfAnEmptySection) {
  CZelDataKey name(L"*QEN_OBJ_PROP*");
  ZEL::CUniqPointer<ZEL::CDtaFilePointer> stored(ZEL::dtaOpen(1, 3, &name, nullptr));
  CZelDataKey rel;
  rel.set(5005, L"KLOTZ:ALMG3", 5005, L"TXTLST", 0);
  ASSERT_TRUE(QEN::sectionSet(stored.get(), &rel, QEN::StringList{L"x"}));
  ASSERT_NE(ZEL::cfg_get(L"*QEN_OBJ_PROP*\\KLOTZ:ALMG3\\TXTLST"), nullptr);
  CZelDataKey is(L"IS_LAY");
  ZEL::CUniqPointer<ZEL::CDtaFilePointer> copy(ZEL::dtaOpen(1, 1, &name, nullptr));
  ASSERT_TRUE(QEN::sectionSet(copy.get(), &is, Zel::PropMode::Material));
  EXPECT_EQ(ZEL::cfg_get(L"*QEN_OBJ_PROP*\\IS_LAY"), nullptr);  // only the copy has it
  Zel::PropMode m = Zel::PropMode::System;
  EXPECT_TRUE(QEN::itemGet(copy->get(), L"IS_LAY", m));
  EXPECT_EQ(m, Zel::PropMode::Material);
  EXPECT_FALSE(QEN::sectionSet(nullptr, &is, 1));
}

TEST_F(QenStoreAccessTest, ReleasingAHeldBufferAlwaysGivesTheNormalResult) {
  ZEL::CSmartResbuf holder(ZEL::mkResbuf(L"x"));
  EXPECT_EQ(QEN::relRb(holder), RTNORM);
  EXPECT_EQ(holder.get(), nullptr);
  EXPECT_EQ(QEN::relRb(holder), RTNORM);
}
