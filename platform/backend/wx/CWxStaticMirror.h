// Static texts (left, centred, right, word-wrapped as Windows wraps them), group boxes and
// icon statics.
#pragma once

#include "backend/wx/CWxMirror.h"

class CWxStaticMirror : public CWxMirror {
public:
  using CWxMirror::CWxMirror;

protected:
  wxWindow* build(wxWindow* parent, const wxRect& rect) override;
  void syncState() override;
  void showText(const wxString& text) override;

private:
  UINT m_image = 0;
  bool m_imageShown = false;
};
