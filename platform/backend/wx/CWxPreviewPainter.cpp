#include "backend/wx/CWxPreviewPainter.h"

#include <wx/dc.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double kMargin = 0.05;  // of the area on each side
constexpr int kArcSegmentsPerTurn = 72;

wxColour fromRgb(double r, double g, double b) {
  auto c = [](double v) { return static_cast<unsigned char>(std::clamp(std::lround(v * 255.0), 0L, 255L)); };
  return wxColour(c(r), c(g), c(b));
}

// Points along an arc from a0 to a1 (counter-clockwise when a1 > a0).
void arcPoints(std::vector<std::pair<double, double>>& out, double cx, double cy, double r, double a0, double a1) {
  int n = std::max(2, static_cast<int>(std::ceil(std::fabs(a1 - a0) / (2.0 * std::numbers::pi) * kArcSegmentsPerTurn)));
  for (int i = 0; i <= n; ++i) {
    double a = a0 + (a1 - a0) * i / n;
    out.emplace_back(cx + r * std::cos(a), cy + r * std::sin(a));
  }
}

}  // namespace

CWxPreviewPainter::CWxPreviewPainter(const CDisplayList& list, const wxRect& area) : m_list(list), m_area(area) {
  CDisplayExtents box = list.view.empty ? list.extents() : list.view;
  if (box.empty) return;
  double w = std::max(box.maxX - box.minX, 1e-9), h = std::max(box.maxY - box.minY, 1e-9);
  double usableW = area.width * (1.0 - 2 * kMargin), usableH = area.height * (1.0 - 2 * kMargin);
  m_scale = std::min(usableW / w, usableH / h);
  m_originX = (box.minX + box.maxX) / 2.0;
  m_originY = (box.minY + box.maxY) / 2.0;
}

wxPoint CWxPreviewPainter::toPixels(double x, double y) const {
  double cx = m_area.x + m_area.width / 2.0, cy = m_area.y + m_area.height / 2.0;
  return wxPoint(static_cast<int>(std::lround(cx + (x - m_originX) * m_scale)),
                 static_cast<int>(std::lround(cy - (y - m_originY) * m_scale)));
}

wxColour CWxPreviewPainter::indexColour(int index) {
  switch (index) {
    case 1: return wxColour(255, 0, 0);
    case 2: return wxColour(255, 255, 0);
    case 3: return wxColour(0, 255, 0);
    case 4: return wxColour(0, 255, 255);
    case 5: return wxColour(0, 0, 255);
    case 6: return wxColour(255, 0, 255);
    case 7: return wxColour(255, 255, 255);
    case 8: return wxColour(128, 128, 128);
    case 9: return wxColour(192, 192, 192);
    default: break;
  }
  if (index >= 250 && index <= 255) {
    static const unsigned char grays[] = {51, 91, 132, 173, 214, 255};
    unsigned char g = grays[index - 250];
    return wxColour(g, g, g);
  }
  if (index < 10 || index > 249) return wxColour(255, 255, 255);
  // 24 hues of 15 degrees; in each group of ten, five brightness steps, each full and pale.
  double hue = (index / 10 - 1) * 15.0;
  int step = index % 10;
  static const double values[] = {1.0, 0.65, 0.5, 0.3, 0.15};
  double v = values[step / 2];
  double s = step % 2 ? 0.5 : 1.0;
  double c = v * s, hp = hue / 60.0, x = c * (1 - std::fabs(std::fmod(hp, 2.0) - 1)), m = v - c;
  double r = 0, g = 0, b = 0;
  if (hp < 1) r = c, g = x;
  else if (hp < 2) r = x, g = c;
  else if (hp < 3) g = c, b = x;
  else if (hp < 4) g = x, b = c;
  else if (hp < 5) r = x, b = c;
  else r = c, b = x;
  return fromRgb(r + m, g + m, b + m);
}

wxColour CWxPreviewPainter::colour(const CZelColor& color) const {
  if (color.isTrueColor()) return wxColour(color.red(), color.green(), color.blue());
  if (color.index() == 7) {
    wxColour bg = colour(m_list.background.index() == 7 ? CZelColor::fromRgb(0, 0, 0) : m_list.background);
    return bg.GetLuminance() > 0.5 ? *wxBLACK : *wxWHITE;
  }
  return indexColour(color.index());
}

std::vector<wxPoint> CWxPreviewPainter::outline(const CZelVertexArray& points, bool closed) const {
  std::vector<std::pair<double, double>> drawing;
  int n = points.count();
  for (int i = 0; i < n; ++i) {
    const ZelVertex& v = points[i];
    bool last = i + 1 == n;
    if (last && !closed) {
      drawing.emplace_back(v.x, v.y);
      break;
    }
    const ZelVertex& w = points[last ? 0 : i + 1];
    double dx = w.x - v.x, dy = w.y - v.y, chord = std::hypot(dx, dy);
    if (v.bulge == 0.0 || chord == 0.0) {
      drawing.emplace_back(v.x, v.y);
      continue;
    }
    // The bulge is tan(angle / 4) of the arc from this vertex to the next.
    double angle = 4.0 * std::atan(v.bulge);
    double r = chord / (2.0 * std::sin(angle / 2.0));
    double h = r * std::cos(angle / 2.0);
    double cx = (v.x + w.x) / 2.0 - h * dy / chord, cy = (v.y + w.y) / 2.0 + h * dx / chord;
    double a0 = std::atan2(v.y - cy, v.x - cx);
    arcPoints(drawing, cx, cy, std::fabs(r), a0, a0 + angle);
    drawing.pop_back();  // the next vertex follows
  }
  std::vector<wxPoint> out;
  out.reserve(drawing.size());
  for (const auto& [x, y] : drawing) out.push_back(toPixels(x, y));
  return out;
}

void CWxPreviewPainter::paintSegments(wxDC& dc, const CDisplayList::Item& item) const {
  const int n = item.points.count();
  for (int i = 0; i + 1 < n; i += 2) {
    const ZelVertex& a = item.points[i];
    const ZelVertex& b = item.points[i + 1];
    const wxPoint p = toPixels(a.x, a.y), q = toPixels(b.x, b.y);
    // A dot, or a dash shorter than a pixel, is one pixel.
    if (p == q) dc.DrawPoint(p);
    else dc.DrawLine(p, q);
  }
}

void CWxPreviewPainter::paint(wxDC& dc) const {
  wxColour bg = colour(m_list.background);
  dc.SetBrush(wxBrush(bg));
  dc.SetPen(*wxTRANSPARENT_PEN);
  dc.DrawRectangle(m_area);
  for (const CDisplayList::Item& item : m_list.items()) {
    wxColour c = colour(item.color);
    dc.SetPen(wxPen(c));
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    switch (item.kind) {
      case CDisplayList::Kind::Line:
        if (item.points.count() >= 2)
          dc.DrawLine(toPixels(item.points[0].x, item.points[0].y), toPixels(item.points[1].x, item.points[1].y));
        break;
      case CDisplayList::Kind::Arc: {
        std::vector<std::pair<double, double>> pts;
        double a1 = item.endAngle;
        while (a1 <= item.startAngle) a1 += 2.0 * std::numbers::pi;
        arcPoints(pts, item.cx, item.cy, item.radius, item.startAngle, a1);
        std::vector<wxPoint> px;
        for (const auto& [x, y] : pts) px.push_back(toPixels(x, y));
        dc.DrawLines(static_cast<int>(px.size()), px.data());
        break;
      }
      case CDisplayList::Kind::Polyline: {
        std::vector<wxPoint> px = outline(item.points, item.closed);
        if (item.closed && !px.empty()) px.push_back(px.front());
        if (px.size() >= 2) dc.DrawLines(static_cast<int>(px.size()), px.data());
        break;
      }
      case CDisplayList::Kind::Fill: {
        std::vector<wxPoint> px = outline(item.points, true);
        dc.SetBrush(wxBrush(c));
        if (px.size() >= 3) dc.DrawPolygon(static_cast<int>(px.size()), px.data());
        break;
      }
      case CDisplayList::Kind::Segments: paintSegments(dc, item); break;
    }
  }
}
