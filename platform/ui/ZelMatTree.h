// The material tree dialog as callers open it.
#pragma once

#include "ui/DlgEnvMatTree_st.h"

namespace ZEL {

// Shows the material tree on `material`; 1 and the chosen material on OK, 0 and
// `material` untouched otherwise.
int dlgMatTree(DlgEnvMatTree_st& env, CZelString& material);

}  // namespace ZEL
