// The SysLink control of the model: text with <a href="…">…</a> anchors; a click on the
// link sends NM_CLICK with its target.
#pragma once

#include "ui/CWnd.h"

class CLinkCtrl : public CWnd {
public:
  CLinkCtrl() = default;
  // The target of the first link (or of the link's text when it has no href), or empty.
  CZelString linkUrl() const;
  // The text without its anchor tags, as the user reads it.
  CZelString displayText() const;
  void click();

protected:
  bool acceptsKind(WndKind kind) const override { return kind == WndKind::SysLink; }
};
