// The supplementary list of the labeling dialog: multilingual free texts ("\de\Text\en\Text"),
// each shown in the language of the texts or by its fallback, sorted, and edited in place.
// An ended edit is settled here and then announced to the dialog (message 2001).
#pragma once

#include "data/CZelArrayTempl.h"
#include "ui/CZelListCtrl.h"

class CLabelingSupplLst : public CZelListCtrl {
public:
  // What the last in-place edit did to an entry: `before` is empty for a new entry, `after`
  // is empty when the entry was deleted; both are empty when the edit changed nothing.
  struct Edit {
    CZelString before;
    CZelString after;
  };

  // Shows the entries in `language` and selects `select` (none when it is not there).
  void setEntries(const CZelArrayTempl<CZelString>& entries, const CZelString& language, const CZelString& select);
  const CZelArrayTempl<CZelString>& entries() const { return m_entries; }
  // The entry of a row; empty for a row that has none (a new row being typed).
  CZelString entryAt(int row) const { return row >= 0 && row < m_entries.count() ? m_entries[row] : CZelString(); }
  int rowOf(const CZelString& entry) const { return m_entries.find(entry); }
  const Edit& lastEdit() const { return m_lastEdit; }

  // The entry's text in the language, else "{<country>: <text>}" of the first country of the
  // country table that has a text, else "{?}".
  static CZelString shownText(const CZelString& entry, const CZelString& language);
  static bool hasText(const CZelString& entry, const CZelString& language);
  // What the user's changes are measured against: the list file's entries when the dialog
  // opened (or at its last save) and the entries the dialog showed then.
  struct Baseline {
    CZelArrayTempl<CZelString> file;
    CZelArrayTempl<CZelString> shown;
  };
  void setBaseline(Baseline baseline) { m_baseline = std::move(baseline); }
  const Baseline& baseline() const { return m_baseline; }
  // The list to save when the file holds `now`: the file's entries without those the user
  // deleted (shown and in the file at the baseline, gone from `mine`), then the user's
  // entries the file did not have at the baseline. So two users saving at once both keep
  // their additions, and one's deletion is not undone by the other's save.
  static CZelArrayTempl<CZelString> mergeChanges(const Baseline& baseline, const CZelArrayTempl<CZelString>& mine,
                                                 const CZelArrayTempl<CZelString>& now);

  // Ascending: entries without a text in the language first, then by their shown text in upper
  // case; descending is the ascending order reversed.
  static void sortEntries(CZelArrayTempl<CZelString>& entries, const CZelString& language, bool descending);

protected:
  bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
  // The row of another entry whose text in the language equals `text`, or -1.
  int duplicateOf(const CZelString& text, int except) const;
  bool endEdit(int row, const wchar_t* typed);
  void announce(int row);

  CZelArrayTempl<CZelString> m_entries;
  Baseline m_baseline;
  CZelString m_language;
  Edit m_lastEdit;
};
