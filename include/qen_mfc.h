// The dialog module's interface for the host: the exported dialog entry functions.
#pragma once

#include "data/CZelDataItem.h"
#include "module/qenDlgEnv_st.h"

#define QEN_API __attribute__((visibility("default")))

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
