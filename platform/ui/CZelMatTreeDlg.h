// The material tree dialog: the offered materials of the catalogue under the materials they
// inherit from, the current one selected; the label of the selected material in the
// caller's language below the tree.
#pragma once

#include "ui/CZelDlg.h"
#include "ui/CZelMatTreeCtrl.h"
#include "ui/DlgEnvMatTree_st.h"

class CZelMatTreeDlg : public CZelDlg {
public:
  CZelMatTreeDlg(const ZEL::DlgEnvMatTree_st& env, const CZelString& material);

  // The material chosen with OK (the one the dialog opened on until then).
  const CZelString& material() const { return m_material; }

  BOOL OnInitDialog() override;
  void OnOK() override;
  bool updLang() override;
  void addLangRsc() override;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];
  void command(const CZelString& word);
  CZelString selectedMaterial() const;
  void refresh();

  ZEL::DlgEnvMatTree_st m_env;
  CZelString m_material;
  CZelMatTreeCtrl m_tree;
  bool m_refreshing = false;
};
