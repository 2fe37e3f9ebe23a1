// The axis-symbol dialog ("Achssymbol"): construction, length, clamping depth and
// representation of the axis symbol of a glazing or an infill, with a preview in the
// layer colours of the symbol. One page without tabs; every change goes into "*AXIS*" at
// once (the entry function puts the section back on Cancel).
#pragma once

#include "framework/tools/CSheetTabTools.h"
#include "module/CQenEntryDlg.h"
#include "ui/CZelComboBox.h"
#include "ui/CZelDplistImage.h"
#include "ui/CZelEdit.h"
#include "ui/CZelGDX.h"

class CAxisDlg : public CQenEntryDlg<CZelDlg> {
public:
  explicit CAxisDlg(CWnd* parent = nullptr);

  void setRecord(const qenDlgEnv_st& record) override { m_env = record; }

  BOOL OnInitDialog() override;
  bool updLang() override;
  void addLangRsc() override;
  void addToolTipRsc() override;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

  // What the dialog shows, for tests and scripts.
  const CZelGDX& preview() const { return m_gdx; }
  CZelDplistImage& picture() { return m_picture; }

  // The preview's background: "QEN_MENU\COLOR\BASE" as a colour index, else its member of
  // group code 62, else its text member "420" as a true colour; white when none is stored.
  static CZelColor backgroundColor();

private:
  // The controls that act, as the dispatcher numbers them.
  enum class Action { Label = 0, Outline, Hatched, Clamp, Length, Depth, Construction, Layer, Hatch };

  static const CMessageMapEntry kEntries[];

  void refresh();
  void drawPreview();
  void command(const CZelString& word);
  void dispatch(Action action);
  // An assignment dialog (L, S or B) on the stored "*AXIS*", kept as the dialog leaves it.
  template <class Assign>
  void assign(Assign&& run);
  void OnPreviewMenu(CWnd* clicked, CPoint point);

  qenDlgEnv_st m_env;
  CSheetTabTools m_tools;
  CZelComboBox m_cons;
  CZelEdit m_length;
  CZelEdit m_depth;
  CZelDplistImage m_picture;
  CZelGDX m_gdx;
  bool m_busy = false;
};
