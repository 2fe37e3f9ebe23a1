#include "standardparts/CQenNrmDialog.h"

#include "data/CConfig.h"
#include "data/CZelApp.h"
#include "data/CZelDataDir.h"
#include "data/ZelMessages.h"
#include "framework/QenDialogIds.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjLabel.h"
#include "obj/ZelObjTxt.h"
#include "qen_mfc.h"
#include "resources/dialogs/nrm_admin_ids.h"
#include "resources/dialogs/nrm_areas_ids.h"
#include "resources/dialogs/nrm_dialog_ids.h"
#include "resources/dialogs/nrm_props_ids.h"
#include "resources/dialogs/nrm_search_ids.h"
#include "data/ZelDataAccess.h"
#include "standardparts/CSharpDialogInterface.h"
#include "standardparts/QenNrmCatalogue.h"
#include "standardparts/QenNrmMessages.h"
#include "ui/CButton.h"
#include "ui/CLinkCtrl.h"
#include "ui/CStatic.h"
#include "ui/ZelHelp.h"

#include <algorithm>
#include <filesystem>

using namespace qen;
using namespace qen::nrm;

namespace {

// The display flags ("AXIS" bits), their boxes and where each applies.
enum class Domain { Both, Bar, Piece };
struct Flag {
  int bit;
  int id;
  const wchar_t* word;
  bool inverted;  // the bit is set while the box is NOT checked
  Domain domain;
};
constexpr Flag kFlags[] = {
    {0x01, IDC_NRM_AXES, L"axis", false, Domain::Both},   {0x02, IDC_NRM_DRILL, L"drill", false, Domain::Bar},
    {0x04, IDC_NRM_HIDDEN, L"hide", true, Domain::Both},  {0x08, IDC_NRM_THREAD, L"thread", true, Domain::Piece},
    {0x10, IDC_NRM_LIGHT, L"light", true, Domain::Bar},
};

constexpr const wchar_t* kModes[] = {L"MAIN", L"SEARCH", L"RELEASE", L"ADMIN"};

// A link target counts as reachable when it is a web address or a file that exists.
bool linkReachable(const CZelString& target) {
  const std::string t = target.toUtf8();
  if (t.rfind("http://", 0) == 0 || t.rfind("https://", 0) == 0) return true;
  std::error_code ec;
  return std::filesystem::exists(t.rfind("file://", 0) == 0 ? t.substr(7) : t, ec);
}

}  // namespace

const CMessageMapEntry CQenNrmDialog::kEntries[] = {
    msgmap::notify<&CQenNrmDialog::OnTabChanging>(IDC_NRM_TABS, TCN_SELCHANGING),
    msgmap::notify<&CQenNrmDialog::OnTabChanged>(IDC_NRM_TABS, TCN_SELCHANGE),
    msgmap::notify<&CQenNrmDialog::OnLinkClick>(IDC_NRM_TITLE, NM_CLICK),
    msgmap::word(IDC_NRM_FAMILY, CBN_SELCHANGE, L"dsp"),
    msgmap::word(IDC_NRM_PREVIEW, STN_CLICKED, L"img"),
    msgmap::word(IDC_NRM_VIEW_LEFT, BN_CLICKED, L"left"),
    msgmap::word(IDC_NRM_VIEW_TOP, BN_CLICKED, L"top"),
    msgmap::word(IDC_NRM_VIEW_FRONT, BN_CLICKED, L"front"),
    msgmap::word(IDC_NRM_VIEW_3D, BN_CLICKED, L"3D"),
    msgmap::word(IDC_NRM_VIEW_RIGHT, BN_CLICKED, L"right"),
    msgmap::word(IDC_NRM_VIEW_BOTTOM, BN_CLICKED, L"bottom"),
    msgmap::word(IDC_NRM_VIEW_BACK, BN_CLICKED, L"back"),
    msgmap::word(IDC_NRM_AXES, BN_CLICKED, L"axis"),
    msgmap::word(IDC_NRM_DRILL, BN_CLICKED, L"drill"),
    msgmap::word(IDC_NRM_HIDDEN, BN_CLICKED, L"hide"),
    msgmap::word(IDC_NRM_THREAD, BN_CLICKED, L"thread"),
    msgmap::word(IDC_NRM_LIGHT, BN_CLICKED, L"light"),
    msgmap::word(IDC_NRM_HATCH, BN_CLICKED, L"is_hatch"),
    msgmap::word(IDC_NRM_LAYER, BN_CLICKED, L"layer"),
    msgmap::word(IDC_NRM_HATCH_ASSIGN, BN_CLICKED, L"hatch"),
    msgmap::word(IDC_NRM_LABELING, BN_CLICKED, L"txtgen"),
    msgmap::word(IDC_NRM_FAV_SAVE, BN_CLICKED, L"fav_save"),
    msgmap::word(IDC_NRM_FAV_RESTORE, BN_CLICKED, L"fav_restore"),
    msgmap::contextMenu<&CQenNrmDialog::OnPreviewMenu>(),
    msgmap::message<&CQenNrmDialog::OnGotoProps>(WM_NRM_GOTO_PROPS),
    msgmap::message<&CQenNrmDialog::OnRefreshProps>(WM_NRM_REFRESH_PROPS),
    msgmap::message<&CQenNrmDialog::OnRefreshFrame>(WM_NRM_REFRESH_FRAME),
    msgmap::message<&CQenNrmDialog::OnShowPart>(WM_NRM_SHOW_PART),
    msgmap::message<&CQenNrmDialog::OnPartReady>(WM_NRM_PART_READY),
    msgmap::message<&CQenNrmDialog::OnSetFiles>(WM_NRM_SET_FILES),
};
const CMessageMap CQenNrmDialog::kMessageMap{&CZelDlg::kMessageMap, kEntries, msgmap::wordHandler<&CQenNrmDialog::command>()};

const std::vector<CQenNrmDialog::View>& CQenNrmDialog::views() {
  static const std::vector<View> kViews = {
      {0, L"left", IDC_NRM_VIEW_LEFT, 10181, 10164},    {1, L"top", IDC_NRM_VIEW_TOP, 10116, 10115},
      {2, L"front", IDC_NRM_VIEW_FRONT, 10155, 10154},  {3, L"3D", IDC_NRM_VIEW_3D, 10132, 10130},
      {32, L"right", IDC_NRM_VIEW_RIGHT, 10287, 10286}, {33, L"bottom", IDC_NRM_VIEW_BOTTOM, 10153, 10135},
      {34, L"back", IDC_NRM_VIEW_BACK, 10134, 10110},
  };
  return kViews;
}

bool CQenNrmDialog::validView(int code) {
  const auto& v = views();
  return std::any_of(v.begin(), v.end(), [code](const View& view) { return view.code == code; });
}

namespace {
// "*NM*\VIEW", replaced by 0 (and written back) when absent or not a view code.
int storedView() {
  std::optional<int> view = getInt(nmPath(L"VIEW"));
  if (!view || !CQenNrmDialog::validView(*view)) {
    setInt(nmPath(L"VIEW"), 0);
    return 0;
  }
  return *view;
}
}  // namespace

CQenNrmDialog::CQenNrmDialog(CWnd* parent) : CZelDlg(IDD_NRM_DIALOG, parent) {
  m_background = ZEL::zelAppPtr()->backgroundColor();
  m_builtArticles = onlyArticles();
  m_builtMask = releaseMask(false);
  m_capturedArticles = m_builtArticles;
  m_capturedMask = m_builtMask;
}

CQenNrmDialog::~CQenNrmDialog() = default;

void CQenNrmDialog::setCall(const qenDlgEnv_st& env, int projections, bool editExisting, bool sheared,
                            CSharpDialogInterface* picker) {
  m_env = env;
  m_env.objectType = L"DIN";
  m_projections = projections;
  m_editExisting = editExisting;
  m_sheared = sheared;
  m_picker = picker;
}

void CQenNrmDialog::DoDataExchange(CDataExchange* dx) {
  DDX_Control(dx, IDC_NRM_TABS, m_tabs);
  DDX_Control(dx, IDC_NRM_FAMILY, m_family);
  DDX_Control(dx, IDC_NRM_PREVIEW, m_picture);
}

void CQenNrmDialog::addLangRsc() {
  langRsc(IDC_NRM_FAMILY_LABEL, L"QEN_DCL_0000_007", L"Anzeige");
  langRsc(IDC_NRM_DISPLAY_GROUP, L"QEN_DCL_0000_010", L"Darstellung");
  langRsc(IDC_NRM_AXES, L"QEN_DCL_0000_013", L"Mittelachsen");
  langRsc(IDC_NRM_DRILL, L"QEN_DCL_0000_014", L"Bohrachsen");
  langRsc(IDC_NRM_HIDDEN, L"QEN_DCL_0000_026", L"Verdeckte Linien");
  langRsc(IDC_NRM_THREAD, L"QEN_DCL_0000_027", L"Gewindelinien");
  langRsc(IDC_NRM_HATCH, L"QEN_DCL_0000_015", L"Schraffiert");
  langRsc(IDC_NRM_LIGHT, L"QEN_MAT_090", L"Lichtkanten");
  langRsc(IDOK, L"DLG_001", L"OK");
  langRsc(IDCANCEL, L"DLG_002", L"Abbrechen");
}

bool CQenNrmDialog::updLang() {
  SetWindowText(GetMsg(L"QEN_DCL_0000_001", L"Normteile"));
  return CZelDlg::updLang();
}

void CQenNrmDialog::OnOK() { EndDialog(IDOK); }

ZEL::CDtaFilePointer* CQenNrmDialog::openTypeFile(const wchar_t* type) {
  ZEL::CAdsName current;
  if (!ZEL::zelAppPtr()->editedObject(type, current, true)) return nullptr;
  CZelDataKey key(current.handle());
  ZEL::CDtaFilePointer* file = ZEL::dtaOpen(ZEL::DTA_OBJECT, ZEL::DTA_STORED, &key, nullptr);
  if (file) m_openFiles.emplace_back(file);
  return file;
}

void CQenNrmDialog::handFilesToPages() {
  m_props.setFiles(m_dinFile, m_pieceFile);
  m_admin.setFiles(m_dinFile, m_pieceFile);
}

BOOL CQenNrmDialog::OnInitDialog() {
  m_initialising = true;
  if (!useStoredCountry() && !m_env.country.isEmpty()) SetCountry(m_env.country);
  CZelDlg::OnInitDialog();
  SetHelpTopic(L"qen_din");
  CZelString helpFile;
  ZEL::help_find(L"QEN", helpFile);
  SetHelpFile(helpFile);

  m_dinFile = openTypeFile(L"DIN");
  m_pieceFile = openTypeFile(L"PIECE");

  constexpr std::pair<int, UINT> kIcons[] = {{IDC_NRM_LAYER, 10302}, {IDC_NRM_HATCH_ASSIGN, 10300}, {IDC_NRM_LABELING, 10301},
                                             {IDC_NRM_FAV_SAVE, 10321}, {IDC_NRM_FAV_RESTORE, 10322}};
  for (const auto& [id, icon] : kIcons) CSheetTabTools::setButtonIcon(*this, id, icon);

  m_openView = storedView();
  for (const View& v : views())
    CSheetTabTools::setButtonIcon(*this, v.id, m_editExisting && v.code == m_openView ? v.editIcon : v.icon);

  handFilesToPages();
  m_props.setEnv(m_env);
  m_admin.setEnv(m_env);
  const wchar_t* country = this->country().c_str();
  m_tabs.InsertItem(kTabProps, GetMsg(L"QEN_DCL_0000_024", L"Eigenschaften", country).c_str(), &m_props, IDD_NRM_PROPS);
  m_tabs.InsertItem(kTabSearch, GetMsg(L"QEN_DCL_0000_167", L"Norm suchen", country).c_str(), &m_search, IDD_NRM_SEARCH);
  m_tabs.InsertItem(kTabAreas, GetMsg(L"QEN_NORM_130", L"Normbereiche", country).c_str(), &m_areas, IDD_NRM_AREAS);
  m_tabs.InsertItem(kTabAdmin, GetMsg(L"QEN_DCL_BGR_073", L"Verwaltung", country).c_str(), &m_admin, IDD_NRM_ADMIN);

  const CZelString mode = getText(nmPath(L"MODE")).value_or(L"MAIN");
  int tab = kTabProps;  // an unknown mode shows the properties
  for (int i = 0; i < 4; ++i)
    if (mode == kModes[i]) tab = i;
  m_tabs.SetCurSel(tab);
  if (tab != kTabProps) tabEntered(tab);
  m_initialising = false;
  return TRUE;
}

void CQenNrmDialog::OnTabChanging(NMHDR*, LRESULT* result) {
  *result = 0;
  if (m_tabs.GetCurSel() == kTabAreas) {
    m_capturedArticles = onlyArticles();
    m_capturedMask = releaseMask(false);
  }
}

void CQenNrmDialog::OnTabChanged(NMHDR*, LRESULT*) { tabEntered(m_tabs.GetCurSel()); }

void CQenNrmDialog::tabEntered(int tab) {
  switch (tab) {
    case kTabProps: {
      if (!getStack(nmPath(L"STACK")) || getStack(nmPath(L"STACK"))->empty()) setStack(nmPath(L"STACK"), {"BAR"});
      bool rebuild = m_capturedArticles ? !m_builtArticles
                                        : (m_capturedMask != m_builtMask || m_capturedArticles != m_builtArticles);
      if (m_props.rebuildPending()) rebuild = true;
      m_props.setRebuildPending(false);
      if (rebuild) m_props.rebuildTree(callerFilter());
      m_builtArticles = m_capturedArticles;
      m_builtMask = m_capturedMask;
      setText(nmPath(L"MODE"), L"MAIN");
      SendMessage(WM_NRM_REFRESH_PROPS);
      m_props.focusTree();
      break;
    }
    case kTabSearch:
      ZEL::cfg_remove(CZelDataKey::fromPath(L"*NM*\\SEARCH\\RESULT"));
      setText(nmPath(L"MODE"), L"SEARCH");
      m_search.refresh();
      break;
    case kTabAreas:
      setText(nmPath(L"MODE"), L"RELEASE");
      m_areas.refresh();
      break;
    case kTabAdmin:
      setText(nmPath(L"MODE"), L"ADMIN");
      m_admin.refresh();
      break;
    default:
      break;
  }
  SendMessage(WM_NRM_REFRESH_FRAME);
}

LRESULT CQenNrmDialog::OnGotoProps(WPARAM, LPARAM) {
  if (m_tabs.GetCurSel() != kTabProps) {
    m_tabs.SetCurSel(kTabProps);
    tabEntered(kTabProps);
  }
  return 0;
}

LRESULT CQenNrmDialog::OnRefreshProps(WPARAM, LPARAM) {
  if (m_props.GetSafeHwnd()) m_props.refreshProps();
  return 0;
}

void CQenNrmDialog::rebuildTree() {
  m_props.rebuildTree(callerFilter());
  m_builtArticles = onlyArticles();
  m_builtMask = releaseMask(false);
}

LRESULT CQenNrmDialog::OnRefreshFrame(WPARAM, LPARAM) {
  if (!GetSafeHwnd()) return 0;
  m_props.setFrameRefreshing(true);
  const CZelString mode = getText(nmPath(L"MODE")).value_or(L"");

  // A store without the part starts from the type's preset.
  CZelDataItem* nm = section();
  if (!nm || !nm->isDir()) {
    if (CZelDataItem* preset = ZEL::cfg_get(CZelDataKey::fromPath(L"*QEN_OBJ_PROP*\\*DIN*")); preset && preset->isDir())
      ZEL::cfg_set(CZelDataKey::fromPath(kSection), preset->clone(), true);
    std::unique_ptr<CZelDataItem> part = generate(onlyArticles());
    if (part) release(part.get());
  }

  Stack stack = getStack(nmPath(L"STACK")).value_or(Stack{});
  if (stack.empty()) {
    const std::vector<std::string> filter = callerFilter();
    if (filter.empty()) {
      CZelDataItem* preset = ZEL::cfg_get(CZelDataKey::fromPath(L"*QEN_OBJ_PROP*\\*DIN*"));
      if (preset && preset->isDir()) {
        mergeInto(*preset, L"");
        stack = getStack(nmPath(L"STACK")).value_or(Stack{});
      }
      if (stack.empty()) stack = {"BAR"};
    } else if (filter.size() == 1) {
      stack = {filter.front() == "BAR" ? "PIECE" : "BAR"};
    } else {
      stack = {"BAR"};
    }
  }

  const std::string nd = utf8(getText(nmPath(L"ND")).value_or(L""));
  const std::string type = nodeProp(stack, "TYPE");
  const bool isNorm = type == "NORM";

  const std::vector<std::string> families = ZEL::norm_types();
  std::string dsp = utf8(getText(nmPath(L"DSP")).value_or(L""));
  if (std::find(families.begin(), families.end(), dsp) == families.end()) dsp = families.empty() ? "" : families.front();
  setText(nmPath(L"DSP"), wide(dsp));


  setStack(nmPath(L"STACK"), stack);
  // The tree is first built when the properties page initialises; a dialog that opens on
  // another tab builds it too, so that the selection is resolved against a tree.
  if (((mode.isEmpty() || mode == L"MAIN" || mode == L"ADMIN") && m_props.initialising()) ||
      (m_props.GetSafeHwnd() && !m_props.treeBuilt()))
    rebuildTree();

  m_props.selectStack(stack);
  if (!isNorm) showPrototype(stack);

  const bool treeEmpty = m_props.treeEmpty();
  if (treeEmpty) {
    stack.clear();
    ZEL::cfg_remove(CZelDataKey::fromPath(nmPath(L"STACK")));
  }
  m_picture.ShowWindow(treeEmpty ? SW_HIDE : SW_SHOW);
  m_picture.EnableWindow(!treeEmpty);

  refreshTexts(stack, type, treeEmpty);

  m_family.ResetContent();
  for (const std::string& f : families) {
    const int line = m_family.AddString(wide(f).c_str());
    if (f == dsp) m_family.SetCurSel(line);
  }
  m_family.EnableWindow(!treeEmpty);
  GetDlgItem(IDOK)->EnableWindow(isNorm);

  displayRefresh(stack, nd);
  // The label header of the part "*NM*" describes (the generated part carries its type),
  // once the display refresh has set the labeling flags of the family shown.
  if (isNorm) {
    std::unique_ptr<CZelDataItem> part = generate(onlyArticles());
    SetDlgItemText(IDC_NRM_LABEL, ZEL::obj_label_header(part ? part.get() : section(), country().c_str()).c_str());
  }
  m_props.setFrameRefreshing(false);
  return 0;
}

void CQenNrmDialog::showPrototype(const Stack& stack) {
  const std::string prototype = nodeProp(stack, "PROTOTYPE");
  std::unique_ptr<CZelDataItem> params(new CZelDataItem());
  params->mkDir();
  CZelDataKey main(L"MAIN"), back(L"BACK_CLR");
  ZEL::dataItemSet(params.get(), &main, 1);
  // The system's button face colour (COLOR_BTNFACE) as a colour reference 0x00BBGGRR.
  constexpr int kButtonFace = 0x00F0F0F0;
  ZEL::dataItemSet(params.get(), &back, kButtonFace);
  m_gdx.clear();
  m_gdx.setBackground(m_background);
  drawPrototype(m_gdx, wide(prototype), params.get());
  m_picture.set_dpList(m_gdx);
  m_picture.zoomExtents();
  m_picture.Invalidate();
}

void CQenNrmDialog::refreshTexts(const Stack& stack, const std::string& type, bool treeEmpty) {
  CLinkCtrl& title = link(IDC_NRM_TITLE);
  if (treeEmpty) {
    title.SetWindowText(L"");
    SetDlgItemText(IDC_NRM_REMARK, L"");
    SetDlgItemText(IDC_NRM_USAGE, L"");
    GetDlgItem(IDC_NRM_LINK_ICON)->ShowWindow(SW_HIDE);
    return;
  }
  const std::string label = nodeProp(stack, "LABEL");
  CZelString text = label.empty() ? CZelString() : ZEL::msgText(wide(label).c_str(), wide(label).c_str(), country().c_str());
  if (type == "NORM") {
    CZelString target;
    zel_msg_get(target, L"NORM_LINK", ZEL::objKey(section(), 3).c_str(), L"", country().c_str());
    if (!target.isEmpty() && linkReachable(target) && !text.isEmpty())
      text = CZelString(L"<a href=\"") + target + L"\">" + text + L"</a>";
    GetDlgItem(IDC_NRM_LINK_ICON)->ShowWindow(target.isEmpty() ? SW_HIDE : SW_SHOW);
  } else {
    GetDlgItem(IDC_NRM_LINK_ICON)->ShowWindow(SW_HIDE);
  }
  title.SetWindowText(text.c_str());
  const std::string rem = nodeProp(stack, "REM");
  const std::string use = nodeProp(stack, "USE");
  SetDlgItemText(IDC_NRM_REMARK, rem.empty() ? L"" : ZEL::msgText(wide(rem).c_str(), wide(rem).c_str(), L"-1").c_str());
  SetDlgItemText(IDC_NRM_USAGE, use.empty() ? L"" : ZEL::msgText(wide(use).c_str(), wide(use).c_str(), L"-1").c_str());
}

void CQenNrmDialog::displayRefresh(const Stack& stack, const std::string& storedNd) {
  const std::string type = nodeProp(stack, "TYPE");
  const bool isNorm = type == "NORM";
  std::string nd = storedNd;
  if (isNorm) {
    const std::vector<std::string> sizes = ZEL::norm_nd_lst(stack, "", "", onlyArticles());
    if (std::find(sizes.begin(), sizes.end(), nd) == sizes.end()) nd = sizes.empty() ? "" : sizes.front();
  }
  const std::string barpText = nodeProp(stack, "BARP");
  const bool barp = barpText == "1" || barpText == "T" || barpText == "true";
  if (!nd.empty()) setText(nmPath(L"ND"), wide(nd));
  const int view = storedView();

  if (isNorm) {
    const std::string dsp = utf8(getText(nmPath(L"DSP")).value_or(L""));
    int txtgen = 0;
    if (std::optional<int> stored = getInt(nmPath(L"TXTGEN"))) {
      txtgen = *stored;
    } else {
      std::unique_ptr<CZelDataItem> part = generate(onlyArticles());
      txtgen = part ? ZEL::objTxtBit(part.get(), false) : 0;
    }
    txtgen &= ~(0x20 | 0x40);
    if (dsp == "ISO") txtgen |= 0x20;
    else if (dsp == "EN") txtgen |= 0x40;
    setInt(nmPath(L"TXTGEN"), txtgen);
  }

  GetDlgItem(IDC_NRM_FAV_SAVE)->EnableWindow(isNorm);
  constexpr int kStatus[] = {IDC_NRM_PROJ_ICON, IDC_NRM_PROJ_TEXT, IDC_NRM_VIEWSTAT_ICON, IDC_NRM_VIEWSTAT_TEXT};
  if (!isNorm) {
    SetDlgItemText(IDC_NRM_LABEL, L"");
    GetDlgItem(IDC_NRM_LABEL)->EnableWindow(FALSE);
    for (const View& v : views()) GetDlgItem(v.id)->EnableWindow(FALSE);
    for (const Flag& f : kFlags) {
      CheckDlgButton(f.id, BST_UNCHECKED);
      GetDlgItem(f.id)->EnableWindow(FALSE);
    }
    CheckDlgButton(IDC_NRM_HATCH, BST_UNCHECKED);
    GetDlgItem(IDC_NRM_HATCH)->EnableWindow(FALSE);
    for (int id : {IDC_NRM_LAYER, IDC_NRM_HATCH_ASSIGN, IDC_NRM_LABELING}) GetDlgItem(id)->EnableWindow(FALSE);
    for (int id : kStatus) {
      SetDlgItemText(id, L"");
      GetDlgItem(id)->ShowWindow(SW_HIDE);
    }
    return;
  }
  GetDlgItem(IDC_NRM_LABEL)->EnableWindow(TRUE);

  int axis = 1;
  if (std::optional<int> stored = getInt(nmPath(L"AXIS"))) {
    axis = *stored;
  } else {
    const std::string standard = nodeProp(stack, "AXIS");
    const int value = standard.empty() ? -1 : std::atoi(standard.c_str());
    if (value != -1) axis = value;
  }
  for (const Flag& f : kFlags) {
    const bool enabled = f.domain == Domain::Both || (f.domain == Domain::Bar) == barp;
    const bool checked = enabled && (f.inverted ? (axis & f.bit) == 0 : (axis & f.bit) != 0);
    GetDlgItem(f.id)->EnableWindow(enabled);
    CheckDlgButton(f.id, checked ? BST_CHECKED : BST_UNCHECKED);
  }

  if (barp) {
    const bool hatchable = view == 0 || view == 32;
    GetDlgItem(IDC_NRM_HATCH)->EnableWindow(hatchable);
    const bool hatched = hatchable && getText(nmPath(L"DRAW")).has_value();
    CheckDlgButton(IDC_NRM_HATCH, hatched ? BST_CHECKED : BST_UNCHECKED);
    GetDlgItem(IDC_NRM_HATCH_ASSIGN)->EnableWindow(hatched);
  } else {
    CheckDlgButton(IDC_NRM_HATCH, BST_UNCHECKED);
    GetDlgItem(IDC_NRM_HATCH)->EnableWindow(FALSE);
    GetDlgItem(IDC_NRM_HATCH_ASSIGN)->EnableWindow(FALSE);
  }

  GetDlgItem(IDC_NRM_LAYER)->EnableWindow(TRUE);
  GetDlgItem(IDC_NRM_LABELING)->EnableWindow(TRUE);
  for (const View& v : views()) {
    GetDlgItem(v.id)->EnableWindow(TRUE);
    CheckDlgButton(v.id, v.code == view ? BST_CHECKED : BST_UNCHECKED);
  }
  if (view == 3) {
    for (const Flag& f : kFlags) GetDlgItem(f.id)->EnableWindow(FALSE);
    GetDlgItem(IDC_NRM_HATCH)->EnableWindow(FALSE);
  }
  statusLines(view, barp);
}

bool CQenNrmDialog::insertable(int view, bool barp) const {
  if (m_projections > 0) return view == m_openView;
  if (!barp) return (m_openView == 3) == (view == 3);
  auto group = [](int code) {
    if (code == 0 || code == 32) return 0;
    if (code == 1 || code == 2 || code == 33 || code == 34) return 1;
    if (code == 3) return 2;
    return -1;
  };
  const int stored = group(m_openView);
  return stored < 0 || group(view) == stored;
}

void CQenNrmDialog::statusLines(int view, bool barp) {
  auto show = [this](int icon, int text, const CZelString& value) {
    SetDlgItemText(text, value.c_str());
    GetDlgItem(icon)->ShowWindow(value.isEmpty() ? SW_HIDE : SW_SHOW);
    GetDlgItem(text)->ShowWindow(value.isEmpty() ? SW_HIDE : SW_SHOW);
  };
  if (!m_editExisting) {
    show(IDC_NRM_PROJ_ICON, IDC_NRM_PROJ_TEXT, L"");
    show(IDC_NRM_VIEWSTAT_ICON, IDC_NRM_VIEWSTAT_TEXT, L"");
    return;
  }
  CZelString projection;
  if (m_projections > 0) {
    projection.format(L"%u ", static_cast<unsigned>(m_projections));
    projection += m_projections == 1 ? GetMsg(L"QEN_MFC_VIEW_008", L"Projektion") : GetMsg(L"QEN_MFC_VIEW_009", L"Projektionen");
  }
  if (m_sheared) {
    if (!projection.isEmpty()) projection += L", ";
    projection += GetMsg(L"QEN_MFC_OBJ_001", L"Objekt geschert");
  }
  show(IDC_NRM_PROJ_ICON, IDC_NRM_PROJ_TEXT, projection);
  const bool ok = insertable(view, barp);
  GetDlgItem(IDOK)->EnableWindow(ok);
  show(IDC_NRM_VIEWSTAT_ICON, IDC_NRM_VIEWSTAT_TEXT, ok ? CZelString() : GetMsg(L"QEN_MFC_OBJ_005", L"nicht einfügbare Ansicht"));
}

void CQenNrmDialog::showGenerated() {
  std::unique_ptr<CZelDataItem> part = generate(onlyArticles());
  SendMessage(WM_NRM_SHOW_PART, 0, reinterpret_cast<LPARAM>(part.get()));
}

LRESULT CQenNrmDialog::OnShowPart(WPARAM, LPARAM lParam) {
  const auto* part = reinterpret_cast<const CZelDataItem*>(lParam);
  m_gdx.clear();
  m_gdx.setBackground(m_background);
  if (part) drawPart(m_gdx, part);
  m_picture.set_dpList(m_gdx);
  m_picture.zoomExtents();
  m_picture.Invalidate();
  return 0;
}

LRESULT CQenNrmDialog::OnPartReady(WPARAM, LPARAM) {
  const Selection s = resolve(&m_props.treeStacks());
  if (!s.nd.empty()) {
    GetDlgItem(IDOK)->EnableWindow(TRUE);
    m_picture.ShowWindow(SW_SHOW);
    showGenerated();
  }
  return 0;
}

LRESULT CQenNrmDialog::OnSetFiles(WPARAM, LPARAM lParam) {
  // The sender keeps the file it opened.
  auto* file = reinterpret_cast<ZEL::CDtaFilePointer*>(lParam);
  m_dinFile = file;
  m_pieceFile = file;
  handFilesToPages();
  return 0;
}

void CQenNrmDialog::OnLinkClick(NMHDR*, LRESULT*) {
  const CZelString url = link(IDC_NRM_TITLE).linkUrl();
  if (!url.isEmpty()) ZEL::help_show(url, L"");
}

void CQenNrmDialog::OnPreviewMenu(CWnd*, CPoint point) {
  const Selection s = resolve(&m_props.treeStacks());
  if (!s.isNorm) return;
  m_tools.previewContextMenu(point, this, &m_picture, &m_gdx);
}

void CQenNrmDialog::command(const CZelString& word) {
  for (const View& v : views())
    if (word == v.word) return onView(v.code);
  for (const Flag& f : kFlags)
    if (word == f.word) return onFlag(f.bit, f.inverted, f.id, f.bit == 0x10);
  if (word == L"dsp") onFamily();
  else if (word == L"img") onImage();
  else if (word == L"is_hatch") onHatch();
  else if (word == L"layer") onAssignment(Assignment::Layer);
  else if (word == L"hatch") onAssignment(Assignment::Hatch);
  else if (word == L"txtgen") onAssignment(Assignment::Labeling);
  else if (word == L"fav_save") onFav(true);
  else if (word == L"fav_restore") onFav(false);
}

void CQenNrmDialog::onFamily() {
  resolve(&m_props.treeStacks());
  const int line = m_family.GetCurSel();
  if (line < 0) return;
  const CZelString family = m_family.GetLBText(line);
  if (getText(nmPath(L"DSP")).value_or(L"") == family) {
    m_props.setRebuildPending(false);
    return;
  }
  setText(nmPath(L"DSP"), family);
  m_props.setRebuildPending(true);
  SendMessage(WM_NRM_REFRESH_FRAME);
  if (m_tabs.GetCurSel() == kTabProps) {
    m_props.setRebuildPending(false);
    m_props.rebuildTree(callerFilter());
    SendMessage(WM_NRM_REFRESH_PROPS);
  }
}

void CQenNrmDialog::onImage() {
  const Selection s = resolve(&m_props.treeStacks());
  if (onlyArticles() != m_builtArticles || releaseMask(false) != m_builtMask) rebuildTree();
  if (!m_picker) return;
  CZelArrayTempl<CZelString> picked = m_picker->CallNrmDiaDlg(m_props.pickerItem());
  Stack stack;
  for (int i = 0; i < picked.count(); ++i) stack.push_back(utf8(picked[i]));
  if (stack.empty() || stack == s.stack) return;
  setStack(nmPath(L"STACK"), stack);
  generateReset();
  SendMessage(WM_NRM_REFRESH_FRAME);
  SendMessage(WM_NRM_REFRESH_PROPS);
}

void CQenNrmDialog::onView(int code) {
  const Selection s = resolve(&m_props.treeStacks());
  setInt(nmPath(L"VIEW"), code);
  setInt(domainPath(s.barp, L"VIEW"), code);
  SendMessage(WM_NRM_REFRESH_FRAME);
  SendMessage(WM_NRM_REFRESH_PROPS);
}

void CQenNrmDialog::onFlag(int bit, bool inverted, int id, bool refreshPropsOnly) {
  const Selection s = resolve(&m_props.treeStacks());
  int axis = getInt(nmPath(L"AXIS")).value_or(0);
  const bool checked = IsDlgButtonChecked(id) == BST_CHECKED;
  if (checked != inverted) axis |= bit;
  else axis &= ~bit;
  setInt(nmPath(L"AXIS"), axis);
  setInt(domainPath(s.barp, L"AXIS"), axis);
  if (refreshPropsOnly) SendMessage(WM_NRM_REFRESH_PROPS);
  else showGenerated();
}

void CQenNrmDialog::onHatch() {
  const Selection s = resolve(&m_props.treeStacks());
  if (IsDlgButtonChecked(IDC_NRM_HATCH) == BST_CHECKED) {
    setText(nmPath(L"DRAW"), L"SMDB");
    setText(domainPath(s.barp, L"DRAW"), L"SMDB");
  } else {
    ZEL::cfg_remove(CZelDataKey::fromPath(nmPath(L"DRAW")));
    ZEL::cfg_remove(CZelDataKey::fromPath(domainPath(s.barp, L"DRAW")));
  }
  SendMessage(WM_NRM_REFRESH_FRAME);
  showGenerated();
}

void CQenNrmDialog::onAssignment(Assignment which) {
  resolve(&m_props.treeStacks());
  std::unique_ptr<CZelDataItem> part = generate(onlyArticles());
  if (!part) return;
  const CZelString key2 = ZEL::objKey(part.get(), 2);
  qenDlgEnv_st env;
  env.objectType = L"DIN";
  env.country = country();
  CZelDataKey none;
  {
    std::unique_ptr<ZEL::CDtaFilePointer> file(
        ZEL::dtaOpen(ZEL::DTA_MEMORY, which == Assignment::Layer ? ZEL::DTA_STORED : ZEL::DTA_COPY, &none, part.get()));
    if (which == Assignment::Layer) m_tools.layerAssignment(file.get(), env);
    else if (which == Assignment::Hatch) m_tools.hatchAssignmentWithProps(file.get(), env, false);
    else m_tools.labelingWithProps(file.get(), env);
  }
  mergeInto(*part, key2.isEmpty() ? CZelString() : CZelString(L"*NM_SET*\\") + key2);
  if (which == Assignment::Labeling) {
    SendMessage(WM_NRM_REFRESH_FRAME);
    SendMessage(WM_NRM_REFRESH_PROPS);
  } else {
    showGenerated();
  }
}

void CQenNrmDialog::onFav(bool save) {
  const Stack stack = getStack(nmPath(L"STACK")).value_or(Stack{});
  const char* type = stack.empty() ? "" : stack.front() == "BAR" ? "DIN" : stack.front() == "PIECE" ? "PIECE" : "";
  if (*type) {
    if (save) fav_save(wide(type));
    else fav_restore(wide(type));
  }
  if (save) return;
  SendMessage(WM_NRM_REFRESH_FRAME);
  SendMessage(WM_NRM_REFRESH_PROPS);
  if (m_admin.GetSafeHwnd()) m_admin.refresh();
}
