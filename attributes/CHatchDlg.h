// A page of the hatch dialog: the source, pattern, angle and scale of one hatch of the
// object (page 1 the first hatch; page 2 a composite panel's core, page 3 a silicone
// joint's sealing cord, both the second hatch), with a preview of the pattern.
#pragma once

#include "data/CDtaFilePointer.h"
#include "module/qenDlgEnv_st.h"
#include "ui/CComboBox.h"
#include "ui/CStatic.h"
#include "ui/CZelDlg.h"
#include "ui/CZelEdit.h"

class CHatchDlg : public CZelDlg {
public:
  CHatchDlg();

  // The record, the hatch section (working copy or stored) and which page this is.
  void init(const qenDlgEnv_st& record, ZEL::CDtaFilePointer* hatches, int page);
  int page() const { return m_page; }

  // Store -> controls, radios included. True when the material turned out to have no
  // pattern for a hatch that asked for it, so the source was set back to the system's:
  // the caller refreshes once more to show the system pattern.
  bool refresh();
  // Shrinks the page to its upper area: the lower area of the template takes no part.
  void shrinkToUpperArea();

  BOOL OnInitDialog() override;
  void addLangRsc() override;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];

  void command(const CZelString& word);
  // The first hatch's key, or the second hatch's ("HPNAME" -> "HPNAME2").
  CZelString hatchKey(const wchar_t* name) const;
  int mode() const;
  void setMode(int mode);
  void commitPattern();
  void commitAngle(bool always);
  void commitScale(bool always);
  void setOwn(short groupCode, const wchar_t* effective, double value);

  bool m_busy = false;  // set while a refresh puts values into the controls
  CComboBox m_pattern;
  CZelEdit m_angle;
  CZelEdit m_scale;
  CStatic m_preview;
  qenDlgEnv_st m_env;
  int m_page = 1;
  ZEL::CDtaFilePointer* m_hatches = nullptr;
};
