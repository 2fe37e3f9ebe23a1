// The supplementary list of the labeling dialog: display, sorting and in-place editing.
#include "attributes/CLabelingSupplLst.h"

#include "data/ZelCountries.h"
#include "data/ZelMessages.h"
#include "resources/dialogs/labeling_ids.h"

#include <utility>

void CLabelingSupplLst::setEntries(const CZelArrayTempl<CZelString>& entries, const CZelString& language,
                                   const CZelString& select) {
  m_entries = entries;
  m_language = language;
  DeleteAllItems();
  for (const CZelString& e : m_entries) InsertItem(GetItemCount(), shownText(e, language).c_str());
  setCurSel(select.isEmpty() ? -1 : rowOf(select));
}

bool CLabelingSupplLst::hasText(const CZelString& entry, const CZelString& language) {
  return !ZEL::label_get(entry, language.c_str()).isEmpty();
}

CZelString CLabelingSupplLst::shownText(const CZelString& entry, const CZelString& language) {
  CZelString text = ZEL::label_get(entry, language.c_str());
  if (!text.isEmpty()) return text;
  for (const zelDlCountry_st* c = zelDlCountrys(); c->code; ++c) {
    CZelString other = ZEL::label_get(entry, c->code);
    if (!other.isEmpty()) return CZelString(L"{") + c->label + L": " + other + L"}";
  }
  return L"{?}";
}

void CLabelingSupplLst::sortEntries(CZelArrayTempl<CZelString>& entries, const CZelString& language, bool descending) {
  if (entries.count() < 2) return;
  auto key = [&language](const CZelString& e) { return shownText(e, language).upper(); };
  auto before = [&](const CZelString& a, const CZelString& b) {
    const bool ta = hasText(a, language), tb = hasText(b, language);
    if (ta != tb) return !ta;
    return key(a) < key(b);
  };
  // An exchange sort: each later entry that must come first swaps with the one at the place.
  for (int i = 0; i < entries.count(); ++i)
    for (int j = i + 1; j < entries.count(); ++j)
      if (before(entries[j], entries[i])) std::swap(entries[i], entries[j]);
  if (!descending) return;
  for (int i = 0, j = entries.count() - 1; i < j; ++i, --j) std::swap(entries[i], entries[j]);
}

CZelArrayTempl<CZelString> CLabelingSupplLst::mergeChanges(const Baseline& baseline, const CZelArrayTempl<CZelString>& mine,
                                                           const CZelArrayTempl<CZelString>& now) {
  auto has = [](const CZelArrayTempl<CZelString>& list, const CZelString& e) { return list.find(e) >= 0; };
  CZelArrayTempl<CZelString> merged;
  for (const CZelString& e : now) {
    const bool deleted = has(baseline.file, e) && has(baseline.shown, e) && !has(mine, e);
    if (!e.isEmpty() && !deleted && !has(merged, e)) merged.add(e);
  }
  for (const CZelString& e : mine)
    if (!e.isEmpty() && !has(baseline.file, e) && !has(merged, e)) merged.add(e);
  return merged;
}

int CLabelingSupplLst::duplicateOf(const CZelString& text, int except) const {
  for (int i = 0; i < m_entries.count(); ++i)
    if (i != except && ZEL::label_get(m_entries[i], m_language.c_str()) == text) return i;
  return -1;
}

bool CLabelingSupplLst::OnChildNotify(UINT message, WPARAM, LPARAM lParam, LRESULT* result) {
  if (message != WM_NOTIFY) return false;
  const auto* info = reinterpret_cast<const NMLVDISPINFO*>(lParam);
  if (info->hdr.code != LVN_ENDLABELEDIT) return false;
  *result = endEdit(info->item.iItem, info->item.pszText) ? TRUE : FALSE;
  return true;
}

// True when the row keeps the typed text.
bool CLabelingSupplLst::endEdit(int row, const wchar_t* typed) {
  const bool isNew = isNewRowEdit();
  m_lastEdit = Edit{};
  if (!typed) {
    announce(isNew ? -1 : row);
    return false;
  }
  CZelString text(typed);
  text.trim();
  if (isNew) {
    if (text.isEmpty() || duplicateOf(text, -1) >= 0) {
      announce(duplicateOf(text, -1));
      return false;
    }
    const CZelString entry = ZEL::label_set(CZelString(), m_language.c_str(), text);
    m_entries.add(entry);
    m_lastEdit = Edit{CZelString(), entry};
    announce(m_entries.count() - 1);
    return true;
  }
  if (row < 0 || row >= m_entries.count()) return false;
  const CZelString before = m_entries[row];
  if (const int other = text.isEmpty() ? -1 : duplicateOf(text, row); other >= 0) {
    // The edit would make two equal entries: it is undone and the other one shown.
    announce(other);
    return false;
  }
  const CZelString after = ZEL::label_set(before, m_language.c_str(), text);
  if (after == before) {
    announce(row);
    return true;
  }
  m_lastEdit = Edit{before, after};
  if (after.isEmpty()) {
    m_entries.removeAt(row);
    announce(-1);
    return false;
  }
  m_entries[row] = after;
  announce(row);
  return true;
}

void CLabelingSupplLst::announce(int row) {
  // Posted: the dialog rebuilds the list, which must wait until the edit has ended.
  if (CWnd* parent = GetParent()) parent->PostMessage(WM_LBL_SUPPL_EDITED, static_cast<WPARAM>(row), 0);
}
