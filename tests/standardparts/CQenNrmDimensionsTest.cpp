// The dimension group of the properties tab on the real catalogue: nominal sizes with the
// sizes to avoid and their bands, standard and free lengths with the minimum, the clamping
// length, the radius of a round hollow section and the countersink depth.
#include "tests/standardparts/NrmDialogSupport.h"

#include "standardparts/CQenNrmDialog.h"

#include <algorithm>
#include <cmath>

namespace {

using NrmDimsTest = NrmDialogTest;
using qen::nrm::Stack;

const Stack kIsoStack = {"PIECE", "SCREW", "HEX", "ISO4017"};

}  // namespace

TEST_F(NrmDimsTest, AStoredSizeOutsideTheListFallsBackToTheFirstSizeNotToBeAvoided) {
  // M14 and M18 are second choices of ISO 4017; M16 is not.
  EXPECT_EQ(qen::nrm::resolveSize(kIsoStack, {"M14", "M16"}, "M99"), "M16");
  EXPECT_EQ(qen::nrm::resolveSize(kIsoStack, {"M14", "M16"}, "M14"), "M14");  // in the list: kept
  EXPECT_EQ(qen::nrm::resolveSize(kIsoStack, {"M14", "M18"}, "M99"), "M99");  // every size to avoid
  EXPECT_EQ(qen::nrm::resolveSize(kIsoStack, {}, "M12"), "");

  // In the dialog: sizes to avoid are shown in parentheses; an unknown stored size becomes
  // the first one.
  select(kIso4017, R"("ND": "M99")");
  DialogRun r = run("expect 0/10778 selected \"M1.6\"\nselect 0/10778 \"(M14)\"\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(text(L"*NM*\\ND"), "M14");
}

TEST_F(NrmDimsTest, ConsecutiveSizesOfOneSeriesShareABand) {
  select(R"(["BAR", "SECTION", "I-BEAM", "IPE"])");
  qenDlgEnv_st env;
  CQenNrmDialog dlg(nullptr);
  dlg.setCall(env, 0, false, false, nullptr);
  DialogRun r = runDialog(dlg, "expect 0/10778 items 75\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  // IPE100…IPE600 (17) normal, IPEA (17) alternate, IPEO (13) normal, IPER (15) alternate,
  // IPEV (5) normal, IPE750 (8) alternate.
  const std::vector<int>& bands = dlg.props().sizeBands();
  auto banded = [&](int i) { return std::binary_search(bands.begin(), bands.end(), i); };
  for (int i : {0, 16, 34, 46, 62}) EXPECT_FALSE(banded(i)) << i;  // first and last of each series
  for (int i : {17, 33, 47, 61, 67, 74}) EXPECT_TRUE(banded(i)) << i;
  EXPECT_EQ(bands.size(), 17u + 15u + 8u);
}

TEST_F(NrmDimsTest, AFreeLengthStaysUntilTheStandardLengthsAreBackInForce) {
  // Raising a free length below the shortest standard one, with its message:
  // din_dialog_free_length.
  select(kIso4017, R"("ND": "M5", "MAT": "8.8", "LEN": 20.0)");
  DialogRun r = run("expect 0/10794 checked\nexpect 0/10699 disabled\nexpect 0/10779 selected \"20\"\nexpect 0/10906 text \"mm\"\n"
                    "click 0/10794\nexpect 0/10699 enabled\nexpect 0/10577 enabled\nexpect 0/10779 disabled\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(integer(L"*NM*\\NODIN"), 1);

  // A free length between standard lengths stays; going back to the standard lengths
  // snaps it to the nearest one.
  r = run("enter 0/10699 \"23\"\nexpect 0/10795 text \"Laenge\"\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(real(L"*NM*\\LEN"), 23.0);
  r = run("click 0/10794\nexpect 0/10779 enabled\nexpect 0/10779 selected \"25\"\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(integer(L"*NM*\\NODIN"), 0);
  EXPECT_EQ(real(L"*NM*\\LEN"), 25.0);
}

TEST_F(NrmDimsTest, ANewSizeRaisesTheLengthToItsFirstStandardLength) {
  select(kIso4017, R"("ND": "M4", "MAT": "8.8", "LEN": 6.0)");
  DialogRun r = run("select 0/10778 \"M8\"\nexpect 0/10779 selected \"16\"\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(real(L"*NM*\\LEN"), 16.0);

  // A longer stored length stays and snaps to the nearest standard length of the size.
  qen::nrm::setReal(L"*NM*\\LEN", 37.0);
  r = run("select 0/10778 \"M12\"\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(real(L"*NM*\\LEN"), 35.0);

  // A negative stored length counts as none.
  qen::nrm::setReal(L"*NM*\\LEN", -2.0);
  r = run("expect 0/10779 selected \"25\"\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(real(L"*NM*\\LEN"), 25.0);

  // Choosing a standard length writes it, also for the next part of the domain.
  r = run("select 0/10779 \"60\"\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(real(L"*NM*\\LEN"), 60.0);
  EXPECT_EQ(real(L"*NM_SET*\\DIN\\*PIECE*\\LEN"), 60.0);
}

TEST_F(NrmDimsTest, AClampingLengthOutsideEveryRangeIsRefused) {
  select(kIso4017, R"("ND": "M12", "MAT": "8.8", "LEN": 60.0, "KLM": 20.0)");
  DialogRun r = run("expect 0/10796 text \"Klemmlänge\"\nexpect 0/10798 enabled\n"
                    "expect 0/10907 text \"Klemmlänge 0.0 - 49.2 mm\"\n"
                    "enter 0/10798 \"500\"\nexpect-box \"Klemmlänge 0.0 ... 109.2\"\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(real(L"*NM*\\LEN"), 60.0);
  EXPECT_EQ(real(L"*NM*\\KLM"), 20.0);

  // A clamping length beyond the range of the length takes the shortest length that holds it.
  r = run("enter 0/10798 \"60\"\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(real(L"*NM*\\KLM"), 60.0);
  EXPECT_EQ(real(L"*NM_SET*\\DIN\\*PIECE*\\KLM"), 60.0);
  EXPECT_EQ(real(L"*NM*\\LEN"), 80.0);
}

TEST_F(NrmDimsTest, ARadiusOutsideItsRangeIsRefusedAndTheStoredOneStays) {
  store(R"({"*NM*": {"STACK": ["BAR", "SECTION", "HOLLOW-ROUND", "CHS"], "ND": "CHS21.3x2.6", "RAD": 100.0}})");
  DialogRun r = run("expect 0/10796 text \"Radius\"\nexpect 0/10907 text \"Radius 63.9 - 2130.0 mm\"\n"
                    "enter 0/10798 \"10\"\nexpect-box \"Radius\\n63.9 ... 2130.0\"\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(real(L"*NM*\\RAD"), 100.0);

  r = run("enter 0/10798 \"500\"\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(real(L"*NM*\\RAD"), 500.0);
  EXPECT_EQ(real(L"*NM_SET*\\DIN\\*BAR*\\RAD"), 500.0);
}

TEST_F(NrmDimsTest, TheCountersinkDepthDefaultsToTheHeadHeight) {
  select(R"(["PIECE", "SCREW", "COUNTERSUNK", "ISO10642"])", R"("ND": "M8", "MAT": "8.8")");
  DialogRun r = run("expect 0/10796 text \"Tiefe\"\nexpect 0/10907 text \"Vorgabetiefe 5.0 mm\"\n"
                    "enter 0/10798 \"7\"\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(real(L"*NM*\\SENK"), 7.0);
  EXPECT_EQ(real(L"*NM_SET*\\DIN\\*PIECE*\\SENK"), 7.0);
}

TEST_F(NrmDimsTest, PartsWithoutLengthOrFurtherDimensionDisableThoseControls) {
  select(R"(["PIECE", "NUT", "HEX", "ISO4032"])", R"("ND": "M12")");
  DialogRun r = run("expect 0/10779 disabled\nexpect 0/10794 disabled\nexpect 0/10794 unchecked\nexpect 0/10699 disabled\n"
                    "expect 0/10795 text \"\"\nexpect 0/10798 disabled\nexpect 0/10780 disabled\nexpect 0/10907 text \"\"\n"
                    "expect 0/1007 enabled\nok\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(real(L"*NM*\\LEN"), std::nullopt);
  EXPECT_EQ(text(L"*NM*\\ND"), "M12");
}

TEST_F(NrmDimsTest, StoredValuesTheCatalogueDoesNotHoldNeverReachTheSection) {
  // A stack that names no node: the first stack of the tree takes its place, and with no
  // standard selected OK stays disabled.
  select(R"(["PIECE", "SCREW", "HEX", "ISO9999"])", R"("ND": "M12")");
  DialogRun r = run("expect 1 disabled\nexpect 0/10804 selected \"Stabteile\"\ncancel\n");
  ASSERT_EQ(r.status, 0) << r.err;
  EXPECT_EQ(stack(), (std::vector<std::string>{"BAR"}));

  // A size, material and lengths the standard does not offer: the first size not to be
  // avoided, the first material and the size's first standard length, whatever was stored.
  for (const char* badLength : {"-5.0", "1e308", "0.0"}) {
    select(kIso4017, std::string(R"("ND": "M13", "MAT": "GOLD", "LEN": )") + badLength);
    r = run("ok\n");
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(text(L"*NM*\\ND"), "M1.6") << badLength;
    EXPECT_EQ(text(L"*NM*\\MAT"), "4.6-FV") << badLength;
    const std::vector<double> lengths = ZEL::norm_len_lst({"PIECE", "SCREW", "HEX", "ISO4017", "M1.6"}, "4.6-FV", "");
    ASSERT_FALSE(lengths.empty());
    const std::optional<double> len = real(L"*NM*\\LEN");
    ASSERT_TRUE(len) << badLength;
    EXPECT_NE(std::find(lengths.begin(), lengths.end(), *len), lengths.end()) << badLength << " became " << *len;
  }
}
