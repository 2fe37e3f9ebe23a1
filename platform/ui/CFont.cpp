#include "ui/CFont.h"

BOOL CFont::CreateFont(int height, int, int, int, int weight, BYTE italic, BYTE, BYTE, BYTE, BYTE, BYTE, BYTE, BYTE,
                       const wchar_t* faceName) {
  if (m_created) return FALSE;
  m_created = true;
  m_height = height;
  m_weight = weight;
  m_italic = italic != 0;
  m_face = faceName ? faceName : L"";
  return TRUE;
}

BOOL CFont::DeleteObject() {
  if (!m_created) return FALSE;
  m_created = false;
  m_height = 0;
  m_weight = FW_NORMAL;
  m_italic = false;
  m_face = CZelString();
  return TRUE;
}
