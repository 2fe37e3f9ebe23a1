#include "accessories/CAxisDlg.h"

#include "data/CConfig.h"
#include "data/ZelDataAccess.h"
#include "data/ZelMessages.h"
#include "framework/QenDialogIds.h"
#include "module/CQenDialogFactory.h"
#include "obj/ZelObjDraw.h"
#include "obj/ZelObjInit.h"
#include "obj/ZelObjKey.h"
#include "qen_mfc.h"
#include "resources/dialogs/axis_ids.h"
#include "ui/CButton.h"
#include "ui/ZelHelp.h"

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cwchar>
#include <iterator>
#include <memory>

using namespace qen;

namespace {

const wchar_t* const kSection = L"*AXIS*";

// The constructions in the order the combo box lists them.
struct Construction {
  const wchar_t* key;
  const wchar_t* textKey;
  const wchar_t* text;
};
constexpr Construction kConstructions[] = {
    {L"GLAZING", L"ST3D157", L"Verglasungsachse"},
    {L"PANEL", L"ST3D158", L"Füllungsposition"},
    {L"PLAN", L"ST3D159", L"Füllungsebene"},
};

CZelDataKey axisKey(const wchar_t* name) {
  CZelDataKey k;
  k.set(5005, kSection, 5005, name, 0);
  return k;
}

CZelString text(const CZelDataItem* item, const wchar_t* name, const wchar_t* fallback = L"") {
  CZelString value;
  CZelDataKey k(name);
  if (!item || !item->get(value, &k)) return fallback;
  return value;
}

double real(const CZelDataItem* item, const wchar_t* name) {
  double value = 0.0;
  CZelDataKey k(name);
  if (item) item->get(value, &k);
  return value;
}

int integer(const CZelDataItem* item, const wchar_t* name) {
  int value = 0;
  CZelDataKey k(name);
  if (item) item->get(value, &k);
  return value;
}

// Only the infill constructions know a clamping depth.
bool infill(const CZelString& cons) { return cons == L"PANEL" || cons == L"PLAN"; }

// Colour 7 stands out from the background; as the background itself it is white, as the
// host shows its drawing.
CZelColor indexColor(int index) { return index == 7 ? CZelColor::fromRgb(255, 255, 255) : CZelColor::fromIndex(index); }

}  // namespace

const CMessageMapEntry CAxisDlg::kEntries[] = {
    msgmap::word(IDC_ASSIGN_LABEL, BN_CLICKED, L"label"),
    msgmap::word(IDC_AXIS_OUTLINE, BN_CLICKED, L"outline"),
    msgmap::word(IDC_AXIS_HATCHED, BN_CLICKED, L"hatched"),
    msgmap::word(IDC_AXIS_CLAMP_CHECK, BN_CLICKED, L"clamp"),
    msgmap::word(IDC_AXIS_LEN, EN_KILLFOCUS, L"len"),
    msgmap::word(IDC_AXIS_CLAMP, EN_KILLFOCUS, L"gd"),
    msgmap::word(IDC_AXIS_CONS, CBN_SELCHANGE, L"cons"),
    msgmap::word(IDC_ASSIGN_LAYER, BN_CLICKED, L"layer"),
    msgmap::word(IDC_ASSIGN_HATCH, BN_CLICKED, L"hatch"),
    msgmap::contextMenu<&CAxisDlg::OnPreviewMenu>(),
};
const CMessageMap CAxisDlg::kMessageMap{&CZelDlg::kMessageMap, kEntries, msgmap::wordHandler<&CAxisDlg::command>()};

namespace {
const QenDialogRegistration kRegistration(QenEntry::Axis, [](CWnd* parent) {
  return std::unique_ptr<CQenEntryDialog>(new CAxisDlg(parent));
});
}  // namespace

CAxisDlg::CAxisDlg(CWnd* parent) : CQenEntryDlg<CZelDlg>(IDD_AXIS, parent) {}

void CAxisDlg::addLangRsc() {
  langRsc(IDC_AXIS_PROPS_GROUP, L"QEN_DCL_HLBZ_186", L"Eigenschaften");
  langRsc(IDC_AXIS_LEN_LABEL, L"QEN_DCL_HLBZ_187", L"Länge");
  langRsc(IDC_AXIS_CLAMP_CHECK, L"QEN_DCL_HLBZ_188", L"Einspannung");
  langRsc(IDC_AXIS_REPR_GROUP, L"QEN_DCL_HLBZ_189", L"Darstellung");
  langRsc(IDC_AXIS_OUTLINE, L"QEN_DCL_HLBZ_190", L"Kontur");
  langRsc(IDC_AXIS_HATCHED, L"QEN_DCL_HLBZ_191", L"Schraffiert");
  langRsc(IDOK, L"DLG_001", L"OK");
  langRsc(IDCANCEL, L"DLG_002", L"Abbrechen");
}

void CAxisDlg::addToolTipRsc() {
  toolTipRsc(IDC_ASSIGN_LAYER, L"QEN_MFC_MAT_009");
  toolTipRsc(IDC_ASSIGN_HATCH, L"QEN_MFC_MAT_010");
  toolTipRsc(IDC_ASSIGN_LABEL, L"QEN_MFC_MAT_011");
}

bool CAxisDlg::updLang() {
  SetWindowText(GetMsg(L"QEN_DCL_HLBZ_185", L"Achssymbol", m_env.country.c_str()));
  return CZelDlg::updLang();
}

BOOL CAxisDlg::OnInitDialog() {
  // The entry function hands over no country of its own: it is the record's.
  if (!m_env.country.isEmpty()) SetCountry(m_env.country);
  CZelDlg::OnInitDialog();
  SetHelpTopic(L"qen_axis");
  CZelString helpFile;
  ZEL::help_find(L"QEN", helpFile);
  SetHelpFile(helpFile);
  CSheetTabTools::setButtonIcons(*this);

  // A store without the axis starts from the factory state.
  if (!ZEL::cfg_get(CZelDataKey(kSection))) zel_axis_init();

  int stored = 0;
  CZelDataItem* unitItem = ZEL::cfg_get(axisKey(L"INSUNIT"));
  const Zel::lUnit unit = unitItem && unitItem->get(stored) ? static_cast<Zel::lUnit>(stored) : m_env.unit;
  m_length.SubclassDlgItem(IDC_AXIS_LEN, this);
  m_depth.SubclassDlgItem(IDC_AXIS_CLAMP, this);
  for (CZelEdit* edit : {&m_length, &m_depth}) {
    edit->setCountry(country());
    edit->setFormat(m_env.format);
    edit->setLUnits(unit, -1);
    edit->setEditFlags(2, 68, 2, -DBL_MAX, DBL_MAX);
  }
  m_cons.SubclassDlgItem(IDC_AXIS_CONS, this);
  m_picture.SubclassDlgItem(IDC_AXIS_PREVIEW, this);
  m_picture.reset();
  refresh();
  return TRUE;
}

void CAxisDlg::refresh() {
  if (m_busy) return;
  m_busy = true;
  CZelDataItem* axis = ZEL::cfg_get(CZelDataKey(kSection));
  const CZelString cons = text(axis, L"CONS"), hatch = text(axis, L"HATCH");
  const double length = real(axis, L"LEN"), depth = real(axis, L"GD");
  const int clamped = integer(axis, L"IS_GD");
  // A glazing axis has no clamping depth.
  if (cons == L"GLAZING") ZEL::cfg_remove(axisKey(L"IS_GD"));

  // The construction names in the language the settings name.
  CZelString language;
  if (CZelDataItem* c = ZEL::cfg_get(CZelDataKey(L"_COUNTRY"))) c->get(language);
  if (language.isEmpty()) language = country();
  m_cons.ResetContent();
  int selected = 0;
  for (int i = 0; i < static_cast<int>(std::size(kConstructions)); ++i) {
    const Construction& c = kConstructions[i];
    m_cons.AddString(ZEL::msgText(c.textKey, c.text, language.c_str()).c_str());
    if (cons == c.key) selected = i;
  }
  m_cons.SetCurSel(selected);

  m_length.setVal(length);
  m_depth.setVal(depth);
  CheckDlgButton(IDC_AXIS_OUTLINE, BST_UNCHECKED);
  CheckDlgButton(IDC_AXIS_HATCHED, BST_UNCHECKED);
  if (infill(cons) && clamped == 1) {
    CheckDlgButton(IDC_AXIS_CLAMP_CHECK, BST_CHECKED);
    button(IDC_AXIS_CLAMP_CHECK).EnableWindow(TRUE);
    m_depth.EnableWindow(TRUE);
    button(IDC_AXIS_OUTLINE).EnableWindow(TRUE);
    button(IDC_AXIS_HATCHED).EnableWindow(TRUE);
    if (hatch == L"K") CheckDlgButton(IDC_AXIS_OUTLINE, BST_CHECKED);
    if (hatch == L"S") CheckDlgButton(IDC_AXIS_HATCHED, BST_CHECKED);
    button(IDC_ASSIGN_HATCH).EnableWindow(hatch == L"S");
  } else {
    CheckDlgButton(IDC_AXIS_CLAMP_CHECK, BST_UNCHECKED);
    m_depth.EnableWindow(FALSE);
    m_depth.SetWindowText(L"");
    button(IDC_AXIS_CLAMP_CHECK).EnableWindow(infill(cons));
    CheckDlgButton(IDC_AXIS_OUTLINE, BST_CHECKED);
    button(IDC_AXIS_OUTLINE).EnableWindow(FALSE);
    button(IDC_AXIS_HATCHED).EnableWindow(FALSE);
    button(IDC_ASSIGN_HATCH).EnableWindow(FALSE);
  }
  drawPreview();
  m_busy = false;
}

CZelColor CAxisDlg::backgroundColor() {
  CZelDataKey base;
  base.set(5005, L"QEN_MENU", 5005, L"COLOR", 5005, L"BASE", 0);
  CZelDataItem* item = ZEL::cfg_get(base);
  int index = 0;
  if (item && item->get(index)) return indexColor(index);
  CZelDataKey groupCode;
  groupCode.append(short{62});
  if (item && item->get(index, &groupCode)) return indexColor(index);
  CZelString trueColor;
  CZelDataKey text420(L"420");
  if (item && item->get(trueColor, &text420) && !trueColor.isEmpty()) {
    wchar_t* end = nullptr;
    const long long rgb = std::wcstoll(trueColor.c_str(), &end, 10);
    if (end && *end == L'\0' && rgb >= 0 && rgb <= 0xFFFFFF)
      return CZelColor::fromRgb(static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8),
                                static_cast<std::uint8_t>(rgb));
  }
  return CZelColor::fromRgb(255, 255, 255);
}

void CAxisDlg::drawPreview() {
  m_gdx.clear();
  m_gdx.setBackground(backgroundColor());
  CZelDataItem* axis = ZEL::cfg_get(CZelDataKey(kSection));
  if (axis) {
    // A glazing axis is all centre line: its contour is drawn on the centre-line layer.
    // The store keeps its own contour layer; the drawing takes a copy.
    std::unique_ptr<CZelDataItem> drawn;
    const CZelDataItem* object = axis;
    if (text(axis, L"CONS") == L"GLAZING") {
      drawn.reset(axis->clone());
      CZelDataKey contour(L"PART_CON");
      ZEL::dataItemSet(drawn.get(), &contour, text(axis, L"PART_CEN", L"0"));
      object = drawn.get();
    }
    ZEL::objDraw(m_gdx.displayList(), object, m_tools.options());
  }
  m_picture.set_dpList(m_gdx);
  m_picture.zoomExtents();
  m_picture.Invalidate();
}

void CAxisDlg::command(const CZelString& word) {
  if (m_busy) return;
  struct Word {
    const wchar_t* word;
    Action action;
  };
  static constexpr Word kWords[] = {
      {L"label", Action::Label},     {L"outline", Action::Outline}, {L"hatched", Action::Hatched},
      {L"clamp", Action::Clamp},     {L"len", Action::Length},      {L"gd", Action::Depth},
      {L"cons", Action::Construction}, {L"layer", Action::Layer},   {L"hatch", Action::Hatch},
  };
  for (const Word& w : kWords)
    if (word == w.word) return dispatch(w.action);
}

template <class Assign>
void CAxisDlg::assign(Assign&& run) {
  CZelDataItem* axis = ZEL::cfg_get(CZelDataKey(kSection));
  if (!axis) return;
  // The tools work on a data pointer; this one reaches the stored item itself.
  std::unique_ptr<ZEL::CDtaFilePointer> pointer(ZEL::dtaOpen(ZEL::DTA_MEMORY, ZEL::DTA_COPY, nullptr, axis));
  if (!pointer) return;
  run(pointer.get());
  CZelDataItem* result = pointer->get();
  if (!result) return;
  ZEL::cfg_set(CZelDataKey(kSection), result->clone(), true);
}

void CAxisDlg::dispatch(Action action) {
  CZelDataItem* axis = ZEL::cfg_get(CZelDataKey(kSection));
  if (!axis) {
    zel_axis_init();
    axis = ZEL::cfg_get(CZelDataKey(kSection));
  }
  const CZelString keyBefore = ZEL::objKey(axis, 3);
  auto set = [](const wchar_t* name, const auto& value) {
    CZelDataKey k(name);
    ZEL::dataItemSet(ZEL::cfg_get(CZelDataKey(kSection)), &k, value);
  };
  double value = 0.0;
  switch (action) {
    case Action::Label: assign([this](ZEL::CDtaFilePointer* p) { m_tools.labelingWithProps(p, m_env); }); break;
    case Action::Outline: set(L"HATCH", CZelString(L"K")); break;
    case Action::Hatched: set(L"HATCH", CZelString(L"S")); break;
    case Action::Clamp:
      if (IsDlgButtonChecked(IDC_AXIS_CLAMP_CHECK) == BST_CHECKED) set(L"IS_GD", 1);
      else ZEL::cfg_remove(axisKey(L"IS_GD"));
      break;
    case Action::Length:
    case Action::Depth: {
      // A refused text has been answered by the field and is unmodified again.
      CZelEdit& edit = action == Action::Length ? m_length : m_depth;
      if (!edit.GetModify() || !edit.getVal(value) || !std::isfinite(value)) return;
      set(action == Action::Length ? L"LEN" : L"GD", value);
      break;
    }
    case Action::Construction: {
      const int index = m_cons.GetCurSel();
      const bool chosen = index >= 0 && index < static_cast<int>(std::size(kConstructions));
      set(L"CONS", CZelString(chosen ? kConstructions[index].key : L""));
      const CZelString keyAfter = ZEL::objKey(ZEL::cfg_get(CZelDataKey(kSection)), 3);
      if (!keyBefore.isEmpty() && !keyAfter.isEmpty() && keyBefore != keyAfter) objGen_objProp_Sync(L"AXIS");
      break;
    }
    case Action::Layer: assign([this](ZEL::CDtaFilePointer* p) { m_tools.layerAssignment(p, m_env); }); break;
    case Action::Hatch:
      assign([this](ZEL::CDtaFilePointer* p) { m_tools.hatchAssignmentWithProps(p, m_env, false); });
      break;
  }
  refresh();
}

void CAxisDlg::OnPreviewMenu(CWnd*, CPoint point) { m_tools.previewContextMenu(point, this, &m_picture, &m_gdx); }
