#include "data/ZelHatchPatternTable.h"

#include <charconv>
#include <cmath>
#include <numeric>
#include <string_view>

namespace {

// The patterns in the pattern files' own notation: "*NAME, description", then one line per
// family: angle, x-origin, y-origin, delta-x, delta-y[, dash, ...]. Written from the published
// definitions of the CAD program's standard pattern file.
//
// Two patterns are reconstructed rather than copied: HEX (columns of hexagons of 1/8 in
// sides, stacked on their flat sides) and HONEY (the honeycomb of the same hexagons) are
// written so that every edge of the hexagons repeats on one cell; GRAVEL is built below.
//
// Units: the add-on draws in millimetres, so the table holds the metric versions (as the
// ISO pattern file has them): the inch patterns below are multiplied by 25.4 when the table
// is built, the ISO line patterns are already in millimetres. Scale 1 in a millimetre
// drawing therefore looks as the CAD program's ISO hatches do.
constexpr std::string_view kInchPatterns = R"(
*SOLID, Solid fill
45, 0,0, 0,.125
*ANGLE, Angle steel
0, 0,0, 0,.275, .2,-.075
90, 0,0, 0,.275, .2,-.075
*ANSI31, ANSI Iron, Brick, Stone masonry
45, 0,0, 0,.125
*ANSI32, ANSI Steel
45, 0,0, 0,.375
45, .176776695,0, 0,.375
*ANSI33, ANSI Bronze, Brass, Copper
45, 0,0, 0,.25
45, .176776695,0, 0,.25, .125,-.0625
*ANSI34, ANSI Plastic, Rubber
45, 0,0, 0,.75
45, .176776695,0, 0,.75
45, .353553391,0, 0,.75
45, .530330086,0, 0,.75
*ANSI35, ANSI Fire brick, Refractory material
45, 0,0, 0,.25
45, .176776695,0, 0,.25, .3125,-.0625,0,-.0625
*ANSI36, ANSI Marble, Slate, Glass
45, 0,0, .21875,.125, .3125,-.0625,0,-.0625
*ANSI37, ANSI Lead, Zinc, Magnesium, Sound/Heat/Elec Insulation
45, 0,0, 0,.125
135, 0,0, 0,.125
*ANSI38, ANSI Aluminum
45, 0,0, 0,.125
135, 0,0, .25,.125, .3125,-.1875
*AR-B816, 8x16 Block elevation stretcher bond
0, 0,0, 0,8
90, 0,0, 8,8, 8,-8
*AR-B816C, 8x16 Block elevation stretcher bond with mortar joints
0, 0,0, 8,8, 15.625,-.375
0, -8,.375, 8,8, 15.625,-.375
90, 0,0, 8,8, -8.375,7.625
90, -.375,0, 8,8, -8.375,7.625
*AR-B88, 8x8 Block elevation stretcher bond
0, 0,0, 0,8
90, 0,0, 8,4, 8,-8
*AR-BRELM, Standard brick elevation english bond with mortar joints
0, 0,0, 0,5.334, 7.625,-.375
0, 0,2.25, 0,5.334, 7.625,-.375
0, 2,2.667, 0,5.334, 3.625,-.375
0, 2,4.917, 0,5.334, 3.625,-.375
90, 0,0, 0,8, 2.25,-3.084
90, -.375,0, 0,8, 2.25,-3.084
90, 2,2.667, 0,4, 2.25,-3.084
90, 1.625,2.667, 0,4, 2.25,-3.084
*AR-BRSTD, Standard brick elevation stretcher bond
0, 0,0, 0,2.667
90, 0,0, 2.667,4, 2.667,-2.667
*AR-CONC, Random dot and stone pattern
50, 0,0, 4.12975034,-5.89789472, .75,-8.25
355, 0,0, -2.03781207,7.3723684, .6,-6.6
100.4514447, .5977168,-.0522934, 5.7305871,-6.9397673, .6374019,-7.01142112
46.1842, 0,2, 6.19462551,-8.84684208, 1.125,-12.375
96.63555761, .88936998,1.86206164, 8.59588795,-10.40965096, .95610288,-10.51713165
351.18415, 0,2, 7.74328189,11.0585526, .9,-9.9
21, 1,1.5, 4.12975034,-5.89789472, .75,-8.25
326, 1,1.5, -2.03781207,7.3723684, .6,-6.6
71.4514447, 1.49742233,1.16448394, 5.7305871,-6.9397673, .6374019,-7.01142112
37.5, 0,0, 2.123,2.567, 0,-6.52,0,-6.7,0,-6.625
7.5, 0,0, 3.123,3.567, 0,-3.82,0,-6.37,0,-2.525
-32.5, -2.23,0, 4.6234,2.678, 0,-2.5,0,-7.8,0,-10.35
-42.5, -3.23,0, 3.6234,4.678, 0,-3.25,0,-5.18,0,-7.35
*AR-HBONE, Standard brick herringbone pattern @ 45 degrees
45, 0,0, 4,4, 12,-4
135, 2.828427125,2.828427125, 4,-4, 12,-4
*AR-PARQ1, 2x12 Parquet flooring: pattern of 12x12
90, 0,0, 12,12, 12,-12
90, 2,0, 12,12, 12,-12
90, 4,0, 12,12, 12,-12
90, 6,0, 12,12, 12,-12
90, 8,0, 12,12, 12,-12
90, 10,0, 12,12, 12,-12
90, 12,0, 12,12, 12,-12
0, 0,12, 12,-12, 12,-12
0, 0,14, 12,-12, 12,-12
0, 0,16, 12,-12, 12,-12
0, 0,18, 12,-12, 12,-12
0, 0,20, 12,-12, 12,-12
0, 0,22, 12,-12, 12,-12
0, 0,24, 12,-12, 12,-12
*AR-RROOF, Roof shingle texture
0, 0,0, 2.2,1, 15,-2,5,-1
0, 1.33,.5, -1,1.33, 3,-.33,6,-.75
0, .5,.85, 5.2,.67, 8,-1.4,4,-1
*AR-SAND, Random dot pattern
37.5, 0,0, 1.123,1.567, 0,-1.52,0,-1.7,0,-1.625
7.5, 0,0, 2.123,2.567, 0,-.82,0,-1.37,0,-.525
-32.5, -1.23,0, 2.6234,1.678, 0,-.5,0,-1.8,0,-2.35
-42.5, -1.23,0, 1.6234,2.678, 0,-.25,0,-1.18,0,-1.35
*BOX, Box steel
90, 0,0, 0,1
90, .25,0, 0,1
0, 0,0, 0,1, -.25,.25
0, 0,.25, 0,1, -.25,.25
0, 0,.5, 0,1, .25,-.25
0, 0,.75, 0,1, .25,-.25
90, .5,0, 0,1, .25,-.25
90, .75,0, 0,1, .25,-.25
*BRASS, Brass material
0, 0,0, 0,.25
0, 0,.125, 0,.25, .125,-.0625
*BRICK, Brick or masonry-type surface
0, 0,0, 0,.25
90, 0,0, 0,.5, .25,-.25
90, .25,0, 0,.5, -.25,.25
*CLAY, Clay material
0, 0,0, 0,.1875
0, 0,.03125, 0,.1875
0, 0,.0625, 0,.1875
0, 0,.125, 0,.1875, .1875,-.125
*CORK, Cork material
0, 0,0, 0,.125
135, .0625,-.0625, 0,.35355339, .176776696,-.176776696
135, .09375,-.0625, 0,.35355339, .176776696,-.176776696
135, .125,-.0625, 0,.35355339, .176776696,-.176776696
*CROSS, A series of crosses
0, 0,0, .25,.25, .125,-.375
90, .0625,-.0625, .25,.25, .125,-.375
*DASH, Dashed lines
0, 0,0, .125,.125, .125,-.125
*DOLMIT, Geological rock layering
0, 0,0, 0,.25
45, 0,0, 0,.70710678, .35355339,-.70710678
*DOTS, A series of dots
0, 0,0, .03125,.0625, 0,-.0625
*EARTH, Earth or ground (subterranean)
0, 0,0, .25,.25, .25,-.25
0, 0,.09375, .25,.25, .25,-.25
0, 0,.1875, .25,.25, .25,-.25
90, .03125,.21875, .25,.25, .25,-.25
90, .125,.21875, .25,.25, .25,-.25
90, .21875,.21875, .25,.25, .25,-.25
*FLEX, Flexible material
0, 0,0, 0,.25, .25,-.25
45, .25,0, .1767766953,.1767766953, .0625,-.22855339,.0625,-.35355339
*GRASS, Grass area
90, 0,0, .176776695,.176776695, .1875,-.1660533906
45, 0,0, 0,.25, .1875,-.3125
135, 0,0, 0,.25, .1875,-.3125
*GRATE, Grated area
0, 0,0, 0,.03125
90, 0,0, 0,.125
*HEX, Hexagons
0, 0,0, 0,.216506351, .125,-.25
60, .125,0, .1875,.108253175, .125,-.625
60, -.0625,.108253175, .1875,.108253175, .125,-.625
120, 0,0, -.1875,.108253175, .125,-.625
120, .1875,.108253175, -.1875,.108253175, .125,-.625
*HONEY, Honeycomb pattern
0, 0,0, .1875,.108253175, .125,-.25
120, .125,0, .1875,.108253175, -.25,.125
60, .125,0, .1875,.108253175, .125,-.25
*HOUND, Houndstooth check
0, 0,0, .25,.0625, 1,-.5
90, 0,0, -.25,.0625, 1,-.5
*INSUL, Insulation material
0, 0,0, 0,.375
0, 0,.125, 0,.375, .125,-.125
0, 0,.25, 0,.375, .125,-.125
*LINE, Parallel horizontal lines
0, 0,0, 0,.125
*MUDST, Mud and sand
0, 0,0, .5,.25, .25,-.25,0,-.25,0,-.25
*NET, Horizontal / vertical grid
0, 0,0, 0,.125
90, 0,0, 0,.125
*NET3, Network pattern 0-60-120
0, 0,0, 0,.125
60, 0,0, 0,.125
120, 0,0, 0,.125
*PLAST, Plastic material
0, 0,0, 0,.25
0, 0,.03125, 0,.25
0, 0,.0625, 0,.25
*PLASTI, Plastic material
0, 0,0, 0,.25
0, 0,.03125, 0,.25
0, 0,.0625, 0,.25
0, 0,.15625, 0,.25
*SACNCR, Concrete
45, 0,0, 0,.09375
45, .066291261,0, 0,.09375, 0,-.09375
*SQUARE, Small aligned squares
0, 0,0, 0,.125, .125,-.125
90, 0,0, 0,.125, .125,-.125
*STARS, Star of David
0, 0,0, 0,.216506351, .125,-.125
60, 0,0, 0,.216506351, .125,-.125
120, .0625,.108253176, 0,.216506351, .125,-.125
*STEEL, Steel material
45, 0,0, 0,.125
45, 0,.0625, 0,.125
*SWAMP, Marshy area
0, 0,0, .5,.866025403, .125,-.875
90, .0625,0, .866025403,.5, .0625,-1.669550806
90, .078125,0, .866025403,.5, .05,-1.682050806
90, .046875,0, .866025403,.5, .05,-1.682050806
60, .09375,0, .5,.866025403, .04,-.96
120, .03125,0, .5,.866025403, .04,-.96
*TRANS, Heat transfer material
0, 0,0, 0,.25
0, 0,.125, 0,.25, .125,-.125
*TRIANG, Equilateral triangles
60, 0,0, .1875,.324759526, .1875,-.1875
120, 0,0, .1875,.324759526, .1875,-.1875
0, -.09375,.162379763, .1875,.324759526, .1875,-.1875
*ZIGZAG, Staircase effect
0, 0,0, .125,.125, .125,-.125
90, .125,0, .125,.125, .125,-.125
)";

// The ISO line patterns exist only in millimetres.
constexpr std::string_view kMillimetrePatterns = R"(
*ACAD_ISO02W100, dashed line
0, 0,0, 0,5, 12,-3
*ACAD_ISO03W100, dashed space line
0, 0,0, 0,5, 12,-18
*ACAD_ISO04W100, long dashed dotted line
0, 0,0, 0,5, 24,-3,.5,-3
*ACAD_ISO05W100, long dashed double dotted line
0, 0,0, 0,5, 24,-3,.5,-3,.5,-3
*ACAD_ISO06W100, long dashed triplicate dotted line
0, 0,0, 0,5, 24,-3,.5,-3,.5,-6.5
0, 0,0, 0,5, -34,.5,-3
*ACAD_ISO07W100, dotted line
0, 0,0, 0,5, .5,-3
*ACAD_ISO08W100, long dashed short dashed line
0, 0,0, 0,5, 24,-3,6,-3
*ACAD_ISO09W100, long dashed double short dashed line
0, 0,0, 0,5, 24,-3,6,-3,6,-3
*ACAD_ISO10W100, dashed dotted line
0, 0,0, 0,5, 12,-3,.5,-3
*ACAD_ISO11W100, double dashed dotted line
0, 0,0, 0,5, 12,-3,12,-3,.5,-3
*ACAD_ISO12W100, dashed double dotted line
0, 0,0, 0,5, 12,-3,.5,-3,.5,-3
*ACAD_ISO13W100, double dashed double dotted line
0, 0,0, 0,5, 12,-3,12,-3,.5,-6.5
0, 0,0, 0,5, -33.5,.5,-3
*ACAD_ISO14W100, dashed triplicate dotted line
0, 0,0, 0,5, 12,-3,.5,-3,.5,-6.5
0, 0,0, 0,5, -22,.5,-3
*ACAD_ISO15W100, double dashed triplicate dotted line
0, 0,0, 0,5, 12,-3,12,-3,.5,-10
0, 0,0, 0,5, -33.5,.5,-3,.5,-3
)";

constexpr double kMmPerInch = 25.4;

std::string_view trim(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t' || s.front() == '\r')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r')) s.remove_suffix(1);
  return s;
}

CZelString wide(std::string_view ascii) { return CZelString(std::wstring(ascii.begin(), ascii.end())); }

// One family line: the numbers between the commas; false when one is not a number.
bool parseNumbers(std::string_view line, std::vector<double>& out) {
  out.clear();
  while (true) {
    std::size_t comma = line.find(',');
    std::string_view field = trim(line.substr(0, comma));
    double v = 0.0;
    const char* end = field.data() + field.size();
    // from_chars takes no leading '+' and needs a digit before the point: ".125" is read as "0.125".
    std::string buffer;
    if (!field.empty() && (field.front() == '.' || (field.size() > 1 && field.front() == '-' && field[1] == '.'))) {
      buffer = field.front() == '-' ? "-0" + std::string(field.substr(1)) : "0" + std::string(field);
      field = buffer;
      end = field.data() + field.size();
    }
    auto [ptr, ec] = std::from_chars(field.data(), end, v);
    if (ec != std::errc() || ptr != end) return false;
    out.push_back(v);
    if (comma == std::string_view::npos) return true;
    line.remove_prefix(comma + 1);
  }
}

void parse(std::string_view text, double unit, std::vector<ZelHatchPattern>& table) {
  ZelHatchPattern* current = nullptr;
  std::vector<double> numbers;
  while (!text.empty()) {
    std::size_t eol = text.find('\n');
    std::string_view line = trim(text.substr(0, eol));
    text.remove_prefix(eol == std::string_view::npos ? text.size() : eol + 1);
    if (line.empty() || line.front() == ';') continue;
    if (line.front() == '*') {
      std::size_t comma = line.find(',');
      ZelHatchPattern p;
      p.name = wide(trim(line.substr(1, comma == std::string_view::npos ? std::string_view::npos : comma - 1)));
      if (comma != std::string_view::npos) p.description = wide(trim(line.substr(comma + 1)));
      p.solid = p.name == L"SOLID";
      table.push_back(std::move(p));
      current = &table.back();
      continue;
    }
    // The table is our own text: a line that does not read is left out, and the table's
    // tests name the pattern that lost it.
    if (!current || current->solid || !parseNumbers(line, numbers) || numbers.size() < 5) continue;
    ZelPatternLine family;
    family.angle = numbers[0];
    family.x = numbers[1] * unit;
    family.y = numbers[2] * unit;
    family.dx = numbers[3] * unit;
    family.dy = numbers[4] * unit;
    for (std::size_t i = 5; i < numbers.size(); ++i) family.dashes.push_back(numbers[i] * unit);
    current->lines.push_back(std::move(family));
  }
}

// GRAVEL: irregular stones in a one-inch cell. The published pattern builds each stone edge
// as a family of its own that repeats on the cell: the lines run in the edge's direction
// (p, q) in whole cells, so the dash sequence repeats after |(p, q)| cells and neighbouring
// lines are 1 / |(p, q)| apart. The stones here are an approximation drawn the same way
// (vertices on a grid of a hundredth of the cell), not the published vertices.
constexpr double kGravelStones[][7][2] = {
    {{.72, 1}, {.63, .9}, {.40, .88}, {.34, .96}, {.42, 1.1}, {.62, 1.12}, {-1, -1}},
    {{.05, .6}, {.2, .52}, {.33, .58}, {.3, .74}, {.14, .8}, {.03, .72}, {-1, -1}},
    {{.5, .55}, {.66, .48}, {.8, .56}, {.78, .7}, {.6, .74}, {.48, .66}, {-1, -1}},
    {{.15, .2}, {.3, .15}, {.4, .25}, {.32, .38}, {.16, .36}, {-1, -1}, {-1, -1}},
    {{.62, .2}, {.78, .22}, {.88, .32}, {.8, .4}, {.64, .36}, {.58, .28}, {-1, -1}},
    {{.9, .8}, {.97, .76}, {1.02, .84}, {.95, .9}, {-1, -1}, {-1, -1}, {-1, -1}},
    {{.45, .4}, {.5, .38}, {.53, .44}, {.47, .46}, {-1, -1}, {-1, -1}, {-1, -1}},
};

// Integers a, b with p * b - q * a = 1 for coprime p, q.
void rowStep(long p, long q, long& a, long& b) {
  // Extended Euclid on (p, q): x * p + y * q = 1, so b = x and a = -y.
  long oldR = p, r = q, oldX = 1, x = 0, oldY = 0, y = 1;
  while (r != 0) {
    long k = oldR / r;
    long t = oldR - k * r; oldR = r; r = t;
    t = oldX - k * x; oldX = x; x = t;
    t = oldY - k * y; oldY = y; y = t;
  }
  // oldR is ±1 here.
  b = oldX * oldR;
  a = -oldY * oldR;
}

ZelPatternLine cellEdge(double x0, double y0, double x1, double y1) {
  long p = std::lround((x1 - x0) * 100), q = std::lround((y1 - y0) * 100);
  long g = std::gcd(p, q);
  p /= g;
  q /= g;
  long a = 0, b = 0;
  rowStep(p, q, a, b);
  const double period = std::hypot(double(p), double(q)), length = std::hypot(x1 - x0, y1 - y0);
  ZelPatternLine f;
  f.angle = std::atan2(double(q), double(p)) * 180.0 / 3.14159265358979323846;
  f.x = x0 * kMmPerInch;
  f.y = y0 * kMmPerInch;
  f.dx = (a * p + b * q) / period * kMmPerInch;
  f.dy = 1.0 / period * kMmPerInch;
  f.dashes = {length * kMmPerInch, -(period - length) * kMmPerInch};
  return f;
}

ZelHatchPattern gravel() {
  ZelHatchPattern p;
  p.name = L"GRAVEL";
  p.description = L"Gravel pattern";
  for (const auto& stone : kGravelStones) {
    int n = 0;
    while (n < 7 && stone[n][0] >= 0) ++n;
    for (int i = 0; i < n; ++i) {
      const auto& v = stone[i];
      const auto& w = stone[(i + 1) % n];
      p.lines.push_back(cellEdge(v[0], v[1], w[0], w[1]));
    }
  }
  return p;
}

std::vector<ZelHatchPattern> build() {
  std::vector<ZelHatchPattern> table;
  parse(kInchPatterns, kMmPerInch, table);
  // After GRATE, where the pattern file has it.
  auto at = table.begin();
  while (at != table.end() && at->name != L"GRATE") ++at;
  table.insert(at == table.end() ? at : at + 1, gravel());
  parse(kMillimetrePatterns, 1.0, table);
  return table;
}

}  // namespace

double ZelPatternLine::period() const {
  double sum = 0.0;
  for (double d : dashes) sum += std::fabs(d);
  return sum;
}

namespace ZEL {

const std::vector<ZelHatchPattern>& hatchPatternTable() {
  static const std::vector<ZelHatchPattern> table = build();
  return table;
}

const ZelHatchPattern* findHatchPattern(const CZelString& name) {
  for (const ZelHatchPattern& p : hatchPatternTable())
    if (p.name.match(name)) return &p;
  return nullptr;
}

std::vector<std::pair<CZelString, CZelString>> standardHatchPatterns() {
  std::vector<std::pair<CZelString, CZelString>> list;
  for (const ZelHatchPattern& p : hatchPatternTable()) list.emplace_back(p.name, p.description);
  return list;
}

}  // namespace ZEL
