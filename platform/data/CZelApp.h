// The host application object: calls a Lisp function of the host by name, answers which
// object of a type is being edited, names the add-on's data files and the drawing's hatch
// patterns. The host program registers its functions; the module only calls them.
#pragma once

#include "data/CAdsName.h"
#include "data/CLayerProp.h"
#include "data/CZelArrayTempl.h"
#include "data/CZelColor.h"
#include "data/CZelMapTempl.h"
#include "data/CZelString.h"
#include "data/resbuf.h"

#include <functional>
#include <map>
#include <vector>

class CWnd;

class CWnd;

namespace ZEL {

class CZelApp {
public:
  // A host function: the argument chain (possibly none) in, a result chain out (the
  // caller releases it); the result code is RTNORM on success.
  using LispFunction = std::function<int(const resbuf* args, resbuf** result)>;

  // RTNORM and the result, or RTERROR when the host has no such function or it failed.
  int invoke(const CZelString& name, const resbuf* args, resbuf** result);
  int invoke(const CZelString& name, const resbuf* args, CSmartResbuf& result);

  // Registers a host function; returns the one it replaces (none: there was none).
  LispFunction registerFunction(const CZelString& name, LispFunction fn);
  bool hasFunction(const CZelString& name) const;

  // The object of a type that is being edited, when the host is editing one.
  bool editedObject(const CZelString& type, CAdsName& object, bool flag = true) const;

  // The host's colour dialog on `color`: 1 and the chosen colour on OK, 0 and `color`
  // untouched otherwise. Texts in the parent dialog's language, else the user's.
  int colorChoose(CZelColor& color, CWnd* parent, ZelColorChoice choice = ZelColorChoice::Plain);
  // Puts another chooser in place of the dialog (none: the dialog again); for tests.
  using ColorChooser = std::function<int(CZelColor& color, CWnd* parent)>;
  void setColorChooser(ColorChooser chooser) { m_colorChooser = std::move(chooser); }
  // The window layer installs the colour dialog itself when it is loaded, so that this
  // object stays below the windows it serves. Without one, colorChoose answers 0.
  using ColorDialog = std::function<int(CZelColor& color, CWnd* parent, ZelColorChoice choice)>;
  void setColorDialog(ColorDialog dialog) { m_colorDialog = std::move(dialog); }

  // The layer records the host keeps besides the drawing's layers; appended to `out`.
  void layerList(CZelArrayTempl<CLayerProp>& out) const;
  void setHostLayers(std::vector<CLayerProp> layers) { m_hostLayers = std::move(layers); }

  // The colour the drawing is shown on (the previews' background).
  CZelColor backgroundColor() const;

  // The hatch patterns the drawing knows: pattern name -> description.
  CZelMapTempl<CZelString, CZelString> hatchPatterns() const;

private:
  std::map<CZelString, LispFunction> m_functions;
  std::vector<CLayerProp> m_hostLayers;
  ColorChooser m_colorChooser;
  ColorDialog m_colorDialog;
};

CZelApp* zelAppPtr();

}  // namespace ZEL
