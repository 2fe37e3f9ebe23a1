// Buttons: push buttons (with an icon), check boxes with two or three states, radio buttons
// in their groups, and push-like check boxes and radios as toggle buttons.
#pragma once

#include "backend/wx/CWxMirror.h"

class CButton;
class wxRadioButton;

class CWxButtonMirror : public CWxMirror {
public:
  using CWxMirror::CWxMirror;

protected:
  wxWindow* build(wxWindow* parent, const wxRect& rect) override;
  void syncState() override;
  void showText(const wxString& text) override;

private:
  enum class Shape { Push, Check, Radio, Toggle };
  CButton& button() const;
  void showImage();

  Shape m_shape = Shape::Push;
  // GTK keeps one radio of a group checked; a hidden radio of our own takes the check when
  // the model's group has none.
  wxRadioButton* m_noneOfGroup = nullptr;
  bool m_leadsGroup = false;
  UINT m_image = 0;
};
