// The properties tab of the insulation dialog: soft or hard insulation, the thickness and
// the start and end thickness (typed, or picked in the drawing through the buttons "<",
// which end the dialog), material and article.
#pragma once

#include "data/CZelMatMgr.h"
#include "framework/tools/CQenAccessoryPage.h"
#include "framework/tools/CSheetTabTools.h"
#include "ui/CZelEdit.h"

class CInsulation : public CQenAccessoryPage {
public:
  CInsulation();

  BOOL OnInitDialog() override;
  void addLangRsc() override;
  void refresh() override;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

  // The end codes of the pick buttons: thickness, start thickness, end thickness, base line.
  static constexpr int kPickThickness = 1002;
  static constexpr int kPickStart = 1003;
  static constexpr int kPickEnd = 1004;
  static constexpr int kPickBaseline = 1005;

  // Whether the dialog runs inside another dialog: the framework knows it from the window
  // that owns it; the insulation entry opens its dialog without a parent, so the record's
  // parent window tells it too.
  static bool insideAnotherDialog(const CZelDlg& dialog, const qenDlgEnv_st& record);

private:
  static const CMessageMapEntry kEntries[];

  void command(const CZelString& word);
  void onLength(CZelEdit& edit, const wchar_t* key);
  void onHardness(int id, const wchar_t* value);
  void onMaterial();
  void onArticle();
  void pick(int code);
  double real(const wchar_t* key) const;
  CZelString text(const wchar_t* key) const;
  void setReal(const wchar_t* key, double value);
  bool isEdit() const;
  // Whether the section holds an ORIG value (a real, an integer or a text).
  bool hasOrigValue() const;

  CSheetTabTools m_tools;
  CZelEdit m_thickness;
  CZelEdit m_start;
  CZelEdit m_end;
};
