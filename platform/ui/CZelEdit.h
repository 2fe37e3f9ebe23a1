// The numeric field of the platform: an edit that shows a stored value in its number format,
// length unit and display unit, reads typed text back, and refuses bad input with its own message.
#pragma once

#include <cfloat>

#include "data/CZelUnitValue.h"
#include "ui/CEdit.h"

// Dialogs set a field up once and then only call setVal and getVal:
//
//   m_width.setLUnits(insUnit, -1);          // stored in the object's unit, shown in the same
//   m_width.setFormat(env.lFormat);          // the record's number format
//   m_width.setEditFlags(2, 71, 2, -DBL_MAX, DBL_MAX);
//   m_width.setVal(b);                       // shows "12.50 mm", not modified
//   ...
//   if (m_width.GetModify() && m_width.getVal(b)) store b;   // on EN_KILLFOCUS
//
// Types, flags, precision and limits are those of CZelUnitValue (see there).
//
// Plain text: a field that none of setFormat, setLUnits and setEditFlags was called on is an
// ordinary edit (article numbers, descriptions, search masks): it checks nothing and leaves Enter
// to the dialog. getVal and setVal still work on it, as plain decimal numbers.
//
// The check of a numeric field:
//   - when the field loses the focus while its text is modified, before the dialog gets
//     EN_KILLFOCUS. A text the program put there is never refused, nor one the user typed back
//     to it.
//   - when Enter is pressed in it while modified: the value is handed over as on leaving (the
//     check, then EN_KILLFOCUS to the dialog), the focus stays, the key does not press the default
//     button, and the field is unmodified afterwards, so that a second Enter does press it.
//     Enter in an unmodified field goes to the dialog as usual.
//   - not when the focus goes to the Cancel button: the dialog is being left, and the text stays
//     for the dialog's handler, which finds no value in it.
// What the check refuses depends on who checks the value (see CZelUnitValue: one meaning of the
// flags for every dialog):
//   Check::OnLeave (the default): the dialog leaves the check to the field. Everything that is
//     not a value of the field is refused: the empty text, no number, overflow, a value outside
//     the limits, and a value the flags 1 and 2 rule out (zero, negative).
//   Check::ByDialog: the dialog checks the value itself and words its own messages. The field
//     refuses only what no dialog could take as a value (no number, not whole, overflow, outside
//     the explicit limits); an empty field, zero and negative values reach the dialog, which reads
//     them with readVal (an empty field reads as CZelValueError::Kind::Empty).
// A refused text is reported in a message box owned by the dialog (caption "QENORA", exclamation
// icon; the text names what was wrong, "Keine Zahl: 'abc'", in the field's country), and the field
// goes back to its last good text, unmodified. The dialog still gets EN_KILLFOCUS on leaving (the
// focus did leave), sees an unmodified field and writes nothing.
// Whatever the mode, getVal and readVal never give a value that is not finite.
class CZelEdit : public CEdit {
public:
  enum class Check { OnLeave, ByDialog };

  CZelEdit() = default;

  // --- set-up ---------------------------------------------------------------------------------
  void setFormat(int format);  // Zel::lFormat code (1 to 5); others show decimal
  void setFormat(Zel::lFormat format);
  // A display unit of -1 (0xFFFFFFFF) or any invalid code shows the stored unit; an invalid
  // stored unit counts as unitless (nothing is converted).
  void setLUnits(long long objectUnit, long long displayUnit = -1);
  void setLUnits(Zel::lUnit objectUnit, long long displayUnit = -1);
  void setEditFlags(int type, int flags, int precision, double min = -DBL_MAX, double max = DBL_MAX);
  void setCheck(Check check) { m_check = check; }
  // The language of the field's messages; empty: the current message country.
  void setCountry(const CZelString& country) { m_country = country; }

  bool isNumeric() const { return m_numeric; }
  Check check() const { return m_check; }
  const CZelUnitValue& unitValue() const { return m_value; }

  // --- values ---------------------------------------------------------------------------------
  // Shows a stored value (empty for one that is not finite) and clears the modified flag.
  void setVal(double stored);
  // The stored value of the text; false, and `stored` untouched, when the text holds no value
  // the field accepts (empty, no number, too large, outside the limits, and with Check::OnLeave
  // outside the flags 1 and 2). No message.
  bool getVal(double& stored) const;
  // The same with the reason, for dialogs that word their own messages.
  ZelValueResult readVal() const;
  // The checked read: the value of an acceptable text (true); otherwise the message box, the
  // field back at its last good text, `stored` set to the last good value when there is one,
  // and false.
  bool checkVal(double& stored);

  // The last text the program put into the field or the check accepted, and its value.
  const CZelString& goodText() const { return m_goodText; }
  bool hasGoodValue() const { return m_hasGoodValue; }
  double goodValue() const { return m_goodValue; }

  BOOL PreTranslateMessage(MSG* msg) override;

protected:
  void onSetText(const CZelString& text) override;
  void OnKillFocus(CWnd* newWnd) override;
  void takeStateFrom(CWnd& other) override;

private:
  // Runs the check on the current text: true when it may go to the dialog (a value is then
  // remembered as good).
  bool checkText();
  // The text read under the rules of the field's check mode.
  ZelValueResult reading(const CZelString& text) const;
  void setUp();
  void refuse(const CZelValueError& error);
  void rememberGood(const CZelString& text);

  CZelUnitValue m_value;
  bool m_numeric = false;
  Check m_check = Check::OnLeave;
  CZelString m_country;
  CZelString m_goodText;
  double m_goodValue = 0.0;
  bool m_hasGoodValue = false;
};
