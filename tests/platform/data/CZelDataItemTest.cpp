// Data items: typed reads that refuse other types, lists, dotted pairs selected by group
// code, and directories that keep insertion order.
#include "data/CStoreFile.h"
#include "data/CZelDataDir.h"
#include "data/CZelDataItem.h"
#include "data/ZelDataAccess.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

std::unique_ptr<CZelDataItem> parse(const char* json) {
  std::unique_ptr<CZelDataItem> item(CStoreFile::parse(json, "test"));
  EXPECT_TRUE(item) << ZEL::lastFileError();
  return item;
}

}  // namespace

TEST(CZelDataItem, BooleanReadsTAndNilAndRefusesAString) {
  auto item = parse(R"({"T": true, "N": null, "S": "yes", "F": false})");
  bool b = false;
  CZelDataKey t(L"T"), n(L"N"), s(L"S"), f(L"F");
  EXPECT_TRUE(item->get(b, &t));
  EXPECT_TRUE(b);
  EXPECT_TRUE(item->get(b, &n));
  EXPECT_FALSE(b);
  EXPECT_TRUE(item->get(b, &f));
  EXPECT_FALSE(b);
  b = true;
  EXPECT_FALSE(item->get(b, &s));
  EXPECT_TRUE(b);  // the caller's default is kept
}

TEST(CZelDataItem, TypedReadsRefuseOtherTypesAndWholeNumbersReadAsReals) {
  auto item = parse(R"({"I": 30, "R": 2.5, "S": "ALMG3", "SH": {"$short": 7}})");
  int i = -1;
  double r = -1;
  CZelString s;
  CZelDataKey ki(L"I"), kr(L"R"), ks(L"S"), ksh(L"SH"), missing(L"X");
  EXPECT_TRUE(item->get(i, &ki));
  EXPECT_EQ(i, 30);
  EXPECT_TRUE(item->get(r, &ki));
  EXPECT_EQ(r, 30.0);
  EXPECT_FALSE(item->get(i, &kr));
  EXPECT_FALSE(item->get(i, &ks));
  EXPECT_FALSE(item->get(s, &kr));
  EXPECT_TRUE(item->get(i, &ksh));
  EXPECT_EQ(i, 7);
  EXPECT_FALSE(item->get(i, &missing));
  EXPECT_EQ(i, 7);
}

TEST(CZelDataItem, StringListsReadFromListsAndFromASingleString) {
  auto item = parse(R"({"L": ["a", "b"], "ONE": "a", "MIXED": ["a", 1], "EMPTY": []})");
  CZelArrayTempl<CZelString> l;
  CZelDataKey kl(L"L"), kone(L"ONE"), kmixed(L"MIXED"), kempty(L"EMPTY");
  ASSERT_TRUE(item->get(l, &kl));
  EXPECT_EQ(l.count(), 2);
  EXPECT_EQ(l[1], CZelString(L"b"));
  ASSERT_TRUE(item->get(l, &kone));
  EXPECT_EQ(l.count(), 1);
  EXPECT_FALSE(item->get(l, &kmixed));
  EXPECT_FALSE(item->get(l, &kempty));
}

TEST(CZelDataItem, ShortKeyPartsSelectAndReplaceMembersOfAListOfPairs) {
  auto item = parse(R"({"COLOR": {"BASE": [{"$pair": [62, 3]}, {"$pair": [2, "RED"]}]}})");
  CZelDataKey color;
  color.set(5005, L"COLOR", 5005, L"BASE", 5003, 62, 0);
  int c = 0;
  ASSERT_TRUE(item->get(c, &color));
  EXPECT_EQ(c, 3);
  ASSERT_TRUE(ZEL::dataItemSet(item.get(), &color, 5));
  ASSERT_TRUE(item->get(c, &color));
  EXPECT_EQ(c, 5);
  CZelDataKey name;
  name.set(5005, L"COLOR", 5005, L"BASE", 5003, 2, 0);
  CZelString n;
  ASSERT_TRUE(item->get(n, &name));
  EXPECT_EQ(n, CZelString(L"RED"));
  // A new group code is added to the list, the others stay in place.
  CZelDataKey scale;
  scale.set(5005, L"COLOR", 5005, L"BASE", 5003, 40, 0);
  ASSERT_TRUE(ZEL::dataItemSet(item.get(), &scale, 2.0));
  EXPECT_EQ(CStoreFile::valueToText(item->find(&color)->value()),
            R"([{"$pair": [62, 5]}, {"$pair": [2, "RED"]}, {"$pair": [40, 2.0]}])");
}

TEST(CZelDataDir, KeepsInsertionOrderAndReplacesInPlace) {
  CZelDataItem root;
  CZelDataDir* dir = root.mkDir();
  for (const wchar_t* n : {L"Z", L"A", L"M"}) dir->insert(n, new CZelDataItem(ZEL::mkRbLong(1)), false);
  dir->insert(L"A", new CZelDataItem(ZEL::mkRbLong(2)), false);
  ASSERT_EQ(dir->count(), 3);
  EXPECT_EQ(dir->nameAt(0), CZelString(L"Z"));
  EXPECT_EQ(dir->nameAt(1), CZelString(L"A"));
  int v = 0;
  EXPECT_TRUE(dir->itemAt(1)->get(v));
  EXPECT_EQ(v, 2);
  // Large directories switch to an index; lookups and removal keep working.
  for (int i = 0; i < 100; ++i) dir->insert(CZelString(L"K" + std::to_wstring(i)), new CZelDataItem(ZEL::mkRbLong(i)), false);
  EXPECT_TRUE(dir->remove(CZelString(L"K10")));
  EXPECT_FALSE(dir->remove(CZelString(L"K10")));
  ASSERT_NE(dir->item(L"K99"), nullptr);
  EXPECT_TRUE(dir->item(L"K99")->get(v));
  EXPECT_EQ(v, 99);
  EXPECT_EQ(dir->nameAt(dir->count() - 1), CZelString(L"K99"));
}

TEST(CZelDataDir, MergeAddsMissingEntriesAndOverwritesOnlyWithFlagOne) {
  auto mine = parse(R"({"A": 1, "SUB": {"X": 1}})");
  auto theirs = parse(R"({"A": 2, "B": 3, "SUB": {"X": 2, "Y": 4}})");
  mine->getDir()->mergeFrom(*theirs->getDir(), 0);
  EXPECT_EQ(CStoreFile::toText(*mine), "{\n  \"A\": 1,\n  \"SUB\": {\n    \"X\": 1,\n    \"Y\": 4\n  },\n  \"B\": 3\n}\n");
  mine->getDir()->mergeFrom(*theirs->getDir(), 1);
  int a = 0;
  CZelDataKey ka(L"A");
  EXPECT_TRUE(mine->get(a, &ka));
  EXPECT_EQ(a, 2);
}

TEST(ZelDataAccess, SettingBelowAValueCreatesTheMissingLevels) {
  CZelDataItem root;
  CZelDataKey key;
  key.set(5005, L"A", 5005, L"B", 5005, L"C", 0);
  ASSERT_TRUE(ZEL::dataItemSet(&root, &key, CZelString(L"v")));
  CZelString v;
  ASSERT_TRUE(root.get(v, &key));
  EXPECT_EQ(v, CZelString(L"v"));
  Zel::PropMode mode = Zel::PropMode::System;
  CZelDataKey m(L"IS_LAY");
  ASSERT_TRUE(ZEL::dataItemSet(&root, &m, Zel::PropMode::Specific));
  ASSERT_TRUE(ZEL::dataItemGet(&root, &m, mode));
  EXPECT_EQ(mode, Zel::PropMode::Specific);
}
