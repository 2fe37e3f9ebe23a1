// The dialog module's interface for the host: the exported dialog entry functions.
#pragma once

#include "data/CZelDataItem.h"
#include "module/qenDlgEnv_st.h"
#include "qen_api.h"
#include "standardparts/CSharpDialogInterface.h"
#include "ui/wintypes.h"

// Each runs one modal dialog and returns its end code: 1 OK, 0 Cancel, any other code
// (a pick request such as 103 "Objekt <") unchanged; -1 when the dialog could not be shown.
QEN_API int qenDlgHzKl(qenDlgEnv_st& env);
QEN_API int qenDlgHzDi(qenDlgEnv_st& env);
QEN_API int qenDlgHzSi(qenDlgEnv_st env);
QEN_API int qenDlgHzFo(qenDlgEnv_st& env);
QEN_API int qenDlgDm(qenDlgEnv_st& env);
QEN_API int qenDlgAxis(const qenDlgEnv_st& env);
QEN_API int qenDlgHzBl(qenDlgEnv_st& env);
QEN_API int qenDlgMatObjLayer(qenDlgEnv_st& env);
QEN_API int qenDlgMatObjHatch(qenDlgEnv_st env);
QEN_API int qenDlgObjTxt(const qenDlgEnv_st& env, CZelDataItem* object);
// The item dialog on an object's data (none: the object the store's "*QEN_OBJ_GEN*" holds
// from the last call). Returns the dialog's own end code: 1 OK, 2 Cancel, -1 not shown.
QEN_API int qenItemDlgMenu(const ZEL::DlgEnv_st& env, CZelDataItem* object);
// The standard-parts dialog ("Normteile") on the part "*NM*" describes. `projections` and
// `sheared` describe an edited part (`editExisting`); `picker` answers a click on the
// preview. Returns 1 OK, 2 Cancel, 3 pick the further dimension, 4 pick the length, 103
// take an object from the drawing.
QEN_API int qenNormMenu(const qenDlgEnv_st& env, int projections, bool editExisting, bool sheared,
                        CSharpDialogInterface* picker);
// The material types of the standard part "*NM*" describes: 1 OK (the highlighted material
// becomes "*NM*\MAT"), 0 Cancel (the added materials are as they were), -1 not shown.
QEN_API int qenNormMatMenu(const qenDlgEnv_st& env);

// The host command functions: bridges to the host's Lisp functions of the same purpose.
QEN_API void fav_save(const CZelString& type);
QEN_API void fav_restore(const CZelString& type);
QEN_API bool obj_save(const CZelString& type);
QEN_API int obj_restore(const CZelString& type, int flag, HWND window);
QEN_API bool obj_lib1(HWND window);
QEN_API CZelString obj_lib1_init(const wchar_t* arg);
QEN_API bool ate_select(HWND window);
QEN_API CZelDataItem* ate_select_init(const wchar_t* arg);
QEN_API CZelDataItem* dwg_dict_import(const wchar_t* arg);
QEN_API bool mat_edge();
// Brings an object type's settings in line with the stored properties of its object key.
QEN_API void objGen_objProp_Sync(const CZelString& type);

// Six pointer-sized members the host deposits in the module and reads back; the module
// does not interpret them.
struct func_lst {
  void* member[6];
};
QEN_API func_lst getDllFcnLst();
QEN_API bool setDllFcnLst(const func_lst& list);
