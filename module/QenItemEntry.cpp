// The item dialog's entry function: records article numbers for an object.
#include "qen_mfc.h"

#include "data/CDtaFilePointer.h"
#include "data/CUniqPointer.h"
#include "module/CQenDialApp.h"
#include "standardparts/CQenItemDlg.h"

QEN_API int qenItemDlgMenu(const ZEL::DlgEnv_st& env, CZelDataItem* object) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  {
    // The store takes its own copy; the dialog reads the object from there.
    CZelDataKey key(L"*QEN_OBJ_GEN*");
    ZEL::CUniqPointer<ZEL::CDtaFilePointer> gen(ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_STORED, &key, object));
  }
  CQenItemDlg dlg(env.parentWnd(), object);
  return static_cast<int>(dlg.DoModal());
}
