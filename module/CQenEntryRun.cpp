#include "module/CQenEntryRun.h"

#include "data/CConfig.h"
#include "data/CUniqPointer.h"
#include "data/ZelCommandLine.h"
#include "module/CQenDialApp.h"

void CQenEntryRun::openSections(std::span<const QenSectionRow> rows, QenSectionSet& sections, bool createMissing) {
  CZelDataKey key;
  for (const QenSectionRow& row : rows) {
    if (createMissing) createIfMissing(row.name);
    key.set(row.name);
    sections[row.name] = ZEL::dtaOpen(ZEL::DTA_CONFIG, row.openMode, &key, nullptr);
  }
}

bool CQenEntryRun::storeCopy(const CZelString& section, ZEL::CDtaFilePointer* copy) {
  CZelDataItem* root = copy ? copy->get() : nullptr;
  if (!root) return false;
  CZelDataKey key(section);
  ZEL::CUniqPointer<ZEL::CDtaFilePointer> stored(ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_STORED, &key, root));
  return static_cast<bool>(stored);
}

void CQenEntryRun::restoreCopy(const CZelString& section, ZEL::CDtaFilePointer* copy) {
  if (!copy) return;
  if (!storeCopy(section, copy)) ZEL::cfg_remove(CZelDataKey(section));
}

void CQenEntryRun::writeBack(std::span<const QenSectionRow> rows, QenSectionSet& sections) {
  for (const QenSectionRow& row : rows) {
    if (row.openMode != kCopy || !row.save) continue;
    ZEL::CSharedPointer<ZEL::CDtaFilePointer>* slot = sections.lookup(row.name);
    if (slot) storeCopy(row.name, slot->get());
  }
}

void CQenEntryRun::removeMode(const CZelString& section) {
  CZelDataKey key;
  key.set(5005, section.c_str(), 5005, L"MODE", 0);
  ZEL::cfg_remove(key);
}

bool CQenEntryRun::createIfMissing(const CZelString& section) {
  CZelDataKey key(section);
  if (ZEL::cfg_get(key)) return false;
  return ZEL::cfg_dir_make(key) != nullptr;
}

std::unique_ptr<CQenEntryDialog> CQenEntryRun::makeDialog(QenEntry entry, CWnd* parent) {
  std::unique_ptr<CQenEntryDialog> dlg = CQenDialogFactory::make(entry, parent);
  if (!dlg) ZEL::cmdPrint(CZelString(L"The ") + CQenDialogFactory::dialogName(entry) + L" is not available in this build.");
  return dlg;
}

int CQenEntryRun::run(const QenCommonEntry& entry, qenDlgEnv_st& record) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  std::unique_ptr<CQenEntryDialog> dlg = makeDialog(entry.entry, entry.parentFromRecord ? record.parentWnd() : nullptr);
  if (!dlg) return -1;  // as when the framework cannot create the dialog: nothing written, MODE kept
  QenSectionSet sections;
  openSections(entry.rows, sections);
  dlg->SetCountry(record.country);
  record.objectType = entry.objectType;
  record.sectionName = entry.sectionName;
  qenDlgEnv_st copy = record;
  dlg->init(entry.initWithCopy ? copy : record, sections);

  INT_PTR r = dlg->DoModal();
  if (r == IDOK) writeBack(entry.rows, sections);
  if (r == IDOK || r == IDCANCEL) removeMode(entry.sectionName);
  if (r == IDOK) return 1;
  if (r == IDCANCEL) return 0;
  return static_cast<int>(r);
}
