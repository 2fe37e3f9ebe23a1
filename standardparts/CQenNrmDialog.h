// The standard-parts dialog ("Normteile", template 10265 "DIN"): the four pages (properties,
// search, areas, administration), the preview of the selected part with its view buttons and
// display options, the texts of the selected standard, and the refresh protocol that keeps
// pages, preview and the settings store ("*NM*") in step. Every choice is written at once;
// OK only closes the dialog.
#pragma once

#include "data/CDtaFilePointer.h"
#include "data/CZelColor.h"
#include "framework/tools/CSheetTabTools.h"
#include "module/qenDlgEnv_st.h"
#include "standardparts/CQenNrmTabBereiche.h"
#include "standardparts/CQenNrmTabEigenschaften.h"
#include "standardparts/CQenNrmTabNormSuchen.h"
#include "standardparts/CQenNrmTabVerwaltung.h"
#include "standardparts/QenNrmStore.h"
#include "ui/CZelComboBox.h"
#include "ui/CZelDlg.h"
#include "ui/CZelDplistImage.h"
#include "ui/CZelGDX.h"
#include "ui/CZelTabCtrl.h"

#include <memory>
#include <string>
#include <vector>

class CSharpDialogInterface;

class CQenNrmDialog : public CZelDlg {
public:
  explicit CQenNrmDialog(CWnd* parent = nullptr);
  ~CQenNrmDialog() override;

  // What the entry function hands over before DoModal.
  void setCall(const qenDlgEnv_st& env, int projections, bool editExisting, bool sheared, CSharpDialogInterface* picker);

  BOOL OnInitDialog() override;
  void OnOK() override;
  void DoDataExchange(CDataExchange* dx) override;
  bool updLang() override;
  void addLangRsc() override;

  // The tab indices and the "MODE" value of each.
  enum Tab { kTabProps = 0, kTabSearch = 1, kTabAreas = 2, kTabAdmin = 3 };

  // For pages, tests and scripts.
  CQenNrmTabEigenschaften& props() { return m_props; }
  const CZelGDX& preview() const { return m_gdx; }
  bool isInitialising() const { return m_initialising; }
  const qenDlgEnv_st& env() const { return m_env; }
  int openView() const { return m_openView; }

  // View codes in button order and their command words.
  struct View {
    int code;
    const wchar_t* word;
    int id;
    UINT icon;
    UINT editIcon;
  };
  static const std::vector<View>& views();
  static bool validView(int code);

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];

  void command(const CZelString& word);
  void OnTabChanging(NMHDR*, LRESULT*);
  void OnTabChanged(NMHDR*, LRESULT*);
  void OnLinkClick(NMHDR*, LRESULT*);
  void OnPreviewMenu(CWnd* clicked, CPoint point);
  LRESULT OnGotoProps(WPARAM, LPARAM);
  LRESULT OnRefreshProps(WPARAM, LPARAM);
  LRESULT OnRefreshFrame(WPARAM, LPARAM);
  LRESULT OnShowPart(WPARAM, LPARAM);
  LRESULT OnPartReady(WPARAM, LPARAM);
  LRESULT OnSetFiles(WPARAM, LPARAM);

  void tabEntered(int tab);
  void displayRefresh(const qen::nrm::Stack& stack, const std::string& nd);
  void showPrototype(const qen::nrm::Stack& stack);
  void refreshTexts(const qen::nrm::Stack& stack, const std::string& type, bool treeEmpty);
  void statusLines(int view, bool barp);
  bool insertable(int view, bool barp) const;
  // Generates the part "*NM*" describes and shows it.
  void showGenerated();
  void rebuildTree();
  void onFamily();
  void onImage();
  void onView(int code);
  void onFlag(int bit, bool inverted, int id, bool refreshPropsOnly);
  void onHatch();
  enum class Assignment { Layer, Hatch, Labeling };
  void onAssignment(Assignment which);
  void onFav(bool save);
  // Opens the named data file of a type word ("DIN", "PIECE"): the data of the type's
  // current object in the drawing; none when there is no such object.
  ZEL::CDtaFilePointer* openTypeFile(const wchar_t* type);
  void handFilesToPages();

  CSheetTabTools m_tools;
  CQenNrmTabEigenschaften m_props;
  CQenNrmTabNormSuchen m_search;
  CQenNrmTabBereiche m_areas;
  CQenNrmTabVerwaltung m_admin;
  CZelComboBox m_family;
  CZelTabCtrl m_tabs;
  CZelDplistImage m_picture;
  CZelGDX m_gdx;
  CZelColor m_background;

  qenDlgEnv_st m_env;
  CSharpDialogInterface* m_picker = nullptr;
  int m_projections = 0;
  bool m_editExisting = false;
  bool m_sheared = false;
  int m_openView = 0;
  ZEL::CDtaFilePointer* m_dinFile = nullptr;
  ZEL::CDtaFilePointer* m_pieceFile = nullptr;
  std::vector<std::unique_ptr<ZEL::CDtaFilePointer>> m_openFiles;
  bool m_builtArticles = false;
  std::string m_builtMask;
  bool m_capturedArticles = false;
  std::string m_capturedMask;
  bool m_initialising = false;
};
