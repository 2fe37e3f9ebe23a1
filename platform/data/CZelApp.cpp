#include "data/CZelApp.h"

#include "data/CZelDrawing.h"

namespace ZEL {

int CZelApp::invoke(const CZelString& name, const resbuf* args, resbuf** result) {
  if (result) *result = nullptr;
  auto it = m_functions.find(name);
  if (it == m_functions.end() || !it->second) return RTERROR;
  resbuf* out = nullptr;
  int code = it->second(args, &out);
  if (code != RTNORM) {
    zelRelRb(out);
    return code;
  }
  if (result) *result = out;
  else zelRelRb(out);
  return RTNORM;
}

int CZelApp::invoke(const CZelString& name, const resbuf* args, CSmartResbuf& result) {
  resbuf* out = nullptr;
  int code = invoke(name, args, &out);
  result.reset(out);
  return code;
}

CZelApp::LispFunction CZelApp::registerFunction(const CZelString& name, LispFunction fn) {
  LispFunction previous;
  auto it = m_functions.find(name);
  if (it != m_functions.end()) previous = std::move(it->second);
  if (fn) m_functions[name] = std::move(fn);
  else m_functions.erase(name);
  return previous;
}

bool CZelApp::hasFunction(const CZelString& name) const { return m_functions.count(name) != 0; }

bool CZelApp::editedObject(const CZelString& type, CAdsName& object, bool) const {
  const CZelDrawing& d = CZelDrawing::current();
  auto it = d.currentObject.find(type);
  if (it == d.currentObject.end() || !d.objectData(it->second)) return false;
  object = CAdsName(it->second);
  return true;
}

void CZelApp::layerList(CZelArrayTempl<CLayerProp>& out) const {
  for (const auto& l : m_hostLayers) out.add(l);
}

int CZelApp::colorChoose(CZelColor& color, CWnd* parent, ZelColorChoice choice) {
  if (m_colorChooser) return m_colorChooser(color, parent);
  return m_colorDialog ? m_colorDialog(color, parent, choice) : 0;
}

// Colour 7 is the one that stands out from the background; as a background it is white,
// so that objects on layers of colour 7 are drawn black on it.
CZelColor CZelApp::backgroundColor() const {
  const int index = CZelDrawing::current().background;
  return index == 7 ? CZelColor::fromRgb(255, 255, 255) : CZelColor::fromIndex(index);
}

CZelMapTempl<CZelString, CZelString> CZelApp::hatchPatterns() const {
  CZelMapTempl<CZelString, CZelString> patterns;
  for (const auto& [name, description] : CZelDrawing::current().hatchPatterns) patterns[name] = description;
  return patterns;
}

CZelApp* zelAppPtr() {
  static CZelApp app;
  return &app;
}

}  // namespace ZEL
