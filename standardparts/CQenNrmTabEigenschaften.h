// The properties tab of the standard-parts dialog ("Eigenschaften", template 10266): the
// tree of standards filtered by the areas, the caller's filter and the only-articles switch;
// variant, material and article of the selected standard; and the dimension group (nominal
// size, standard or free length, clamping length, radius or countersink depth). Every change
// is written to "*NM*" at once and the part is drawn again in the dialog's preview.
#pragma once

#include "data/CDtaFilePointer.h"
#include "data/CUniqPointer.h"
#include "data/CZelMatMgr.h"
#include "module/qenDlgEnv_st.h"
#include "standardparts/QenNrmStore.h"
#include "ui/CImageList.h"
#include "ui/CTreeCtrl.h"
#include "ui/CZelComboBox.h"
#include "standardparts/CQenNrmTab.h"
#include "ui/CZelEdit.h"

#include <string>
#include <vector>

class CQenNrmTabEigenschaften : public CQenNrmTab {
public:
  CQenNrmTabEigenschaften();
  ~CQenNrmTabEigenschaften() override;

  void setEnv(const qenDlgEnv_st& env) { m_env = env; }
  void setFiles(ZEL::CDtaFilePointer* din, ZEL::CDtaFilePointer* piece) {
    m_dinFile = din;
    m_pieceFile = piece;
  }

  BOOL OnInitDialog() override;
  void OnOK() override;
  void addLangRsc() override;
  void DoDataExchange(CDataExchange* dx) override;

  // The tree: the node of `stack` and its subtree under `parent` (the root for an empty
  // stack), leaving out the domains of `filter`.
  void buildTree(const qen::nrm::Stack& stack, HTREEITEM parent, const std::vector<std::string>& filter);
  // Deletes every item and builds the tree from the root.
  void rebuildTree(const std::vector<std::string>& filter);
  const std::vector<qen::nrm::Stack>& treeStacks() const { return m_mapStacks; }
  bool treeEmpty() const { return m_mapStacks.empty(); }
  // Whether the tree was built at least once.
  bool treeBuilt() const { return m_treeBuilt; }
  void selectStack(const qen::nrm::Stack& stack);
  void focusTree() { m_tree.SetFocus(); }
  // Per group path the keys of the standards placed in the tree ("LEAFS").
  CZelDataItem* pickerItem() const { return m_picker.get(); }

  // The properties refresh (the dialog's answer to its refresh-properties message).
  void refreshProps();
  // The dimension group for a standard and nominal size.
  void refreshDims(const qen::nrm::Stack& stack, const std::string& nd);

  // The nominal sizes shown on the alternate background (the bands of the size list).
  const std::vector<int>& sizeBands() const { return m_size.altBackgr(); }

  bool rebuildPending() const { return m_rebuildPending; }
  void setRebuildPending(bool pending) { m_rebuildPending = pending; }
  void setFrameRefreshing(bool refreshing) { m_frameRefreshing = refreshing; }
  bool initialising() const { return m_initialising; }

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];

  void command(const CZelString& word);
  void OnContextMenu(CWnd*, CPoint) {}
  void showGenerated() const;
  // Compares the level-3 object key before and after a command; a change synchronises
  // the type's properties.
  void keyCheck(const CZelString& before) const;

  void onObj();
  void onVar();
  void onMat();
  void onMatDef();
  void onOrder();
  // Dimension group.
  void onSize();
  void onStdLengthCheck();
  void onLengthList();
  void onLength();
  void onFurther();
  void setUpEdits(Zel::lUnit unit, int format);
  void disableAll();

  CImageList m_images;
  CZelMatMgr m_matMgr;
  std::vector<qen::nrm::Stack> m_mapStacks;
  std::vector<CZelString> m_mapTexts;
  std::vector<HTREEITEM> m_mapItems;
  CTreeCtrl m_tree;
  ZEL::CUniqPointer<CZelDataItem> m_picker;
  CZelComboBox m_variant, m_material, m_size, m_lengths;
  CZelEdit m_length, m_further;
  bool m_rebuildPending = false;
  bool m_frameRefreshing = false;
  bool m_propsRefreshing = false;
  bool m_initialising = false;
  bool m_building = false;
  bool m_treeBuilt = false;
  bool m_sizeChanged = false;
  qenDlgEnv_st m_env;
  ZEL::CDtaFilePointer* m_dinFile = nullptr;
  ZEL::CDtaFilePointer* m_pieceFile = nullptr;
};
