// The header line of the attribute dialogs (layers, hatches): which object they assign,
// and its material.
#pragma once

#include "data/CZelString.h"

class CZelDlg;

namespace QEN {

// The object's label (a caller's label for standard parts, "Schicht" for a membrane layer)
// and its material's label: " - <label>", or " {SYSTEM}" for no particular material. A
// composite panel's material is that of its panel in the panel catalogue; a sheet that is
// neither a bent sheet nor a panel shows none. Texts in the dialog's language.
CZelString attributeHeader(const CZelDlg& dlg, const CZelString& objectType, const CZelString& objectLabel,
                           const CZelString& callerLabel, const CZelString& material);

}  // namespace QEN
