#include "ui/CTreeCtrl.h"

#include <algorithm>
#include <functional>

std::vector<std::unique_ptr<TreeNode_>>& CTreeCtrl::siblingsOf(TreeNode_* parent) {
  return parent ? parent->children : m_roots;
}

const std::vector<std::unique_ptr<TreeNode_>>& CTreeCtrl::siblingsOf(const TreeNode_* parent) const {
  return parent ? parent->children : m_roots;
}

bool CTreeCtrl::owns(HTREEITEM item) const {
  if (!item || item == TVI_ROOT || item == TVI_FIRST || item == TVI_LAST || item == TVI_SORT) return false;
  std::vector<HTREEITEM> all = allItems();
  return std::find(all.begin(), all.end(), item) != all.end();
}

HTREEITEM CTreeCtrl::InsertItem(const wchar_t* text, HTREEITEM parent, HTREEITEM after) {
  return InsertItem(text, -1, -1, parent, after);
}

HTREEITEM CTreeCtrl::InsertItem(const wchar_t* text, int image, int selectedImage, HTREEITEM parent, HTREEITEM after) {
  TreeNode_* p = (parent == TVI_ROOT || !parent) ? nullptr : parent;
  if (p && !owns(p)) return nullptr;
  auto node = std::make_unique<TreeNode_>();
  node->text = CZelString(text ? text : L"");
  node->image = image;
  node->selectedImage = selectedImage;
  node->parent = p;
  HTREEITEM result = node.get();
  auto& list = siblingsOf(p);
  if (after == TVI_FIRST) {
    list.insert(list.begin(), std::move(node));
  } else if (after == TVI_SORT) {
    auto it = std::find_if(list.begin(), list.end(), [&](const auto& n) { return n->text.str() > result->text.str(); });
    list.insert(it, std::move(node));
  } else if (after == TVI_LAST || !after) {
    list.push_back(std::move(node));
  } else {
    auto it = std::find_if(list.begin(), list.end(), [&](const auto& n) { return n.get() == after; });
    list.insert(it == list.end() ? it : it + 1, std::move(node));
  }
  return result;
}

BOOL CTreeCtrl::DeleteItem(HTREEITEM item) {
  if (item == TVI_ROOT) return DeleteAllItems();
  if (!owns(item)) return FALSE;
  for (HTREEITEM s = m_selected; s; s = s->parent)
    if (s == item) {
      m_selected = nullptr;
      break;
    }
  auto& list = siblingsOf(item->parent);
  list.erase(std::remove_if(list.begin(), list.end(), [&](const auto& n) { return n.get() == item; }), list.end());
  return TRUE;
}

BOOL CTreeCtrl::DeleteAllItems() {
  m_roots.clear();
  m_selected = nullptr;
  return TRUE;
}

UINT CTreeCtrl::GetCount() const { return static_cast<UINT>(allItems().size()); }

HTREEITEM CTreeCtrl::GetRootItem() const { return m_roots.empty() ? nullptr : m_roots.front().get(); }

HTREEITEM CTreeCtrl::GetChildItem(HTREEITEM item) const {
  if (item == TVI_ROOT || !item) return GetRootItem();
  return item->children.empty() ? nullptr : item->children.front().get();
}

HTREEITEM CTreeCtrl::GetNextSiblingItem(HTREEITEM item) const {
  if (!item) return nullptr;
  const auto& list = siblingsOf(item->parent);
  for (std::size_t i = 0; i + 1 < list.size(); ++i)
    if (list[i].get() == item) return list[i + 1].get();
  return nullptr;
}

HTREEITEM CTreeCtrl::GetPrevSiblingItem(HTREEITEM item) const {
  if (!item) return nullptr;
  const auto& list = siblingsOf(item->parent);
  for (std::size_t i = 1; i < list.size(); ++i)
    if (list[i].get() == item) return list[i - 1].get();
  return nullptr;
}

HTREEITEM CTreeCtrl::GetParentItem(HTREEITEM item) const { return item ? item->parent : nullptr; }

HTREEITEM CTreeCtrl::GetNextItem(HTREEITEM item, UINT code) const {
  switch (code) {
    case TVGN_ROOT: return GetRootItem();
    case TVGN_NEXT: return GetNextSiblingItem(item);
    case TVGN_PREVIOUS: return GetPrevSiblingItem(item);
    case TVGN_PARENT: return GetParentItem(item);
    case TVGN_CHILD: return GetChildItem(item);
    case TVGN_CARET: return m_selected;
    default: return nullptr;
  }
}

BOOL CTreeCtrl::ItemHasChildren(HTREEITEM item) const { return item && !item->children.empty(); }
CZelString CTreeCtrl::GetItemText(HTREEITEM item) const { return item ? item->text : CZelString(); }

BOOL CTreeCtrl::SetItemText(HTREEITEM item, const wchar_t* text) {
  if (!item) return FALSE;
  item->text = CZelString(text ? text : L"");
  return TRUE;
}

DWORD_PTR CTreeCtrl::GetItemData(HTREEITEM item) const { return item ? item->data : 0; }

BOOL CTreeCtrl::SetItemData(HTREEITEM item, DWORD_PTR data) {
  if (!item) return FALSE;
  item->data = data;
  return TRUE;
}

BOOL CTreeCtrl::SetItemImage(HTREEITEM item, int image, int selectedImage) {
  if (!item) return FALSE;
  item->image = image;
  item->selectedImage = selectedImage;
  return TRUE;
}

BOOL CTreeCtrl::GetItemImage(HTREEITEM item, int& image, int& selectedImage) const {
  if (!item) return FALSE;
  image = item->image;
  selectedImage = item->selectedImage;
  return TRUE;
}

BOOL CTreeCtrl::SetCheck(HTREEITEM item, BOOL check) {
  if (!item) return FALSE;
  item->check = check ? 1 : 0;
  return TRUE;
}

BOOL CTreeCtrl::GetCheck(HTREEITEM item) const { return item && item->check; }

BOOL CTreeCtrl::Expand(HTREEITEM item, UINT code) {
  if (!item || item == TVI_ROOT) return FALSE;
  if (code == TVE_EXPAND) item->expanded = true;
  else if (code == TVE_COLLAPSE) item->expanded = false;
  else if (code == TVE_TOGGLE) item->expanded = !item->expanded;
  return TRUE;
}

BOOL CTreeCtrl::EnsureVisible(HTREEITEM item) {
  if (!item) return FALSE;
  for (HTREEITEM p = item->parent; p; p = p->parent) p->expanded = true;
  return TRUE;
}

BOOL CTreeCtrl::SortChildren(HTREEITEM item) {
  auto& list = siblingsOf(item == TVI_ROOT ? nullptr : item);
  std::stable_sort(list.begin(), list.end(), [](const auto& a, const auto& b) { return a->text.str() < b->text.str(); });
  return TRUE;
}

std::vector<HTREEITEM> CTreeCtrl::allItems() const {
  std::vector<HTREEITEM> out;
  std::function<void(const std::vector<std::unique_ptr<TreeNode_>>&)> walk = [&](const auto& list) {
    for (const auto& n : list) {
      out.push_back(n.get());
      walk(n->children);
    }
  };
  walk(m_roots);
  return out;
}

int CTreeCtrl::indexOf(HTREEITEM item) const {
  std::vector<HTREEITEM> all = allItems();
  auto it = std::find(all.begin(), all.end(), item);
  return it == all.end() ? -1 : static_cast<int>(it - all.begin());
}

HTREEITEM CTreeCtrl::findPath(const CZelString& path) const {
  const std::wstring& p = path.str();
  const std::vector<std::unique_ptr<TreeNode_>>* level = &m_roots;
  HTREEITEM found = nullptr;
  std::size_t start = 0;
  while (start <= p.size()) {
    std::size_t end = p.find(L'/', start);
    if (end == std::wstring::npos) end = p.size();
    std::wstring part = p.substr(start, end - start);
    found = nullptr;
    for (const auto& n : *level)
      if (n->text.str() == part) {
        found = n.get();
        break;
      }
    if (!found) return nullptr;
    level = &found->children;
    start = end + 1;
  }
  return found;
}

CZelString CTreeCtrl::pathOf(HTREEITEM item) const {
  std::wstring out;
  for (HTREEITEM n = item; n; n = n->parent) out = n->text.str() + (out.empty() ? L"" : L"/") + out;
  return CZelString(std::move(out));
}

BOOL CTreeCtrl::selectNode(HTREEITEM item, UINT action) {
  if (item && !owns(item)) return FALSE;
  if (item == m_selected) return TRUE;
  NMTREEVIEW nm;
  nm.action = action;
  nm.itemOld.hItem = m_selected;
  nm.itemOld.lParam = static_cast<LPARAM>(m_selected ? m_selected->data : 0);
  nm.itemNew.hItem = item;
  nm.itemNew.lParam = static_cast<LPARAM>(item ? item->data : 0);
  if (m_hWnd && notifyParent(nm.hdr, TVN_SELCHANGING)) return FALSE;
  m_selected = item;
  if (item) EnsureVisible(item);
  if (m_hWnd) notifyParent(nm.hdr, TVN_SELCHANGED);
  return TRUE;
}

void CTreeCtrl::selectByUser(HTREEITEM item) {
  selectNode(item, TVC_BYMOUSE);
  NMHDR hdr;
  notifyParent(hdr, NM_CLICK);
}

void CTreeCtrl::doubleClickByUser(HTREEITEM item) {
  selectNode(item, TVC_BYMOUSE);
  NMHDR hdr;
  notifyParent(hdr, NM_DBLCLK);
}

void CTreeCtrl::checkByUser(HTREEITEM item, BOOL check) {
  SetCheck(item, check);
  NMTREEVIEW nm;
  nm.itemNew.hItem = item;
  nm.itemNew.lParam = static_cast<LPARAM>(item ? item->data : 0);
  notifyParent(nm.hdr, TVN_ITEMCHANGED);
}
