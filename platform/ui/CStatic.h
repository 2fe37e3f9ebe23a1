// Statics of the model: text, icon, group box and frame. A frame is where a preview is
// drawn: it keeps the display list drawn last, which a window shows zoomed to its extents,
// and a description of it for scripts and tests to read.
#pragma once

#include "ui/CDisplayList.h"
#include "ui/CWnd.h"

class CStatic : public CWnd {
public:
  CStatic() = default;

  HICON SetIcon(HICON icon);
  HICON GetIcon() const { return iconHandle(m_image); }
  // The preview's drawing, as the drawing code describes it, and a repaint.
  void setPicture(const CZelString& description);
  const CZelString& picture() const { return m_picture; }
  // The preview's display list, and a repaint.
  void setDisplayList(CDisplayList list);
  const CDisplayList& displayList() const { return m_displayList; }
  bool notifies() const { return (m_style & SS_NOTIFY) != 0; }

protected:
  bool acceptsKind(WndKind kind) const override;
  void takeStateFrom(CWnd& other) override;

private:
  CZelString m_picture;
  CDisplayList m_displayList;
};
