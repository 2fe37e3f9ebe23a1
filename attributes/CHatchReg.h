// The hatch dialog: with which pattern, angle and scale an object's cut faces are filled,
// taken from the system, from the object's material or chosen for the object. One page
// per hatch: the outline, and the core of a composite panel or the sealing cord of a
// silicone joint when the object has a second hatch.
#pragma once

#include "attributes/CHatchDlg.h"
#include "data/CZelMatMgr.h"
#include "module/CQenEntryDlg.h"
#include "ui/CZelTabCtrl.h"

class CHatchReg : public CQenEntryDlg<CZelDlg> {
public:
  explicit CHatchReg(CWnd* parent = nullptr);

  // A copy of the entry's record and the hatch section ("*QEN_OBJ_HATCH*": the entry's
  // working copy, or the stored section when the sheet tools open the dialog).
  void initHatch(qenDlgEnv_st& record, ZEL::CDtaFilePointer* hatches) override;
  // The header a caller shows for standard parts ("DIN").
  void setLabel(const CZelString& label) { m_label = label; }

  BOOL OnInitDialog() override;
  bool updLang() override;
  void addLangRsc() override;
  void addToolTipRsc() override;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];

  CZelString sectionText(const wchar_t* name) const;
  // The page behind a tab: the first, else the second hatch's page of the object's type.
  CHatchDlg* pageOfTab(int tab);
  void refreshPage(CHatchDlg& page);
  // "Voreinstellung entfernen" only when the object key has a hatch preset.
  void enableRemove(const CZelString& objectKey);

  void OnTabChanged(NMHDR*, LRESULT*);
  void OnSaveSetting();
  void OnRemovePreset();

  CZelString m_label;
  CZelTabCtrl m_tabs;
  CHatchDlg m_page1;  // the first hatch
  CHatchDlg m_page2;  // the core of a composite panel
  CHatchDlg m_page3;  // the sealing cord of a silicone joint
  CZelMatMgr m_matMgr;
  qenDlgEnv_st m_env;
  ZEL::CDtaFilePointer* m_hatches = nullptr;
};
