#include "module/CQenDialApp.h"

namespace {
AFX_MODULE_STATE g_moduleState{L"Qen_Mfc"};
CQenDialApp theApp;
// The library's load runs the initialisation once, as the framework does for a DLL.
const bool g_initialised = theApp.InitInstance();
}  // namespace

CQenDialApp::CQenDialApp() : CWinApp(L"Qen_Mfc") {}

bool CQenDialApp::InitInstance() {
  AfxOleInit();
  return CWinApp::InitInstance();
}

AFX_MODULE_STATE* AfxGetStaticModuleState() { return &g_moduleState; }

const CQenDialApp& qenTheApp() {
  (void)g_initialised;
  return theApp;
}
