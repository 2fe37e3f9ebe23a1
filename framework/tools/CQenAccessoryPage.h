// The properties tab of an accessory dialog, as the shared frame drives it: it gets the
// record and the section set, shows the object item it is given, refreshes itself from
// the store (under its busy flag) and tells its main dialog when it changed a value.
#pragma once

#include "module/CQenEntryDialog.h"
#include "ui/CZelDlg.h"
#include "data/CZelMatMgr.h"
#include "ui/CZelEdit.h"

class CQenAccessoryPage : public CZelDlg {
public:
  using CZelDlg::CZelDlg;

  void init(const qenDlgEnv_st& record, const QenSectionSet& sections) {
    m_env = record;
    m_sections = sections;
  }
  void setPageItem(CZelDataItem* item) { m_pageItem = item; }
  CZelDataItem* pageItem() const { return m_pageItem; }

  // Store -> controls; does nothing while a refresh of the page runs.
  virtual void refresh() = 0;

  const CMessageMap* GetMessageMap() const override { return &kMessageMap; }
  static const CMessageMap kMessageMap;

protected:
  // The dialog's main section as the section set opened it (the stored section).
  ZEL::CDtaFilePointer* section() { return m_sections[m_env.sectionName].get(); }
  CZelDataItem* sectionItem() {
    ZEL::CDtaFilePointer* s = section();
    return s ? s->get(nullptr, true) : nullptr;
  }
  // The page's help topic, and the add-on's help file.
  void setHelp(const wchar_t* topic);
  // The unit of the page's length fields: the section's "INSUNIT" when stored, else the
  // record's length unit.
  Zel::lUnit lengthUnit() const;
  // A numeric field of the page in the record's number format, the page's country and the
  // unit (lengths) with the edit flags; no limits beyond the flags.
  void setUpField(CZelEdit& edit, int id, int type, int flags, Zel::lUnit unit,
                  CZelEdit::Check check = CZelEdit::Check::OnLeave);
  // Shows the material's label in a static (a material the catalogue does not know by its
  // name) and remembers the material for the material tree.
  void showMaterial(int textId, const CZelString& material);
  // The key of a value of the page's section.
  CZelDataKey sectionKey(const wchar_t* name) const { return CZelDataKey::twoPart(m_env.sectionName, name); }
  // A real of the section (the fallback when missing or of another type).
  double sectionReal(const wchar_t* key, double fallback = 0.0) const;
  // A text of the section (empty when missing).
  CZelString sectionText(const wchar_t* key) const;
  // The main dialog, the tab control standing between it and the page.
  CWnd* mainDialog() const;
  // Asks the main dialog to refresh itself and its preview.
  void notifyMain();
  // "Material...": the material tree on the section's "MAT". A different material is
  // written, the object regenerated and, when its property key changed, the type's
  // properties synchronised. True when the material changed.
  bool chooseMaterial();
  // "Artikel...": the item dialog on the section; on OK `article` is the order number of
  // the object key (empty when it has none). True on OK.
  bool chooseArticle(CZelString& article);
  // The article of the object: stored under the section's "ORDER" (an empty one removes the
  // key) and, unless told otherwise, under the page item's "ORDER".
  enum class ArticleTo { SectionAndPageItem, SectionOnly };
  void storeArticle(const CZelString& article, ArticleTo to = ArticleTo::SectionAndPageItem);

  qenDlgEnv_st m_env;
  QenSectionSet m_sections;
  CZelDataItem* m_pageItem = nullptr;
  bool m_busy = false;

private:
  static const CMessageMapEntry kEntries[];
  LRESULT OnRefreshPage(WPARAM, LPARAM);
};
