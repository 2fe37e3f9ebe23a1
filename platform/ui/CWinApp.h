// The framework's application object and the module-state guard: every exported function
// of a module runs with its own module state current, so that templates, icons and texts
// are looked up in that module and not in the host.
#pragma once

#include "data/CZelString.h"

struct AFX_MODULE_STATE {
  CZelString moduleName;
};

// The state of the module that is current now (the host's when no module call runs).
AFX_MODULE_STATE* AfxGetModuleState();

// Makes a module state current for the lifetime of the guard and restores the previous one.
class AFX_MAINTAIN_STATE {
public:
  explicit AFX_MAINTAIN_STATE(AFX_MODULE_STATE* state);
  ~AFX_MAINTAIN_STATE();
  AFX_MAINTAIN_STATE(const AFX_MAINTAIN_STATE&) = delete;
  AFX_MAINTAIN_STATE& operator=(const AFX_MAINTAIN_STATE&) = delete;

private:
  AFX_MODULE_STATE* m_previous;
};

bool AfxOleInit();
bool AfxOleIsInitialized();

class CWinApp {
public:
  explicit CWinApp(const wchar_t* appName = nullptr);
  virtual ~CWinApp();
  CWinApp(const CWinApp&) = delete;
  CWinApp& operator=(const CWinApp&) = delete;

  virtual bool InitInstance();
  bool isInitialised() const { return m_initialised; }
  const CZelString& appName() const { return m_appName; }

private:
  CZelString m_appName;
  bool m_initialised = false;
};
