#include "ui/CZelDplistImage.h"

void CZelDplistImage::set_dpList(const CZelGDX& gdx) {
  CDisplayList list = gdx.displayList();
  if (m_view.empty) m_view = list.extents();
  list.view = m_view;
  setDisplayList(std::move(list));
}

void CZelDplistImage::zoomExtents() {
  CDisplayList list = displayList();
  m_view = list.extents();
  list.view = m_view;
  setDisplayList(std::move(list));
}

void CZelDplistImage::reset() {
  m_view = CDisplayExtents{};
  setDisplayList(CDisplayList{});
}
