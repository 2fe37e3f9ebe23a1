#include "ui/CWinApp.h"

namespace {
AFX_MODULE_STATE g_hostState{L"host"};
thread_local AFX_MODULE_STATE* g_current = &g_hostState;
bool g_oleInitialised = false;
}  // namespace

AFX_MODULE_STATE* AfxGetModuleState() { return g_current; }

AFX_MAINTAIN_STATE::AFX_MAINTAIN_STATE(AFX_MODULE_STATE* state) : m_previous(g_current) {
  if (state) g_current = state;
}

AFX_MAINTAIN_STATE::~AFX_MAINTAIN_STATE() { g_current = m_previous; }

// There is no COM here; the flag only records that the module asked for it.
bool AfxOleInit() {
  g_oleInitialised = true;
  return true;
}

bool AfxOleIsInitialized() { return g_oleInitialised; }

CWinApp::CWinApp(const wchar_t* appName) : m_appName(appName) {}
CWinApp::~CWinApp() = default;

bool CWinApp::InitInstance() {
  m_initialised = true;
  return true;
}
