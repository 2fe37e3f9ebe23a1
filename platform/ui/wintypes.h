// The few Win32 types that the module's interfaces name.
#pragma once

#include <cstdint>

struct HWND__;
using HWND = HWND__*;
using UINT = unsigned int;
using DWORD = std::uint32_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using BOOL = int;
using LONG = long;

// An icon is known by its resource number; the handle carries that number.
struct HICON__;
using HICON = HICON__*;
inline HICON iconHandle(UINT resourceId) { return reinterpret_cast<HICON>(static_cast<std::uintptr_t>(resourceId)); }
inline UINT iconResourceId(HICON icon) { return static_cast<UINT>(reinterpret_cast<std::uintptr_t>(icon)); }

constexpr INT_PTR IDOK = 1;
constexpr INT_PTR IDCANCEL = 2;
constexpr INT_PTR IDHELP = 9;
constexpr BOOL TRUE = 1;
constexpr BOOL FALSE = 0;
