// The seal dialog ("Dichtung"): the properties tab and the administration tab in the shared
// frame of the accessory dialogs, with the representations outline and hatched.
#pragma once

#include "accessories/CSealDlg.h"
#include "framework/tools/CQenAccessoryDlg.h"

class CSeal : public CQenAccessoryDlg {
public:
  explicit CSeal(CWnd* parent = nullptr);

  CSealDlg& propertiesTab() { return m_seal; }

private:
  CSealDlg m_seal;
};
