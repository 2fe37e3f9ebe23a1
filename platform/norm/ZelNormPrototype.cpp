#include "norm/ZelNormPrototype.h"

#include "data/resbuf.h"
#include "obj/ZelObjDraw.h"
#include "obj/geometry/ZelNormShape.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>

namespace ZEL {

namespace {

NormStack extended(NormStack stack, const std::string& key) {
  stack.push_back(key);
  return stack;
}

bool findNode(const NormStack& at, const std::string& key, NormStack& found) {
  for (const std::string& child : norm_dir(at)) {
    const NormStack next = extended(at, child);
    if (child == key) {
      found = next;
      return true;
    }
  }
  for (const std::string& child : norm_dir(at))
    if (findNode(extended(at, child), key, found)) return true;
  return false;
}

void put(CZelDataItem& item, const wchar_t* path, resbuf* value) {
  const CZelDataKey key = CZelDataKey::fromPath(path);
  item.put(&key, value);
}

void translate(geo::Shape& shape, double dx, double dy) {
  const auto move = [dx, dy](CZelVertexArray& v) {
    for (int i = 0; i < v.count(); ++i) {
      v[i].x += dx;
      v[i].y += dy;
    }
  };
  for (geo::Path& p : shape.paths) move(p.points);
  for (geo::Area& a : shape.areas) move(a.outline);
  move(shape.outline);
}

// The box of a shape's outline (the views set it to the box around what they draw).
bool box(const geo::Shape& shape, double& minX, double& minY, double& maxX, double& maxY) {
  if (shape.outline.isEmpty()) return false;
  minX = minY = INFINITY;
  maxX = maxY = -INFINITY;
  for (const ZelVertex& v : shape.outline) {
    minX = std::min(minX, v.x);
    minY = std::min(minY, v.y);
    maxX = std::max(maxX, v.x);
    maxY = std::max(maxY, v.y);
  }
  return true;
}

}  // namespace

NormStack norm_node_stack(const std::string& key) {
  NormStack found;
  if (key.empty() || !findNode({}, key, found)) return {};
  return found;
}

NormStack norm_first_standard(const NormStack& stack) {
  if (stack.empty()) return {};
  if (norm_get(stack, "TYPE").value_or("") == "NORM") return stack;
  for (const std::string& child : norm_dir(stack)) {
    NormStack s = norm_first_standard(extended(stack, child));
    if (!s.empty()) return s;
  }
  return {};
}

CZelDataItem* norm_part_item(const NormStack& standardStack, const std::string& size, double length, int view, int flags) {
  if (standardStack.size() < 4 || size.empty()) return nullptr;
  const auto figures = norm_size_dims(extended(standardStack, size));
  if (figures.empty()) return nullptr;
  auto part = std::make_unique<CZelDataItem>();
  part->mkDir();
  put(*part, L"TYPE", mkResbuf(L"DIN"));
  CZelArrayTempl<CZelString> stackStrings;
  for (const std::string& s : standardStack) stackStrings.add(CZelString::fromUtf8(s));
  put(*part, L"STACK", mkResbuf(stackStrings));
  put(*part, L"NORM", mkResbuf(CZelString::fromUtf8(standardStack[3]).c_str()));
  put(*part, L"CATEGORY", mkResbuf(CZelString::fromUtf8(standardStack[1]).c_str()));
  put(*part, L"GROUP", mkResbuf(CZelString::fromUtf8(standardStack[2]).c_str()));
  put(*part, L"BARP", mkRbLong(standardStack[0] == "BAR" ? 1 : 0));
  put(*part, L"ND", mkResbuf(CZelString::fromUtf8(size).c_str()));
  if (length > 0.0) put(*part, L"LEN", mkRbReal(length));
  put(*part, L"VIEW", mkRbLong(view));
  put(*part, L"AXIS", mkRbLong(flags));
  for (const auto& [name, value] : figures)
    if (std::isfinite(value)) put(*part, (L"DIM\\" + CZelString::fromUtf8(name)).c_str(), mkRbReal(value));
  return part.release();
}

CZelDataItem* norm_representative_part(const NormStack& stack) {
  const NormStack standard = norm_first_standard(stack);
  if (standard.empty()) return nullptr;
  const std::vector<std::string> sizes = norm_nd_lst(standard, "", "", false);
  std::vector<std::string> preferred;
  for (const std::string& s : sizes)
    if (norm_get(extended(standard, s), "AVOID").value_or("0") != "1") preferred.push_back(s);
  const std::vector<std::string>& pool = preferred.empty() ? sizes : preferred;
  if (pool.empty()) return nullptr;
  const std::string size = pool[pool.size() / 2];
  const std::vector<double> lengths = norm_len_lst(extended(standard, size), "", "");
  double length = lengths.empty() ? 0.0 : lengths[lengths.size() / 2];
  std::unique_ptr<CZelDataItem> part(norm_part_item(standard, size, length, 2, 1));
  if (!part) return nullptr;
  if (standard[0] == "BAR") {
    // A section is cut to any length: four times its largest figure shows it well.
    double largest = 0.0;
    CZelDataKey dimKey(L"DIM");
    if (const CZelDataItem* dim = part->find(&dimKey))
      for (CDataIterator it(dim); !it.done(); it.next()) {
        double v = 0.0;
        if (it.item()->get(v)) largest = std::max(largest, v);
      }
    put(*part, L"LEN", mkRbReal(4.0 * largest));
  }
  return part.release();
}

}  // namespace ZEL

namespace QEN {

bool gdx_image_norm_prototype(CZelGDX& gdx, const CZelString& prototype, const CZelDataItem* params) {
  if (params) {
    int colour = 0;
    CZelDataKey back(L"BACK_CLR");
    if (params->get(colour, &back))
      gdx.setBackground(CZelColor::fromRgb(static_cast<std::uint8_t>(colour & 0xff), static_cast<std::uint8_t>((colour >> 8) & 0xff),
                                           static_cast<std::uint8_t>((colour >> 16) & 0xff)));
  }
  const ZEL::NormStack node = ZEL::norm_node_stack(prototype.toUtf8());
  std::unique_ptr<CZelDataItem> part(ZEL::norm_representative_part(node));
  if (!part) return false;
  double x = 0.0, y = 0.0;
  if (params) {
    CZelDataKey xKey(L"X"), yKey(L"Y");
    params->get(x, &xKey);
    params->get(y, &yKey);
    if (!std::isfinite(x)) x = 0.0;
    if (!std::isfinite(y)) y = 0.0;
  }
  const bool bar = node.front() == "BAR";
  // The front view, then the end view beside it (a bar's cut face hatched).
  ZEL::geo::Shape front = ZEL::geo::normPartShape(part.get());
  const CZelDataKey view = CZelDataKey::fromPath(L"VIEW");
  part->put(&view, ZEL::mkRbLong(0));
  if (bar) {
    ZEL::put(*part, L"DRAW", ZEL::mkResbuf(L"SMDB"));
  }
  ZEL::geo::Shape end = ZEL::geo::normPartShape(part.get());
  double fx0, fy0, fx1, fy1, ex0, ey0, ex1, ey1;
  if (!ZEL::box(front, fx0, fy0, fx1, fy1) || !ZEL::box(end, ex0, ey0, ex1, ey1)) return false;
  const double gap = 0.25 * std::max(fy1 - fy0, ex1 - ex0);
  ZEL::translate(front, x - fx0, y);
  ZEL::translate(end, x - fx0 + (fx1 - fx0) + gap - ex0, y);
  if (bar) {
    // The hatch of the picture: the usual pattern at a spacing to suit the section.
    ZEL::put(*part, L"HPNAME", ZEL::mkResbuf(L"ANSI31"));
    ZEL::put(*part, L"HPSCALE", ZEL::mkRbReal(std::max(0.1, (ey1 - ey0) / 40.0)));
  }
  ZEL::objDraw(gdx.displayList(), part.get(), front, nullptr);
  ZEL::objDraw(gdx.displayList(), part.get(), end, nullptr);
  return true;
}

}  // namespace QEN
