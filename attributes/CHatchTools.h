// Reading the hatch section and showing one hatch on a page: the helpers that the hatch
// dialog and its pages share.
#pragma once

#include "data/CDtaFilePointer.h"
#include "data/CZelMapTempl.h"
#include "data/CZelString.h"

class CComboBox;
class CWnd;
class CZelEdit;

using HatchPatterns = CZelMapTempl<CZelString, CZelString>;

// The controls that show one hatch: its group, pattern label and combo, description,
// angle label and field, scale label and field.
struct HatchDetailIds {
  int group;
  int patternLabel;
  int pattern;
  int description;
  int angleLabel;
  int angle;
  int scaleLabel;
  int scale;
};

class CHatchTools {
public:
  // The source of the second hatch: true (and `mode` set) when IS_HATCH2 is present.
  bool readHatch2Mode(ZEL::CDtaFilePointer* hatches, int& mode) const;
  // The source of the first hatch, -1 when IS_HATCH is absent.
  int readHatchMode(ZEL::CDtaFilePointer* hatches) const;
  CZelString readMaterial(ZEL::CDtaFilePointer* hatches) const { return readText(hatches, L"MAT"); }
  CZelString readType(ZEL::CDtaFilePointer* hatches) const { return readText(hatches, L"TYPE"); }
  // A string at a backslash path of the section ("HATCH_SYS\#2"); empty when absent.
  CZelString readText(ZEL::CDtaFilePointer* hatches, const wchar_t* path) const;
  // A real at a backslash path; false when absent.
  bool readReal(ZEL::CDtaFilePointer* hatches, const wchar_t* path, double& value) const;

  // Shows or hides the assignment group and its three radios, enables them with `show`,
  // and checks the radio of the source (0 system, 1 material, 2 specific) when shown.
  void showRadios(CWnd& page, int systemId, int materialId, int ownId, int mode, int groupId, bool show) const;

  // Shows a hatch: angle and scale editable only for an own pattern that is not a solid
  // fill; the combo offers SOLID and the drawing's patterns and selects the pattern; the
  // description names a pattern the drawing does not know, marked with `notFound` (the
  // dialog's text in the user's language).
  void showDetails(CWnd& page, const HatchDetailIds& ids, CComboBox& combo, const HatchPatterns& patterns,
                   CZelEdit& angleField, double angle, CZelEdit& scaleField, double scale, int mode,
                   const CZelString& pattern, bool comboEnabled, const CZelString& notFound) const;

  // The description of a pattern, or its name followed by " - " and `notFound`.
  static CZelString description(const HatchPatterns& patterns, const CZelString& pattern, const CZelString& notFound);
};
