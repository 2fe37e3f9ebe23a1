// Popup menus of the model: items with command IDs, texts, grayed and checked states and
// submenus. TrackPopupMenu hands the menu to the backend, which asks the user (or the
// script) for a command.
#pragma once

#include "data/CZelString.h"
#include "ui/WinStructs.h"

#include <memory>
#include <vector>

class CWnd;

class CMenu {
public:
  struct Item {
    UINT flags = 0;
    UINT id = 0;
    CZelString text;
    CMenu* popup = nullptr;  // submenus: not owned
  };

  CMenu() = default;
  CMenu(const CMenu&) = delete;
  CMenu& operator=(const CMenu&) = delete;

  BOOL CreatePopupMenu();
  BOOL CreateMenu() { return CreatePopupMenu(); }
  BOOL DestroyMenu();
  BOOL AppendMenu(UINT flags, UINT_PTR idNewItem = 0, const wchar_t* text = nullptr);
  BOOL AppendMenu(UINT flags, CMenu* popup, const wchar_t* text);
  BOOL InsertMenu(UINT position, UINT flags, UINT_PTR idNewItem = 0, const wchar_t* text = nullptr);
  BOOL RemoveMenu(UINT position, UINT flags);
  UINT EnableMenuItem(UINT idOrPosition, UINT enable);
  UINT CheckMenuItem(UINT idOrPosition, UINT check);
  int GetMenuItemCount() const { return static_cast<int>(m_items.size()); }
  UINT GetMenuItemID(int position) const;
  int GetMenuString(UINT idOrPosition, CZelString& text, UINT flags) const;
  UINT GetMenuState(UINT idOrPosition, UINT flags) const;
  CMenu* GetSubMenu(int position) const;
  bool exists() const { return m_created; }
  const std::vector<Item>& items() const { return m_items; }

  // The item with that command, in this menu or a submenu; none when absent.
  const Item* findCommand(UINT id) const;
  // The item whose text (without '&') is `text`, searched the same way.
  const Item* findText(const CZelString& text) const;

  // Shows the menu at a screen point for `owner`. With TPM_RETURNCMD the chosen command
  // (0: none) is returned; otherwise it is sent to the owner as WM_COMMAND.
  BOOL TrackPopupMenu(UINT flags, int x, int y, CWnd* owner, const CRect* rect = nullptr);

private:
  Item* locate(UINT idOrPosition, UINT flags);
  const Item* locate(UINT idOrPosition, UINT flags) const;

  bool m_created = false;
  std::vector<Item> m_items;
};
