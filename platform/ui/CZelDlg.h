// The dialog base of every dialog and page of the module: language texts per control with
// German defaults, tooltips, the dialog's country, help file and topic, and message boxes
// owned by the dialog with the add-on's caption.
#pragma once

#include "ui/CDialog.h"
#include "ui/CZelDlgTexts.h"

class CZelDlg : public CDialog {
public:
  CZelDlg(UINT templateId, CWnd* parent = nullptr);

  // Puts the registered texts and tooltips on the controls.
  virtual bool updLang();
  // Registration of the texts, help resources and tooltips; overrides only register.
  virtual void addLangRsc() {}
  virtual void addHlpRsc() {}
  virtual void addToolTipRsc() {}
  // The text of a key in a country's language (none: the dialog's), else the default.
  virtual CZelString GetMsg(const wchar_t* key, const wchar_t* defaultText, const wchar_t* country = nullptr) const;
  virtual int MessageBoxW(const wchar_t* text, const wchar_t* caption = L"QENORA", UINT flags = MB_OK | MB_ICONEXCLAMATION);
  // A tooltip request for a control: 1 when the control has a tooltip.
  virtual int ToolTip(UINT id, NMHDR* header, LRESULT* result);

  // A caption a caller gives the dialog (the object's group label when the dialog works on
  // one object); it replaces the dialog's own title.
  void setCaption(const CZelString& caption) { m_caption = caption; }

  void SetCountry(const CZelString& country) { m_country = country; }
  // Takes the user's language as the settings store keeps it ("_COUNTRY"); true when the
  // store has one, else the dialog's language stays as it is.
  bool useStoredCountry();
  const CZelString& country() const { return m_country; }
  void SetHelpFile(const CZelString& file) { m_helpFile = file; }
  void SetHelpTopic(const CZelString& topic) { m_helpTopic = topic; }
  const CZelString& helpFile() const { return m_helpFile; }
  const CZelString& helpTopic() const { return m_helpTopic; }
  // Opens a help topic (none: the dialog's own) of the dialog's help file.
  void Help(const wchar_t* topic = nullptr);
  // Whether this dialog runs inside another dialog: a page of a dialog that was itself
  // opened from a dialog, or a dialog opened from another one.
  bool isSubDlg() const;

  BOOL OnInitDialog() override;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

protected:
  // For addLangRsc and addToolTipRsc overrides.
  void langRsc(int id, const wchar_t* key, const wchar_t* defaultText) { m_texts.addText(id, key, defaultText); }
  void toolTipRsc(int id, const wchar_t* key) { m_texts.addToolTip(id, key); }

private:
  static const CMessageMapEntry kEntries[];
  void OnHelpButton();

  CZelDlgTexts m_texts;
  CZelString m_country = L"de";
  CZelString m_helpFile;
  CZelString m_helpTopic;
  CZelString m_caption;
};
