// A drawing colour: an index colour (1 to 255; 0 by block, 256 by layer) or a true colour.
#pragma once

#include <cstdint>

class CZelColor {
public:
  CZelColor() = default;
  static CZelColor fromIndex(int index) { CZelColor c; c.m_index = index; return c; }
  static CZelColor fromRgb(std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    CZelColor c;
    c.m_true = true;
    c.m_r = r; c.m_g = g; c.m_b = b;
    return c;
  }

  bool isTrueColor() const { return m_true; }
  int index() const { return m_true ? -1 : m_index; }
  std::uint8_t red() const { return m_r; }
  std::uint8_t green() const { return m_g; }
  std::uint8_t blue() const { return m_b; }

  friend bool operator==(const CZelColor&, const CZelColor&) = default;

private:
  bool m_true = false;
  int m_index = 7;
  std::uint8_t m_r = 0, m_g = 0, m_b = 0;
};

// Whether a colour choice offers "VonLayer" and "VonBlock": a layer's own colour is neither.
enum class ZelColorChoice { Plain, ByLayerBlock };
