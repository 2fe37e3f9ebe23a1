// What an entry function needs of a main dialog: texts and help, the initialisation the
// entry passes its record and sections through, and the modal run.
#pragma once

#include "data/CDtaFilePointer.h"
#include "data/CSharedPointer.h"
#include "data/CZelMapTempl.h"
#include "module/qenDlgEnv_st.h"
#include "ui/wintypes.h"

using QenSectionSet = CZelMapTempl<CZelString, ZEL::CSharedPointer<ZEL::CDtaFilePointer>>;

class CQenEntryDialog {
public:
  virtual ~CQenEntryDialog() = default;

  virtual void SetCountry(const CZelString& country) = 0;
  virtual void SetHelpFile(const CZelString& file) = 0;
  virtual void SetHelpTopic(const CZelString& topic) = 0;

  // The accessory dialogs: the record (or the entry's copy of it) and the section set.
  virtual void init(qenDlgEnv_st& record, QenSectionSet& sections) {}
  // The layer dialog: the section set first.
  virtual void initLayer(QenSectionSet& sections, qenDlgEnv_st& record) {}
  // The hatch dialog: its one working copy.
  virtual void initHatch(qenDlgEnv_st& record, ZEL::CDtaFilePointer* hatches) {}
  // The labeling dialog: the object's data and the working copies of texts and properties.
  virtual void initLabel(const qenDlgEnv_st& record, CZelDataItem* object, ZEL::CDtaFilePointer* texts,
                         ZEL::CDtaFilePointer* properties) {}
  // The sheet-metal dialog keeps the section set as its own member instead.
  virtual void setSections(const QenSectionSet& sections) {}
  // The axis dialog copy-assigns the record into its own.
  virtual void setRecord(const qenDlgEnv_st& record) {}
  // The sheet-metal dialog empties its tab control before it is destroyed.
  virtual void deleteAllTabs() {}

  virtual INT_PTR DoModal() = 0;
};
