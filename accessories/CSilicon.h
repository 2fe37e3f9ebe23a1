// The silicone dialog ("Versiegelung"): the properties tab and the administration tab in the
// shared frame of the accessory dialogs. Its object options sit on the main dialog: the
// sealing cord and the three variants, and check boxes (not radios) for hatching the
// silicone and the cord, each with a hatch of its own.
#pragma once

#include "accessories/CSiliconDlg.h"
#include "framework/tools/CQenAccessoryDlg.h"

class CSilicon : public CQenAccessoryDlg {
public:
  explicit CSilicon(CWnd* parent = nullptr);

  void init(qenDlgEnv_st& record, QenSectionSet& sections) override;
  bool updLang() override;
  void addLangRsc() override;

  CSiliconDlg& propertiesTab() { return m_silicone; }

protected:
  void refreshRepresentation() override;
  bool representationClicked(UINT id) override;

private:
  // A one-letter flag or a variant into the section.
  void write(const wchar_t* key, const wchar_t* value);
  void write(const wchar_t* key, int value);
  CZelString text(const wchar_t* key);

  CSiliconDlg m_silicone;
};
