// The membrane dialog ("Folie"), which also serves for a layer of a build-up ("Schicht",
// marked by the key SN of the section): the properties tab and the administration tab in
// the shared frame of the accessory dialogs, with the representations contour, filled,
// lined and hatched and the construction normal, fitted or by object selection.
#pragma once

#include "accessories/CMembraneTab.h"
#include "framework/tools/CQenAccessoryDlg.h"

class CMembraneDlg : public CQenAccessoryDlg {
public:
  explicit CMembraneDlg(CWnd* parent = nullptr);

  BOOL OnInitDialog() override;
  bool updLang() override;
  void addLangRsc() override;
  void OnOK() override;
  void OnCancel() override;

  CMembraneTab& propertiesTab() { return m_membrane; }

protected:
  void refreshMain() override;
  bool representationClicked(UINT id) override;

private:
  // The layer marker: present while the dialog serves a layer of a build-up.
  bool isLayer();
  bool isEdit();
  // The layer marker lives only as long as the dialog; OK and Cancel take it away.
  void removeLayerMarker();

  CMembraneTab m_membrane;
};
