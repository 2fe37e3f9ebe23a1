// The numeric field of the platform: an edit that shows a stored value in its number format,
// length unit and display unit, reads typed text back, and refuses bad input with its own message.
#include "ui/CZelEdit.h"

#include <cmath>

#include "ui/CMessageBoxDlg.h"

namespace {
constexpr const wchar_t* kCaption = L"QENORA";
}  // namespace

void CZelEdit::setFormat(int format) {
  m_value.setFormat(format);
  setUp();
}

void CZelEdit::setFormat(Zel::lFormat format) {
  m_value.setFormat(format);
  setUp();
}

void CZelEdit::setLUnits(long long objectUnit, long long displayUnit) {
  Zel::lUnit unit = Zel::lUnit::Unitless;
  if (!Zel::unitFromCode(objectUnit, unit)) unit = Zel::lUnit::Unitless;
  setLUnits(unit, displayUnit);
}

void CZelEdit::setLUnits(Zel::lUnit objectUnit, long long displayUnit) {
  m_value.setLUnits(objectUnit, displayUnit);
  setUp();
}

void CZelEdit::setEditFlags(int type, int flags, int precision, double min, double max) {
  m_value.setEditFlags(type, flags, precision, min, max);
  setUp();
}

void CZelEdit::setUp() {
  m_numeric = true;
  // The good text now means what the new set-up reads in it.
  rememberGood(m_goodText);
}

void CZelEdit::setVal(double stored) {
  SetWindowText(m_value.text(stored));
  // The exact value, not the rounded one read back from the text: restoring it writes nothing new.
  m_goodValue = stored;
  m_hasGoodValue = std::isfinite(stored);
}

bool CZelEdit::getVal(double& stored) const {
  ZelValueResult r = readVal();
  if (!r.ok()) return false;
  stored = r.value;
  return true;
}

ZelValueResult CZelEdit::reading(const CZelString& text) const {
  return m_value.value(text, m_check == Check::ByDialog ? CZelUnitValue::Rules::Input : CZelUnitValue::Rules::All);
}

ZelValueResult CZelEdit::readVal() const { return reading(GetWindowText()); }

bool CZelEdit::checkVal(double& stored) {
  if (checkText()) {
    ZelValueResult r = readVal();
    if (r.ok()) {
      // A text that is still the last good one keeps its exact value.
      stored = GetWindowText() == m_goodText && m_hasGoodValue ? m_goodValue : r.value;
      return true;
    }
  }
  if (m_hasGoodValue) stored = m_goodValue;
  return false;
}

bool CZelEdit::checkText() {
  const CZelString text = GetWindowText();
  ZelValueResult r = reading(text);
  if (r.ok()) {
    if (text != m_goodText) {
      m_goodText = text;
      m_goodValue = r.value;
      m_hasGoodValue = true;
    }
    return true;
  }
  // What an empty field means is for a dialog that checks its values itself.
  if (m_check == Check::ByDialog && r.error.kind() == CZelValueError::Kind::Empty) return true;
  if (text == m_goodText) return false;
  refuse(r.error);
  return false;
}

void CZelEdit::refuse(const CZelValueError& error) {
  const CZelString message = error.message(m_country.isEmpty() ? nullptr : m_country.c_str());
  {
    CMessageBoxDlg box(message, kCaption, MB_OK | MB_ICONEXCLAMATION, m_hWnd ? rootWindow() : nullptr);
    box.DoModal();
  }
  // The box may have ended the dialog's life (a script cancelling it): then there is nothing to restore.
  if (!m_hWnd) return;
  const bool good = m_hasGoodValue;
  const double value = m_goodValue;
  SetWindowText(m_goodText);
  // Restoring the text keeps the exact value that was good, not the one rounded for showing.
  m_hasGoodValue = good;
  m_goodValue = value;
}

void CZelEdit::rememberGood(const CZelString& text) {
  m_goodText = text;
  ZelValueResult r = reading(text);
  m_hasGoodValue = r.ok();
  m_goodValue = r.ok() ? r.value : 0.0;
}

void CZelEdit::onSetText(const CZelString& text) {
  rememberGood(text);
  CEdit::onSetText(text);
}

void CZelEdit::takeStateFrom(CWnd& other) {
  CEdit::takeStateFrom(other);
  rememberGood(m_text);
}

void CZelEdit::OnKillFocus(CWnd* newWnd) {
  CEdit::OnKillFocus(newWnd);
  if (!m_numeric || !GetModify()) return;
  if (newWnd && newWnd->GetDlgCtrlID() == IDCANCEL && newWnd->kind() == WndKind::PushButton) return;
  checkText();
}

BOOL CZelEdit::PreTranslateMessage(MSG* msg) {
  if (!msg || msg->message != WM_KEYDOWN || msg->wParam != VK_RETURN || msg->hwnd != this) return CEdit::PreTranslateMessage(msg);
  if (!m_numeric || !GetModify()) return CEdit::PreTranslateMessage(msg);
  if (checkText()) {
    notifyParent(EN_KILLFOCUS);
    if (m_hWnd) SetModify(FALSE);
  }
  return TRUE;
}
