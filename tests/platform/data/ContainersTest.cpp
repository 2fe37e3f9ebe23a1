// The platform's containers: arrays that grow on indexing, maps that insert on lookup,
// shared handles whose copies all see a reassigned pointer.
#include "data/CSharedPointer.h"
#include "data/CUniqPointer.h"
#include "data/CZelArrayTempl.h"
#include "data/CZelMapTempl.h"
#include "data/CZelString.h"

#include <gtest/gtest.h>

namespace {

struct Tracked {
  explicit Tracked(int* deletions) : deletions(deletions) {}
  ~Tracked() { ++*deletions; }
  int* deletions;
};

}  // namespace

TEST(CZelArrayTempl, NegativeIndicesCountFromTheEndAndIndexingPastTheEndGrows) {
  CZelArrayTempl<CZelString> a{L"a", L"b", L"c"};
  EXPECT_EQ(a[-1], CZelString(L"c"));
  EXPECT_EQ(a[-3], CZelString(L"a"));
  a[5] = L"f";
  ASSERT_EQ(a.count(), 6);
  EXPECT_TRUE(a[3].isEmpty());
  EXPECT_TRUE(a[4].isEmpty());
  EXPECT_EQ(a[5], CZelString(L"f"));
}

TEST(CZelArrayTempl, EmptyArrayReadWithANegativeIndexGivesAnEmptyElementAndStaysEmpty) {
  CZelArrayTempl<int> a;
  EXPECT_EQ(a[-1], 0);
  EXPECT_EQ(a.count(), 0);
}

TEST(CZelArrayTempl, CapacityGrowsByDoublingFromEight) {
  CZelArrayTempl<int> a;
  a.add(1);
  EXPECT_EQ(a.capacity(), 8);
  for (int i = 0; i < 8; ++i) a.add(i);
  EXPECT_EQ(a.capacity(), 16);
  a[40] = 1;
  EXPECT_EQ(a.capacity(), 64);
}

TEST(CZelMapTempl, LookingUpAnAbsentKeyInsertsAnEmptyValue) {
  CZelMapTempl<CZelString, CZelString> m;
  EXPECT_TRUE(m[L"X"].isEmpty());
  EXPECT_EQ(m.count(), 1);
  m[L"X"] = L"y";
  EXPECT_EQ(m[L"X"], CZelString(L"y"));
  m.clear();
  EXPECT_EQ(m.count(), 0);
}

TEST(CSharedPointer, EveryCopySeesAReassignedPointerAndTheOldTargetIsDeleted) {
  int deletions = 0;
  {
    ZEL::CSharedPointer<Tracked> a(new Tracked(&deletions));
    ZEL::CSharedPointer<Tracked> b = a;
    Tracked* second = new Tracked(&deletions);
    b = second;
    EXPECT_EQ(deletions, 1);
    EXPECT_EQ(a.get(), second);
    EXPECT_EQ(a.useCount(), 2);
    a = nullptr;
    EXPECT_EQ(deletions, 2);
    EXPECT_EQ(b.get(), nullptr);
    b = new Tracked(&deletions);
  }
  EXPECT_EQ(deletions, 3);  // the last handle deletes the target
}

TEST(CUniqPointer, DeletesOnResetAndDestruction) {
  int deletions = 0;
  {
    ZEL::CUniqPointer<Tracked> p(new Tracked(&deletions));
    p.reset(new Tracked(&deletions));
    EXPECT_EQ(deletions, 1);
  }
  EXPECT_EQ(deletions, 2);
}

TEST(CZelString, Utf8RoundTripAndCaseInsensitiveMatch) {
  CZelString s = CZelString::fromUtf8("Dämmung €");
  EXPECT_EQ(s.len(), 9);
  EXPECT_EQ(s.toUtf8(), "Dämmung €");
  EXPECT_TRUE(CZelString(L"solid").match(L"SOLID"));
  EXPECT_TRUE(CZelString::fromUtf8("Dämmung").match(CZelString::fromUtf8("DÄMMUNG")));
  EXPECT_EQ(CZelString::fromUtf8("Übergang").makeUpper().toUtf8(), "ÜBERGANG");
  EXPECT_FALSE(CZelString(L"solid").match(L"SOLI"));
  CZelString t(L"  x y \t");
  EXPECT_EQ(t.trim(), CZelString(L"x y"));
  CZelString f;
  f.format(L"%d-%ls", 42, L"mm");
  EXPECT_EQ(f, CZelString(L"42-mm"));
}
