#include "backend/wx/CWxDialogUnits.h"

#include "ui/CDialogTemplate.h"

#include <wx/settings.h>
#include <wx/window.h>

#include <cmath>

int CWxDialogUnits::muldiv(int a, int b, int c) {
  return static_cast<int>(std::lround(static_cast<double>(a) * b / c));
}

CWxDialogUnits CWxDialogUnits::measure(const wxFont& font, wxWindow& window) {
  int width = 0, height = 0;
  window.GetTextExtent("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz", &width, &height, nullptr, nullptr, &font);
  // Windows rounds the average of the 52 letters the same way.
  int baseX = (width / 26 + 1) / 2;
  if (baseX <= 0 || height <= 0) return CWxDialogUnits();
  return CWxDialogUnits(baseX, height);
}

wxFont CWxDialogUnits::templateFont(const CDialogTemplate* tpl) {
  wxFont font = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
  if (!tpl) return font;
  wxString face(tpl->fontFace.str());
  static const wxString windowsFaces[] = {"MS Shell Dlg", "MS Shell Dlg 2", "MS Sans Serif", "Microsoft Sans Serif",
                                          "Tahoma", "Segoe UI", ""};
  bool windowsFace = false;
  for (const wxString& f : windowsFaces) windowsFace = windowsFace || face.IsSameAs(f, false);
  if (!windowsFace) font.SetFaceName(face);
  if (tpl->fontSize > 0) font.SetPointSize(tpl->fontSize);
  return font;
}

wxFont CWxDialogUnits::standardFont() {
  wxFont font = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
  font.SetPointSize(8);
  return font;
}

wxRect CWxDialogUnits::fromDialogUnits(const CRect& dlu) const {
  int left = x(dlu.left), top = y(dlu.top);
  return wxRect(left, top, x(dlu.left + dlu.right) - left, y(dlu.top + dlu.bottom) - top);
}

wxRect CWxDialogUnits::fromModelPixels(const CRect& px) const {
  int left = muldiv(px.left, m_baseX, kModelBaseX), top = muldiv(px.top, m_baseY, kModelBaseY);
  int right = muldiv(px.right, m_baseX, kModelBaseX), bottom = muldiv(px.bottom, m_baseY, kModelBaseY);
  return wxRect(left, top, right - left, bottom - top);
}

wxPoint CWxDialogUnits::toModelPixels(wxPoint ours) const {
  return wxPoint(muldiv(ours.x, kModelBaseX, m_baseX), muldiv(ours.y, kModelBaseY, m_baseY));
}

wxPoint CWxDialogUnits::fromModelPixels(CPoint model) const {
  return wxPoint(muldiv(model.x, m_baseX, kModelBaseX), muldiv(model.y, m_baseY, kModelBaseY));
}
