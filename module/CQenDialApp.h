// The module object: one static instance, initialised when the library is loaded.
#pragma once

#include "ui/CWinApp.h"

class CQenDialApp : public CWinApp {
public:
  CQenDialApp();
  bool InitInstance() override;
};

// The module's own framework state; every exported function makes it current.
AFX_MODULE_STATE* AfxGetStaticModuleState();
const CQenDialApp& qenTheApp();

#define AFX_MANAGE_STATE(state) AFX_MAINTAIN_STATE qenManagedState_(state)
