// The dimension group of the properties tab: nominal size, standard or free length, and
// the further dimension (clamping length, radius or countersink depth).
#include "standardparts/CQenNrmTabEigenschaften.h"

#include "data/CConfig.h"
#include "data/ZelMessages.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjOrder.h"
#include "resources/dialogs/nrm_props_ids.h"
#include "standardparts/QenNrmCatalogue.h"
#include "standardparts/QenNrmMessages.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <sstream>

using namespace qen;
using namespace qen::nrm;

namespace {

int intProp(const Stack& stack, const std::string& name, int fallback) {
  const std::string v = nodeProp(stack, name);
  return v.empty() ? fallback : std::atoi(v.c_str());
}

Stack sizeStackOf(const Stack& stack, const std::string& nd) {
  if (nd.empty()) return {};
  Stack s = stack;
  s.push_back(nd);
  return s;
}

// The cell at `index` of a size's data row (cells separated by ';'); a NaN marks a cell
// that is missing.
struct Cell {
  bool number = false;
  double value = std::numeric_limits<double>::quiet_NaN();
  std::string text;
  bool sameAs(const Cell& other) const {
    if (number != other.number) return false;
    if (number) return value == other.value;  // NaN never equals
    return text == other.text;
  }
};

Cell dataCell(const Stack& sizeStack, int index) {
  Cell cell;
  const std::optional<std::string> row = sizeProp(sizeStack, "DATA");
  if (!row) {
    cell.number = true;
    return cell;
  }
  std::stringstream in(*row);
  std::string part;
  for (int i = 0; std::getline(in, part, ';'); ++i) {
    if (i != index) continue;
    char* end = nullptr;
    const double v = std::strtod(part.c_str(), &end);
    if (!part.empty() && end && *end == '\0') {
      cell.number = true;
      cell.value = v;
    } else {
      cell.text = part;
    }
    return cell;
  }
  cell.number = true;
  return cell;
}

CZelString msg(const wchar_t* key, const wchar_t* german, const CZelString& country) {
  return ZEL::msgText(key, german, country.c_str());
}

}  // namespace

void CQenNrmTabEigenschaften::setUpEdits(Zel::lUnit unit, int format) {
  for (CZelEdit* edit : {&m_length, &m_further}) {
    edit->setCountry(country());
    edit->setFormat(format);
    edit->setLUnits(unit, -1);
    edit->setEditFlags(2, 7, 2, -DBL_MAX, DBL_MAX);
  }
}

void CQenNrmTabEigenschaften::refreshDims(const Stack& stack, const std::string& ndIn) {
  const bool isNorm = nodeProp(stack, "TYPE") == "NORM";
  const bool articles = onlyArticles();
  const std::string mat = utf8(getText(nmPath(L"MAT")).value_or(L""));
  const std::string var = utf8(getText(nmPath(L"VAR")).value_or(L""));
  const std::vector<std::string> sizes = isNorm ? ZEL::norm_nd_lst(stack, mat, var, articles) : std::vector<std::string>{};
  const std::string nd = isNorm ? resolveSize(stack, sizes, ndIn) : std::string();
  const Stack sizeStack = sizeStackOf(stack, nd);
  const std::vector<double> lengths = sizeStack.empty() ? std::vector<double>{} : ZEL::norm_len_lst(sizeStack, mat, var);

  bool freeLength = !articles && getInt(nmPath(L"NODIN")).value_or(0) == 1;
  const std::optional<double> storedLength = getReal(nmPath(L"LEN"));
  double length = storedLength.value_or(-1.0);
  if (!lengths.empty()) {
    if (length < 0) length = 0;
    double minimum = std::fabs(lengths.front());
    for (double l : lengths) minimum = std::min(minimum, std::fabs(l));
    if (!m_sizeChanged && storedLength) {
      if (length <= minimum) length = minimum;
    } else {
      std::size_t at = 0;
      while (at < lengths.size() && std::fabs(lengths[at]) != minimum) ++at;
      while (at < lengths.size() && !(lengths[at] > 0)) ++at;
      if (at < lengths.size() && length <= lengths[at]) length = lengths[at];
      m_sizeChanged = false;
    }
  }
  const bool onlyStandard = intProp(stack, "NODIN_LEN", 0) == 1;
  if (onlyStandard && !lengths.empty()) {
    freeLength = false;
    ZEL::cfg_remove(CZelDataKey::fromPath(nmPath(L"NODIN")));
    const int near = lengthNear(length, lengths);
    length = lengths[near >= 0 && near < static_cast<int>(lengths.size()) ? static_cast<std::size_t>(near) : 0];
    setReal(nmPath(L"LEN"), length);
  }
  if (!freeLength && length > 0 && !lengths.empty()) {
    const int near = lengthNear(length, lengths);
    if (near >= 0 && near < static_cast<int>(lengths.size())) length = std::fabs(lengths[static_cast<std::size_t>(near)]);
  }

  Zel::lUnit unit = m_env.unit;
  if (Zel::lUnit u; Zel::unitFromCode(intProp(stack, "INSUNIT", static_cast<int>(m_env.unit)), u)) unit = u;
  if (!nd.empty()) setText(nmPath(L"ND"), wide(nd));
  if (!lengths.empty()) setReal(nmPath(L"LEN"), length);
  int format = static_cast<int>(m_env.format);
  if (unit == Zel::lUnit::Millimeters) format = 2;
  else if (unit == Zel::lUnit::Inches && format == 2) format = 4;
  setUpEdits(unit, format);

  // Nominal sizes, banded by the value of the data row at the standard's group index.
  m_size.ResetContent();
  if (nd.empty()) {
    m_size.EnableWindow(FALSE);
    m_size.setAltBackgr(std::vector<int>{});
  } else {
    const std::vector<std::string> texts = sizeTexts(stack, sizes);
    for (std::size_t i = 0; i < sizes.size(); ++i) {
      const int line = m_size.AddString(wide(i < texts.size() ? texts[i] : sizes[i]).c_str());
      if (sizes[i] == nd) m_size.SetCurSel(line);
    }
    m_size.EnableWindow(sizes.size() > 1);
    const int groupIndex = intProp(stack, "GRP_IDX", 0);
    std::vector<int> alternate;
    bool band = true;
    Cell previous;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
      const Cell cell = dataCell(sizeStackOf(stack, sizes[i]), groupIndex);
      if (i > 0 && !cell.sameAs(previous)) band = !band;
      if (!band) alternate.push_back(static_cast<int>(i));
      previous = cell;
    }
    m_size.setAltBackgr(alternate);
  }

  // Lengths.
  m_lengths.ResetContent();
  if (lengths.empty()) {
    m_lengths.EnableWindow(FALSE);
    CheckDlgButton(IDC_NRMP_STD_LEN, BST_UNCHECKED);
    GetDlgItem(IDC_NRMP_STD_LEN)->EnableWindow(FALSE);
    m_length.SetWindowText(L"");
    m_length.EnableWindow(FALSE);
    SetDlgItemText(IDC_NRMP_LEN_LABEL, L"");
    SetDlgItemText(IDC_NRMP_LEN_UNIT, L"");
    GetDlgItem(IDC_NRMP_LEN_PICK)->EnableWindow(FALSE);
  } else {
    if (freeLength) setInt(nmPath(L"NODIN"), 1);
    for (double l : lengths)
      m_lengths.AddString(wide(lengthText(l, unit == Zel::lUnit::Inches ? 1 : 0)).c_str());
    SetDlgItemText(IDC_NRMP_LEN_LABEL, msg(L"NRM1012", L"Laenge", country()).c_str());
    const int near = lengthNear(length, lengths);
    if (near >= 0) m_lengths.SetCurSel(near);
    m_lengths.EnableWindow(!freeLength && lengths.size() > 1);
    SetDlgItemText(IDC_NRMP_LEN_UNIT, format == 4 && unit == Zel::lUnit::Inches ? L"" : ZEL::acad_unit_sh(unit));
    m_length.setVal(length);
    m_length.EnableWindow(freeLength);
    CheckDlgButton(IDC_NRMP_STD_LEN, freeLength ? BST_UNCHECKED : BST_CHECKED);
    GetDlgItem(IDC_NRMP_LEN_PICK)->EnableWindow(freeLength && !isSubDlg());
    GetDlgItem(IDC_NRMP_STD_LEN)->EnableWindow(!onlyStandard);
  }

  // The further dimension.
  const Table clamp = sizeStack.empty() ? Table{} : clampTable(sizeStack);
  const std::vector<double> range = sizeStack.empty() ? std::vector<double>{} : radiusRange(sizeStack);
  const std::optional<std::string> senk = sizeStack.empty() ? std::nullopt : sizeProp(sizeStack, "SENK");
  const CZelString mm = msg(L"NRM1004", L"mm", country());
  auto showRange = [&](const CZelString& head, double low, double high) {
    CZelString text;
    text.format(L"%ls %.1f - %.1f %ls", head.c_str(), low, high, mm.c_str());
    SetDlgItemText(IDC_NRMP_DIM_RANGE, text.c_str());
  };
  auto showEdit = [&](const CZelString& label, double value) {
    SetDlgItemText(IDC_NRMP_DIM_LABEL, label.c_str());
    m_further.setVal(value);
    m_further.EnableWindow(TRUE);
    GetDlgItem(IDC_NRMP_DIM_PICK)->EnableWindow(!isSubDlg());
  };
  if (!clamp.empty()) {
    const double stored = getReal(nmPath(L"KLM")).value_or(std::numeric_limits<double>::quiet_NaN());
    const Table rows = clampRows(length, stored, clamp);
    const double value = !rows.empty() && !rows[0].empty() ? rows[0][0] : stored;
    const CZelString head = msg(L"NRM1005", L"Klemmlänge", country());
    showEdit(head, value);
    if (rows.size() > 1 && rows[1].size() > 1) showRange(head, rows[1][0], rows[1][1]);
    else SetDlgItemText(IDC_NRMP_DIM_RANGE, L"");
    if (std::isfinite(value)) setReal(nmPath(L"KLM"), value);
  } else if (!range.empty()) {
    const double stored = getReal(nmPath(L"RAD")).value_or(std::numeric_limits<double>::quiet_NaN());
    const double value = radius(stack, stored, range);
    const CZelString head = msg(L"NRM1007", L"Radius", country());
    showEdit(head, value);
    if (range.size() > 1) showRange(head, range[0], range[1]);
    if (std::isfinite(value)) setReal(nmPath(L"RAD"), value);
  } else if (senk) {
    const double fallback = std::atof(senk->c_str());
    const double value = getReal(nmPath(L"SENK")).value_or(fallback);
    showEdit(msg(L"NRM1022", L"Tiefe", country()), value);
    CZelString text;
    text.format(L"%ls %.1f %ls", msg(L"NRM1020", L"Vorgabetiefe", country()).c_str(), fallback, mm.c_str());
    SetDlgItemText(IDC_NRMP_DIM_RANGE, text.c_str());
    setReal(nmPath(L"SENK"), value);
  } else {
    SetDlgItemText(IDC_NRMP_DIM_LABEL, L"");
    m_further.SetWindowText(L"");
    m_further.EnableWindow(FALSE);
    SetDlgItemText(IDC_NRMP_DIM_RANGE, L"");
    GetDlgItem(IDC_NRMP_DIM_PICK)->EnableWindow(FALSE);
  }

  // The part once, for its article and the preview: the article's key (standard, material,
  // size, length) does not depend on the further dimension written above.
  std::unique_ptr<CZelDataItem> part = nd.empty() ? nullptr : generate(articles);
  if (!nd.empty()) {
    CZelString article;
    if (part) ZEL::obj_order_get(ZEL::objKey(part.get(), 4), article);
    SetDlgItemText(IDC_NRMP_ARTICLE_TEXT, article.c_str());
    setTextOrRemove(nmPath(L"ORDER"), article);
    GetDlgItem(IDC_NRMP_ARTICLE)->EnableWindow(TRUE);
  } else {
    SetDlgItemText(IDC_NRMP_ARTICLE_TEXT, L"");
    GetDlgItem(IDC_NRMP_ARTICLE)->EnableWindow(FALSE);
  }
  if (!sizeStack.empty()) toFrame(WM_NRM_SHOW_PART, reinterpret_cast<LPARAM>(part.get()));
}

void CQenNrmTabEigenschaften::onSize() {
  const Selection s = resolve(&m_mapStacks);
  const int line = m_size.GetCurSel();
  if (line < 0 || line >= static_cast<int>(s.sizes.size())) return;
  const std::string nd = s.sizes[static_cast<std::size_t>(line)];
  if (nd.empty()) return;
  m_sizeChanged = true;
  setText(nmPath(L"ND"), wide(nd));
  // The properties refresh runs the dimension refresh with the size just written.
  toFrame(WM_NRM_REFRESH_PROPS);
}

void CQenNrmTabEigenschaften::onLengthList() {
  const Selection s = resolve(&m_mapStacks);
  const std::vector<double> lengths = ZEL::norm_len_lst(sizeStackOf(s.stack, s.nd), s.mat, s.var);
  const int line = m_lengths.GetCurSel();
  if (line < 0 || line >= static_cast<int>(lengths.size())) return;
  const double length = std::fabs(lengths[static_cast<std::size_t>(line)]);
  if (!std::isfinite(length)) return;
  setReal(nmPath(L"LEN"), length);
  setReal(domainPath(s.barp, L"LEN"), length);
  refreshDims(s.stack, s.nd);
  toFrame(WM_NRM_REFRESH_PROPS);
}

void CQenNrmTabEigenschaften::onStdLengthCheck() {
  const Selection s = resolve(&m_mapStacks);
  if (IsDlgButtonChecked(IDC_NRMP_STD_LEN) == BST_CHECKED) {
    const std::vector<double> lengths = ZEL::norm_len_lst(sizeStackOf(s.stack, s.nd), s.mat, s.var);
    double length = getReal(nmPath(L"LEN")).value_or(0.0);
    const int near = lengthNear(length, lengths);
    if (near >= 0 && near < static_cast<int>(lengths.size())) length = lengths[static_cast<std::size_t>(near)];
    setInt(nmPath(L"NODIN"), 0);
    setReal(nmPath(L"LEN"), length);
    refreshDims(s.stack, s.nd);
  } else {
    setInt(nmPath(L"NODIN"), 1);
    m_length.EnableWindow(TRUE);
    GetDlgItem(IDC_NRMP_LEN_PICK)->EnableWindow(!isSubDlg());
    m_lengths.EnableWindow(FALSE);
  }
}

void CQenNrmTabEigenschaften::onLength() {
  const Selection s = resolve(&m_mapStacks);
  const Stack sizeStack = sizeStackOf(s.stack, s.nd);
  const std::vector<double> lengths = sizeStack.empty() ? std::vector<double>{} : ZEL::norm_len_lst(sizeStack, s.mat, s.var);
  double value = 0.0;
  if (!m_length.getVal(value)) value = 0.0;
  if (!lengths.empty() && value < lengths.front()) {
    MessageBoxW(msg(L"NRM1014", L"Mindestlänge muss eingehalten werden!", country()).c_str(), L"QENORA", MB_ICONEXCLAMATION);
    value = lengths.front();
  }
  m_length.setVal(value);
  setReal(nmPath(L"LEN"), value);
  setReal(domainPath(s.barp, L"LEN"), value);
  const Table clamp = sizeStack.empty() ? Table{} : clampTable(sizeStack);
  if (!clamp.empty()) {
    const Table rows = clampRows(value, getReal(nmPath(L"KLM")).value_or(std::numeric_limits<double>::quiet_NaN()), clamp);
    if (!rows.empty() && !rows[0].empty()) {
      setReal(nmPath(L"KLM"), rows[0][0]);
      setReal(domainPath(s.barp, L"KLM"), rows[0][0]);
    }
  }
  refreshDims(s.stack, s.nd);
  toFrame(WM_NRM_REFRESH_PROPS);
}

void CQenNrmTabEigenschaften::onFurther() {
  const Selection s = resolve(&m_mapStacks);
  const Stack sizeStack = sizeStackOf(s.stack, s.nd);
  if (sizeStack.empty()) return;
  const double nan = std::numeric_limits<double>::quiet_NaN();
  Table clamp = clampTable(sizeStack);
  clamp.erase(std::remove_if(clamp.begin(), clamp.end(), [](const std::vector<double>& r) { return r.empty(); }), clamp.end());
  const std::vector<double> range = radiusRange(sizeStack);
  double value = 0.0;
  const bool readable = m_further.getVal(value);
  CZelString text;
  if (!clamp.empty()) {
    if (!readable) value = getReal(nmPath(L"KLM")).value_or(nan);
    const double low = clamp.front().size() > 1 ? clamp.front()[1] : nan;
    const double high = clamp.back().size() > 2 ? clamp.back().back() : nan;
    const double length = clampLength(value, getReal(nmPath(L"LEN")).value_or(nan), clamp,
                                      getInt(nmPath(L"NODIN")).value_or(0) != 0);
    if (!std::isfinite(length)) {
      text.format(L"%ls %.1f ... %.1f", msg(L"NRM1005", L"Klemmlänge", country()).c_str(), low, high);
      MessageBoxW(text.c_str(), L"QENORA", MB_ICONEXCLAMATION);
      return;
    }
    setReal(nmPath(L"LEN"), length);
    setReal(domainPath(s.barp, L"LEN"), length);
    setReal(nmPath(L"KLM"), value);
    setReal(domainPath(s.barp, L"KLM"), value);
    refreshDims(s.stack, s.nd);
  } else if (!range.empty()) {
    const std::optional<double> stored = getReal(nmPath(L"RAD"));
    if (!readable) value = stored.value_or(nan);
    if (stored && value == *stored) return;
    if (range.size() >= 2 && value >= range[0] && value <= range[1]) {
      setReal(nmPath(L"RAD"), value);
      setReal(domainPath(s.barp, L"RAD"), value);
      refreshDims(s.stack, s.nd);
    } else {
      text.format(L"%ls\n%.1f ... %.1f", msg(L"NRM1007", L"Radius", country()).c_str(), range.empty() ? nan : range[0],
                  range.size() > 1 ? range[1] : nan);
      MessageBoxW(text.c_str(), L"QENORA", MB_ICONEXCLAMATION);
    }
  } else {
    if (!readable) value = getReal(nmPath(L"SENK")).value_or(nan);
    if (std::isfinite(value)) {
      setReal(nmPath(L"SENK"), value);
      setReal(domainPath(s.barp, L"SENK"), value);
    }
    showGenerated();
  }
}
