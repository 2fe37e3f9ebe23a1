#include "standardparts/CQenNrmTabEigenschaften.h"

#include "data/CConfig.h"
#include "data/CZelDataDir.h"
#include "data/ZelDataAccess.h"
#include "obj/ZelObjGen.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjOrder.h"
#include "data/ZelMessages.h"
#include "obj/ZelObjProps.h"
#include "qen_mfc.h"
#include "resources/dialogs/nrm_props_ids.h"
#include "standardparts/QenNrmCatalogue.h"
#include "standardparts/QenNrmMessages.h"
#include "ui/ZelHelp.h"

#include <algorithm>

using namespace qen;
using namespace qen::nrm;

const CMessageMapEntry CQenNrmTabEigenschaften::kEntries[] = {
    msgmap::wordNotify(IDC_NRMP_TREE, TVN_SELCHANGED, L"obj"),
    msgmap::word(IDC_NRMP_VARIANT, CBN_SELCHANGE, L"var"),
    msgmap::word(IDC_NRMP_MATERIAL, CBN_SELCHANGE, L"mat"),
    msgmap::word(IDC_NRMP_MAT_TYPES, BN_CLICKED, L"mat_def"),
    msgmap::word(IDC_NRMP_ARTICLE, BN_CLICKED, L"obj_order"),
    msgmap::word(IDC_NRMP_SIZE, CBN_SELCHANGE, L"nd_lst"),
    msgmap::word(IDC_NRMP_STD_LEN, BN_CLICKED, L"is_din"),
    msgmap::word(IDC_NRMP_LEN_LIST, CBN_SELCHANGE, L"len_lst"),
    msgmap::word(IDC_NRMP_LEN, EN_KILLFOCUS, L"len"),
    msgmap::word(IDC_NRMP_DIM, EN_KILLFOCUS, L"klm"),
    msgmap::word(IDC_NRMP_LEN_PICK, BN_CLICKED, L"len_pick"),
    msgmap::word(IDC_NRMP_DIM_PICK, BN_CLICKED, L"klm_pick"),
    msgmap::contextMenu<&CQenNrmTabEigenschaften::OnContextMenu>(),
};
const CMessageMap CQenNrmTabEigenschaften::kMessageMap{&CZelDlg::kMessageMap, kEntries,
                                                       msgmap::wordHandler<&CQenNrmTabEigenschaften::command>()};

CQenNrmTabEigenschaften::CQenNrmTabEigenschaften() : CQenNrmTab(IDD_NRM_PROPS), m_picker(new CZelDataItem()) {
  m_picker->mkDir();
}

CQenNrmTabEigenschaften::~CQenNrmTabEigenschaften() = default;

void CQenNrmTabEigenschaften::addLangRsc() {
  langRsc(IDC_NRMP_GROUP, L"QEN_DCL_0000_024", L"Eigenschaften");
  langRsc(IDC_NRMP_VARIANT_LABEL, L"QEN_DCL_0000_004", L"Variante");
  langRsc(IDC_NRMP_MAT_TYPES, L"QEN_DCL_0000_005", L"Material...");
  langRsc(IDC_NRMP_ARTICLE, L"QEN_DCL_0000_006", L"Artikel...");
  langRsc(IDC_NRMP_DIM_GROUP, L"QEN_DCL_0000_008", L"Abmaße");
  langRsc(IDC_NRMP_SIZE_LABEL, L"QEN_DCL_0000_009", L"Nennmaß");
  langRsc(IDC_NRMP_STD_LEN, L"QEN_DCL_0000_019", L"Normlängen");
  langRsc(IDC_NRMP_LEN_PICK, L"QEN_DCL_0000_020", L"Zeigen <");
  langRsc(IDC_NRMP_DIM_PICK, L"QEN_DCL_0000_021", L"Zeigen <");
}

void CQenNrmTabEigenschaften::DoDataExchange(CDataExchange* dx) {
  DDX_Control(dx, IDC_NRMP_TREE, m_tree);
  DDX_Control(dx, IDC_NRMP_VARIANT, m_variant);
  DDX_Control(dx, IDC_NRMP_MATERIAL, m_material);
  DDX_Control(dx, IDC_NRMP_SIZE, m_size);
  DDX_Control(dx, IDC_NRMP_LEN_LIST, m_lengths);
  DDX_Control(dx, IDC_NRMP_LEN, m_length);
  DDX_Control(dx, IDC_NRMP_DIM, m_further);
}

void CQenNrmTabEigenschaften::showGenerated() const {
  std::unique_ptr<CZelDataItem> part = generate(onlyArticles());
  toFrame(WM_NRM_SHOW_PART, reinterpret_cast<LPARAM>(part.get()));
}

BOOL CQenNrmTabEigenschaften::OnInitDialog() {
  m_initialising = true;
  CQenNrmTab::OnInitDialog();
  toFrame(WM_NRM_REFRESH_FRAME);
  toFrame(WM_NRM_REFRESH_PROPS);
  m_initialising = false;
  return TRUE;
}

void CQenNrmTabEigenschaften::OnOK() {
  if (auto* dlg = dynamic_cast<CDialog*>(frame())) dlg->EndDialog(IDOK);
}

void CQenNrmTabEigenschaften::rebuildTree(const std::vector<std::string>& filter) {
  m_building = true;
  m_tree.DeleteAllItems();
  m_mapStacks.clear();
  m_mapTexts.clear();
  m_mapItems.clear();
  buildTree({}, TVI_ROOT, filter);
  m_building = false;
  m_treeBuilt = true;
}

namespace {
// Inner nodes of the tree; the catalogue's domains ("BAR", "PIECE") are its top categories.
bool isInner(const std::string& type) { return type == "CATEGORY" || type == "GROUP" || type == "DOMAIN"; }

// Appends `leaf` to the string array under `path` + "LEAFS" of the picker item.
void addLeaf(CZelDataItem& picker, const Stack& parentPath, const std::string& leaf) {
  CZelArrayTempl<CZelString> parts;
  for (const std::string& p : parentPath) parts.add(wide(p));
  parts.add(L"LEAFS");
  CZelDataKey key;
  key.set(parts);
  CZelArrayTempl<CZelString> leaves;
  if (CZelDataItem* existing = picker.find(&key)) existing->get(leaves);
  leaves.add(wide(leaf));
  picker.put(&key, ZEL::mkResbuf(leaves));
}
}  // namespace

void CQenNrmTabEigenschaften::buildTree(const Stack& stack, HTREEITEM parent, const std::vector<std::string>& filter) {
  if (!stack.empty() && std::find(filter.begin(), filter.end(), stack.front()) != filter.end()) return;
  const bool outer = !m_building;
  m_building = true;
  if (stack.empty()) {
    m_picker.reset(new CZelDataItem());
    m_picker->mkDir();
    m_mapStacks.clear();
    m_mapTexts.clear();
    m_mapItems.clear();
  }
  const Stack selected = getStack(nmPath(L"STACK")).value_or(Stack{"BAR"});
  const bool articles = onlyArticles();
  if (!articles) releaseMask(true);

  HTREEITEM item = parent;
  bool inserted = false;
  std::string type, release;
  const std::string mask = releaseMask(false);
  if (!stack.empty()) {
    const std::string family = utf8(getText(nmPath(L"DSP")).value_or(L"DIN"));
    const std::string text = ZEL::norm_tree_txt(stack, family);
    type = nodeProp(stack, "TYPE");
    release = nodeProp(stack, "RELEASE");
    bool insert = false;
    std::string order;
    if (!articles) {
      insert = mask != "ff7" && !text.empty() && relAnd(mask, release).empty();
    } else {
      std::unique_ptr<CZelDataItem> part = generateFromStack(stack, true);
      CZelString article;
      CZelDataKey orderKey(L"ORDER");
      if (part) part->get(article, &orderKey);
      order = utf8(article);
      const std::string low = relAnd("7", release);
      insert = (isInner(type) || !order.empty()) && !text.empty() && low != "1" && low != "2" && low != "4";
    }
    if (insert) {
      item = m_tree.InsertItem(wide(text).c_str(), parent, TVI_LAST);
      inserted = true;
      m_mapStacks.push_back(stack);
      m_mapTexts.push_back(wide(text));
      m_mapItems.push_back(item);
      if (stack == selected) m_tree.SelectItem(item);
      if (articles ? !order.empty() : type == "NORM")
        addLeaf(*m_picker, Stack(stack.begin(), stack.end() - 1), stack.back());
    }
  }
  if (stack.empty() || (isInner(type) && (release.empty() || relAnd(release, mask).empty()))) {
    for (const std::string& child : ZEL::norm_dir(stack)) {
      Stack next = stack;
      next.push_back(child);
      buildTree(next, item, filter);
    }
    if (inserted && !m_tree.ItemHasChildren(item)) {
      m_mapStacks.pop_back();
      m_mapTexts.pop_back();
      m_mapItems.pop_back();
      m_tree.DeleteItem(item);
    }
  }
  if (outer) m_building = false;
}

void CQenNrmTabEigenschaften::selectStack(const Stack& stack) {
  for (std::size_t i = 0; i < m_mapStacks.size(); ++i)
    if (m_mapStacks[i] == stack) {
      m_tree.SelectItem(m_mapItems[i]);
      m_tree.EnsureVisible(m_mapItems[i]);
      return;
    }
}

void CQenNrmTabEigenschaften::disableAll() {
  for (CZelComboBox* combo : {&m_variant, &m_material, &m_size, &m_lengths}) {
    combo->ResetContent();
    combo->EnableWindow(FALSE);
  }
  for (int id : {IDC_NRMP_MAT_TYPES, IDC_NRMP_ARTICLE, IDC_NRMP_LEN_PICK, IDC_NRMP_DIM_PICK}) GetDlgItem(id)->EnableWindow(FALSE);
  SetDlgItemText(IDC_NRMP_ARTICLE_TEXT, L"");
  CheckDlgButton(IDC_NRMP_STD_LEN, BST_UNCHECKED);
  GetDlgItem(IDC_NRMP_STD_LEN)->EnableWindow(FALSE);
  for (CZelEdit* edit : {&m_length, &m_further}) {
    edit->SetWindowText(L"");
    edit->EnableWindow(FALSE);
  }
  for (int id : {IDC_NRMP_LEN_LABEL, IDC_NRMP_LEN_UNIT, IDC_NRMP_DIM_LABEL, IDC_NRMP_DIM_RANGE}) SetDlgItemText(id, L"");
}

void CQenNrmTabEigenschaften::refreshProps() {
  if (!GetSafeHwnd() || m_propsRefreshing) return;
  m_propsRefreshing = true;
  const Selection s = resolve(&m_mapStacks);
  if (!s.nd.empty()) {
    setTextOrRemove(nmPath(L"MAT"), wide(s.mat));
    setTextOrRemove(nmPath(L"VAR"), wide(s.var));
  }
  if (!s.stack.empty()) setStack(nmPath(L"STACK"), s.stack);
  if (!s.nd.empty() && s.stack.size() > 2) setTextOrRemove(nmPath(L"ND"), wide(s.nd));

  if (m_mapStacks.empty()) {
    ZEL::cfg_remove(CZelDataKey::fromPath(nmPath(L"STACK")));
    disableAll();
    m_propsRefreshing = false;
    return;
  }
  if (s.nd.empty()) {
    for (CZelComboBox* combo : {&m_variant, &m_material}) {
      combo->ResetContent();
      combo->EnableWindow(FALSE);
    }
    GetDlgItem(IDC_NRMP_MAT_TYPES)->EnableWindow(FALSE);
  } else {
    m_variant.ResetContent();
    for (const std::string& v : s.variants) {
      Stack path = s.stack;
      path.insert(path.end(), {"", "VAR", v});
      const std::string key = ZEL::norm_get(path, "LABEL").value_or("");
      // The catalogue's keys are the German texts: a key without translation shows itself.
      const CZelString label = key.empty() ? CZelString(L"???") : ZEL::msgText(wide(key).c_str(), wide(key).c_str(), country().c_str());
      const int line = m_variant.AddString(label.c_str());
      if (v == s.var) m_variant.SetCurSel(line);
    }
    m_variant.EnableWindow(!s.var.empty() && s.variants.size() >= 2);
    const std::vector<std::string> materials = ZEL::norm_mat_lst(s.stack, s.articles);
    std::string mat = s.mat;
    if (std::find(materials.begin(), materials.end(), mat) == materials.end()) mat = materials.empty() ? "" : materials.front();
    setTextOrRemove(nmPath(L"MAT"), wide(mat));
    m_material.ResetContent();
    for (const std::string& m : materials) {
      // The material manager knows the drawing's materials; the catalogue labels its own.
      CZelString label = m_matMgr.matLabel(wide(m), L"-1");
      if (label.isEmpty()) label = wide(QEN::norm_mat_label(m, utf8(country())));
      if (label.isEmpty()) label = wide(m);
      const int line = m_material.AddString(label.c_str());
      if (m == mat) m_material.SetCurSel(line);
    }
    m_material.EnableWindow(materials.size() > 1);
    GetDlgItem(IDC_NRMP_MAT_TYPES)->EnableWindow(TRUE);
  }
  refreshDims(s.stack, s.nd);
  m_propsRefreshing = false;
}

void CQenNrmTabEigenschaften::keyCheck(const CZelString& before) const {
  const CZelString after = ZEL::objKey(section(), 3);
  if (!before.isEmpty() && !after.isEmpty() && before != after) objGen_objProp_Sync(L"DIN");
}

void CQenNrmTabEigenschaften::command(const CZelString& word) {
  if (word == L"obj") onObj();
  else if (word == L"var") onVar();
  else if (word == L"mat") onMat();
  else if (word == L"mat_def") onMatDef();
  else if (word == L"obj_order") onOrder();
  else if (word == L"nd_lst") onSize();
  else if (word == L"is_din") onStdLengthCheck();
  else if (word == L"len_lst") onLengthList();
  else if (word == L"len") onLength();
  else if (word == L"klm") onFurther();
  else if (word == L"len_pick" || word == L"klm_pick") {
    if (auto* dlg = dynamic_cast<CDialog*>(frame())) dlg->EndDialog(word == L"len_pick" ? 4 : 3);
  }
}

void CQenNrmTabEigenschaften::onObj() {
  if (m_rebuildPending || m_frameRefreshing || m_propsRefreshing || m_initialising || m_building) return;
  const Selection before = resolve(&m_mapStacks);
  const CZelString keyBefore = ZEL::objKey(section(), 3);
  HTREEITEM caret = m_tree.GetSelectedItem();
  const auto at = std::find(m_mapItems.begin(), m_mapItems.end(), caret);
  if (at == m_mapItems.end()) return;
  const Stack stack = m_mapStacks[static_cast<std::size_t>(at - m_mapItems.begin())];
  setStack(nmPath(L"STACK"), stack);
  if (nodeProp(stack, "TYPE") == "NORM") {
    generateReset();
    if (stack != before.stack) {
      if (std::unique_ptr<CZelDataItem> part = generate(onlyArticles())) {
        const CZelString key2 = ZEL::objKey(part.get(), 2);
        if (CZelDataItem* stored = ZEL::prop_data(ZEL::objKey(part.get(), 3)); stored && stored->isDir())
          mergeInto(*stored, key2.isEmpty() ? CZelString() : CZelString(L"*NM_SET*\\") + key2);
      }
      generateReset();
    }
  }
  keyCheck(keyBefore);
  toFrame(WM_NRM_REFRESH_FRAME);
  toFrame(WM_NRM_REFRESH_PROPS);
}

void CQenNrmTabEigenschaften::onVar() {
  const Selection s = resolve(&m_mapStacks);
  const int line = m_variant.GetCurSel();
  if (line < 0 || line >= static_cast<int>(s.variants.size())) return;
  setTextOrRemove(nmPath(L"VAR"), wide(s.variants[static_cast<std::size_t>(line)]));
  const Selection now = resolve(&m_mapStacks);
  refreshDims(now.stack, now.nd);
  showGenerated();
}

void CQenNrmTabEigenschaften::onMat() {
  const Selection s = resolve(&m_mapStacks);
  const CZelString keyBefore = ZEL::objKey(section(), 3);
  const int line = m_material.GetCurSel();
  if (line < 0 || line >= static_cast<int>(s.materials.size())) return;
  const std::string mat = s.materials[static_cast<std::size_t>(line)];
  if (mat.empty() || wide(mat) == getText(nmPath(L"MAT")).value_or(L"")) return;
  setText(nmPath(L"MAT"), wide(mat));
  std::unique_ptr<CZelDataItem> part = generate(s.articles);
  const CZelString key3 = part ? ZEL::objKey(part.get(), 3) : CZelString();
  const CZelString key2 = part ? ZEL::objKey(part.get(), 2) : CZelString();
  const CZelString setPath = key2.isEmpty() ? CZelString() : CZelString(L"*NM_SET*\\") + key2;
  CZelDataItem* preset = key3.isEmpty() ? nullptr : ZEL::cfg_get(CZelDataKey::fromPath(CZelString(L"*QEN_OBJ_PROP*\\") + key3));
  if (preset && preset->isDir()) mergeInto(*preset, setPath);
  const bool presetHasLayer = preset && preset->isDir() && preset->getDir()->item(L"IS_LAY");
  if (mat != "SYSTEM" && getInt(L"NORM_MAT_LAYER").value_or(0) == 1 && getInt(nmPath(L"IS_LAY")).value_or(-1) == 0 &&
      !presetHasLayer) {
    setInt(nmPath(L"IS_LAY"), 1);
    if (!setPath.isEmpty()) setInt(setPath + L"\\IS_LAY", 1);
  }
  if (std::unique_ptr<CZelDataItem> again = generate(s.articles)) {
    ZEL::objGen(again.get(), 1);
    mergeInto(*again, L"");
  }
  generateReset();
  keyCheck(keyBefore);
  toFrame(WM_NRM_REFRESH_FRAME);
  toFrame(WM_NRM_REFRESH_PROPS);
}

void CQenNrmTabEigenschaften::onMatDef() {
  resolve(&m_mapStacks);
  const CZelString keyBefore = ZEL::objKey(section(), 3);
  qenDlgEnv_st env;
  env.country = country();
  if (qenNormMatMenu(env) != IDOK) return;
  propSave();
  groupReset();
  keyCheck(keyBefore);
  toFrame(WM_NRM_REFRESH_PROPS);
}

void CQenNrmTabEigenschaften::onOrder() {
  resolve(&m_mapStacks);
  std::unique_ptr<CZelDataItem> part = generate(onlyArticles());
  if (!part) return;
  ZEL::DlgEnv_st env;
  env.m_parent = this;
  env.country = country();
  if (qenItemDlgMenu(env, part.get()) != IDOK) return;
  CZelString article;
  ZEL::obj_order_get(ZEL::objKey(part.get(), 4), article);
  SetDlgItemText(IDC_NRMP_ARTICLE_TEXT, article.c_str());
  setTextOrRemove(nmPath(L"ORDER"), article);
  CZelDataKey orderKey(L"ORDER");
  ZEL::dataItemSet(part.get(), &orderKey, article);
  toFrame(WM_NRM_REFRESH_PROPS);
}
