// The standard-parts dialog frame through qenNormMenu: opening, the caller's filter, views
// and the rule which views may replace an edited part, display flags, family, texts.
#include "tests/standardparts/NrmDialogSupport.h"

TEST_F(NrmDialogTest, Dump) {
  select(kIso4017);
  DialogRun r = run("dump dialog\ndump 0/10804\ndump 0/10778\ncancel\n");
  std::cout << r.out << r.err;
}
