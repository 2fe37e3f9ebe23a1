// The preview's display list painted: zoomed to its extents with a margin, y upwards, filled
// areas in their colour, hatch lines inside their outline only, index colour 7 black on the
// light background.
#include "CVirtualDisplay.h"

#include "backend/wx/CWxBackend.h"
#include "backend/wx/CWxPreviewPainter.h"

#include <gtest/gtest.h>

#include <wx/dcmemory.h>
#include <wx/image.h>

namespace {

CZelVertexArray square(double x0, double y0, double size) {
  CZelVertexArray v;
  v.add(x0, y0);
  v.add(x0 + size, y0);
  v.add(x0 + size, y0 + size);
  v.add(x0, y0 + size);
  return v;
}

class CWxPreviewPainterTest : public ::testing::Test {
protected:
  void SetUp() override {
    if (std::string why = CVirtualDisplay::ensure(); !why.empty()) GTEST_SKIP() << why;
    if (!CWxBackend::start()) GTEST_SKIP() << "the toolkit cannot open the display";
  }

  wxImage paint(const CDisplayList& list, int w = 100, int h = 100) {
    wxBitmap bmp(w, h, 24);
    wxMemoryDC dc(bmp);
    CWxPreviewPainter(list, wxRect(0, 0, w, h)).paint(dc);
    dc.SelectObject(wxNullBitmap);
    return bmp.ConvertToImage();
  }

  static wxColour at(const wxImage& img, int x, int y) { return wxColour(img.GetRed(x, y), img.GetGreen(x, y), img.GetBlue(x, y)); }
};

TEST_F(CWxPreviewPainterTest, AFilledAreaIsZoomedToTheExtentsWithAMargin) {
  CDisplayList list;
  list.addFill(square(1000, 2000, 10), CZelColor::fromIndex(1));
  wxImage img = paint(list);
  EXPECT_EQ(at(img, 50, 50), wxColour(255, 0, 0));
  EXPECT_EQ(at(img, 10, 50), wxColour(255, 0, 0)) << "the square fills all but the margin";
  EXPECT_EQ(at(img, 1, 1), wxColour(255, 255, 255)) << "the margin shows the background";
}

TEST_F(CWxPreviewPainterTest, YGoesUpAsInTheDrawing) {
  CDisplayList list;
  list.addFill(square(0, 0, 10), CZelColor::fromIndex(5));
  list.addFill(square(0, 10, 10), CZelColor::fromIndex(3));  // above the blue one
  wxImage img = paint(list);
  EXPECT_EQ(at(img, 50, 30), wxColour(0, 255, 0));
  EXPECT_EQ(at(img, 50, 70), wxColour(0, 0, 255));
}

TEST_F(CWxPreviewPainterTest, HatchLinesStayInsideTheirOutline) {
  CDisplayList list;
  list.addPolyline(square(0, 0, 100), true, CZelColor::fromIndex(7));
  list.addHatch(square(25, 25, 50), 0.785398, 5.0, CZelColor::fromIndex(1));
  wxImage img = paint(list, 200, 200);
  int redInside = 0, redOutside = 0;
  for (int y = 0; y < 200; ++y)
    for (int x = 0; x < 200; ++x) {
      if (at(img, x, y) != wxColour(255, 0, 0)) continue;
      bool inside = x >= 54 && x <= 146 && y >= 54 && y <= 146;  // the hatched square and its outline
      (inside ? redInside : redOutside)++;
    }
  EXPECT_GT(redInside, 200);
  EXPECT_EQ(redOutside, 0);
  EXPECT_EQ(at(img, 10, 100), wxColour(0, 0, 0)) << "colour 7 is black on white";
}

}  // namespace
