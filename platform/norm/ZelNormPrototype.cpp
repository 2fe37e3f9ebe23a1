#include "norm/ZelNormPrototype.h"

#include "data/resbuf.h"
#include "obj/ZelObjDraw.h"
#include "obj/geometry/ZelNormShape.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <memory>

namespace ZEL {

namespace {

// The column order of the catalogue tables (the cells of a size's "DATA" follow the table's
// columns after "size" and "preferred", or after a section's "name"), for a catalogue that
// does not yet state it as the standard's "COLUMNS" property.
const std::map<std::string, std::string>& knownColumns() {
  static const std::map<std::string, std::string> table = {
      {"ISO4014", "d;P;b1;b2;b3;c;dw;e;k;r;s"},
      {"ISO4017", "d;P;c;dw;e;k;r;s"},
      {"DIN933", "d;P;c;dw;e;k;r;s"},
      {"ISO4762", "d;P;b;dk_max;da;ds_min;e;lf;k;r;s_mean;t;v;dw;w"},
      {"ISO10642", "d;P;b;dk_theo;csh_diam;da;ds_min;e;csh_height;r;s_mean;t;w"},
      {"ISO7380-1", "d;P;b;a;da;dk;dk_mean;s_mean;t_min;r;k;e;w"},
      {"ISO7380-2", "d;P;b;c;da;dk;dk_c;s_mean;t_min;r;k;e;w"},
      {"ISO7045", "d;P;a;b;dk_max;da;k;r;rf;x;cT;mH;mZ"},
      {"ISO1207", "d;P;a;b;dk;dk_mean;da;k;n_min;r;t_min;x"},
      {"DIN84", "d;P;a;b;dk;dk_mean;da;k;n_min;r;t_min;x"},
      {"ISO4026", "d;P;t;dp;dt;df;s"},
      {"ISO4027", "d;P;t;dp;dt;df;s"},
      {"ISO4028", "d;P;d_p_max;d_p_min;e_min;s_nom;s_max;s_min;td_min;te_min;z_short_max;z_short_min;z_long_max;"
                  "z_long_min;l_short_max"},
      {"ISO4029", "d;P;t;dp;dt;df;s"},
      {"ISO7049", "d;forms;da_max;dk_max;dk_min;k_max;k_min;r_min;r_f;PH;m_ref;pene_max;pene_min"},
      {"ISO4032", "d;P;c;damax;dw;e;m;mw;s_nom"},
      {"DIN934", "d;P;c;damax;dw;e;m;mw;s_nom"},
      {"ISO4035", "d;P;c;damax;dw;e;m;s_nom"},
      {"ISO7040", "d;P;d_a_max;d_a_min;d_w_min;e_min;h_max;h_min;m_min;m_w_min;s_max;s_min"},
      {"ISO10511", "d;P;d_a_max;d_a_min;d_w_min;e_min;h_max;h_min;m_min;m_w_min;s_max;s_min"},
      {"DIN985", "d;P;damax;dw;e;m;h;s_nom"},
      {"ISO7089", "d;d1_min;d2_max;h;h_max"},
      {"ISO7090", "d;d1_min;d2_max;h;h_max"},
      {"ISO7091", "d;d1_min;d2_max;h;h_max"},
      {"ISO7093-1", "d;d1_min;d2_max;h;h_max"},
      {"IPE", "series;h;b;tw;tf"},
      {"INP", "series;h;b;tw;tf"},
      {"HEA", "series;h;b;tw;tf"},
      {"HEB", "series;h;b;tw;tf"},
      {"HEM", "series;h;b;tw;tf"},
      {"UPE", "series;h;b;tw;tf"},
      {"RHS", "h;b;t"},
      {"CHS", "D;t"},
      {"UB", "series;h;b;tw;tf"},
      {"UC", "series;h;b;tw;tf"},
      {"W", "series;h;b;tw;tf"},
      {"IS-BEAM", "series;h;b;tw;tf"},
      {"IS-CHANNEL", "series;h;b;tw;tf"},
      {"IS-ANGLE", "a;b;t"},
      {"IS-TEE", "series;h;b;tw;tf"},
      {"IS-RHS", "h;b;t"},
      {"IS-SHS", "h;b;t"},
      {"ALU-C", "h;b;tw;tf"},
  };
  return table;
}

std::vector<std::string> split(const std::string& text) {
  std::vector<std::string> out;
  std::string cell;
  for (char c : text) {
    if (c == ';' || c == ',') {
      out.push_back(cell);
      cell.clear();
    } else {
      cell += c;
    }
  }
  out.push_back(cell);
  return out;
}

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

std::vector<std::string> norm_columns(const NormStack& standardStack) {
  if (const auto columns = norm_get(standardStack, "COLUMNS"); columns && !columns->empty()) return split(*columns);
  if (standardStack.size() < 4) return {};
  const auto it = knownColumns().find(standardStack[3]);
  return it == knownColumns().end() ? std::vector<std::string>{} : split(it->second);
}

CZelDataItem* norm_part_item(const NormStack& standardStack, const std::string& size, double length, int view, int flags) {
  if (standardStack.size() < 4 || size.empty()) return nullptr;
  const auto data = norm_get(extended(standardStack, size), "DATA");
  const std::vector<std::string> columns = norm_columns(standardStack);
  if (!data || columns.empty()) return nullptr;
  const std::vector<std::string> cells = split(*data);
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
  int figures = 0;
  for (std::size_t i = 0; i < columns.size() && i < cells.size(); ++i) {
    try {
      std::size_t used = 0;
      const double v = std::stod(cells[i], &used);
      if (used != cells[i].size() || !std::isfinite(v)) continue;
      put(*part, (L"DIM\\" + CZelString::fromUtf8(columns[i])).c_str(), mkRbReal(v));
      ++figures;
    } catch (...) {
      // a text cell ("C F"): not a figure
    }
  }
  return figures > 0 ? part.release() : nullptr;
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
