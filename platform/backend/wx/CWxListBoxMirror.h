// List boxes and check list boxes: lines, single or multiple selection, check marks. A click
// on a line is the model's selection (LBN_SELCHANGE when it notifies), a click on a mark the
// model's check change (CLBN_CHKCHANGE).
#pragma once

#include "backend/wx/CWxMirror.h"

#include <string>
#include <vector>

class CListBox;

class CWxListBoxMirror : public CWxMirror {
public:
  using CWxMirror::CWxMirror;

protected:
  wxWindow* build(wxWindow* parent, const wxRect& rect) override;
  void syncState() override;
  void showText(const wxString& text) override {}

private:
  CListBox& list() const;
  bool m_checks = false;
  std::vector<std::wstring> m_items;
  bool m_itemsShown = false;
};
