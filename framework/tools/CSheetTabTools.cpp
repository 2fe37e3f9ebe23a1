#include "framework/tools/CSheetTabTools.h"

#include "attributes/CHatchReg.h"
#include "attributes/CLabelingDlg.h"
#include "attributes/CLayerReg.h"
#include "data/CConfig.h"
#include "data/CZelApp.h"
#include "data/CZelDataDir.h"
#include "data/CZelDrawing.h"
#include "data/ZelDataAccess.h"
#include "framework/QenDialogIds.h"
#include "module/CQenEntryRun.h"
#include "obj/QenObjHatch.h"
#include "obj/QenObjLayer.h"
#include "obj/QenObjPreset.h"
#include "obj/ZelObjDraw.h"
#include "obj/ZelObjGen.h"
#include "obj/ZelObjInit.h"
#include "obj/ZelObjTxt.h"
#include "ui/CButton.h"
#include "ui/CMenu.h"
#include "ui/CZelDlg.h"
#include "data/ZelMessages.h"

#include <memory>
#include <utility>

namespace {

struct TypeSection {
  const wchar_t* type;
  const wchar_t* section;
};
// clang-format off
constexpr TypeSection kTypes[] = {
  {L"KLOTZ", L"*HZ_KLOTZ*"}, {L"DICHT", L"*HZ_DICHT*"}, {L"SILIKON", L"*HZ_SILIKON*"},
  {L"FOLIE", L"*HZ_FOLIE*"}, {L"DM", L"*HZ_DM*"}, {L"BLECH", L"*HZ_BLECH*"},
  {L"HLBZ", L"*HZ_PROFIL*"}, {L"NM", L"*NM*"},
};
// clang-format on

bool hasOrig(const CZelString& section) { return !section.isEmpty() && ZEL::cfg_get(CZelDataKey::twoPart(section, L"ORIG")) != nullptr; }

CZelString textOf(const CZelDataItem* item, const wchar_t* key) {
  CZelString value;
  CZelDataKey k(key);
  if (item) item->get(value, &k);
  return value;
}

// The data of the drawing object the record names (none: no such object).
CZelDataItem* objectData(const ZEL::CAdsName& name) {
  if (name.isNull()) return nullptr;
  CZelDataKey key(name.handle());
  std::unique_ptr<ZEL::CDtaFilePointer> data(ZEL::dtaOpen(ZEL::DTA_OBJECT, ZEL::DTA_STORED, &key, nullptr));
  return data ? data->get() : nullptr;
}

}  // namespace

CSheetTabTools::CSheetTabTools() : m_options(new CZelDataItem()) { m_options->mkDir(); }

CSheetTabTools::~CSheetTabTools() = default;

CZelString CSheetTabTools::sectionOfType(const CZelString& type) {
  for (const TypeSection& t : kTypes)
    if (type == t.type) return t.section;
  return CZelString();
}

void CSheetTabTools::refreshPreview(ZEL::CDtaFilePointer* section, CZelGDX* gdx, CZelDplistImage* picture, bool zoom) {
  if (!section || !gdx || !picture) return;
  CZelDataItem* root = section->get();
  std::unique_ptr<CZelDataItem> data(root ? root->clone() : new CZelDataItem());
  data->mkDir();
  const CZelString type = textOf(data.get(), L"TYPE");

  // Generating the object completes its outlines ("VL", and "VLL" of the insulation) for
  // every type; only a sheet with an open outline under the store's "VL" is not drawn.
  CZelDataKey vl(L"VL");
  if (type == L"BLECH" && !data->find(&vl)) {
    CZelVertexArray open;
    CZelDataItem* stored = ZEL::cfg_get(CZelDataKey(L"VL"));
    if (stored && stored->get(open) && !open.isEmpty()) return;
  }

  ZEL::geo::Shape shape;
  ZEL::objGen(data.get(), 0, &shape);
  gdx->clear();
  gdx->setBackground(ZEL::zelAppPtr()->backgroundColor());
  const bool editing = hasOrig(section->name());
  ZEL::objDraw(gdx->displayList(), data.get(), shape, m_options.get());
  picture->set_dpList(*gdx);

  CZelVertexArray outline;
  data->get(outline, &vl);
  if (!(outline == m_outline) && zoom && !editing) picture->zoomExtents();
  m_outline = outline;
  picture->Invalidate();
}

int CSheetTabTools::previewContextMenu(CPoint point, const CRect& previewRect, CWnd* owner, CZelDplistImage* picture,
                                       CZelGDX* gdx) {
  if (!previewRect.PtInRect(point)) return -1;
  const auto* dlg = dynamic_cast<const CZelDlg*>(owner);
  auto text = [&](const wchar_t* key, const wchar_t* german) {
    return dlg ? dlg->GetMsg(key, german) : ZEL::msgText(key, german, nullptr);
  };
  CMenu menu;
  menu.CreatePopupMenu();
  menu.AppendMenu(MF_STRING, kCmdZoomAll, text(L"QEN_ES_0004", L"Zoom alles").c_str());
  menu.AppendMenu(MF_STRING, kCmdClipboard, text(L"QEN_MFC_MAT_022", L"Zwischenablage").c_str());
  const UINT command =
      static_cast<UINT>(menu.TrackPopupMenu(TPM_LEFTALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD, point.x, point.y, owner));
  if (command == kCmdZoomAll && picture) {
    picture->zoomExtents();
    picture->Invalidate();
    if (owner) owner->SendMessage(10112);
  } else if (command == kCmdClipboard && gdx && picture) {
    CRect client;
    picture->GetClientRect(&client);
    gdx->refresh(nullptr, client.Width(), client.Height(), picture->view());
  }
  return static_cast<int>(command);
}

int CSheetTabTools::previewContextMenu(CPoint point, CWnd* owner, CZelDplistImage* picture, CZelGDX* gdx) {
  if (!picture) return -1;
  CRect rect;
  picture->GetWindowRect(&rect);
  return previewContextMenu(point, rect, owner, picture, gdx);
}

void CSheetTabTools::setButtonIcons(CDialog& dialog) {
  static constexpr std::pair<int, UINT> kIcons[] = {{qen::IDC_ASSIGN_LAYER, qen::IDI_ASSIGN_LAYER},
                                                    {qen::IDC_ASSIGN_HATCH, qen::IDI_ASSIGN_HATCH},
                                                    {qen::IDC_ASSIGN_LABEL, qen::IDI_ASSIGN_LABEL},
                                                    {qen::IDC_FAV_SAVE, qen::IDI_FAV_SAVE},
                                                    {qen::IDC_FAV_RESTORE, qen::IDI_FAV_RESTORE}};
  for (const auto& [id, icon] : kIcons) setButtonIcon(dialog, id, icon);
}

void CSheetTabTools::setButtonIcon(CDialog& dialog, int id, UINT icon) {
  if (dialog.GetDlgItem(id))
    dialog.button(id).SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(iconHandle(icon)));
}

bool CSheetTabTools::layerAssignment(ZEL::CDtaFilePointer* section, const qenDlgEnv_st& record) {
  CZelDataItem* data = section ? section->get() : nullptr;
  if (!data) return false;
  CLayerReg dlg(record.parentWnd());
  dlg.setCaption(ZEL::grpLabel(data, record.country.c_str(), true));

  static constexpr QenSectionRow kRows[] = {
      {L"*QEN_OBJ_LAY*", kStored, false}, {L"*ZEL_DL_LAYDET*", kCopy, true}, {L"*QEN_OBJ_PROP*", kCopy, false}};
  ZEL::obj_layer_init(data);
  QenSectionSet sections;
  CQenEntryRun::openSections(kRows, sections, /*createMissing=*/true);
  CZelDataKey layersKey(L"*ZEL_LAYER*");
  std::unique_ptr<ZEL::CDtaFilePointer> layers(ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_COPY, &layersKey, nullptr));

  qenDlgEnv_st env = record;
  env.helpTopic = L"QEN_MAT_OBJ_LAYER";
  dlg.SetCountry(env.country);
  dlg.SetHelpFile(env.helpFile);
  dlg.SetHelpTopic(env.helpTopic);
  dlg.initLayer(sections, env);
  if (dlg.DoModal() != IDOK) {
    // Layers the dialog made or changed in the table are put back as they were.
    if (layers) CQenEntryRun::storeCopy(L"*ZEL_LAYER*", layers.get());
    return false;
  }

  CZelDataItem* objLay = sections[L"*QEN_OBJ_LAY*"] ? sections[L"*QEN_OBJ_LAY*"]->get() : nullptr;
  int mode = 0;
  CZelDataKey isLay(L"IS_LAY");
  if (objLay) objLay->get(mode, &isLay);
  const wchar_t* source = mode == 1 ? L"LAY_MAT" : mode == 2 ? L"LAY_OWN" : L"LAY_SYS";
  CZelDataKey sourceKey(source);
  if (CZelDataItem* pairs = objLay ? objLay->find(&sourceKey) : nullptr) {
    for (ZEL::CDataIterator it(pairs); !it.done(); it.next()) {
      CZelString physical;
      if (!it.item()->get(physical)) continue;
      CZelDataKey logical(it.name());
      ZEL::dataItemSet(data, &logical, physical);
    }
  }
  ZEL::dataItemSet(data, &isLay, mode);
  if (ZEL::CDtaFilePointer* stored = sections[L"*QEN_OBJ_LAY*"].get()) {
    CZelDataItem empty;
    empty.mkDir();
    stored->set(&empty);
  }
  CQenEntryRun::writeBack(kRows, sections);
  return true;
}

bool CSheetTabTools::hatchAssignment(ZEL::CDtaFilePointer* section, QenSectionSet& sections, const qenDlgEnv_st& record,
                                     bool secondHatch) {
  CZelDataItem* data = section ? section->get() : nullptr;
  if (!data) return false;
  ZEL::obj_hatch_init(data);
  CZelDataKey hatchKey(L"*QEN_OBJ_HATCH*");
  sections[L"*QEN_OBJ_HATCH*"] = ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_STORED, &hatchKey, nullptr);
  ZEL::CDtaFilePointer* hatches = sections[L"*QEN_OBJ_HATCH*"].get();
  if (!hatches) return false;

  CHatchReg dlg(record.parentWnd());
  dlg.setCaption(ZEL::grpLabel(data, record.country.c_str(), true));
  qenDlgEnv_st env = record;
  env.helpTopic = L"QEN_MAT_OBJ_HATCH";
  dlg.SetCountry(env.country);
  dlg.SetHelpFile(env.helpFile);
  dlg.SetHelpTopic(env.helpTopic);
  dlg.initHatch(env, hatches);
  const bool ok = dlg.DoModal() == IDOK;
  if (!ok) return false;

  CZelDataItem* chosen = hatches->get();
  for (const CZelString& suffix : {CZelString(), CZelString(L"2")}) {
    if (!suffix.isEmpty() && !secondHatch) break;
    int mode = 0;
    CZelDataKey isHatch(L"IS_HATCH" + suffix);
    if (chosen) chosen->get(mode, &isHatch);
    ZEL::dataItemSet(data, &isHatch, mode);
    const CZelString source = (mode == 1 ? L"HATCH_MAT" : mode == 2 ? L"HATCH_OWN" : L"HATCH_SYS") + suffix;
    CZelString pattern;
    double value = 0.0;
    CZelDataKey name = CZelDataKey::fromPath(source + L"\\#2"), scale = CZelDataKey::fromPath(source + L"\\#40"),
                angle = CZelDataKey::fromPath(source + L"\\#50");
    CZelDataKey hpName(L"HPNAME" + suffix), hpScale(L"HPSCALE" + suffix), hpAngle(L"HPANG" + suffix);
    if (chosen && chosen->get(pattern, &name)) ZEL::dataItemSet(data, &hpName, pattern);
    if (chosen && chosen->get(value, &scale)) ZEL::dataItemSet(data, &hpScale, value);
    if (chosen && chosen->get(value, &angle)) ZEL::dataItemSet(data, &hpAngle, value);
  }
  return true;
}

bool CSheetTabTools::hatchAssignmentWithProps(ZEL::CDtaFilePointer* section, const qenDlgEnv_st& record, bool secondHatch) {
  QenSectionSet sections;
  CZelDataKey props(L"*QEN_OBJ_PROP*");
  sections[L"*QEN_OBJ_PROP*"] = ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_STORED, &props, nullptr);
  return hatchAssignment(section, sections, record, secondHatch);
}

bool CSheetTabTools::labeling(ZEL::CDtaFilePointer* section, QenSectionSet& sections, const qenDlgEnv_st& record) {
  CZelDataItem* data = section ? section->get() : nullptr;
  if (!data) return false;
  CLabelingDlg dlg(record.parentWnd());
  dlg.setCaption(ZEL::grpLabel(data, record.country.c_str(), true));
  std::unique_ptr<CZelDataItem> undo(data->clone());

  qenDlgEnv_st env = record;
  env.helpTopic = L"QEN_OBJ_TXT";
  CZelDataKey textsKey(L"*QEN_OBJ_TXT*");
  if (!ZEL::cfg_get(textsKey)) ZEL::cfg_dir_make(textsKey);
  sections[L"*QEN_OBJ_TXT*"] = ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_STORED, &textsKey, nullptr);
  ZEL::CDtaFilePointer* texts = sections[L"*QEN_OBJ_TXT*"].get();
  if (!texts) return false;
  CZelDataKey gen(L"GEN");
  texts->set(data, &gen);

  dlg.SetCountry(env.country);
  dlg.SetHelpFile(env.helpFile);
  dlg.SetHelpTopic(env.helpTopic);
  dlg.initLabel(env, data, texts, sections[L"*QEN_OBJ_PROP*"].get());
  if (dlg.DoModal() == IDOK) return true;
  data->assign(*undo);
  return false;
}

bool CSheetTabTools::labelingWithProps(ZEL::CDtaFilePointer* section, const qenDlgEnv_st& record) {
  QenSectionSet sections;
  CZelDataKey props(L"*QEN_OBJ_PROP*");
  sections[L"*QEN_OBJ_PROP*"] = ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_STORED, &props, nullptr);
  return labeling(section, sections, record);
}

void CSheetTabTools::disableWhenEditing(const CZelString& section, CWnd* dialog, int id) {
  CWnd* control = dialog ? dialog->GetDlgItem(id) : nullptr;
  if (!control) return;
  if (hasOrig(section)) {
    dialog->CheckDlgButton(id, BST_UNCHECKED);
    control->EnableWindow(FALSE);
  } else {
    control->EnableWindow(TRUE);
  }
}

void CSheetTabTools::setCoordFlag(const CZelString& section, CWnd* dialog, int id) {
  CZelDataKey coord(L"COORD");
  if (hasOrig(section)) {
    ZEL::dataItemSet(m_options.get(), &coord, 1);
    return;
  }
  if (!dialog || !dialog->GetDlgItem(id)) return;
  if (dialog->IsDlgButtonChecked(id) == BST_CHECKED) ZEL::dataItemSet(m_options.get(), &coord, 1);
  else m_options->remove(&coord);
}

void CSheetTabTools::resetType(const CZelString& type) {
  const CZelString section = sectionOfType(type);
  if (section.isEmpty() || type == L"NM") return;
  // A membrane that is a layer of a build-up stays one, and such a layer has no throat
  // radius or division.
  const bool layer = type == L"FOLIE" && ZEL::cfg_get(CZelDataKey::twoPart(section, L"SN")) != nullptr;
  ZEL::cfg_remove(CZelDataKey(section));
  ZEL::objTypeInit(type);
  if (!layer) return;
  CZelDataItem* fresh = ZEL::cfg_get(CZelDataKey(section));
  if (!fresh) return;
  CZelDataKey sn(L"SN"), r(L"R"), t(L"T");
  ZEL::dataItemSet(fresh, &sn, 1);
  fresh->remove(&r);
  fresh->remove(&t);
}

void CSheetTabTools::saveTypeAsPreset(const CZelString& type) {
  const CZelString section = sectionOfType(type);
  CZelDataItem* stored = section.isEmpty() ? nullptr : ZEL::cfg_get(CZelDataKey(section));
  if (!stored) return;
  // The preset is the section as a new object would take it: not marked as an edit of an
  // existing object, and without the tab the dialog was on.
  CZelDataKey orig(L"ORIG"), mode(L"MODE");
  stored->remove(&orig);
  std::unique_ptr<CZelDataItem> copy(stored->clone());
  copy->remove(&mode);
  QEN::obj_preset_save(type, copy.get());
}

void CSheetTabTools::pickObject(CDialog* dialog, const CZelString& type) {
  if (dialog) dialog->EndDialog(type == L"HLBZ" ? 8 : 103);
}

void CSheetTabTools::completeObjectTexts(const CZelString& type, const qenDlgEnv_st& record) {
  const bool part = type == L"HLBZ" || type == L"DIN" || type == L"PIECE";
  CZelDataItem* data = objectData(type == L"PIECE" ? record.object2 : record.object);
  if (!data) return;
  std::initializer_list<const wchar_t*> keys = {L"NAME", L"ORDER", L"LABEL"};
  std::initializer_list<const wchar_t*> partKeys = {L"NAME", L"ORDER", L"LABEL", L"INSUNIT"};
  for (const wchar_t* name : part ? partKeys : keys) {
    CZelString value;
    CZelDataKey key(name);
    if (!data->get(value, &key)) ZEL::dataItemSet(data, &key, CZelString());
  }
}
