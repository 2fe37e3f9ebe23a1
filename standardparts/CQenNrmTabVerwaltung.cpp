#include "standardparts/CQenNrmTabVerwaltung.h"

#include "data/CConfig.h"
#include "data/CZelApp.h"
#include "data/CZelDataDir.h"
#include "data/ZelDataAccess.h"
#include "obj/QenObjPreset.h"
#include "obj/ZelObjDict.h"
#include "obj/ZelObjLabel.h"
#include "obj/ZelObjTypes.h"
#include "qen_mfc.h"
#include "resources/dialogs/nrm_admin_ids.h"
#include "standardparts/QenNrmCatalogue.h"
#include "standardparts/QenNrmMessages.h"
#include "standardparts/QenNrmStore.h"
#include "ui/ZelHelp.h"

using namespace qen;
using namespace qen::nrm;

const CMessageMapEntry CQenNrmTabVerwaltung::kEntries[] = {
    msgmap::word(IDC_NRMV_RESTORE, BN_CLICKED, L"restore"),   msgmap::word(IDC_NRMV_SAVE, BN_CLICKED, L"save"),
    msgmap::word(IDC_NRMV_OBJECT, BN_CLICKED, L"object"),     msgmap::word(IDC_NRMV_PRESET, BN_CLICKED, L"preset"),
    msgmap::word(IDC_NRMV_PRESET_REM, BN_CLICKED, L"preset_rem"), msgmap::word(IDC_NRMV_RESET, BN_CLICKED, L"reset"),
};
const CMessageMap CQenNrmTabVerwaltung::kMessageMap{&CZelDlg::kMessageMap, kEntries,
                                                    msgmap::wordHandler<&CQenNrmTabVerwaltung::command>()};

CQenNrmTabVerwaltung::CQenNrmTabVerwaltung() : CQenNrmTab(IDD_NRM_ADMIN) {}
CQenNrmTabVerwaltung::~CQenNrmTabVerwaltung() = default;

void CQenNrmTabVerwaltung::addLangRsc() {
  langRsc(IDC_NRMV_GROUP, L"QEN_DCL_HLBZ_036", L"Eigenschaften");
  langRsc(IDC_NRMV_NAME_LABEL, L"QEN_DCL_BLCH_158", L"Name");
  langRsc(IDC_NRMV_FOLDER_LABEL, L"QEN_DCL_0000_111", L"Ordner");
  langRsc(IDC_NRMV_DESIGNATION_LABEL, L"QEN_DCL_DRAW_074", L"Bezeichnung");
  langRsc(IDC_NRMV_ARTICLE_LABEL, L"QEN_DCL_BLCH_088", L"Artikel");
  langRsc(IDC_NRMV_RESTORE, L"\\QEN_DCL_BGR_003\\...", L"Holen...");
  langRsc(IDC_NRMV_SAVE, L"\\QEN_DCL_BGR_004\\...", L"Speichern...");
  langRsc(IDC_NRMV_OBJECT, L"QEN_DCL_ST3D_075", L"Objekt");
  langRsc(IDC_NRMV_PRESET, L"QEN_MFC_MAT_019", L"Als Vorgabe");
  langRsc(IDC_NRMV_PRESET_REM, L"QEN_MFC_MAT_027", L"Vorgabe entfernen");
  langRsc(IDC_NRMV_RESET, L"QEN_DCL_BLCH_156", L"Reset");
}

BOOL CQenNrmTabVerwaltung::OnInitDialog() {
  m_initialising = true;
  CQenNrmTab::OnInitDialog();
  refresh();
  m_initialising = false;
  return TRUE;
}

void CQenNrmTabVerwaltung::refresh() {
  if (!GetSafeHwnd()) return;
  const Selection s = resolve(nullptr);
  const bool piece = !s.stack.empty() && s.stack.front() == "PIECE";
  ZEL::CDtaFilePointer* file = piece ? m_pieceFile : m_dinFile;

  GetDlgItem(IDC_NRMV_OBJECT)->EnableWindow(!isSubDlg());
  CZelDataItem* preset = ZEL::cfg_get(CZelDataKey::fromPath(L"*QEN_OBJ_PROP*\\*DIN*"));
  GetDlgItem(IDC_NRMV_PRESET_REM)->EnableWindow(preset && preset->isDir() && !preset->getDir()->isEmpty());
  if (std::optional<Stack> presetStack = getStack(L"*QEN_OBJ_PROP*\\*DIN*\\STACK")) {
    const std::vector<std::string> filter = callerFilter();
    const std::string domain = presetStack->empty() ? "" : presetStack->front();
    const bool excluded = filter.size() >= 2 || (filter.size() == 1 && filter.front() == domain &&
                                                  (domain == "BAR" || domain == "PIECE"));
    GetDlgItem(IDC_NRMV_RESET)->EnableWindow(!excluded);
  }

  if (s.nd.empty()) {
    for (int id : {IDC_NRMV_NAME, IDC_NRMV_ARTICLE, IDC_NRMV_DESIGNATION, IDC_NRMV_FOLDER}) SetDlgItemText(id, L"");
    GetDlgItem(IDC_NRMV_SAVE)->EnableWindow(FALSE);
    GetDlgItem(IDC_NRMV_PRESET)->EnableWindow(FALSE);
  } else {
    setTextOrRemove(nmPath(L"ND"), wide(s.nd));
    CZelDataItem* root = file ? file->get() : nullptr;
    CZelString object, name, article;
    CZelDataKey objKey(L"OBJ"), orderKey(L"ORDER");
    const bool hasObject = root && root->getEname(object, &objKey);
    if (hasObject && ZEL::obj_dict_name(object, name, false)) name = ZEL::str_lib_name(name);
    else name = L"";
    SetDlgItemText(IDC_NRMV_NAME, name.c_str());
    if (root) root->get(article, &orderKey);
    SetDlgItemText(IDC_NRMV_ARTICLE, article.c_str());
    std::unique_ptr<CZelDataItem> part = generate(s.articles);
    SetDlgItemText(IDC_NRMV_DESIGNATION, part ? ZEL::obj_label(part.get(), L"-1").c_str() : L"");
    CZelArrayTempl<CZelString> path;
    if (hasObject) zel_obj_dict_path(object, path);
    if (path.count() > 2) {
      path.removeAt(0);
      path.removeAt(0);
    }
    const CZelString folder = !path.isEmpty() ? ZEL::lib_folder_path(path) : (file ? ZEL::lobj_prodsys(file) : CZelString());
    SetDlgItemText(IDC_NRMV_FOLDER, folder.c_str());
    GetDlgItem(IDC_NRMV_SAVE)->EnableWindow(TRUE);
    GetDlgItem(IDC_NRMV_PRESET)->EnableWindow(TRUE);
  }
  toFrame(WM_NRM_REFRESH_FRAME);
  toFrame(WM_NRM_REFRESH_PROPS);
}

void CQenNrmTabVerwaltung::command(const CZelString& word) {
  if (word == L"save") onSave();
  else if (word == L"restore") onRestore();
  else if (word == L"object") {
    if (auto* dlg = dynamic_cast<CDialog*>(frame())) dlg->EndDialog(103);
  } else if (word == L"preset") onPreset();
  else if (word == L"preset_rem") onPresetRem();
  else if (word == L"reset") onReset();
}

namespace {
// The domain of a generated part's stack; "BAR" when it has none.
bool pieceDomain(const CZelDataItem* part) {
  CZelArrayTempl<CZelString> stack;
  CZelString single;
  CZelDataKey key(L"STACK");
  if (part && part->get(stack, &key) && !stack.isEmpty()) return stack[0] == L"PIECE";
  if (part && part->get(single, &key)) return single == L"PIECE";
  return false;
}
}  // namespace

ZEL::CDtaFilePointer* CQenNrmTabVerwaltung::reopen(bool piece) {
  ZEL::CAdsName current;
  ZEL::CDtaFilePointer* file = nullptr;
  if (ZEL::zelAppPtr()->editedObject(piece ? L"PIECE" : L"DIN", current, true)) {
    CZelDataKey key(current.handle());
    file = ZEL::dtaOpen(ZEL::DTA_OBJECT, ZEL::DTA_STORED, &key, nullptr);
  }
  if (file) m_reopened.emplace_back(file);
  (piece ? m_pieceFile : m_dinFile) = file;
  return file;
}

void CQenNrmTabVerwaltung::onSave() {
  std::unique_ptr<CZelDataItem> part = generate(onlyArticles());
  const bool piece = pieceDomain(part.get());
  ZEL::CDtaFilePointer* file = piece ? m_pieceFile : m_dinFile;
  CZelDataItem* root = file ? file->get(nullptr, true) : nullptr;
  bool saved = false;
  if (!piece) {
    if (root && part) root->mkDir()->insert(L"GEN", part.get(), true);
    saved = obj_save(L"DIN");
  } else {
    if (root && part) {
      CZelDataKey bt(L"BT");
      root->remove(&bt);
      // A list "BT" whose first element holds the part under "BT".
      std::unique_ptr<CZelDataItem> element(new CZelDataItem());
      element->mkDir()->insert(L"BT", part.get(), true);
      std::unique_ptr<CZelDataItem> list(new CZelDataItem());
      list->mkDir()->insert(L"0", element.get(), true);
      root->mkDir()->insert(L"BT", list.get(), true);
    }
    saved = obj_save(L"PIECE");
  }
  if (saved) refresh();
  reopen(piece);
}

void CQenNrmTabVerwaltung::onRestore() {
  std::unique_ptr<CZelDataItem> part = generate(onlyArticles());
  const bool piece = pieceDomain(part.get());
  int view = -1;
  CZelDataKey viewKey(L"VIEW");
  if (part) part->get(view, &viewKey);
  obj_restore(piece ? L"PIECE" : L"DIN", 1, GetSafeHwnd());
  if (view != -1) setInt(nmPath(L"VIEW"), view);
  ZEL::CDtaFilePointer* file = reopen(piece);
  toFrame(WM_NRM_SET_FILES, reinterpret_cast<LPARAM>(file));
  toFrame(WM_NRM_REFRESH_FRAME);
  refresh();
}

void CQenNrmTabVerwaltung::onPreset() {
  std::unique_ptr<CZelDataItem> part = generate(onlyArticles());
  if (part) {
    std::unique_ptr<CZelDataItem> copy(part->clone());
    CZelDataKey orig(L"ORIG");
    copy->remove(&orig);
    QEN::obj_preset_save(L"DIN", copy.get());
  }
  refresh();
}

void CQenNrmTabVerwaltung::onPresetRem() {
  if (QEN::obj_preset_rem(L"DIN") == 1) {
    const CZelString text = ZEL::objTypeLabel(L"DIN", nullptr) + L"\n" + GetMsg(L"QEN_ELEM_049", L"Voreinstellungen entfernt");
    MessageBoxW(text.c_str(), L"QENORA", MB_OK);
  }
  refresh();
  toFrame(WM_NRM_REFRESH_FRAME);
  toFrame(WM_NRM_REFRESH_PROPS);
}

void CQenNrmTabVerwaltung::onReset() {
  ZEL::cfg_remove(L"*NM*");
  ZEL::cfg_remove(L"*NM_TREE*");
  toFrame(WM_NRM_REFRESH_FRAME);
  toFrame(WM_NRM_REFRESH_PROPS);
  refresh();
}
