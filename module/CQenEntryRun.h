// The frame every entry function shares: opening a section set from a table of rows,
// writing working copies back, removing the transient "MODE" key, and the common run of
// the accessory dialogs.
#pragma once

#include "module/CQenDialogFactory.h"
#include "module/CQenEntryDialog.h"

#include <span>

// One row of an entry's section table.
struct QenSectionRow {
  const wchar_t* name;
  unsigned long openMode;  // 1: working copy, 3: the stored section
  bool save;               // on OK, write the working copy back
};

constexpr unsigned long kCopy = ZEL::DTA_COPY;
constexpr unsigned long kStored = ZEL::DTA_STORED;

// How a common-run entry differs from the others: its rows, the strings it sets into the
// record, its dialog's parent and whether the dialog gets a copy of the record.
struct QenCommonEntry {
  QenEntry entry;
  std::span<const QenSectionRow> rows;
  const wchar_t* objectType;
  const wchar_t* sectionName;
  bool parentFromRecord;
  bool initWithCopy;
};

class CQenEntryRun {
public:
  // Opens each row's section into its slot; a section that cannot be opened leaves an
  // empty slot. With `createMissing`, a section the store lacks is first made a directory.
  static void openSections(std::span<const QenSectionRow> rows, QenSectionSet& sections, bool createMissing = false);
  // On OK: each working copy flagged for saving replaces its stored section.
  static void writeBack(std::span<const QenSectionRow> rows, QenSectionSet& sections);
  // Replaces the stored section with a copy's root item; false when the copy is missing.
  static bool storeCopy(const CZelString& section, ZEL::CDtaFilePointer* copy);
  // Puts a copy taken earlier back: an empty copy (the section did not exist) removes
  // what was created since.
  static void restoreCopy(const CZelString& section, ZEL::CDtaFilePointer* copy);
  static void removeMode(const CZelString& section);
  static bool createIfMissing(const CZelString& section);

  // The common run; the dialog's end code, or -1 when no dialog could be created.
  static int run(const QenCommonEntry& entry, qenDlgEnv_st& record);

  // None when this build has no dialog for the entry; the user is told so.
  static std::unique_ptr<CQenEntryDialog> makeDialog(QenEntry entry, CWnd* parent);
};
