#include "CHostNormPicker.h"

#include "CHostNormPickerDlg.h"

#include "data/CConfig.h"
#include "data/CZelDataItem.h"

CZelArrayTempl<CZelString> CHostNormPicker::CallNrmDiaDlg(CZelDataItem* leaves) {
  ZEL::NormStack current;
  if (CZelDataItem* stored = ZEL::cfg_get(L"*NM*\\STACK")) {
    CZelArrayTempl<CZelString> stack;
    CZelString single;
    if (stored->get(stack))
      for (const CZelString& s : stack) current.push_back(s.toUtf8());
    else if (stored->get(single) && !single.isEmpty())
      current.push_back(single.toUtf8());
  }
  CHostNormPickerDlg dlg(leaves, current);
  CZelArrayTempl<CZelString> chosen;
  if (dlg.DoModal() != IDOK) return chosen;
  for (const std::string& s : dlg.chosen()) chosen.add(CZelString::fromUtf8(s));
  return chosen;
}
