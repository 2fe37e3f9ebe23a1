// The administration tab of the standard-parts dialog ("Verwaltung", template 10269): where
// the part stands in the object library (name, folder, designation, article), loading and
// saving it through the "DIN" and "PIECE" data files, taking the part of a drawing object,
// and the preset of the standard-parts type (save, remove, reset to it).
#pragma once

#include "data/CDtaFilePointer.h"
#include "module/qenDlgEnv_st.h"
#include "standardparts/CQenNrmTab.h"

#include <memory>
#include <vector>

class CQenNrmTabVerwaltung : public CQenNrmTab {
public:
  CQenNrmTabVerwaltung();
  ~CQenNrmTabVerwaltung() override;

  void setEnv(const qenDlgEnv_st& env) { m_env = env; }
  void setFiles(ZEL::CDtaFilePointer* din, ZEL::CDtaFilePointer* piece) {
    m_dinFile = din;
    m_pieceFile = piece;
  }

  BOOL OnInitDialog() override;
  void addLangRsc() override;
  void refresh();

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];

  void command(const CZelString& word);
  // The domain's data file ("DIN" for "BAR", "PIECE" for "PIECE") opened again; kept here.
  ZEL::CDtaFilePointer* reopen(bool piece);
  void onSave();
  void onRestore();
  void onPreset();
  void onPresetRem();
  void onReset();

  qenDlgEnv_st m_env;
  ZEL::CDtaFilePointer* m_dinFile = nullptr;
  ZEL::CDtaFilePointer* m_pieceFile = nullptr;
  std::vector<std::unique_ptr<ZEL::CDtaFilePointer>> m_reopened;
  bool m_initialising = false;
};
