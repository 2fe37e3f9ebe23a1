// Combo boxes: a drop-down list as a choice, a drop-down (and a simple combo, which GTK does
// not have) as a combo box with its edit field. Picking a line is CBN_SELCHANGE, typing into
// the field is the model's typing (CBN_EDITCHANGE).
#pragma once

#include "backend/wx/CWxMirror.h"

#include <string>
#include <vector>

class CComboBox;

class CWxComboMirror : public CWxMirror {
public:
  using CWxMirror::CWxMirror;

protected:
  wxWindow* build(wxWindow* parent, const wxRect& rect) override;
  void syncState() override;
  void showText(const wxString& text) override {}
  // The template gives the height with the list dropped down; the closed field is shown.
  wxRect placement() const override;

private:
  CComboBox& combo() const;
  bool m_choice = false;
  std::vector<std::wstring> m_items;
  bool m_itemsShown = false;
};
