// The preview's display list painted: zoomed to its extents with a margin, y upwards, filled
// areas in their colour, hatch lines inside their outline only, index colour 7 black on the
// light background.
#include "CVirtualDisplay.h"

#include "backend/wx/CWxBackend.h"
#include "backend/wx/CWxPreviewPainter.h"
#include "obj/ZelHatchPatterns.h"
#include "obj/ZelHatchPreview.h"

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

TEST_F(CWxPreviewPainterTest, PatternDashesAndDotsArePaintedInsideTheirOutline) {
  CDisplayList list;
  list.addPolyline(square(0, 0, 100), true, CZelColor::fromIndex(7));
  ASSERT_TRUE(ZEL::addPatternHatch(list, square(25, 25, 50), L"ANSI33", 1.0, 0.0, CZelColor::fromIndex(1)));
  ASSERT_TRUE(ZEL::addPatternHatch(list, square(0, 0, 20), L"DOTS", 2.0, 0.0, CZelColor::fromIndex(5)));
  wxImage img = paint(list, 200, 200);
  int redInside = 0, redOutside = 0, blue = 0;
  for (int y = 0; y < 200; ++y)
    for (int x = 0; x < 200; ++x) {
      const wxColour c = at(img, x, y);
      if (c == wxColour(0, 0, 255)) ++blue;
      // Slanted dashes may be drawn smoothed: any shade of red counts.
      if (c.Red() != 255 || c.Green() != c.Blue() || c.Green() > 200) continue;
      bool inside = x >= 54 && x <= 146 && y >= 54 && y <= 146;
      (inside ? redInside : redOutside)++;
    }
  EXPECT_GT(redInside, 200);
  EXPECT_EQ(redOutside, 0);
  EXPECT_GT(blue, 20) << "the dots are single pixels";
}

TEST_F(CWxPreviewPainterTest, EveryStandardPatternShowsInsideItsPreviewFrame) {
  for (const ZelHatchPattern& p : ZEL::hatchPatternTable()) {
    const wxImage img = paint(ZEL::hatchPreviewList(p.name, 1.0, 0.0), 120, 120);
    // The frame lies on the margin (6 pixels); what is drawn well inside it is the pattern.
    int inked = 0;
    for (int y = 10; y < 110; ++y)
      for (int x = 10; x < 110; ++x)
        if (img.GetRed(x, y) < 128) ++inked;
    if (p.solid) {
      EXPECT_EQ(inked, 100 * 100) << p.name.toUtf8();
    } else {
      EXPECT_GT(inked, 30) << p.name.toUtf8();
      EXPECT_LT(inked, 100 * 100 * 3 / 4) << p.name.toUtf8() << ": lines, not a fill";
    }
  }
}

}  // namespace
