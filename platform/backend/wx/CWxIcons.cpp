#include "backend/wx/CWxIcons.h"

#include "resources/icons/icon_10110.xpm"
#include "resources/icons/icon_10112.xpm"
#include "resources/icons/icon_10115.xpm"
#include "resources/icons/icon_10116.xpm"
#include "resources/icons/icon_10130.xpm"
#include "resources/icons/icon_10132.xpm"
#include "resources/icons/icon_10134.xpm"
#include "resources/icons/icon_10135.xpm"
#include "resources/icons/icon_10153.xpm"
#include "resources/icons/icon_10154.xpm"
#include "resources/icons/icon_10155.xpm"
#include "resources/icons/icon_10164.xpm"
#include "resources/icons/icon_10181.xpm"
#include "resources/icons/icon_10286.xpm"
#include "resources/icons/icon_10287.xpm"
#include "resources/icons/icon_10300.xpm"
#include "resources/icons/icon_10301.xpm"
#include "resources/icons/icon_10302.xpm"
#include "resources/icons/icon_10304.xpm"
#include "resources/icons/icon_10305.xpm"
#include "resources/icons/icon_10308.xpm"
#include "resources/icons/icon_10321.xpm"
#include "resources/icons/icon_10322.xpm"

#include <wx/artprov.h>
#include <wx/dcmemory.h>
#include <wx/image.h>

namespace {

struct OwnIcon {
  UINT id;
  const char* const* xpm;
};

const OwnIcon kOwnIcons[] = {
  {10110, icon_10110_xpm}, {10112, icon_10112_xpm}, {10115, icon_10115_xpm}, {10116, icon_10116_xpm},
  {10130, icon_10130_xpm}, {10132, icon_10132_xpm}, {10134, icon_10134_xpm}, {10135, icon_10135_xpm},
  {10153, icon_10153_xpm}, {10154, icon_10154_xpm}, {10155, icon_10155_xpm}, {10164, icon_10164_xpm},
  {10181, icon_10181_xpm}, {10286, icon_10286_xpm}, {10287, icon_10287_xpm}, {10300, icon_10300_xpm},
  {10301, icon_10301_xpm}, {10302, icon_10302_xpm}, {10304, icon_10304_xpm}, {10305, icon_10305_xpm},
  {10308, icon_10308_xpm}, {10321, icon_10321_xpm}, {10322, icon_10322_xpm},
};

// The message-box icons (the system's error, question, exclamation and information icons).
wxArtID systemArt(UINT id) {
  switch (id) {
    case 32513: return wxART_ERROR;
    case 32514: return wxART_QUESTION;
    case 32515: return wxART_WARNING;
    case 32516: return wxART_INFORMATION;
    default: return wxArtID();
  }
}

// An icon we have no image for still shows that something is there: a framed square.
wxBitmap placeholder(int size) {
  wxBitmap bmp(size, size);
  wxMemoryDC dc(bmp);
  dc.SetBackground(*wxWHITE_BRUSH);
  dc.Clear();
  dc.SetPen(wxPen(wxColour(128, 128, 128)));
  dc.SetBrush(*wxTRANSPARENT_BRUSH);
  dc.DrawRectangle(1, 1, size - 2, size - 2);
  dc.SelectObject(wxNullBitmap);
  return bmp;
}

}  // namespace

bool CWxIcons::isOwn(UINT id) {
  for (const OwnIcon& icon : kOwnIcons)
    if (icon.id == id) return true;
  return false;
}

wxBitmap CWxIcons::bitmap(UINT id, int size) {
  if (id == 0) return wxBitmap();
  for (const OwnIcon& icon : kOwnIcons) {
    if (icon.id != id) continue;
    wxBitmap bmp(icon.xpm);
    // Our icons are drawn for 16 pixels; a larger icon static shows them doubled, sharp.
    if (size >= 32) bmp = wxBitmap(bmp.ConvertToImage().Scale(32, 32, wxIMAGE_QUALITY_NEAREST));
    return bmp;
  }
  wxArtID art = systemArt(id);
  if (!art.empty()) return wxArtProvider::GetBitmap(art, wxART_MESSAGE_BOX, wxSize(size, size));
  return placeholder(size >= 32 ? 32 : 16);
}
