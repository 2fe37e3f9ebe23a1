#include "standardparts/CSharpDialogInterface.h"

CSharpDialogInterface::CSharpDialogInterface() = default;

CSharpDialogInterface::CSharpDialogInterface(const CSharpDialogInterface&) {}

CSharpDialogInterface::~CSharpDialogInterface() = default;

CSharpDialogInterface& CSharpDialogInterface::operator=(const CSharpDialogInterface&) { return *this; }

// The picture dialog is the host's; without it there is nothing to pick, and the
// standard-parts dialog keeps its selection.
CZelArrayTempl<CZelString> CSharpDialogInterface::CallNrmDiaDlg(CZelDataItem*) { return {}; }
