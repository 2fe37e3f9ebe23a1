// A main dialog as its entry function drives it: the dialog's own texts and help setters
// and its modal run serve the entry's interface, so that each dialog states only the
// initialisation it takes.
#pragma once

#include "module/CQenEntryDialog.h"
#include "ui/CZelDlg.h"

template <class Base = CZelDlg>
class CQenEntryDlg : public Base, public CQenEntryDialog {
public:
  using Base::Base;

  void SetCountry(const CZelString& country) override { Base::SetCountry(country); }
  void SetHelpFile(const CZelString& file) override { Base::SetHelpFile(file); }
  void SetHelpTopic(const CZelString& topic) override { Base::SetHelpTopic(topic); }
  INT_PTR DoModal() override { return Base::DoModal(); }
};
