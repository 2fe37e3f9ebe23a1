#include "ui/CMenu.h"

#include "backend/CDialogBackend.h"
#include "ui/CWnd.h"

BOOL CMenu::CreatePopupMenu() {
  m_items.clear();
  m_created = true;
  return TRUE;
}

BOOL CMenu::DestroyMenu() {
  m_items.clear();
  m_created = false;
  return TRUE;
}

BOOL CMenu::AppendMenu(UINT flags, UINT_PTR idNewItem, const wchar_t* text) {
  if (!m_created) return FALSE;
  Item item;
  item.flags = flags;
  if (flags & MF_POPUP) item.popup = reinterpret_cast<CMenu*>(idNewItem);
  else item.id = static_cast<UINT>(idNewItem);
  item.text = CZelString(text ? text : L"");
  m_items.push_back(item);
  return TRUE;
}

BOOL CMenu::AppendMenu(UINT flags, CMenu* popup, const wchar_t* text) {
  return AppendMenu(flags | MF_POPUP, reinterpret_cast<UINT_PTR>(popup), text);
}

BOOL CMenu::InsertMenu(UINT position, UINT flags, UINT_PTR idNewItem, const wchar_t* text) {
  if (!m_created) return FALSE;
  Item item;
  item.flags = flags & ~MF_BYPOSITION;
  if (flags & MF_POPUP) item.popup = reinterpret_cast<CMenu*>(idNewItem);
  else item.id = static_cast<UINT>(idNewItem);
  item.text = CZelString(text ? text : L"");
  std::size_t at = m_items.size();
  if (flags & MF_BYPOSITION) {
    if (position < m_items.size()) at = position;
  } else {
    for (std::size_t i = 0; i < m_items.size(); ++i)
      if (m_items[i].id == position) at = i;
  }
  m_items.insert(m_items.begin() + static_cast<std::ptrdiff_t>(at), item);
  return TRUE;
}

BOOL CMenu::RemoveMenu(UINT position, UINT flags) {
  for (std::size_t i = 0; i < m_items.size(); ++i)
    if ((flags & MF_BYPOSITION) ? i == position : m_items[i].id == position) {
      m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(i));
      return TRUE;
    }
  return FALSE;
}

CMenu::Item* CMenu::locate(UINT idOrPosition, UINT flags) {
  return const_cast<Item*>(static_cast<const CMenu*>(this)->locate(idOrPosition, flags));
}

const CMenu::Item* CMenu::locate(UINT idOrPosition, UINT flags) const {
  if (flags & MF_BYPOSITION) return idOrPosition < m_items.size() ? &m_items[idOrPosition] : nullptr;
  return findCommand(idOrPosition);
}

UINT CMenu::EnableMenuItem(UINT idOrPosition, UINT enable) {
  Item* item = locate(idOrPosition, enable);
  if (!item) return static_cast<UINT>(-1);
  UINT old = item->flags & (MF_GRAYED | MF_DISABLED);
  item->flags = (item->flags & ~(MF_GRAYED | MF_DISABLED)) | (enable & (MF_GRAYED | MF_DISABLED));
  return old;
}

UINT CMenu::CheckMenuItem(UINT idOrPosition, UINT check) {
  Item* item = locate(idOrPosition, check);
  if (!item) return static_cast<UINT>(-1);
  UINT old = item->flags & MF_CHECKED;
  item->flags = (item->flags & ~MF_CHECKED) | (check & MF_CHECKED);
  return old;
}

UINT CMenu::GetMenuItemID(int position) const {
  if (position < 0 || position >= GetMenuItemCount()) return static_cast<UINT>(-1);
  const Item& item = m_items[static_cast<std::size_t>(position)];
  return item.popup ? static_cast<UINT>(-1) : item.id;
}

int CMenu::GetMenuString(UINT idOrPosition, CZelString& text, UINT flags) const {
  const Item* item = locate(idOrPosition, flags);
  text = item ? item->text : CZelString();
  return text.len();
}

UINT CMenu::GetMenuState(UINT idOrPosition, UINT flags) const {
  const Item* item = locate(idOrPosition, flags);
  return item ? item->flags & ~MF_BYPOSITION : static_cast<UINT>(-1);
}

CMenu* CMenu::GetSubMenu(int position) const {
  if (position < 0 || position >= GetMenuItemCount()) return nullptr;
  return m_items[static_cast<std::size_t>(position)].popup;
}

const CMenu::Item* CMenu::findCommand(UINT id) const {
  for (const Item& item : m_items) {
    if (item.popup) {
      if (const Item* inner = item.popup->findCommand(id)) return inner;
    } else if (!(item.flags & MF_SEPARATOR) && item.id == id) {
      return &item;
    }
  }
  return nullptr;
}

const CMenu::Item* CMenu::findText(const CZelString& text) const {
  for (const Item& item : m_items) {
    std::wstring plain;
    for (wchar_t c : item.text.str())
      if (c != L'&') plain += c;
    if (item.popup) {
      if (const Item* inner = item.popup->findText(text)) return inner;
    } else if (!(item.flags & MF_SEPARATOR) && plain == text.str()) {
      return &item;
    }
  }
  return nullptr;
}

BOOL CMenu::TrackPopupMenu(UINT flags, int x, int y, CWnd* owner, const CRect*) {
  if (!m_created) return FALSE;
  UINT command = CDialogBackend::current().trackPopupMenu(*this, owner, CPoint(x, y));
  if (flags & TPM_RETURNCMD) return static_cast<BOOL>(command);
  if (command && owner && !(flags & TPM_NONOTIFY)) owner->PostMessage(WM_COMMAND, MAKEWPARAM(command, 0), 0);
  return command != 0;
}
