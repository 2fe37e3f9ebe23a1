// The dialog environment that every dialog of the platform receives: parent window,
// number format, country, help file and topic, parent window handle.
#pragma once

#include "data/CZelString.h"
#include "data/ZelUnits.h"
#include "ui/wintypes.h"

class CWnd;

namespace ZEL {

struct DlgEnv_st {
  DlgEnv_st() = default;
  DlgEnv_st(const DlgEnv_st&) = default;
  DlgEnv_st& operator=(const DlgEnv_st&) = default;
  virtual ~DlgEnv_st() = default;

  // The host window that becomes the dialog's parent (none: no parent).
  virtual CWnd* parentWnd() const { return m_parent; }

  Zel::lFormat format = Zel::lFormat::Decimal;
  CZelString country = L"de";
  CZelString helpFile;
  CZelString helpTopic;
  HWND hwndParent = nullptr;
  CWnd* m_parent = nullptr;
};

}  // namespace ZEL
