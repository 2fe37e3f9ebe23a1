#include "backend/wx/CWxTreeMirror.h"

#include "backend/wx/CWxDialogWindow.h"
#include "ui/CTreeCtrl.h"
#include "ui/CUserAction.h"

#include <wx/dcmemory.h>
#include <wx/renderer.h>
#include <wx/treectrl.h>

namespace {

// The check marks of a tree with TVS_CHECKBOXES, as state images 0 (clear) and 1 (checked).
wxImageList* checkImages(wxWindow* tree) {
  auto* images = new wxImageList(16, 16, true, 2);
  for (int flags : {0, static_cast<int>(wxCONTROL_CHECKED)}) {
    wxBitmap bmp(16, 16);
    wxMemoryDC dc(bmp);
    dc.SetBackground(wxBrush(tree->GetBackgroundColour()));
    dc.Clear();
    wxRendererNative::Get().DrawCheckBox(tree, dc, wxRect(1, 1, 14, 14), flags);
    dc.SelectObject(wxNullBitmap);
    images->Add(bmp);
  }
  return images;
}

}  // namespace

CTreeCtrl& CWxTreeMirror::tree() const { return static_cast<CTreeCtrl&>(*m_control); }

wxWindow* CWxTreeMirror::build(wxWindow* parent, const wxRect& rect) {
  long style = wxTR_HIDE_ROOT | wxTR_SINGLE | wxTR_HAS_BUTTONS | wxTR_LINES_AT_ROOT | wxBORDER_THEME;
  auto* t = new wxTreeCtrl(parent, wxID_ANY, rect.GetPosition(), rect.GetSize(), style);
  if (m_control->GetStyle() & TVS_CHECKBOXES) t->AssignStateImageList(checkImages(t));
  // The generic tree and list keep a font of their own unless given the dialog's.
  t->SetFont(m_window.dialogFont());
  CWnd* control = m_control;
  t->Bind(wxEVT_TREE_SEL_CHANGED, [this, control](wxTreeEvent& event) {
    int line = indexOf(event.GetItem());
    if (line < 0) return;
    act([control, line] { return CUserAction::select(*control, line); });
  });
  t->Bind(wxEVT_TREE_ITEM_ACTIVATED, [this, control](wxTreeEvent& event) {
    int line = indexOf(event.GetItem());
    if (line < 0) return;
    act([control, line] { return CUserAction::doubleClick(*control, line); });
  });
  t->Bind(wxEVT_TREE_STATE_IMAGE_CLICK, [this, control](wxTreeEvent& event) {
    int line = indexOf(event.GetItem());
    if (line < 0) return;
    bool check = !tree().GetCheck(m_nodes[static_cast<std::size_t>(line)].node);
    act([control, line, check] { return CUserAction::setCheck(*control, line, check); });
  });
  // Opening and closing a branch is the tree's own business: the model only keeps the state.
  auto expand = [this](wxTreeEvent& event) {
    event.Skip();
    if (ignoringEvents()) return;
    int line = indexOf(event.GetItem());
    if (line < 0) return;
    bool open = event.GetEventType() == wxEVT_TREE_ITEM_EXPANDED;
    tree().Expand(m_nodes[static_cast<std::size_t>(line)].node, open ? TVE_EXPAND : TVE_COLLAPSE);
  };
  t->Bind(wxEVT_TREE_ITEM_EXPANDED, expand);
  t->Bind(wxEVT_TREE_ITEM_COLLAPSED, expand);
  return t;
}

std::vector<CWxTreeMirror::Node> CWxTreeMirror::modelNodes() const {
  std::vector<Node> nodes;
  const CTreeCtrl& t = tree();
  for (HTREEITEM item : t.allItems()) {
    int parent = -1;
    if (HTREEITEM p = t.GetParentItem(item))
      for (std::size_t i = nodes.size(); i-- > 0;)
        if (nodes[i].node == p) {
          parent = static_cast<int>(i);
          break;
        }
    nodes.push_back(Node{item, parent, t.GetItemText(item).str()});
  }
  return nodes;
}

int CWxTreeMirror::indexOf(const wxTreeItemId& item) const {
  for (std::size_t i = 0; i < m_items.size(); ++i)
    if (m_items[i] == item) return static_cast<int>(i);
  return -1;
}

void CWxTreeMirror::syncState() {
  auto* t = static_cast<wxTreeCtrl*>(m_native);
  CTreeCtrl& model = tree();
  std::vector<Node> nodes = modelNodes();
  if (!m_built || nodes != m_nodes) {
    t->DeleteAllItems();
    wxTreeItemId root = t->AddRoot(wxString());
    m_items.clear();
    for (const Node& n : nodes)
      m_items.push_back(t->AppendItem(n.parent < 0 ? root : m_items[static_cast<std::size_t>(n.parent)], wxString(n.text)));
    m_nodes = std::move(nodes);
    m_built = true;
  }
  bool checks = (m_control->GetStyle() & TVS_CHECKBOXES) != 0;
  for (std::size_t i = 0; i < m_nodes.size(); ++i) {
    HTREEITEM node = m_nodes[i].node;
    const wxTreeItemId& item = m_items[i];
    if (checks) {
      int state = model.GetCheck(node) ? 1 : 0;
      if (t->GetItemState(item) != state) t->SetItemState(item, state);
    }
    if (!t->ItemHasChildren(item)) continue;
    bool open = model.isExpanded(node);
    if (t->IsExpanded(item) != open) {
      if (open) t->Expand(item);
      else t->Collapse(item);
    }
  }
  int sel = model.indexOf(model.GetSelectedItem());
  wxTreeItemId want = sel >= 0 && sel < static_cast<int>(m_items.size()) ? m_items[static_cast<std::size_t>(sel)] : wxTreeItemId();
  if (t->GetSelection() != want) {
    if (want.IsOk()) t->SelectItem(want);
    else t->Unselect();
  }
}
