// The entry function of the material types of a standard part.
#include "qen_mfc.h"

#include "data/CConfig.h"
#include "data/CUniqPointer.h"
#include "data/ZelDataAccess.h"
#include "module/CQenDialApp.h"
#include "norm/ZelNormGen.h"
#include "obj/ZelObjKey.h"
#include "standardparts/CQenNrmMaterialarten.h"

QEN_API int qenNormMatMenu(const qenDlgEnv_st& env) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  int articles = 0;
  CZelDataItem* order = ZEL::cfg_get(L"_QEN_NORM_ORDER");
  ZEL::CUniqPointer<CZelDataItem> part(ZEL::norm_gen(order && order->get(articles)));
  const CZelString key = part ? ZEL::objKey(part.get(), 2) : CZelString();
  // The added list as it was, restored on Cancel (absent stays absent).
  CZelDataItem* stored = key.isEmpty() ? nullptr : ZEL::cfg_get(CQenNrmMaterialarten::addedKey(key));
  ZEL::CUniqPointer<CZelDataItem> before(stored ? stored->clone() : nullptr);

  for (const wchar_t* k : {L"FILTER", L"FULL", L"ALL", L"MAT"}) ZEL::cfg_remove(CZelString(L"*MAT_TREE_PARM*\\") + k);

  CQenNrmMaterialarten dlg(env.parentWnd());
  dlg.setEnv(env);
  const int result = static_cast<int>(dlg.DoModal());
  int code = result;
  if (result == IDOK) {
    CZelString current;
    CZelDataItem* cur = ZEL::cfg_get(L"*NM*\\MAT_CUR");
    // Without a standard there is no material to choose: nothing is taken.
    if (!key.isEmpty() && cur && cur->get(current) && !current.isEmpty())
      ZEL::cfg_set(L"*NM*\\MAT", ZEL::mkDataItem(ZEL::mkResbuf(current.c_str())), true);
    code = 1;
  } else if (result == IDCANCEL) {
    if (!key.isEmpty()) {
      if (before) ZEL::cfg_set(CQenNrmMaterialarten::addedKey(key), before.release(), true);
      else ZEL::cfg_remove(CQenNrmMaterialarten::addedKey(key));
    }
    code = 0;
  }
  if (result == IDOK || result == IDCANCEL) {
    ZEL::cfg_remove(L"*NM*\\MAT_CUR");
    // The standard's materials may have changed: the cached catalogue data is forgotten and
    // a material that is no longer offered gives way to the first one.
    QEN::norm_grp_reset();
  }
  return code;
}
