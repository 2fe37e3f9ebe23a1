// The labeling dialog: which text items of an object its label shows, in which order and on
// which lines, the two supplementary texts from the type's multilingual list, the language of
// the texts, and a preview. Edits the working copies "*QEN_OBJ_TXT*" and "*QEN_OBJ_PROP*"
// and the object's own data.
#pragma once

#include "attributes/CLabelingStandLst.h"
#include "attributes/CLabelingSupplLst.h"
#include "data/CDtaFilePointer.h"
#include "framework/CQenTabCtrl.h"
#include "module/CQenEntryDlg.h"
#include "ui/CImageList.h"
#include "ui/CZelComboCountryBox.h"

class CLabelingDlg : public CQenEntryDlg<CZelDlg> {
public:
  explicit CLabelingDlg(CWnd* parent = nullptr);

  // The record, the object's data (may be none) and the working copies of "*QEN_OBJ_TXT*"
  // (texts) and "*QEN_OBJ_PROP*" (properties).
  void initLabel(const qenDlgEnv_st& record, CZelDataItem* object, ZEL::CDtaFilePointer* texts,
                 ZEL::CDtaFilePointer* properties) override;

  BOOL OnInitDialog() override;
  bool updLang() override;
  void addLangRsc() override;
  void OnOK() override;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

private:
  static const CMessageMapEntry kEntries[];

  // --- store access ---
  CZelDataItem* texts() const;
  CZelDataItem* gen() const;  // "GEN" of the texts, or none
  int genInt(const wchar_t* key, int fallback) const;
  CZelArrayTempl<int> genList(const wchar_t* key) const;
  // Writes into the object and into "GEN" of the texts.
  void setObject(const wchar_t* key, int value);
  void setObject(const wchar_t* key, const CZelArrayTempl<int>& values);
  void setObject(const wchar_t* key, const CZelString& value);
  CZelString objectText(const wchar_t* key) const;
  CZelString textsString(const wchar_t* key) const;
  void setTexts(const wchar_t* key, const CZelString& value);
  void setTexts(const wchar_t* key, int value);
  CZelDataKey listKey() const;  // (object key, "TXTLST")
  // The supplementary list of the object's type as the list file holds it now.
  CZelArrayTempl<CZelString> savedList() const;
  CZelArrayTempl<CZelString> storedList() const;
  void storeList(const CZelArrayTempl<CZelString>& list);

  // --- what the dialog shows ---
  CZelString language() const;
  bool isDrilling() const;
  bool onTab(int bit) const;  // the item belongs to the selected tab
  CZelArrayTempl<int> sequence() const;
  CZelArrayTempl<int> lineBreaks() const;
  CZelArrayTempl<int> tabSequence(const CZelArrayTempl<int>& whole) const;
  CZelString material() const;
  CZelString materialLabel() const;
  CZelString groupLabel() const;
  CZelString previewText() const;

  void buildHeader();
  void insertTabs();
  void refresh();
  void refreshPreview();
  void fillStandard(const CZelMapTempl<int, CZelString>& names);
  void updateItemButtons();

  // --- commands ---
  void writeOrder(const CZelArrayTempl<int>& whole, const CZelArrayTempl<int>& breaks);
  void setBits(int bits);
  void OnAdd();
  void OnRemove();
  void OnSingleLine();
  void OnUse(UINT id);
  void OnDefault();
  void OnCountry();
  void OnTabChanged(NMHDR*, LRESULT*);
  void OnSupplChanged(NMHDR*, LRESULT*);
  LRESULT OnChecked(WPARAM row, LPARAM checked);
  LRESULT OnDragged(WPARAM from, LPARAM to);
  LRESULT OnStandSelect(WPARAM row, LPARAM);
  LRESULT OnSupplEdited(WPARAM row, LPARAM);
  void OnListMenu(CWnd* clicked, CPoint point);
  void standardMenu(CPoint point);
  void standardCommand(UINT command, int bit);
  void supplMenu(CPoint point);
  void supplCommand(UINT command);
  void import();
  void OnSaveList();
  void OnSaveSetting();
  void OnRemovePreset();

  qenDlgEnv_st m_env;
  CZelDataItem* m_object = nullptr;
  ZEL::CDtaFilePointer* m_texts = nullptr;
  ZEL::CDtaFilePointer* m_props = nullptr;

  CLabelingStandLst m_standard;
  CLabelingSupplLst m_suppl;
  CZelComboCountryBox m_country;
  CQenTabCtrl m_tabs;
  CImageList m_images;

  int m_bits = 0;                        // the current text bits
  int m_refBits = 0;                     // the bits "Vorgabe" would give
  CZelArrayTempl<int> m_refSequence;     // order and breaks in force at opening (or after "Vorgabe")
  CZelArrayTempl<int> m_refLines;
  CZelArrayTempl<CZelString> m_list;     // the supplementary list
  bool m_importPending = false;
  CZelString m_importText;
  bool m_busy = false;                   // refresh guard
  bool m_reload = true;                  // take the reference bits anew at the next refresh
  int m_tab = 0;
  bool m_offerNew = false;
  bool m_offerDelete = false;
  bool m_offerImport = false;
  bool m_offerSort = true;
  int m_sortDirection = 0;               // bit 0: descending
  CZelString m_sortLanguage;
};
