// The properties tab of the accessories that are a plain section of a given width and
// height (setting block, seal): material, article, width and height typed in the dialog or
// determined on screen in the drawing. A tab states what differs as data (its frame) and
// adds its own controls through the hooks.
#pragma once

#include "data/CZelMatMgr.h"
#include "framework/tools/CQenAccessoryPage.h"
#include "framework/tools/CSheetTabTools.h"
#include "ui/CZelEdit.h"

// Controls every size tab has, under the same numbers in each template.
namespace qen::sizetab {
constexpr int IDC_SCREEN = 10388;        // " Am Bildschirm bestimmen"
constexpr int IDC_WIDTH_LABEL = 10387;
constexpr int IDC_WIDTH = 10389;
constexpr int IDC_HEIGHT = 10390;
constexpr int IDC_MATERIAL = 10411;      // "Material..."
constexpr int IDC_MATERIAL_TEXT = 10311;
constexpr int IDC_ARTICLE = 10323;       // "Artikel..."
constexpr int IDC_ARTICLE_TEXT = 10324;
}  // namespace qen::sizetab

// What an existing object being edited does to "Am Bildschirm bestimmen".
enum class QenScreenWhileEditing {
  Unchecked,  // unchecked and disabled
  KeepCheck,  // disabled, checked or not as "QEN_MENU" says
};

struct QenSizeTabFrame {
  const wchar_t* type;       // "KLOTZ": also the key under "QEN_MENU"
  const wchar_t* section;    // "*HZ_KLOTZ*"
  const wchar_t* helpTopic;  // "qen_klotz"
  int heightLabel;           // the static "Höhe"
  QenScreenWhileEditing editing;
};

class CAccessorySizeTab : public CQenAccessoryPage {
public:
  CAccessorySizeTab(UINT templateId, const QenSizeTabFrame& frame);

  BOOL OnInitDialog() override;
  void addLangRsc() override;
  void refresh() final;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

protected:
  // Hooks for a tab's own controls: set-up with the tab's length unit, refresh from the
  // section's width and height (inside the refresh guard), and command words the shared
  // part does not know (false: not the tab's either).
  virtual void setUpFields(Zel::lUnit) {}
  virtual void refreshShape(double, double) {}
  virtual bool shapeCommand(const CZelString&) { return false; }

  // A value of the section; `fallback` when missing or not a number.
  double real(const wchar_t* key, double fallback) const;
  // After a change: the tab from the store, then the main dialog and its preview.
  void changed();

  const QenSizeTabFrame& m_frame;
  CSheetTabTools m_tools;
  CZelEdit m_width;
  CZelEdit m_height;

private:
  static const CMessageMapEntry kEntries[];

  void command(const CZelString& word);
  void onScreen();
  void onSize(CZelEdit& edit, const wchar_t* key);
  void onMaterial();
  void onArticle();

};
