// The standard-parts dialog's entry function.
#include "qen_mfc.h"

#include "data/CConfig.h"
#include "module/CQenDialApp.h"
#include "standardparts/CQenNrmDialog.h"

QEN_API int qenNormMenu(const qenDlgEnv_st& env, int projections, bool editExisting, bool sheared,
                        CSharpDialogInterface* picker) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  int result = -1;
  {
    CQenNrmDialog dlg(env.parentWnd());
    dlg.setCall(env, projections, editExisting, sheared, picker);
    result = static_cast<int>(dlg.DoModal());
  }
  // The caller's filter holds for one run.
  ZEL::cfg_remove(L"*NORM_PARM*\\FILTER");
  return result;
}
