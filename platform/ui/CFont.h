// A font of the model: what a dialog asks for (height, weight, face) kept so that tests and
// a window backend can read it; controls take it with SetFont.
#pragma once

#include "data/CZelString.h"
#include "ui/wintypes.h"

#include <cstdint>

using BYTE = std::uint8_t;

constexpr int FW_NORMAL = 400;
constexpr int FW_BOLD = 700;
constexpr BYTE DEFAULT_CHARSET = 1;
constexpr BYTE OUT_DEFAULT_PRECIS = 0;
constexpr BYTE CLIP_DEFAULT_PRECIS = 0;
constexpr BYTE DEFAULT_QUALITY = 0;
constexpr BYTE DEFAULT_PITCH = 0;
constexpr BYTE FF_SWISS = 0x20;

class CFont {
public:
  CFont() = default;
  CFont(const CFont&) = delete;
  CFont& operator=(const CFont&) = delete;

  // As the framework's CreateFont; false when the font exists already.
  BOOL CreateFont(int height, int width, int escapement, int orientation, int weight, BYTE italic, BYTE underline,
                  BYTE strikeOut, BYTE charSet, BYTE outPrecision, BYTE clipPrecision, BYTE quality,
                  BYTE pitchAndFamily, const wchar_t* faceName);
  BOOL DeleteObject();

  bool exists() const { return m_created; }
  int height() const { return m_height; }
  int weight() const { return m_weight; }
  bool italic() const { return m_italic; }
  const CZelString& faceName() const { return m_face; }

private:
  bool m_created = false;
  int m_height = 0;
  int m_weight = FW_NORMAL;
  bool m_italic = false;
  CZelString m_face;
};
