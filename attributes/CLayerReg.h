// The layer dialog: on which drawing layer each geometric role (logical layer) of an object
// or of a material is drawn, and the properties of that drawing layer. Object mode edits
// the working copy "*QEN_OBJ_LAY*"; material mode edits the material's assignments in the
// settings store.
#pragma once

#include "data/CLayerProp.h"
#include "data/CZelLayerMgr.h"
#include "data/CZelMapTempl.h"
#include "data/CZelMatMgr.h"
#include "framework/CQenTabCtrl.h"
#include "module/CQenEntryDlg.h"
#include "ui/CComboBox.h"
#include "ui/CZelEdit.h"
#include "ui/CZelPicture.h"

class CLayerReg : public CQenEntryDlg<CZelDlg> {
public:
  explicit CLayerReg(CWnd* parent = nullptr);

  // The entry's sections ("*QEN_OBJ_LAY*" and "*ZEL_DL_LAYDET*" are used; either may be
  // missing) and a copy of its record.
  void initLayer(QenSectionSet& sections, qenDlgEnv_st& record) override;
  // The header a caller shows for standard parts ("DIN").
  void setLabel(const CZelString& label) { m_label = label; }

  BOOL OnInitDialog() override;
  BOOL PreTranslateMessage(MSG* msg) override;
  bool updLang() override;
  void addLangRsc() override;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

  // What a refresh sets: the radios and the name list, and the tabs.
  enum RefreshBits : int { kRadios = 1, kTabs = 2 };

private:
  static const CMessageMapEntry kEntries[];

  // Store access of the two working copies; none when the section is missing.
  CZelDataItem* objLay() const;
  CZelDataItem* layDet() const;
  CZelString objLayText(const wchar_t* path) const;
  void setObjLay(const wchar_t* path, const CZelString& value);
  void setObjLay(const wchar_t* path, int value);
  CZelString detName() const;
  // Who sets the detail layer: a refresh only shows it (the dialog's own section, which OK
  // writes back); the user's name entry in material mode also puts it in the store at once.
  enum class DetWrite { Shown, Entered };
  void setDetName(const CZelString& name, DetWrite how = DetWrite::Shown);

  void refresh(int bits);
  void refreshObject(int bits);
  void refreshMaterial(int bits);
  void refreshDetails();
  void buildHeader();
  void showMaterialChain(const CZelString& material, const CZelArrayTempl<CZelString>& chain);
  void fillNameCombo(const CZelString& select);
  CZelArrayTempl<CZelString> layerNames() const;
  void insertTabs(const CZelString& current);
  void enableDetails();

  // Material mode.
  CZelString currentMaterial() const;
  CZelString currentLogical() const;
  void setMaterialAssignment(const CZelString& layer);

  // The properties of the layer the details show: the host's record of that name, or the
  // drawing's layer.
  bool detailRecord(ZEL::CLayerProp& prop) const;
  template <class Change>
  void changeDetail(Change change);

  // Handlers.
  void OnRadio(UINT id);
  void OnNameSelect();
  void OnNameEdit();
  void OnNameKillFocus();
  void commitName();
  void commitDescription();
  void OnWeight();
  void OnLineType();
  void OnStateBox(UINT id);
  void OnSwatch();
  void OnTabChanging(NMHDR*, LRESULT*);
  void OnTabChanged(NMHDR*, LRESULT*);
  void OnSaveSetting();
  void OnRemovePreset();
  void OnNoPlot() {}  // the no-plot state is neither read nor written

  CZelString m_label;
  CZelMatMgr m_matMgr;
  CZelLayerMgr m_layerMgr;
  CZelArrayTempl<ZEL::CLayerProp> m_appLayers;
  CZelMapTempl<CZelString, CZelString> m_logLayers;
  CZelArrayTempl<CZelString> m_tabKeys;
  qenDlgEnv_st m_env;
  QenSectionSet m_sections;
  ZEL::CDtaFilePointer* m_objLay = nullptr;
  ZEL::CDtaFilePointer* m_layDet = nullptr;

  CQenTabCtrl m_tabs;
  CComboBox m_name;
  CComboBox m_lineType;
  CComboBox m_plotStyle;
  CComboBox m_weight;
  CZelPicture m_swatch;
  CZelEdit m_description;  // plain text: the layer's description

  bool m_nameEdited = false;
  bool m_descEdited = false;
  bool m_detailsEditable = false;
  bool m_assignEditable = true;
  bool m_initialising = true;
};
