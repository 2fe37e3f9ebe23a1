// The administration tab ("Verwaltung") of the accessory dialogs: where the object comes
// from (name, folder, label, article), fetching and saving library objects, ending the
// dialog to pick an object in the drawing, the type's preset, and the reset to the
// factory state.
#pragma once

#include "framework/tools/CSheetTabTools.h"
#include "module/qenDlgEnv_st.h"
#include "ui/CZelDlg.h"

class CAdminTab : public CZelDlg {
public:
  explicit CAdminTab(CWnd* parent = nullptr);

  void init(const qenDlgEnv_st& record) { m_env = record; }
  void setHelpTopicName(const CZelString& topic) { m_helpTopic = topic; }
  void setPageItem(CZelDataItem* item) { m_pageItem = item; }
  CZelDataItem* pageItem() const { return m_pageItem; }

  BOOL OnInitDialog() override;
  void addLangRsc() override;
  // Store -> controls.
  void refresh();

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];

  CZelString section() const { return CSheetTabTools::sectionOfType(m_env.objectType); }
  CZelDataItem* sectionItem() const;
  // The dialog that owns the tab (the tab control stands between them).
  CWnd* owner() const;
  // The data of the type's current drawing object, or none.
  CZelDataItem* currentObjectData() const;

  void OnFetch();
  void OnSave();
  void OnPick();
  void OnAsPreset();
  void OnRemovePreset();
  void OnReset();

  CZelDataItem* m_pageItem = nullptr;
  CZelString m_helpTopic;
  CSheetTabTools m_tools;
  qenDlgEnv_st m_env;
  CSheetTabTools m_buttonTools;
};
