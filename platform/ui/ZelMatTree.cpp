#include "ui/ZelMatTree.h"

#include "ui/CZelMatTreeDlg.h"

namespace ZEL {

int dlgMatTree(DlgEnvMatTree_st& env, CZelString& material) {
  CZelMatTreeDlg dlg(env, material);
  if (dlg.DoModal() != IDOK) return 0;
  material = dlg.material();
  return 1;
}

}  // namespace ZEL
