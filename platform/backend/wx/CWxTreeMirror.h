// Tree views: the model's nodes with their texts, expanded states, selection and, with
// TVS_CHECKBOXES, check marks. A click on a node is the model's selection (TVN_SELCHANGED),
// a double click or Enter its double click, a click on a mark its check change.
#pragma once

#include "backend/wx/CWxMirror.h"

#include <wx/treebase.h>

#include <string>
#include <vector>

class CTreeCtrl;

class CWxTreeMirror : public CWxMirror {
public:
  using CWxMirror::CWxMirror;

protected:
  wxWindow* build(wxWindow* parent, const wxRect& rect) override;
  void syncState() override;
  void showText(const wxString& text) override {}

private:
  struct Node {
    HTREEITEM node;  // compared, never followed: the model may have deleted it
    int parent;      // index in the list, -1 at the top
    std::wstring text;
    friend bool operator==(const Node&, const Node&) = default;
  };
  CTreeCtrl& tree() const;
  std::vector<Node> modelNodes() const;
  // The model's index (display order) of a native item, or -1.
  int indexOf(const wxTreeItemId& item) const;

  std::vector<Node> m_nodes;
  std::vector<wxTreeItemId> m_items;  // beside m_nodes
  bool m_built = false;
};
