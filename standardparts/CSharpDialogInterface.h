// The call interface through which the standard-parts dialog asks the host for a
// picture-based choice of a standard. The host derives from it and overrides CallNrmDiaDlg;
// this module's own answer is "nothing picked".
#pragma once

#include "data/CZelArrayTempl.h"
#include "data/CZelString.h"
#include "qen_api.h"

class CZelDataItem;

// Hosts built against the original interface rely on its shape: no data, one virtual slot
// and no virtual destructor. Objects belong to the host, which deletes them as the class
// it made; nobody deletes one through this base.
class QEN_API CSharpDialogInterface {
public:
  CSharpDialogInterface();
  CSharpDialogInterface(const CSharpDialogInterface& other);
  ~CSharpDialogInterface();
  CSharpDialogInterface& operator=(const CSharpDialogInterface& other);

  // `leaves` holds, per group path of the standards tree, the keys of the standards shown
  // there ("LEAFS"); the answer is the selection stack of the standard picked, or empty
  // when nothing was picked.
  virtual CZelArrayTempl<CZelString> CallNrmDiaDlg(CZelDataItem* leaves);
};
