// qen-host's answer to the standard-parts dialog's click on its preview: the picture choice
// of its own (CHostNormPickerDlg) on the standards of the current group.
#pragma once

#include "standardparts/CSharpDialogInterface.h"

class CHostNormPicker : public CSharpDialogInterface {
public:
  // The stack of the standard chosen with OK, starting from "*NM*\STACK"; empty after Cancel
  // or when the dialog could not be shown.
  CZelArrayTempl<CZelString> CallNrmDiaDlg(CZelDataItem* leaves) override;
};
