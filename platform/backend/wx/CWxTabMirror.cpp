#include "backend/wx/CWxTabMirror.h"

#include "backend/wx/CWxDialogWindow.h"
#include "ui/CTabCtrl.h"
#include "ui/CUserAction.h"

#include <wx/notebook.h>
#include <wx/panel.h>

CTabCtrl& CWxTabMirror::tab() const { return static_cast<CTabCtrl&>(*m_control); }

wxNotebook* CWxTabMirror::notebook() const { return static_cast<wxNotebook*>(m_native); }

wxWindow* CWxTabMirror::build(wxWindow* parent, const wxRect& rect) {
  auto* book = new wxNotebook(parent, wxID_ANY, rect.GetPosition(), rect.GetSize());
  CWnd* control = m_control;
  book->Bind(wxEVT_NOTEBOOK_PAGE_CHANGING, [this, control](wxBookCtrlEvent& event) {
    if (ignoringEvents()) return;
    // The model decides; its answer is shown by the next sync. It runs after GTK has
    // finished switching, since a handler may open a dialog.
    event.Veto();
    int index = event.GetSelection();
    m_window.CallAfter([this, control, index] {
      act([control, index] { return CUserAction::selectTab(static_cast<CTabCtrl&>(*control), index); });
    });
  });
  return book;
}

wxWindow* CWxTabMirror::containerFor(const CWnd& child) {
  CTabCtrl& t = tab();
  for (int i = 0; i < t.GetItemCount(); ++i)
    if (t.itemPage(i) == &child) {
      syncState();  // the notebook page for the tab must exist
      return i < static_cast<int>(m_pages.size()) ? m_pages[static_cast<std::size_t>(i)] : nullptr;
    }
  return nullptr;
}

void CWxTabMirror::syncState() {
  CTabCtrl& t = tab();
  wxNotebook* book = notebook();
  int count = t.GetItemCount();
  while (static_cast<int>(m_pages.size()) < count) {
    auto* page = new wxPanel(book);
    // A page dialog fills its notebook page.
    page->Bind(wxEVT_SIZE, [page](wxSizeEvent& event) {
      event.Skip();
      for (wxWindow* child : page->GetChildren()) child->SetSize(page->GetClientSize());
    });
    m_pages.push_back(page);
  }
  while (m_shownTabs > count) book->RemovePage(static_cast<std::size_t>(--m_shownTabs));
  while (m_shownTabs < count) {
    book->AddPage(m_pages[static_cast<std::size_t>(m_shownTabs)], wxString(t.GetItemText(m_shownTabs).str()));
    ++m_shownTabs;
  }
  m_titles.resize(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    std::wstring title = t.GetItemText(i).str();
    if (m_titles[static_cast<std::size_t>(i)] != title || book->GetPageText(static_cast<std::size_t>(i)) != wxString(title)) {
      m_titles[static_cast<std::size_t>(i)] = title;
      book->SetPageText(static_cast<std::size_t>(i), wxString(title));
    }
  }
  int sel = t.GetCurSel();
  if (sel >= 0 && sel < count && book->GetSelection() != sel) book->ChangeSelection(static_cast<std::size_t>(sel));
}
