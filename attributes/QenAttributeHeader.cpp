#include "attributes/QenAttributeHeader.h"

#include "data/CConfig.h"
#include "data/CZelMatMgr.h"
#include "obj/CZelAttributeMgr.h"
#include "ui/CZelDlg.h"

namespace QEN {

CZelString attributeHeader(const CZelDlg& dlg, const CZelString& objectType, const CZelString& objectLabel,
                           const CZelString& callerLabel, const CZelString& objectMaterial) {
  CZelString text = objectLabel;
  if (objectType == L"DIN") text = callerLabel;
  if (objectType == L"FOLIE" && ZEL::cfg_get(L"*HZ_FOLIE*\\SN")) text = dlg.GetMsg(L"HZ169", L"Schicht");

  CZelString material = objectMaterial;
  if (objectType == L"BLECH") {
    CZelString cons;
    if (CZelDataItem* item = ZEL::cfg_get(L"*HZ_BLECH*\\SCONS")) item->get(cons);
    if (cons == L"BOND") {
      // A composite panel's material is that of its product line in the panel catalogue.
      CZelAttributeMgr attributes(L"BLECH");
      auto attribute = [&attributes](const wchar_t* name) {
        CZelString v;
        if (CZelDataItem* a = attributes.att_get(name)) a->get(v);
        return v;
      };
      CZelString prod = attribute(L"PROD"), sys = attribute(L"SYS"), nam = attribute(L"NAM");
      CZelDataKey key;
      key.set(5005, L"*QEN_ALUCOBOND*", 5005, prod.c_str(), 5005, sys.c_str(), 5005, L"BOND", 5005, nam.c_str(), 5005,
              L"MAT", 0);
      material = CZelString();
      if (CZelDataItem* m = ZEL::cfg_get(key)) m->get(material);
    } else if (cons != L"SHEET") {
      material = CZelString();
    }
  }
  if (!material.isEmpty()) {
    CZelString label = CZelMatMgr().matLabel(material, L"-1");
    text += label == L"SYSTEM" ? CZelString(L" {SYSTEM}") : L" - " + label;
  }
  return text;
}

}  // namespace QEN
