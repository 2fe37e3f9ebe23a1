// The item dialog ("Artikel"): the label of an object and the article number recorded for
// its level-4 object key, entered, changed or deleted (deleting asks first).
#pragma once

#include "ui/CZelEdit.h"
#include "ui/CFont.h"
#include "ui/CZelDlg.h"

class CZelDataItem;

class CQenItemDlg : public CZelDlg {
public:
  // `item` is the object's data (not owned); the dialog reads the object from the store's
  // "*QEN_OBJ_GEN*", where the entry function put it.
  explicit CQenItemDlg(CWnd* parent = nullptr, CZelDataItem* item = nullptr);

  BOOL OnInitDialog() override;
  void OnOK() override;
  bool updLang() override;
  void addLangRsc() override;

  // The article table's key of the object, as the dialog opened on it.
  const CZelString& objectKey() const { return m_key; }

private:
  void fill();

  CFont m_labelFont;
  CZelEdit m_article;  // text, not a number: no format or unit is set on it
  CZelDataItem* m_item = nullptr;
  CZelString m_key;
};
