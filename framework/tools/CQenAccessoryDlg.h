// The main dialog of the accessory dialogs (setting block, seal, and the others with a
// properties tab and the administration tab): the tabs and "MODE", the favourites, the
// L, S and B assignments, the preview with its context menu, the representation radios,
// the sheared mark, and the private messages between pages and dialog. A dialog states
// what differs as data (its frame description) and by its properties page.
#pragma once

#include "framework/tools/CAdminTab.h"
#include "framework/tools/CQenAccessoryPage.h"
#include "framework/tools/CSheetTabTools.h"
#include "module/CQenEntryDlg.h"
#include "ui/CZelTabCtrl.h"

#include <span>

// A representation radio: the value it writes under the representation key, and whether
// the hatch button S can be used with it.
struct QenReprRadio {
  int id;
  const wchar_t* value;
  bool hatchButton;
  const wchar_t* textKey;
  const wchar_t* text;
};

// What an accessory dialog is, as far as the frame needs to know.
struct QenAccessoryFrame {
  const wchar_t* type;          // "KLOTZ"
  const wchar_t* section;       // "*HZ_KLOTZ*"
  const wchar_t* helpTopic;     // "qen_klotz"
  const wchar_t* titleKey;      // the dialog's title
  const wchar_t* title;
  UINT pageTemplate;            // the properties tab
  const wchar_t* reprKey;       // where the radios write ("HATCH")
  std::span<const QenReprRadio> radios;
  bool secondHatch = false;     // the hatch assignment also offers the second hatch
  bool completeTexts = false;   // the object's texts are completed at the start
};

class CQenAccessoryDlg : public CQenEntryDlg<CZelDlg> {
public:
  CQenAccessoryDlg(UINT templateId, const QenAccessoryFrame& frame, CQenAccessoryPage& page, CWnd* parent);

  void init(qenDlgEnv_st& record, QenSectionSet& sections) override;

  BOOL OnInitDialog() override;
  bool updLang() override;
  void addLangRsc() override;
  void addToolTipRsc() override;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

  // For tests and scripts: what the dialog shows.
  CZelDataItem* objectItem() const { return m_object; }
  const CZelGDX& preview() const { return m_gdx; }
  CZelDplistImage& picture() { return m_picture; }
  CSheetTabTools& tools() { return m_tools; }

protected:
  // Label line, preview and representation radios.
  virtual void refreshMain();
  // The representation radios from the store; dialogs with other representation
  // controls replace it.
  virtual void refreshRepresentation();
  // A representation radio was clicked; false when the id is not one of the dialog's.
  virtual bool representationClicked(UINT id);

  ZEL::CDtaFilePointer* section() { return m_sections[m_frame.section].get(); }
  bool pageExists(const CWnd& page) const { return page.GetSafeHwnd() != nullptr; }
  void refreshPages(bool adminOnlyWhenCurrent);

  const QenAccessoryFrame& m_frame;
  CQenAccessoryPage& m_page;
  CAdminTab m_admin;
  CSheetTabTools m_tools;
  qenDlgEnv_st m_env;
  QenSectionSet m_sections;
  CZelTabCtrl m_tabs;
  CZelDataItem* m_object = nullptr;
  CZelDplistImage m_picture;
  CZelGDX m_gdx;

private:
  static const CMessageMapEntry kEntries[];

  void OnTabChanged(NMHDR*, LRESULT*);
  void OnFavSave();
  void OnFavRestore();
  void OnLayer();
  void OnHatch();
  void OnLabel();
  void OnButton(UINT id);
  void OnPreviewMenu(CWnd* clicked, CPoint point);
  LRESULT OnRefresh(WPARAM, LPARAM);
  LRESULT OnObject(WPARAM, LPARAM);
  LRESULT OnRefreshPage(WPARAM, LPARAM);
};
