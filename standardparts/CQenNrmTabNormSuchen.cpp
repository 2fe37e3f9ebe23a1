#include "standardparts/CQenNrmTabNormSuchen.h"

#include "data/CConfig.h"
#include "data/CZelApp.h"
#include "data/CZelDataKey.h"
#include "data/ZelDataAccess.h"
#include "data/ZelMessages.h"
#include "resources/dialogs/nrm_search_ids.h"
#include "standardparts/QenNrmCatalogue.h"
#include "standardparts/QenNrmMessages.h"
#include "ui/ZelHelp.h"

#include <algorithm>
#include <cctype>

using namespace qen;
using namespace qen::nrm;

namespace {
const wchar_t* const kMask = L"*NM*\\SEARCH\\MASK";
const wchar_t* const kResult = L"*NM*\\SEARCH\\RESULT";
const wchar_t* const kObj = L"*NM*\\SEARCH\\OBJ";
}  // namespace

const CMessageMapEntry CQenNrmTabNormSuchen::kEntries[] = {
    msgmap::word(IDC_NRMS_MASK, EN_CHANGE, L"mask"),
    msgmap::word(IDC_NRMS_START, BN_CLICKED, L"start"),
    msgmap::word(IDC_NRMS_LIST, LBN_SELCHANGE, L"obj"),
    msgmap::word(IDC_NRMS_LIST, LBN_DBLCLK, L"goto"),
    msgmap::word(IDC_NRMS_GOTO, BN_CLICKED, L"goto"),
};
const CMessageMap CQenNrmTabNormSuchen::kMessageMap{&CZelDlg::kMessageMap, kEntries,
                                                    msgmap::wordHandler<&CQenNrmTabNormSuchen::command>()};

CQenNrmTabNormSuchen::CQenNrmTabNormSuchen() : CQenNrmTab(IDD_NRM_SEARCH) {
  m_background = ZEL::zelAppPtr()->backgroundColor();
}

void CQenNrmTabNormSuchen::addLangRsc() {
  langRsc(IDC_NRMS_MASK_LABEL, L"QEN_DCL_0000_168", L"Suche nach");
  langRsc(IDC_NRMS_GOTO, L"QEN_DCL_0000_169", L"Gehe zu");
}

void CQenNrmTabNormSuchen::DoDataExchange(CDataExchange* dx) {
  DDX_Control(dx, IDC_NRMS_MASK, m_mask);
  DDX_Control(dx, IDC_NRMS_LIST, m_list);
  DDX_Control(dx, IDC_NRMS_PREVIEW, m_picture);
}

BOOL CQenNrmTabNormSuchen::OnInitDialog() {
  CQenNrmTab::OnInitDialog();
  toFrame(WM_NRM_REFRESH_FRAME);
  return TRUE;
}

void CQenNrmTabNormSuchen::command(const CZelString& word) {
  if (word == L"mask") onMask();
  else if (word == L"start") onStart();
  else if (word == L"obj") onObj();
  else if (word == L"goto") onGoto();
}

void CQenNrmTabNormSuchen::onMask() {
  CZelString text;
  m_mask.GetWindowText(text);
  text.trim();
  setText(kMask, text);
}

void CQenNrmTabNormSuchen::onStart() {
  std::vector<Stack> results;
  ZEL::norm_tree_leaves({}, utf8(getText(kMask).value_or(L"*")), results);
  const std::vector<std::string> filter = callerFilter();
  std::vector<Stack> kept;
  if (filter.empty()) {
    kept = results;
  } else if (filter.size() == 1) {
    for (const Stack& r : results)
      if (!r.empty() && r.front() != filter.front()) kept.push_back(r);
  }
  if (kept.empty()) {
    m_list.ResetContent();
    GetDlgItem(IDC_NRMS_GOTO)->EnableWindow(FALSE);
    SetDlgItemText(IDC_NRMS_COUNT, GetMsg(L"QEN_NORM_138", L"Keine Norm gefunden").c_str());
    return;
  }
  setStackList(kResult, kept);
  setStack(kObj, kept.front());
  refresh();
}

void CQenNrmTabNormSuchen::refresh() {
  if (!GetSafeHwnd()) return;
  const std::vector<Stack> results = getStackList(kResult);
  const Stack obj = getStack(kObj).value_or(Stack{});
  const CZelString mask = getText(kMask).value_or(L"*");
  const std::vector<std::string> families = ZEL::norm_types();
  const std::string dsp = utf8(getText(nmPath(L"DSP")).value_or(families.empty() ? L"" : wide(families.front())));
  const int flags = dsp == "ISO" ? 0x20 : dsp == "EN" ? 0x40 : 0;

  setText(kMask, mask);
  m_mask.SetWindowText(mask.c_str());
  m_list.ResetContent();
  if (results.empty()) {
    SetDlgItemText(IDC_NRMS_COUNT, L"");
    m_list.EnableWindow(FALSE);
    GetDlgItem(IDC_NRMS_GOTO)->EnableWindow(FALSE);
  } else {
    m_list.EnableWindow(TRUE);
    m_list.SetFocus();
    CZelString count;
    count.format(L"%d", static_cast<int>(results.size()));
    count += L" ";
    count += GetMsg(L"QEN_NORM_123", L"gefunden");
    SetDlgItemText(IDC_NRMS_COUNT, count.c_str());
    for (std::size_t i = 0; i < results.size(); ++i) {
      const Stack& r = results[i];
      const std::string label = nodeProp(r, "LABEL");
      const CZelString title = ZEL::msgText(wide(label).c_str(), wide(label).c_str(), country().c_str());
      std::string designation = QEN::norm_diniso1(r, flags);
      if (nodeProp(r, "RELEASE") == "804") {
        std::transform(designation.begin(), designation.end(), designation.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        designation = "[" + designation + "]";
      }
      CZelString line = wide(designation);
      while (line.len() < 16) line += L' ';
      line += L'\t';
      line += title;
      m_list.AddString(line.c_str());
      if (r == obj) m_list.SetCurSel(static_cast<int>(i));
    }
    GetDlgItem(IDC_NRMS_GOTO)->EnableWindow(TRUE);
  }
  showPicture(obj);
}

void CQenNrmTabNormSuchen::showPicture(const Stack& stack) {
  m_gdx.clear();
  m_gdx.setBackground(m_background);
  bool drawn = false;
  if (!stack.empty()) {
    const std::string prototype = nodeProp(stack, "PROTOTYPE");
    if (!prototype.empty() && ZEL::cfg_get(CZelDataKey::fromPath(kResult))) {
      std::unique_ptr<CZelDataItem> params(new CZelDataItem());
      params->mkDir();
      CZelDataKey main(L"MAIN"), folder(L"FOLDER"), x(L"X"), y(L"Y");
      ZEL::dataItemSet(params.get(), &main, 0);
      ZEL::dataItemSet(params.get(), &folder, 0);
      ZEL::dataItemSet(params.get(), &x, 110);
      ZEL::dataItemSet(params.get(), &y, 100);
      drawn = drawPrototype(m_gdx, wide(prototype), params.get());
      m_picture.set_dpList(m_gdx);
      m_picture.zoomExtents();
      m_picture.Invalidate();
    }
  }
  m_picture.EnableWindow(FALSE);
  m_picture.ShowWindow(drawn ? SW_SHOW : SW_HIDE);
}

void CQenNrmTabNormSuchen::onObj() {
  const std::vector<Stack> results = getStackList(kResult);
  const int line = m_list.GetCurSel();
  if (line < 0 || line >= static_cast<int>(results.size())) return;
  setStack(kObj, results[static_cast<std::size_t>(line)]);
  showPicture(results[static_cast<std::size_t>(line)]);
}

void CQenNrmTabNormSuchen::onGoto() {
  const std::vector<Stack> results = getStackList(kResult);
  const int line = m_list.GetCurSel();
  if (line >= 0 && line < static_cast<int>(results.size())) setStack(kObj, results[static_cast<std::size_t>(line)]);
  const Stack obj = getStack(kObj).value_or(Stack{});
  if (!obj.empty() && obj != getStack(nmPath(L"STACK")).value_or(Stack{})) {
    ZEL::cfg_remove(CZelDataKey::fromPath(L"*NM_TREE*"));
    setStack(nmPath(L"STACK"), obj);
    setText(nmPath(L"MODE"), L"MAIN");
    if (std::unique_ptr<CZelDataItem> part = generate(onlyArticles())) release(part.get());
  }
  toFrame(WM_NRM_GOTO_PROPS);
}
