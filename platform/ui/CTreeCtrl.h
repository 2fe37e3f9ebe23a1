// The tree view of the model: nodes with text, item data, images, check marks and an
// expanded flag. Selecting a node, by the program or by the user, sends TVN_SELCHANGING
// and TVN_SELCHANGED, as the framework's tree does.
#pragma once

#include "ui/CWnd.h"

#include <memory>
#include <vector>

struct TreeNode_ {
  CZelString text;
  DWORD_PTR data = 0;
  int image = -1;
  int selectedImage = -1;
  int check = 0;
  bool expanded = false;
  TreeNode_* parent = nullptr;
  std::vector<std::unique_ptr<TreeNode_>> children;
};

class CTreeCtrl : public CWnd {
public:
  CTreeCtrl() = default;

  HTREEITEM InsertItem(const wchar_t* text, HTREEITEM parent = TVI_ROOT, HTREEITEM after = TVI_LAST);
  HTREEITEM InsertItem(const wchar_t* text, int image, int selectedImage, HTREEITEM parent = TVI_ROOT,
                       HTREEITEM after = TVI_LAST);
  BOOL DeleteItem(HTREEITEM item);
  BOOL DeleteAllItems();
  UINT GetCount() const;
  HTREEITEM GetRootItem() const;
  HTREEITEM GetChildItem(HTREEITEM item) const;
  HTREEITEM GetNextSiblingItem(HTREEITEM item) const;
  HTREEITEM GetPrevSiblingItem(HTREEITEM item) const;
  HTREEITEM GetParentItem(HTREEITEM item) const;
  HTREEITEM GetNextItem(HTREEITEM item, UINT code) const;
  HTREEITEM GetSelectedItem() const { return m_selected; }
  BOOL ItemHasChildren(HTREEITEM item) const;
  CZelString GetItemText(HTREEITEM item) const;
  BOOL SetItemText(HTREEITEM item, const wchar_t* text);
  DWORD_PTR GetItemData(HTREEITEM item) const;
  BOOL SetItemData(HTREEITEM item, DWORD_PTR data);
  BOOL SetItemImage(HTREEITEM item, int image, int selectedImage);
  BOOL GetItemImage(HTREEITEM item, int& image, int& selectedImage) const;
  BOOL SetCheck(HTREEITEM item, BOOL check = TRUE);
  BOOL GetCheck(HTREEITEM item) const;
  BOOL Expand(HTREEITEM item, UINT code);
  bool isExpanded(HTREEITEM item) const { return item && item->expanded; }
  BOOL EnsureVisible(HTREEITEM item);
  BOOL SelectItem(HTREEITEM item) { return selectNode(item, TVC_UNKNOWN); }
  BOOL SortChildren(HTREEITEM item);

  // The nodes in display order (depth first), and a node's index in it.
  std::vector<HTREEITEM> allItems() const;
  int indexOf(HTREEITEM item) const;
  // The node at a path of texts "a/b/c" from the top, or none.
  HTREEITEM findPath(const CZelString& path) const;
  CZelString pathOf(HTREEITEM item) const;

  // What the user does: click a node, double-click it, click its check mark.
  void selectByUser(HTREEITEM item);
  void doubleClickByUser(HTREEITEM item);
  void checkByUser(HTREEITEM item, BOOL check);

protected:
  UINT setFocusCode() const override { return NM_SETFOCUS; }
  UINT killFocusCode() const override { return NM_KILLFOCUS; }
  bool acceptsKind(WndKind kind) const override { return kind == WndKind::TreeView; }

private:
  BOOL selectNode(HTREEITEM item, UINT action);
  bool owns(HTREEITEM item) const;
  std::vector<std::unique_ptr<TreeNode_>>& siblingsOf(TreeNode_* parent);
  const std::vector<std::unique_ptr<TreeNode_>>& siblingsOf(const TreeNode_* parent) const;

  std::vector<std::unique_ptr<TreeNode_>> m_roots;
  HTREEITEM m_selected = nullptr;
};
