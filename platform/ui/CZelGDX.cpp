#include "ui/CZelGDX.h"

#include "backend/CDialogBackend.h"

bool CZelGDX::refresh(const wchar_t* file, int width, int height, const CDisplayExtents& view) {
  // Pictures are only ever asked for on the clipboard; a file would need an image writer.
  if (file && *file) return false;
  CDisplayList picture = m_list;
  picture.view = view;
  return CDialogBackend::current().copyToClipboard(picture, width, height);
}
