// The few Win32 types that the module's interfaces name.
#pragma once

#include <cstdint>

struct HWND__;
using HWND = HWND__*;
using UINT = unsigned int;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using INT_PTR = std::intptr_t;
using BOOL = int;

constexpr INT_PTR IDOK = 1;
constexpr INT_PTR IDCANCEL = 2;
