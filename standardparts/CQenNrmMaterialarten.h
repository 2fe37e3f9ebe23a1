// The material types of a standard part ("Materialarten"): the materials the standard
// offers, and the ones the user added to them from the material tree, which may be removed
// again. The added materials are kept per standard under "*QEN_NM_PROP*"'s object key.
#pragma once

#include "data/CZelDataKey.h"
#include "module/qenDlgEnv_st.h"
#include "ui/CFont.h"
#include "ui/CZelDlg.h"
#include "ui/CZelListBox.h"
#include "ui/CZelMatTreeCtrl.h"

#include <vector>

class CQenNrmMaterialarten : public CZelDlg {
public:
  explicit CQenNrmMaterialarten(CWnd* parent = nullptr);

  void setEnv(const qenDlgEnv_st& env) { m_env = env; }

  BOOL OnInitDialog() override;
  bool updLang() override;
  void addLangRsc() override;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

  // The store key of the materials added to the standard of a generated part (its object
  // key at level 2); empty for no part.
  static CZelDataKey addedKey(const CZelString& objectKey2);
  // The added list under that key: a string array, or a single string as a one-element list.
  static CZelArrayTempl<CZelString> readAdded(const CZelString& objectKey2);

private:
  static const CMessageMapEntry kEntries[];
  void command(const CZelString& word);
  void refresh();
  void add();
  void remove();
  void listSelected();
  void treeSelected();
  void writeAdded(const CZelArrayTempl<CZelString>& added) const;
  CZelString current() const;

  qenDlgEnv_st m_env;
  CFont m_titleFont;
  CZelListBox m_list;
  CZelMatTreeCtrl m_tree;
  bool m_refreshing = false;
  bool m_initialising = false;
  // What the last refresh found: the standard's object key, the materials of the list in
  // its order (the standard's own first) and which of them the user added.
  CZelString m_key;
  std::vector<CZelString> m_materials;
  std::vector<CZelString> m_offered;
  CZelArrayTempl<CZelString> m_added;
};
