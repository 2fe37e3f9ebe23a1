#include "attributes/CLayerReg.h"

#include "attributes/QenAttributeHeader.h"
#include "data/CConfig.h"
#include "data/CZelApp.h"
#include "data/CZelDataDir.h"
#include "data/ZelMessages.h"
#include "data/ZelNames.h"
#include "module/CQenDialogFactory.h"
#include "obj/QenObjLayer.h"
#include "resources/dialogs/layer_ids.h"
#include "store/QenStoreAccess.h"
#include "ui/CButton.h"
#include "ui/ZelHelp.h"

namespace {

// The logical layers of a material, in tab order, with their text keys and German labels.
struct LogicalLayer {
  const wchar_t* key;
  const wchar_t* textKey;
  const wchar_t* label;
};
constexpr LogicalLayer kMaterialLayers[] = {
    {L"PART_CON", L"QEN_MAT005", L"Ausgezogen"},          {L"PART_HID", L"QEN_MAT006", L"Verdeckte Linien"},
    {L"PART_CEN", L"QEN_MAT007", L"Achslinien"},          {L"PART_FILL", L"QEN_MAT019", L"Füllung/Schraffur"},
    {L"PART_SOLID", L"QEN_MAT008", L"Volumenkörper"},     {L"PART_INT", L"QEN_MAT009", L"Innenansicht"},
};

// Line weights the combo offers, in hundredths of a millimetre; -3 is the default weight.
constexpr int kLineWeights[] = {-3, 0, 5, 9, 13, 15, 18, 20, 25, 30, 35, 40, 50,
                                53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};

CZelString weightText(int weight, const CZelDlg& dlg) {
  if (weight == -3) return dlg.GetMsg(L"ZEL099", L"Vorgabe");
  wchar_t buf[32];
  std::swprintf(buf, 32, L"%d.%02d mm", weight / 100, weight % 100);
  return buf;
}

CZelDataKey key(std::initializer_list<const wchar_t*> parts, short groupCode = 0) {
  CZelDataKey k;
  for (const wchar_t* p : parts) k.append(5005, p);
  if (groupCode) k.append(groupCode);
  return k;
}

// The name member (group code 2) of a stored assignment; empty when there is none.
CZelString storedAssignment(std::initializer_list<const wchar_t*> parts) {
  CZelDataItem* item = ZEL::cfg_get(key(parts));
  CZelDataKey name;
  name.append(static_cast<short>(2));
  CZelString text;
  if (item) item->get(text, &name);
  return text;
}

bool stored(std::initializer_list<const wchar_t*> parts) { return ZEL::cfg_get(key(parts)) != nullptr; }

const QenDialogRegistration kRegistration(QenEntry::Layer, [](CWnd* parent) {
  return std::unique_ptr<CQenEntryDialog>(new CLayerReg(parent));
});

}  // namespace

const CMessageMapEntry CLayerReg::kEntries[] = {
    msgmap::commandRange<&CLayerReg::OnRadio>(IDC_LAY_SYSTEM, IDC_LAY_SPECIFIC),
    msgmap::commandRange<&CLayerReg::OnStateBox>(IDC_LAY_LOCKED, IDC_LAY_LOCKED),
    msgmap::commandRange<&CLayerReg::OnStateBox>(IDC_LAY_FROZEN, IDC_LAY_FROZEN),
    msgmap::commandRange<&CLayerReg::OnStateBox>(IDC_LAY_OFF, IDC_LAY_OFF),
    msgmap::command<&CLayerReg::OnNoPlot>(IDC_LAY_NOPLOT),
    msgmap::command<&CLayerReg::OnNameSelect>(IDC_LAY_NAME, CBN_SELCHANGE),
    msgmap::command<&CLayerReg::OnNameEdit>(IDC_LAY_NAME, CBN_EDITCHANGE),
    msgmap::command<&CLayerReg::OnNameKillFocus>(IDC_LAY_NAME, CBN_KILLFOCUS),
    msgmap::command<&CLayerReg::OnWeight>(IDC_LAY_WEIGHT, CBN_SELCHANGE),
    msgmap::command<&CLayerReg::OnLineType>(IDC_LAY_LTYPE, CBN_SELCHANGE),
    msgmap::command<&CLayerReg::OnSwatch>(IDC_LAY_SWATCH, STN_CLICKED),
    msgmap::command<&CLayerReg::commitDescription>(IDC_LAY_DESC, EN_KILLFOCUS),
    msgmap::notify<&CLayerReg::OnTabChanging>(IDC_LAY_TABS, TCN_SELCHANGING),
    msgmap::notify<&CLayerReg::OnTabChanged>(IDC_LAY_TABS, TCN_SELCHANGE),
    msgmap::command<&CLayerReg::OnSaveSetting>(IDC_LAY_SAVE),
    msgmap::command<&CLayerReg::OnRemovePreset>(IDC_LAY_REMOVE),
};
const CMessageMap CLayerReg::kMessageMap{&CZelDlg::kMessageMap, kEntries};

CLayerReg::CLayerReg(CWnd* parent) : CQenEntryDlg<CZelDlg>(IDD_LAYER, parent) {}

void CLayerReg::initLayer(QenSectionSet& sections, qenDlgEnv_st& record) {
  m_env = record;
  m_sections = sections;
  auto pointer = [this](const wchar_t* name) -> ZEL::CDtaFilePointer* {
    ZEL::CSharedPointer<ZEL::CDtaFilePointer>* slot = m_sections.lookup(name);
    return slot ? slot->get() : nullptr;
  };
  m_objLay = pointer(L"*QEN_OBJ_LAY*");
  m_layDet = pointer(L"*ZEL_DL_LAYDET*");
}

void CLayerReg::addLangRsc() {
  langRsc(IDC_LAY_ASSIGN_FRAME, L"QEN_DCL_MAT_109", L"System");
  langRsc(IDC_LAY_SYSTEM, L"QEN_DCL_MAT_104", L"System");
  langRsc(IDC_LAY_DETAILS, L"ZEL_DCL_013", L"Details");
  langRsc(IDC_LAY_NAME_LABEL, L"ZEL_DCL_014", L"Name");
  langRsc(IDC_LAY_DESC_LABEL, L"ZEL_DCL_157", L"Beschreibung");
  langRsc(IDC_LAY_COLOR_LABEL, L"ZEL_DCL_015", L"Farbe");
  langRsc(IDC_LAY_WEIGHT_LABEL, L"ZEL_DCL_016", L"Linienstärke");
  langRsc(IDC_LAY_LTYPE_LABEL, L"ZEL_DCL_017", L"Linientyp");
  langRsc(IDC_LAY_PLOT_LABEL, L"ZEL_DCL_018", L"Plotstil");
  langRsc(IDC_LAY_OFF, L"ZEL_DCL_019", L"Aus für Anzeige");
  langRsc(IDC_LAY_LOCKED, L"ZEL_DCL_020", L"Für Bearbeitung sperren");
  langRsc(IDC_LAY_NOPLOT, L"ZEL_DCL_021", L"Nicht plotten");
  langRsc(IDC_LAY_FROZEN, L"ZEL_DCL_022", L"Frieren");
  langRsc(IDC_LAY_SAVE, L"QEN_DCL_MAT_107", L"Einstellung speichern");
  langRsc(IDC_LAY_REMOVE, L"QEN_MFC_MAT_028", L"Voreinstellungen entfernen");
  langRsc(IDOK, L"DLG_001", L"OK");
  langRsc(IDCANCEL, L"DLG_002", L"Abbrechen");
}

bool CLayerReg::updLang() {
  SetWindowText(GetMsg(L"QEN_DCL_MAT_102", L"<Layerzuordnung>"));
  return CZelDlg::updLang();
}

BOOL CLayerReg::OnInitDialog() {
  m_initialising = true;
  m_detailsEditable = false;
  SetCountry(m_env.country);
  CZelDlg::OnInitDialog();
  m_tabs.SubclassDlgItem(IDC_LAY_TABS, this);
  m_name.SubclassDlgItem(IDC_LAY_NAME, this);
  m_lineType.SubclassDlgItem(IDC_LAY_LTYPE, this);
  m_plotStyle.SubclassDlgItem(IDC_LAY_PLOTSTYLE, this);
  m_weight.SubclassDlgItem(IDC_LAY_WEIGHT, this);
  m_swatch.SubclassDlgItem(IDC_LAY_SWATCH, this);
  m_description.SubclassDlgItem(IDC_LAY_DESC, this);
  m_name.LimitText(300);
  for (int id : {IDC_LAY_CHAIN_BEFORE, IDC_LAY_CHAIN_OWN, IDC_LAY_CHAIN_AFTER}) SetDlgItemText(id, L"");
  ZEL::zelAppPtr()->layerList(m_appLayers);

  if (!m_env.materialMode) {
    refreshObject(kRadios | kTabs);
    if (IsDlgButtonChecked(IDC_LAY_MATERIAL) && !GetDlgItem(IDC_LAY_MATERIAL)->IsWindowEnabled()) {
      // The object asks for its material's layers, but no material of its chain has any.
      setObjLay(L"IS_LAY", 0);
      refreshObject(kRadios);
    }
    buildHeader();
  } else {
    buildHeader();
    refreshMaterial(kRadios | kTabs);
    // A material has no object preset to save or remove.
    GetDlgItem(IDC_LAY_SAVE)->EnableWindow(FALSE);
    GetDlgItem(IDC_LAY_REMOVE)->EnableWindow(FALSE);
  }

  if (m_env.materialMode) {
    SetDlgItemText(IDC_LAY_MATERIAL, GetMsg(L"QEN_DCL_MAT_106", L"Spezifisch"));
    SetDlgItemText(IDC_LAY_SPECIFIC, GetMsg(L"QEN_DCL_MAT_005", L"Undefiniert"));
  } else {
    SetDlgItemText(IDC_LAY_MATERIAL, GetMsg(L"QEN_DCL_MAT_105", L"Material"));
    SetDlgItemText(IDC_LAY_SPECIFIC, GetMsg(L"QEN_DCL_MAT_106", L"Spezifisch"));
  }
  CZelString helpFile = m_env.helpFile;
  if (helpFile.isEmpty()) ZEL::help_find(L"QEN", helpFile);
  SetHelpFile(helpFile);
  SetHelpTopic(!m_env.helpFile.isEmpty() ? m_env.helpTopic : CZelString(L"qen_mat_obj_layer"));
  m_initialising = false;
  return TRUE;
}

// --- store access -------------------------------------------------------------------------

CZelDataItem* CLayerReg::objLay() const { return m_objLay ? m_objLay->get() : nullptr; }
CZelDataItem* CLayerReg::layDet() const { return m_layDet ? m_layDet->get() : nullptr; }

CZelString CLayerReg::objLayText(const wchar_t* path) const {
  CZelString text;
  CZelDataKey k = CZelDataKey::fromPath(path);
  if (CZelDataItem* root = objLay()) root->get(text, &k);
  return text;
}

void CLayerReg::setObjLay(const wchar_t* path, const CZelString& value) {
  CZelDataKey k = CZelDataKey::fromPath(path);
  QEN::sectionSet(m_objLay, &k, value);
}

void CLayerReg::setObjLay(const wchar_t* path, int value) {
  CZelDataKey k = CZelDataKey::fromPath(path);
  QEN::sectionSet(m_objLay, &k, value);
}

CZelString CLayerReg::detName() const {
  CZelString name;
  CZelDataKey k(L"NAME");
  if (CZelDataItem* root = layDet()) {
    root->get(name, &k);
    return name;
  }
  if (CZelDataItem* item = ZEL::cfg_get(L"*ZEL_DL_LAYDET*\\NAME")) item->get(name);
  return name;
}

void CLayerReg::setDetName(const CZelString& name, DetWrite how) {
  CZelDataKey k(L"NAME");
  QEN::sectionSet(m_layDet, &k, name);
  if (m_env.materialMode && (how == DetWrite::Entered || !m_layDet)) {
    // A name the user entered in material mode is the detail layer at once, for whoever
    // reads the store while the dialog is open.
    CZelDataKey stored = key({L"*ZEL_DL_LAYDET*", L"NAME"});
    QEN::storeSet(&stored, name);
  }
}

CZelArrayTempl<CZelString> CLayerReg::layerNames() const {
  CZelArrayTempl<CZelString> names;
  m_layerMgr.physLayerGet(names);
  for (const auto& host : m_appLayers) {
    bool known = false;
    for (const auto& n : names) known = known || n.match(host.name);
    if (!known) names.add(host.name);
  }
  return names;
}

void CLayerReg::fillNameCombo(const CZelString& select) {
  m_name.ResetContent();
  for (const auto& n : layerNames()) m_name.AddString(n.c_str());
  int at = m_name.FindStringExact(-1, select.c_str());
  m_name.SetCurSel(at);
  if (at < 0) m_name.SetWindowText(select);
}

void CLayerReg::insertTabs(const CZelString& current) {
  m_tabs.DeleteAllItems();
  for (int i = 0; i < m_tabKeys.count(); ++i) m_tabs.InsertItem(i, m_logLayers[m_tabKeys[i]].c_str());
  m_tabs.SetCurSel(m_tabKeys.find(current));
}

// --- refresh ------------------------------------------------------------------------------

void CLayerReg::refresh(int bits) {
  if (m_env.materialMode) refreshMaterial(bits);
  else refreshObject(bits);
}

void CLayerReg::refreshObject(int bits) {
  CZelDataItem* root = objLay();
  if (!root || !layDet()) return;

  m_logLayers.clear();
  CZelDataKey logKey(L"LAY_LOG");
  if (CZelDataItem* log = root->find(&logKey)) {
    for (ZEL::CDataIterator it(log); !it.done(); it.next()) {
      CZelString label;
      it.item()->get(label);
      m_logLayers[it.name()] = label;
    }
  }
  if (bits & kTabs) {
    m_tabKeys.removeAll();
    for (const auto& [k, label] : m_logLayers) m_tabKeys.add(k);
  }

  int mode = 0;
  CZelDataKey isLay(L"IS_LAY");
  root->get(mode, &isLay);
  const CZelString current = objLayText(L"LAY_CUR");
  const CZelArrayTempl<CZelString> names = layerNames();

  if (bits & kRadios) CheckRadioButton(IDC_LAY_SYSTEM, IDC_LAY_SPECIFIC, 0);
  const wchar_t* source = mode == 0 ? L"LAY_SYS\\" : mode == 1 ? L"LAY_MAT\\" : L"LAY_OWN\\";
  CZelString physical = objLayText((CZelString(source) + current).c_str());
  if (bits & kRadios) CheckRadioButton(IDC_LAY_SYSTEM, IDC_LAY_SPECIFIC, IDC_LAY_SYSTEM + (mode == 0 ? 0 : mode == 1 ? 1 : 2));

  bool listed = false;
  for (const auto& n : names) listed = listed || n == physical;
  if (!listed) physical = names.isEmpty() ? CZelString() : names[0];
  setObjLay(L"LAY", physical);
  if (bits & kRadios) fillNameCombo(physical);
  setDetName(physical);
  refreshDetails();

  if (mode == 0 || mode == 1) m_detailsEditable = false;
  m_name.EnableWindow(mode == 2);
  m_description.EnableWindow(mode == 2);
  enableDetails();

  CZelString material = objLayText(L"MAT");
  bool materialHasLayers = false;
  if (!material.isEmpty()) {
    CZelArrayTempl<CZelString> chain;
    m_matMgr.matPath(chain, material);
    for (const auto& m : chain)
      if (stored({L"*ZEL_LAYER*", L"MAT", m.c_str()})) {
        materialHasLayers = true;
        break;
      }
  }
  if (bits & kRadios) GetDlgItem(IDC_LAY_MATERIAL)->EnableWindow(materialHasLayers);

  if (bits & kTabs) insertTabs(current);
  else m_tabs.SetCurSel(m_tabKeys.find(current));

  CZelString key3 = objLayText(L"KEY3");
  GetDlgItem(IDC_LAY_REMOVE)->EnableWindow(!key3.isEmpty() && stored({L"*QEN_OBJ_PROP*", key3.c_str(), L"IS_LAY"}));
}

void CLayerReg::enableDetails() {
  for (int id : {IDC_LAY_SWATCH, IDC_LAY_LTYPE, IDC_LAY_PLOTSTYLE, IDC_LAY_WEIGHT, IDC_LAY_OFF, IDC_LAY_LOCKED,
                 IDC_LAY_NOPLOT, IDC_LAY_FROZEN})
    GetDlgItem(id)->EnableWindow(m_detailsEditable);
}

CZelString CLayerReg::currentMaterial() const {
  CZelDataItem* stack = ZEL::cfg_get(L"*QEN_MAT*\\STACK");
  CZelString material;
  CZelArrayTempl<CZelString> list;
  if (stack && !stack->get(material) && stack->get(list) && !list.isEmpty()) material = list[0];
  return material;
}

CZelString CLayerReg::currentLogical() const {
  CZelString current;
  if (CZelDataItem* item = ZEL::cfg_get(L"*QEN_MAT*\\CUR_LAY")) item->get(current);
  return current;
}

void CLayerReg::setMaterialAssignment(const CZelString& layer) {
  CZelString material = currentMaterial();
  CZelString logical = currentLogical();
  CZelDataKey k = key({L"*ZEL_LAYER*", L"MAT", material.c_str(), logical.c_str()}, 2);
  QEN::storeSet(&k, layer);
}

void CLayerReg::refreshMaterial(int bits) {
  const CZelString material = currentMaterial();
  ZEL::CMatProp prop;
  m_matMgr.propGet(material, prop);

  m_logLayers.clear();
  m_tabKeys.removeAll();
  for (const auto& l : kMaterialLayers) {
    if (CZelString(l.key) == L"PART_INT" && !stored({L"*ZEL_LAYER*", L"MAT", L"HOLZ", L"PART_INT"})) continue;
    m_logLayers[l.key] = GetMsg(l.textKey, l.label);
    m_tabKeys.add(l.key);
  }
  CZelString current = currentLogical();
  if (m_tabKeys.find(current) < 0) {
    current = m_tabKeys[0];
    CZelDataKey k = key({L"*QEN_MAT*", L"CUR_LAY"});
    QEN::storeSet(&k, current);
  }
  for (const auto& k : m_tabKeys) {
    CZelDataKey labelKey = key({L"*QEN_MAT*", L"LAY_LOG", k.c_str()});
    QEN::storeSet(&labelKey, m_logLayers[k]);
  }

  CZelArrayTempl<CZelString> chain;
  m_matMgr.matPath(chain, material);
  CZelString inherited;
  if (prop.layMode == 1)
    for (const auto& m : chain) {
      inherited = storedAssignment({L"*ZEL_LAYER*", L"MAT", m.c_str(), current.c_str()});
      if (!inherited.isEmpty()) break;
    }

  for (int id = IDC_LAY_SYSTEM; id <= IDC_LAY_SPECIFIC; ++id) GetDlgItem(id)->EnableWindow(TRUE);
  CheckRadioButton(IDC_LAY_SYSTEM, IDC_LAY_SPECIFIC, 0);
  const CZelString own = storedAssignment({L"*ZEL_LAYER*", L"MAT", material.c_str(), current.c_str()});
  const CZelString system = storedAssignment({L"*ZEL_LAYER*", L"SYSTEM", current.c_str()});
  CZelString assignment;
  if (!own.isEmpty() || !inherited.isEmpty()) {
    assignment = own.isEmpty() ? inherited : own;
    CheckRadioButton(IDC_LAY_SYSTEM, IDC_LAY_SPECIFIC, IDC_LAY_MATERIAL);
  } else if (!system.isEmpty()) {
    assignment = system;
    CheckRadioButton(IDC_LAY_SYSTEM, IDC_LAY_SPECIFIC, IDC_LAY_SYSTEM);
  } else {
    assignment = L"0";
    CheckRadioButton(IDC_LAY_SYSTEM, IDC_LAY_SPECIFIC, IDC_LAY_SPECIFIC);
  }
  GetDlgItem(IDC_LAY_SYSTEM)->EnableWindow(!system.isEmpty());
  GetDlgItem(IDC_LAY_SPECIFIC)->EnableWindow(system.isEmpty());

  showMaterialChain(material, chain);
  if (bits & kTabs) insertTabs(current);
  else m_tabs.SetCurSel(m_tabKeys.find(current));

  setDetName(assignment);
  refreshDetails();
  if (bits & kRadios) fillNameCombo(assignment);

  m_assignEditable = true;
  m_plotStyle.EnableWindow(FALSE);
  if (prop.layMode != 2) {
    // The material takes its layers from its chain: nothing here is its own to change.
    for (int id : {IDC_LAY_NAME, IDC_LAY_WEIGHT, IDC_LAY_LTYPE, IDC_LAY_PLOTSTYLE, IDC_LAY_OFF, IDC_LAY_LOCKED,
                   IDC_LAY_NOPLOT, IDC_LAY_FROZEN, IDC_LAY_SYSTEM, IDC_LAY_MATERIAL, IDC_LAY_SPECIFIC})
      GetDlgItem(id)->EnableWindow(FALSE);
    m_assignEditable = false;
  }
}

void CLayerReg::showMaterialChain(const CZelString& material, const CZelArrayTempl<CZelString>& chain) {
  int showChain = 0;
  if (CZelDataItem* item = ZEL::cfg_get(key({L"*ZEL_MAT*", L"MAT", material.c_str(), L"IS_LAY"}))) item->get(showChain);
  CZelArrayTempl<CZelString> labels;
  for (const auto& m : chain) labels.add(m_matMgr.matLabel(m, L"-1"));
  CZelString header = material + L"  ";
  if (showChain == 1) {
    for (int i = 0; i < labels.count(); ++i) header += (i ? L" <- " : L"") + labels[i];
  } else {
    header += m_matMgr.matLabel(material, L"-1");
  }

  // The chain piece by piece, the material that defines its own layers standing out.
  int own = -1;
  for (int i = 0; i < chain.count() && own < 0; ++i) {
    ZEL::CMatProp p;
    if (m_matMgr.propGet(chain[i], p) && p.layMode == 2) own = i;
  }
  const int pieces[] = {IDC_LAY_CHAIN_BEFORE, IDC_LAY_CHAIN_OWN, IDC_LAY_CHAIN_AFTER};
  if (own < 0) {
    for (int id : pieces) GetDlgItem(id)->ShowWindow(SW_HIDE);
    GetDlgItem(IDC_LAY_HEADER)->ShowWindow(SW_SHOW);
    SetDlgItemText(IDC_LAY_HEADER, header);
    return;
  }
  CZelString before = material + L" ";
  for (int i = 0; i < own; ++i) before += labels[i] + L" <- ";
  CZelString mine = (own == 0 ? material + L" " : CZelString()) + labels[own];
  if (own == 0) before = CZelString();
  CZelString after;
  for (int i = own + 1; i < labels.count(); ++i) after += L" <- " + labels[i];
  const CZelString texts[] = {before, mine, after};
  // Side by side at y = 15 from x = 15, each as wide as its text in the dialog's font.
  CRect unit(0, 0, 4, 8);
  MapDialogRect(&unit);
  int x = 15;
  for (int i = 0; i < 3; ++i) {
    CWnd* w = GetDlgItem(pieces[i]);
    w->SetWindowText(texts[i]);
    int width = texts[i].len() * unit.Width();  // 4 dialog units are one average character
    w->MoveWindow(x, 15, width, unit.Height());
    w->ShowWindow(SW_SHOW);
    x += width;
  }
  GetDlgItem(IDC_LAY_HEADER)->ShowWindow(SW_HIDE);
}

bool CLayerReg::detailRecord(ZEL::CLayerProp& prop) const {
  const CZelString name = detName();
  for (const auto& host : m_appLayers)
    if (host.name.match(name)) {
      prop = host;
      return true;
    }
  return m_layerMgr.physLayerPropGet(name, prop);
}

void CLayerReg::refreshDetails() {
  ZEL::CLayerProp prop;
  if (!detailRecord(prop)) prop = ZEL::CLayerProp{};
  CZelString description = prop.description;
  if (!description.isEmpty()) {
    // Descriptions may be text keys themselves, and their texts keys again.
    description = GetMsg(description.c_str(), description.c_str());
    description = GetMsg(description.c_str(), description.c_str());
  }
  m_description.SetWindowText(description);
  m_description.SetModify(FALSE);
  SetDlgItemText(IDC_LAY_COLOR_TEXT, ZEL::color_txt(prop.color, country()));
  m_swatch.setColor(prop.color);

  m_lineType.ResetContent();
  CZelArrayTempl<CZelString> types;
  m_layerMgr.lineTypesGet(types);
  for (const auto& t : types) m_lineType.AddString(t.c_str());
  m_lineType.SetCurSel(m_lineType.FindStringExact(-1, prop.lineType.c_str()));
  m_plotStyle.ResetContent();
  m_plotStyle.EnableWindow(FALSE);
  m_weight.ResetContent();
  int selected = -1;
  for (int w : kLineWeights) {
    int at = m_weight.AddString(weightText(w, *this).c_str());
    if (w == prop.lineWeight) selected = at;
  }
  m_weight.SetCurSel(selected);
  CheckDlgButton(IDC_LAY_OFF, prop.off ? BST_CHECKED : BST_UNCHECKED);
  CheckDlgButton(IDC_LAY_FROZEN, prop.frozen ? BST_CHECKED : BST_UNCHECKED);
  CheckDlgButton(IDC_LAY_LOCKED, prop.locked ? BST_CHECKED : BST_UNCHECKED);
}

template <class Change>
void CLayerReg::changeDetail(Change change) {
  if (m_initialising) return;
  ZEL::CLayerProp prop;
  if (!detailRecord(prop)) return;
  change(prop);
  m_layerMgr.physLayerPropSet(prop);
  refreshDetails();
}

void CLayerReg::buildHeader() {
  SetDlgItemText(IDC_LAY_HEADER, QEN::attributeHeader(*this, m_env.objectType, objLayText(L"LABEL"), m_label, objLayText(L"MAT")));
}

// --- handlers -----------------------------------------------------------------------------

void CLayerReg::OnRadio(UINT id) {
  if (m_initialising) return;
  if (!m_env.materialMode) {
    setObjLay(L"IS_LAY", static_cast<int>(id) - IDC_LAY_SYSTEM);
    refreshObject(kRadios);
    return;
  }
  if (id == static_cast<UINT>(IDC_LAY_MATERIAL)) {
    CZelString system = storedAssignment({L"*ZEL_LAYER*", L"SYSTEM", currentLogical().c_str()});
    setMaterialAssignment(system.isEmpty() ? CZelString(L"0") : system);
  } else {
    CZelString material = currentMaterial();
    CZelString logical = currentLogical();
    ZEL::cfg_remove(key({L"*ZEL_LAYER*", L"MAT", material.c_str(), logical.c_str()}));
  }
  refreshMaterial(kRadios);
}

void CLayerReg::OnNameEdit() {
  m_nameEdited = true;
  m_detailsEditable = true;
}

void CLayerReg::OnNameSelect() {
  m_detailsEditable = false;
  int at = m_name.GetCurSel();
  if (at < 0) return;
  CZelString name = m_name.GetLBText(at);
  if (name.len() > 300) name = CZelString(name.str().substr(0, 300));
  if (m_env.materialMode) {
    setDetName(name, DetWrite::Entered);
    setMaterialAssignment(name);
    refreshMaterial(kRadios);
    return;
  }
  setDetName(name);
  setObjLay((L"LAY_OWN\\" + objLayText(L"LAY_CUR")).c_str(), name);
  refreshObject(kRadios);
}

void CLayerReg::OnNameKillFocus() { commitName(); }

void CLayerReg::commitName() {
  m_detailsEditable = m_nameEdited;
  m_nameEdited = false;
  CZelString typed;
  m_name.GetWindowText(typed);
  const CZelString name = ZEL::str_name(typed, L' ');
  if (name.isEmpty()) {
    MessageBoxW(GetMsg(L"ZEL022", L"Eintragung notwendig"), L"QENORA", MB_OK | MB_ICONEXCLAMATION);
    return;
  }
  CZelArrayTempl<CZelString> physical;
  m_layerMgr.physLayerGet(physical);
  CZelString chosen;
  for (const auto& p : physical)
    if (p.match(name)) chosen = p;
  if (chosen.isEmpty()) {
    // A new layer, made like the one shown before.
    ZEL::CLayerProp prop;
    if (!detailRecord(prop)) prop = ZEL::CLayerProp{};
    prop.name = name;
    if (!m_layerMgr.physLayerPropSet(prop)) return;
    m_name.SetCurSel(m_name.AddString(name.c_str()));
    chosen = name;
  }
  setDetName(chosen, DetWrite::Entered);
  refreshDetails();
  if (m_env.materialMode) {
    setMaterialAssignment(chosen);
    refreshMaterial(kRadios);
  } else {
    setObjLay((L"LAY_OWN\\" + objLayText(L"LAY_CUR")).c_str(), chosen);
    refreshObject(kRadios);
  }
}

void CLayerReg::commitDescription() {
  if (m_initialising || !m_description.GetModify()) return;
  CZelString text;
  m_description.GetWindowText(text);
  int at = m_name.GetCurSel();
  CZelString layer = at >= 0 ? m_name.GetLBText(at) : detName();
  ZEL::CLayerProp prop;
  if (!m_layerMgr.physLayerPropGet(layer, prop)) return;
  prop.description = text;
  m_layerMgr.physLayerPropSet(prop);
  m_description.SetModify(FALSE);
}

void CLayerReg::OnWeight() {
  int at = m_weight.GetCurSel();
  if (at < 0 || at >= static_cast<int>(std::size(kLineWeights))) return;
  changeDetail([at](ZEL::CLayerProp& p) { p.lineWeight = kLineWeights[at]; });
}

void CLayerReg::OnLineType() {
  int at = m_lineType.GetCurSel();
  if (at < 0) return;
  CZelString type = m_lineType.GetLBText(at);
  changeDetail([&type](ZEL::CLayerProp& p) { p.lineType = type; });
}

void CLayerReg::OnStateBox(UINT id) {
  bool checked = IsDlgButtonChecked(static_cast<int>(id)) == BST_CHECKED;
  changeDetail([id, checked](ZEL::CLayerProp& p) {
    if (id == static_cast<UINT>(IDC_LAY_OFF)) p.off = checked;
    else if (id == static_cast<UINT>(IDC_LAY_FROZEN)) p.frozen = checked;
    else p.locked = checked;
  });
}

void CLayerReg::OnSwatch() {
  if (m_nameEdited) commitName();
  commitDescription();
  if (!m_env.materialMode && IsDlgButtonChecked(IDC_LAY_SPECIFIC) != BST_CHECKED) return;
  if (!m_assignEditable) return;
  ZEL::CLayerProp prop;
  if (!detailRecord(prop)) return;
  CZelColor color = prop.color;
  if (ZEL::zelAppPtr()->colorChoose(color, this) != 1) return;
  prop.color = color;
  m_layerMgr.physLayerPropSet(prop);
  refresh(kRadios);
}

void CLayerReg::OnTabChanging(NMHDR*, LRESULT* result) {
  commitDescription();
  *result = 0;
}

void CLayerReg::OnTabChanged(NMHDR*, LRESULT*) {
  int at = m_tabs.GetCurSel();
  if (at < 0 || at >= m_tabKeys.count()) return;
  const CZelString k = m_tabKeys[at];
  if (m_env.materialMode) {
    CZelDataKey cur = key({L"*QEN_MAT*", L"CUR_LAY"});
    QEN::storeSet(&cur, k);
    refreshMaterial(kRadios);
  } else {
    setObjLay(L"LAY_CUR", k);
    refreshObject(kRadios);
  }
}

void CLayerReg::OnSaveSetting() {
  if (!QEN::obj_layer_save(objLay())) return;
  CZelString text = objLayText(L"LABEL") + L"\n";
  CZelString label = m_matMgr.matLabel(objLayText(L"MAT"), L"-1");
  if (!label.isEmpty() && !label.match(L"SYSTEM")) text += label + L"\n";
  text += GetMsg(L"QEN_MAT022", L"Einstellungen gespeichert");
  MessageBoxW(text, L"QENORA", MB_OK | MB_ICONEXCLAMATION);
  refreshObject(kRadios);
}

void CLayerReg::OnRemovePreset() {
  if (QEN::obj_layer_rem(objLayText(L"KEY3")))
    MessageBoxW(objLayText(L"LABEL") + L"\n" + GetMsg(L"QEN_MFC_MAT_029", L"Voreinstellungen entfernt"), L"QENORA", MB_OK);
  refreshObject(kRadios);
}

BOOL CLayerReg::PreTranslateMessage(MSG* msg) {
  if (msg->message == WM_KEYDOWN && msg->wParam == VK_RETURN) {
    // Enter never presses OK here; in the name field it commits the typed name.
    CWnd* focus = CWnd::GetFocus();
    bool inName = focus && (focus == &m_name || (focus->GetDlgCtrlID() == kComboEditId && focus->GetParent() == &m_name));
    if (inName && m_nameEdited)
      GetDlgItem(IDC_LAY_SPECIFIC)->SetFocus();
    return TRUE;
  }
  return CZelDlg::PreTranslateMessage(msg);
}
