// The exported dialog entry functions: their section tables and how each differs from
// the common run.
#include "qen_mfc.h"

#include "data/CCfgBackup.h"
#include "data/CConfig.h"
#include "data/CUniqPointer.h"
#include "module/CQenDialApp.h"
#include "module/CQenEntryRun.h"
#include "obj/ZelObjKey.h"
#include "store/QenStoreAccess.h"

namespace {

// clang-format off
constexpr QenSectionRow kBlockRows[] = {
  {L"*QEN_OBJ_ORDER*", kStored, false}, {L"*QEN_OBJ_PROP*", kStored, false},
  {L"_COUNTRY", kCopy, false}, {L"_COUNTRY1", kCopy, false},
  {L"*ZEL_DL_LAYDET*", kStored, false}, {L"*ZEL_LAYER*", kStored, false},
  {L"*ZEL_MAT*", kCopy, false}, {L"*HZ_KLOTZ*", kStored, false}, {L"QEN_MENU", kStored, false},
};
constexpr QenSectionRow kSealRows[] = {
  {L"*QEN_OBJ_ORDER*", kStored, false}, {L"*QEN_OBJ_PROP*", kStored, false},
  {L"_COUNTRY", kCopy, false}, {L"_COUNTRY1", kCopy, false},
  {L"*ZEL_DL_LAYDET*", kStored, false}, {L"*ZEL_LAYER*", kStored, false},
  {L"*ZEL_MAT*", kCopy, false}, {L"*HZ_DICHT*", kStored, false}, {L"QEN_MENU", kStored, false},
};
constexpr QenSectionRow kMembraneRows[] = {
  {L"*QEN_OBJ_ORDER*", kStored, false}, {L"*QEN_OBJ_PROP*", kStored, false},
  {L"_COUNTRY", kCopy, false}, {L"_COUNTRY1", kCopy, false},
  {L"*ZEL_DL_LAYDET*", kStored, false}, {L"*ZEL_LAYER*", kStored, false},
  {L"*ZEL_MAT*", kCopy, false}, {L"*HZ_FOLIE*", kStored, false},
};
constexpr QenSectionRow kSiliconeRows[] = {
  {L"*QEN_ALUCOBOND*", kCopy, true},
  {L"*QEN_OBJ_ORDER*", kStored, false}, {L"*QEN_OBJ_PROP*", kStored, false},
  {L"_COUNTRY", kCopy, false}, {L"_COUNTRY1", kCopy, false},
  {L"*ZEL_DL_LAYDET*", kStored, false}, {L"*ZEL_LAYER*", kStored, false},
  {L"*ZEL_MAT*", kCopy, false}, {L"*HZ_SILIKON*", kStored, false}, {L"QEN_MENU", kStored, false},
};
constexpr QenSectionRow kInsulationRows[] = {
  {L"*QEN_ALUCOBOND*", kCopy, true},
  {L"*QEN_OBJ_ORDER*", kStored, false}, {L"*QEN_OBJ_PROP*", kStored, false},
  {L"_COUNTRY", kCopy, false}, {L"_COUNTRY1", kCopy, false},
  {L"*ZEL_DL_LAYDET*", kStored, false}, {L"*ZEL_LAYER*", kStored, false},
  {L"*ZEL_MAT*", kCopy, false}, {L"*HZ_DM*", kStored, false}, {L"QEN_MENU", kStored, false},
};
constexpr QenSectionRow kSheetRows[] = {
  {L"*QEN_ALUCOBOND*", kCopy, true},
  {L"*QEN_OBJ_ORDER*", kStored, false}, {L"*QEN_OBJ_PROP*", kStored, false},
  {L"_COUNTRY", kCopy, false}, {L"_COUNTRY1", kCopy, false},
  {L"*ZEL_MAT*", kCopy, false}, {L"*HZ_BLECH*", kStored, false},
};
constexpr QenSectionRow kLayerRows[] = {
  {L"*QEN_OBJ_LAY*", kCopy, false}, {L"*ZEL_DL_LAYDET*", kCopy, false},
  {L"*ZEL_LAYER*", kCopy, false}, {L"*ZEL_MAT*", kCopy, false},
};
// clang-format on

constexpr QenCommonEntry kBlock{QenEntry::Block, kBlockRows, L"KLOTZ", L"*HZ_KLOTZ*", true, true};
constexpr QenCommonEntry kSeal{QenEntry::Seal, kSealRows, L"DICHT", L"*HZ_DICHT*", false, false};
constexpr QenCommonEntry kMembrane{QenEntry::Membrane, kMembraneRows, L"FOLIE", L"*HZ_FOLIE*", true, true};
constexpr QenCommonEntry kSilicone{QenEntry::Silicone, kSiliconeRows, L"SILIKON", L"*HZ_SILIKON*", false, false};
constexpr QenCommonEntry kInsulation{QenEntry::Insulation, kInsulationRows, L"DM", L"*HZ_DM*", false, true};

}  // namespace

QEN_API int qenDlgHzKl(qenDlgEnv_st& env) { return CQenEntryRun::run(kBlock, env); }
QEN_API int qenDlgHzDi(qenDlgEnv_st& env) { return CQenEntryRun::run(kSeal, env); }
QEN_API int qenDlgHzSi(qenDlgEnv_st env) { return CQenEntryRun::run(kSilicone, env); }
QEN_API int qenDlgHzFo(qenDlgEnv_st& env) { return CQenEntryRun::run(kMembrane, env); }

// The insulation dialog's pick buttons end it with 1002 to 1005; the host knows them as 2 to 5.
QEN_API int qenDlgDm(qenDlgEnv_st& env) {
  int r = CQenEntryRun::run(kInsulation, env);
  return (r >= 1002 && r <= 1005) ? r - 1000 : r;
}

QEN_API int qenDlgHzBl(qenDlgEnv_st& env) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  std::unique_ptr<CQenEntryDialog> dlg = CQenEntryRun::makeDialog(QenEntry::Sheet, env.parentWnd());
  if (!dlg) return -1;
  QenSectionSet sections;
  CQenEntryRun::openSections(kSheetRows, sections, /*createMissing=*/true);
  dlg->setSections(sections);
  dlg->SetHelpFile(env.helpFile);
  dlg->SetHelpTopic(env.helpTopic);
  dlg->SetCountry(env.country);

  INT_PTR r = dlg->DoModal();
  if (r == IDOK) CQenEntryRun::writeBack(kSheetRows, sections);
  dlg->deleteAllTabs();
  if (r == IDOK || r == IDCANCEL) CQenEntryRun::removeMode(L"*HZ_BLECH*");
  if (r == IDOK) return 1;
  if (r == IDCANCEL) return 0;
  return static_cast<int>(r);
}

QEN_API int qenDlgAxis(const qenDlgEnv_st& env) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  std::unique_ptr<CQenEntryDialog> dlg = CQenEntryRun::makeDialog(QenEntry::Axis, env.parentWnd());
  if (!dlg) return -1;
  (void)ZEL::cfg_get(CZelDataKey(L"*AXIS*"));
  ZEL::CCfgBackup backup;
  backup.attach(L"*AXIS*");
  dlg->setRecord(env);

  INT_PTR r = dlg->DoModal();
  if (r == IDOK) {
    CZelDataKey orig;
    orig.set(5005, L"*AXIS*", 5005, L"ORIG", 0);
    ZEL::cfg_remove(orig);
    return 1;
  }
  if (r == IDCANCEL) {
    backup.restore();
    return 0;
  }
  return static_cast<int>(r);
}

QEN_API int qenDlgMatObjHatch(qenDlgEnv_st env) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  std::unique_ptr<CQenEntryDialog> dlg = CQenEntryRun::makeDialog(QenEntry::Hatch, env.parentWnd());
  if (!dlg) return -1;
  const CZelString section = L"*QEN_OBJ_HATCH*";
  CQenEntryRun::createIfMissing(section);
  CZelDataKey key(section);
  ZEL::CSharedPointer<ZEL::CDtaFilePointer> copy(ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_COPY, &key, nullptr));
  dlg->SetCountry(env.country);
  dlg->SetHelpFile(env.helpFile);
  dlg->SetHelpTopic(env.helpTopic);
  qenDlgEnv_st record = env;
  dlg->initHatch(record, copy.get());

  if (dlg->DoModal() != IDOK) return 0;
  CQenEntryRun::storeCopy(section, copy.get());
  return 1;
}

QEN_API int qenDlgMatObjLayer(qenDlgEnv_st& env) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  std::unique_ptr<CQenEntryDialog> dlg = CQenEntryRun::makeDialog(QenEntry::Layer, env.parentWnd());
  if (!dlg) return -1;
  CQenEntryRun::createIfMissing(L"*ZEL_DL_LAYDET*");
  QenSectionSet sections;
  CQenEntryRun::openSections(kLayerRows, sections);
  // Copies taken now, to put back what the dialog changed directly in the store on Cancel.
  QenSectionSet atEntry;
  CQenEntryRun::openSections(kLayerRows, atEntry);
  dlg->SetCountry(env.country);
  dlg->SetHelpFile(env.helpFile);
  dlg->SetHelpTopic(env.helpTopic);
  dlg->initLayer(sections, env);

  if (dlg->DoModal() == IDOK) {
    for (const QenSectionRow& row : kLayerRows) {
      CZelString name = row.name;
      if (name == L"*ZEL_LAYER*") continue;
      if (name == L"*ZEL_MAT*" && env.materialMode) continue;
      CQenEntryRun::storeCopy(name, sections[name].get());
    }
    return 1;
  }
  CQenEntryRun::restoreCopy(L"*ZEL_LAYER*", atEntry[L"*ZEL_LAYER*"].get());
  if (env.materialMode) CQenEntryRun::restoreCopy(L"*ZEL_MAT*", atEntry[L"*ZEL_MAT*"].get());
  return 0;
}

QEN_API int qenDlgObjTxt(const qenDlgEnv_st& env, CZelDataItem* object) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  std::unique_ptr<CQenEntryDialog> dlg = CQenEntryRun::makeDialog(QenEntry::Label, env.parentWnd());
  if (!dlg) return -1;
  const CZelString texts = L"*QEN_OBJ_TXT*";
  const CZelString props = L"*QEN_OBJ_PROP*";
  CZelDataKey textKey(texts);
  CZelDataKey propKey(props);
  {
    // The object's data goes in under "GEN", so that the dialog's copies hold it.
    ZEL::CUniqPointer<ZEL::CDtaFilePointer> stored(ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_STORED, &textKey, nullptr));
    if (stored && object) {
      CZelDataKey gen(L"GEN");
      stored->set(object, &gen);
    }
  }
  ZEL::CSharedPointer<ZEL::CDtaFilePointer> untouchedTexts(ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_COPY, &textKey, nullptr));
  ZEL::CSharedPointer<ZEL::CDtaFilePointer> workTexts(ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_COPY, &textKey, nullptr));
  ZEL::CSharedPointer<ZEL::CDtaFilePointer> untouchedProps(ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_COPY, &propKey, nullptr));
  ZEL::CSharedPointer<ZEL::CDtaFilePointer> workProps(ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_COPY, &propKey, nullptr));
  if (!untouchedTexts || !workTexts || !untouchedProps || !workProps) return 0;

  dlg->SetCountry(env.country);
  if (!env.helpFile.isEmpty()) dlg->SetHelpFile(env.helpFile);
  dlg->initLabel(env, object, workTexts.get(), workProps.get());
  dlg->SetCountry(env.country);
  dlg->SetHelpFile(env.helpFile);
  dlg->SetHelpTopic(env.helpTopic);

  INT_PTR r = dlg->DoModal();
  if (r == IDOK) {
    CQenEntryRun::storeCopy(texts, workTexts.get());
    CZelDataKey listKey;
    listKey.set(5005, ZEL::objKey(object, 3).c_str(), 5005, L"TXTLST", 0);
    QEN::StringList list;
    CZelDataItem* workRoot = workProps->get();
    if (workRoot && workRoot->get(list, &listKey)) {
      ZEL::CUniqPointer<ZEL::CDtaFilePointer> storedProps(ZEL::dtaOpen(ZEL::DTA_CONFIG, ZEL::DTA_STORED, &propKey, nullptr));
      QEN::sectionSet(storedProps.get(), &listKey, list);
    }
    return 1;
  }
  if (r == IDCANCEL) {
    CQenEntryRun::restoreCopy(texts, untouchedTexts.get());
    CQenEntryRun::restoreCopy(props, untouchedProps.get());
  }
  return 0;
}
