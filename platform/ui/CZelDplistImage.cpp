#include "ui/CZelDplistImage.h"

#include <cwchar>
#include <iterator>
#include <utility>

namespace {

CZelString number(double v) {
  wchar_t buf[32];
  std::swprintf(buf, 32, L"%.4g", v == 0.0 ? 0.0 : v);
  return buf;
}

CZelString box(const CDisplayExtents& e) {
  if (e.empty) return L"none";
  return number(e.minX) + L"," + number(e.minY) + L" to " + number(e.maxX) + L"," + number(e.maxY);
}

// What a script reads of the picture: how many elements of each kind, where the drawing
// lies and which part of it is shown.
CZelString describe(const CDisplayList& list) {
  using Kind = CDisplayList::Kind;
  static constexpr std::pair<Kind, const wchar_t*> kNames[] = {{Kind::Line, L"lines"},   {Kind::Arc, L"arcs"},
                                                               {Kind::Polyline, L"polylines"}, {Kind::Fill, L"fills"},
                                                               {Kind::Segments, L"hatches"}};
  constexpr int kCount = static_cast<int>(std::size(kNames));
  int counts[kCount] = {};
  const wchar_t* names[kCount] = {};
  for (const CDisplayList::Item& item : list.items())
    for (int i = 0; i < kCount; ++i)
      if (kNames[i].first == item.kind) ++counts[i];
  for (int i = 0; i < kCount; ++i) names[i] = kNames[i].second;
  CZelString text;
  for (int i = 0; i < kCount; ++i) {
    if (!counts[i]) continue;
    if (!text.isEmpty()) text += L", ";
    text += CZelString(std::to_wstring(counts[i])) + L" " + names[i];
  }
  if (text.isEmpty()) text = L"empty";
  return text + L"; drawing " + box(list.extents()) + L"; view " + box(list.view);
}

}  // namespace

void CZelDplistImage::set_dpList(const CZelGDX& gdx) {
  CDisplayList list = gdx.displayList();
  if (m_view.empty) m_view = list.extents();
  list.view = m_view;
  setPicture(describe(list));
  setDisplayList(std::move(list));
}

void CZelDplistImage::zoomExtents() {
  CDisplayList list = displayList();
  m_view = list.extents();
  list.view = m_view;
  setPicture(describe(list));
  setDisplayList(std::move(list));
}

void CZelDplistImage::reset() {
  m_view = CDisplayExtents{};
  setPicture(CZelString());
  setDisplayList(CDisplayList{});
}
