#include "ui/CZelDplistImage.h"

#include <cwchar>
#include <iterator>

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
  // One name for each kind of item, in the order of CDisplayList::Kind; a hatch drawn with a
  // pattern is one item of many dash segments.
  static const wchar_t* const names[] = {L"lines", L"arcs", L"polylines", L"fills", L"hatches", L"hatch segment sets"};
  constexpr int kKinds = static_cast<int>(std::size(names));
  static_assert(static_cast<int>(CDisplayList::Kind::Segments) == kKinds - 1, "every kind of item has its name");
  int counts[kKinds] = {};
  for (const CDisplayList::Item& item : list.items()) ++counts[static_cast<int>(item.kind)];
  CZelString text;
  for (int i = 0; i < kKinds; ++i) {
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
