// The toolbox the object dialogs share: the preview and its context menu, the L, S and B
// assignments (layer, hatch and labeling dialogs on the object being set), the "ORIG" and
// "COORD" flags, resetting a type to its factory state, saving a type's preset, ending a
// dialog to pick an object in the drawing, and completing an object's texts. Each dialog
// holds one; the operations take the dialog's sections, record and controls.
#pragma once

#include "data/CDtaFilePointer.h"
#include "data/CUniqPointer.h"
#include "data/CZelMapTempl.h"
#include "data/CZelMatMgr.h"
#include "data/CZelVertexArray.h"
#include "module/CQenEntryDialog.h"
#include "ui/CZelDplistImage.h"
#include "ui/CZelGDX.h"

#include <cstdint>

class CDialog;
class CWnd;

class CSheetTabTools {
public:
  CSheetTabTools();
  virtual ~CSheetTabTools();
  CSheetTabTools(const CSheetTabTools&) = delete;
  CSheetTabTools& operator=(const CSheetTabTools&) = delete;

  // Menu commands of the preview's context menu.
  static constexpr UINT kCmdZoomAll = 10113;
  static constexpr UINT kCmdClipboard = 10114;

  // The section of an object type ("KLOTZ" -> "*HZ_KLOTZ*"); empty for a type the tools
  // do not handle.
  static CZelString sectionOfType(const CZelString& type);

  // Draws the object of the section into the preview. With `zoom`, a changed outline
  // fits the picture to the drawing again, unless an existing object is being edited.
  void refreshPreview(ZEL::CDtaFilePointer* section, CZelGDX* gdx, CZelDplistImage* picture, bool zoom);
  // The preview's context menu at a screen point: "Zoom alles" and "Zwischenablage". -1
  // when the point lies outside the preview's screen rectangle.
  int previewContextMenu(CPoint point, const CRect& previewRect, CWnd* owner, CZelDplistImage* picture, CZelGDX* gdx);
  // The same over the picture's own screen rectangle (a right click anywhere in the dialog).
  int previewContextMenu(CPoint point, CWnd* owner, CZelDplistImage* picture, CZelGDX* gdx);

  // The icons of the shared buttons L, S, B, + and -, on those the dialog has.
  static void setButtonIcons(CDialog& dialog);
  // One icon on one button of the dialog (none: the dialog has no such button).
  static void setButtonIcon(CDialog& dialog, int id, UINT icon);

  // The assignment dialogs on the object of the section; true when the user chose OK.
  bool layerAssignment(ZEL::CDtaFilePointer* section, const qenDlgEnv_st& record);
  bool hatchAssignment(ZEL::CDtaFilePointer* section, QenSectionSet& sections, const qenDlgEnv_st& record, bool secondHatch);
  bool hatchAssignmentWithProps(ZEL::CDtaFilePointer* section, const qenDlgEnv_st& record, bool secondHatch);
  bool labeling(ZEL::CDtaFilePointer* section, QenSectionSet& sections, const qenDlgEnv_st& record);
  bool labelingWithProps(ZEL::CDtaFilePointer* section, const qenDlgEnv_st& record);

  // A control that only applies to new objects: unchecked and disabled while an existing
  // object is edited ("ORIG" in the section), enabled otherwise.
  void disableWhenEditing(const CZelString& section, CWnd* dialog, int id);
  // "COORD" in the options: always while editing, else as the control is checked.
  void setCoordFlag(const CZelString& section, CWnd* dialog, int id);

  void resetType(const CZelString& type);
  void saveTypeAsPreset(const CZelString& type);
  // Ends the dialog with the type's pick code: 8 for profiles, 103 for every other type.
  void pickObject(CDialog* dialog, const CZelString& type);
  void completeObjectTexts(const CZelString& type, const qenDlgEnv_st& record);

  CZelDataItem* options() const { return m_options.get(); }
  const CZelVertexArray& previewOutline() const { return m_outline; }

private:
  CZelMatMgr m_matMgr;
  ZEL::CUniqPointer<CZelDataItem> m_options;
  CZelVertexArray m_outline;
  CZelMapTempl<std::uintptr_t, std::uint64_t> m_treeMap;
  CZelMapTempl<CZelString, CZelString> m_nameMap;
};
