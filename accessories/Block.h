// The setting-block dialog ("Klotz"): the properties tab and the administration tab in
// the shared frame of the accessory dialogs, with the representations outline, standard
// and hatched.
#pragma once

#include "accessories/CBlockTab.h"
#include "framework/tools/CQenAccessoryDlg.h"

class Block : public CQenAccessoryDlg {
public:
  explicit Block(CWnd* parent = nullptr);

  CBlockTab& propertiesTab() { return m_block; }

private:
  CBlockTab m_block;
};
