// The insulation dialog ("Dämmung"): the properties tab and the administration tab in the
// shared frame of the accessory dialogs, with the representations contour, filled and
// hatched, the separating line, the width factor of the symbol, the construction (straight,
// arc, wedge, ring, area) and islands. The properties tab ends the dialog with 1002 to 1005
// to let the user pick a thickness or the base line in the drawing.
#pragma once

#include "accessories/CInsulation.h"
#include "framework/tools/CQenAccessoryDlg.h"

class Insul : public CQenAccessoryDlg {
public:
  explicit Insul(CWnd* parent = nullptr);

  BOOL OnInitDialog() override;
  void addLangRsc() override;

  CInsulation& propertiesTab() { return m_insulation; }

protected:
  void refreshMain() override;
  void refreshRepresentation() override;
  bool representationClicked(UINT id) override;

private:
  CZelString text(const wchar_t* key);
  int integer(const wchar_t* key, int fallback);
  void setText(const wchar_t* key, const wchar_t* value);
  void setInteger(const wchar_t* key, int value);
  bool isEdit();
  // After a change of the main dialog: the properties tab and the preview.
  void changed();

  CInsulation m_insulation;
};
