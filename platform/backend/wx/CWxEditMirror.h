// Edit fields: single and multi-line, read-only, password and alignment. Typing reaches the
// model as the user's typing (modified, EN_CHANGE); a text the model refuses (ES_NUMBER) or
// changes in its handler is shown as the model has it.
#pragma once

#include "backend/wx/CWxMirror.h"

class CWxEditMirror : public CWxMirror {
public:
  using CWxMirror::CWxMirror;

protected:
  wxWindow* build(wxWindow* parent, const wxRect& rect) override;
  void syncState() override;
  void showText(const wxString& text) override;

private:
  bool multiLine() const;
  bool m_readOnly = false;
  bool m_stateShown = false;
};
