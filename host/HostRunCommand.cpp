// qen-host run, list and init: the host side of a dialog call.
#include "HostCommands.h"
#include "HostEntries.h"
#include "HostLispFunctions.h"

#include "data/CConfig.h"
#include "data/CFileLock.h"
#include "data/CStoreFile.h"
#include "data/CZelDataDir.h"
#include "data/CZelDrawing.h"
#include "data/ZelCommandLine.h"
#include "data/ZelDataAccess.h"
#include "data/ZelDataFileUpdate.h"
#include "data/ZelDataFiles.h"
#include "data/ZelFactorySettings.h"
#include "data/ZelStoreMerge.h"
#include "backend/CDialogScript.h"
#include "backend/CScriptBackend.h"
#ifdef QEN_WITH_WX
#include "backend/wx/CWxBackend.h"
#endif

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <memory>
#include <unistd.h>

namespace {

int fail(const std::string& message) {
  std::cerr << "qen-host: " << message << "\n";
  return 2;
}

// A whole number that fits an int: "4294967300" is refused, not read as 4.
bool parseInt(const std::string& s, int& out) {
  char* end = nullptr;
  errno = 0;
  long long v = std::strtoll(s.c_str(), &end, 10);
  if (s.empty() || *end || errno == ERANGE || v < INT_MIN || v > INT_MAX) return false;
  out = static_cast<int>(v);
  return true;
}

// --record NAME=VALUE into the dialog environment record.
bool applyRecord(qenDlgEnv_st& rec, const std::string& name, const std::string& value, std::string& error) {
  int n = 0;
  if (name == "unit") {
    if (!parseInt(value, n) || n < 0 || n > 20) { error = "unit takes an insertion-unit code from 0 to 20, not \"" + value + "\""; return false; }
    rec.unit = static_cast<Zel::lUnit>(n);
  } else if (name == "format") {
    if (!parseInt(value, n) || n < 1 || n > 5) { error = "format takes a number format from 1 to 5, not \"" + value + "\""; return false; }
    rec.format = static_cast<Zel::lFormat>(n);
  } else if (name == "country") rec.country = CZelString::fromUtf8(value);
  else if (name == "help-file") rec.helpFile = CZelString::fromUtf8(value);
  else if (name == "help-topic") rec.helpTopic = CZelString::fromUtf8(value);
  else if (name == "object" || name == "object2") {
    if (value.empty()) { error = name + " takes the handle of an object of the drawing, not an empty one"; return false; }
    (name == "object" ? rec.object : rec.object2) = ZEL::CAdsName(CZelString::fromUtf8(value));
  } else if (name == "material-mode") {
    if (value != "0" && value != "1") { error = "material-mode takes 0 or 1"; return false; }
    rec.materialMode = value == "1";
  } else {
    error = "unknown record field \"" + name + "\" (unit, format, country, help-file, help-topic, object, object2, material-mode)";
    return false;
  }
  return true;
}

bool sameFile(const std::string& a, const std::string& b) {
  std::error_code ec;
  if (std::filesystem::equivalent(a, b, ec)) return true;
  return std::filesystem::weakly_canonical(a, ec) == std::filesystem::weakly_canonical(b, ec);
}

// Writes the whole store under the file's lock: a new file (--out, init), not a merge.
bool saveWholeStore(const std::string& path, const CZelDataItem& root, std::string& error) {
  ZEL::CFileLock lock(path, ZEL::kDataFileWaitMs);
  if (!lock.isLocked()) {
    error = lock.error();
    return false;
  }
  if (CStoreFile::save(path, root)) return true;
  error = ZEL::lastFileError();
  return false;
}

// The run's results: the store and, with --drawing-out, the drawing. Both are written or
// neither: the drawing goes to a file of its own beside its target first, the store is
// saved, and only then the drawing takes its name. What is left to chance is the final
// rename, which the message names.
int saveResults(const CHostOptions& options, const std::string& storePath, const CZelDataItem& loaded,
                const CZelDataItem& root, const CZelDrawing& drawing) {
  std::string staged;
  if (!options.drawingOut.empty()) {
    staged = options.drawingOut + ".new" + std::to_string(::getpid());
    if (!drawing.save(staged)) {
      std::remove(staged.c_str());
      return fail(ZEL::lastFileError() + "; neither the store nor the drawing was written");
    }
  }
  const std::string& outPath = options.out.empty() ? storePath : options.out;
  std::string error;
  bool saved = true;
  if (sameFile(outPath, storePath) && loaded == root) {
    // The run changed nothing: the store is neither locked nor written.
  } else if (sameFile(outPath, storePath)) {
    // Only what this run changed: changes that other programs saved meanwhile stay.
    ZEL::DataFileUpdateResult r = ZEL::saveStoreChanges(storePath, loaded, root);
    saved = r.ok();
    error = r.message;
  } else {
    saved = saveWholeStore(outPath, root, error);
  }
  if (!saved) {
    if (!staged.empty()) std::remove(staged.c_str());
    return fail(error + (staged.empty() ? "; the store was not written" : "; neither the store nor the drawing was written"));
  }
  if (!staged.empty() && std::rename(staged.c_str(), options.drawingOut.c_str()) != 0) {
    const std::string why = std::strerror(errno);
    std::remove(staged.c_str());
    return fail(options.drawingOut + ": cannot be written (" + why + "); the store " + outPath +
                " was saved, the drawing was not");
  }
  return 0;
}

}  // namespace

std::string hostUserStorePath() {
  const char* xdg = std::getenv("XDG_CONFIG_HOME");
  std::filesystem::path base;
  if (xdg && *xdg) base = xdg;
  else base = std::filesystem::path(std::getenv("HOME") ? std::getenv("HOME") : ".") / ".config";
  return (base / "qen" / "settings.json").string();
}

bool hostEnsureStore(const std::string& path, std::string& error) {
  std::error_code ec;
  if (std::filesystem::exists(path, ec)) return true;
  std::filesystem::path p(path);
  if (p.has_parent_path()) std::filesystem::create_directories(p.parent_path(), ec);
  std::unique_ptr<CZelDataItem> factory(ZEL::factorySettings());
  if (!factory) {
    error = ZEL::lastFileError();
    return false;
  }
  // Two first runs at once: the one that gets the lock first writes the factory settings,
  // the other finds them there and leaves them.
  ZEL::DataFileUpdateResult r = ZEL::updateStoreFile(
      path, ZEL::kDataFileWaitMs,
      [&](CZelDataDir& dir, bool existed) {
        if (existed || !factory->isDir()) return false;
        dir.copyFrom(*factory->getDir());
        return true;
      },
      ZEL::DamagedFile::Refuse);
  if (r.ok()) return true;
  error = r.message;
  return false;
}

int hostList() {
  for (const auto& e : hostEntries())
    std::cout << e.function << "\t" << e.objectType << "\t" << e.serves << (hostEntryAvailable(e) ? "" : "\t(not built yet)")
              << "\n";
  return 0;
}

int hostInit(const CHostOptions& options) {
  std::unique_ptr<CZelDataItem> factory(ZEL::factorySettings());
  if (!factory) return fail(ZEL::lastFileError());
  std::string error;
  if (!saveWholeStore(options.store, *factory, error)) return fail(error);
  std::cout << "factory settings written to " << options.store << "\n";
  return 0;
}

int hostRun(const CHostOptions& options) {
  const HostEntry* entry = findHostEntry(options.entry);
  if (!entry) return fail("unknown entry \"" + options.entry + "\"; qen-host list shows them");
  if (!hostEntryAvailable(*entry))
    return fail(std::string(entry->function) + " (" + entry->objectType + "): this dialog does not exist yet");
  if (!entry->takesPartArguments) {
    const char* given = options.projectionsGiven ? "--projections" : options.editing ? "--editing" : options.sheared ? "--sheared" : nullptr;
    if (given)
      return fail(std::string(given) + " is an argument of the standard-parts dialog (run DIN) only, not of " +
                  entry->function + " (" + entry->objectType + ")");
  }
  if (options.gui && options.headless) return fail("--gui and --headless exclude each other");
  if (options.gui && !options.script.empty()) return fail("--gui and --script exclude each other: a script answers the dialogs itself");

  // A window when asked for, and by default when there is a display and no script.
  bool window = false;
#ifdef QEN_WITH_WX
  if (options.gui && !CWxBackend::start()) return fail("--gui: no display to show a window on (DISPLAY is not set or cannot be opened)");
  window = options.gui || (options.script.empty() && !options.headless && CWxBackend::start());
#else
  if (options.gui) return fail("--gui: this qen-host is built without windows");
#endif

  // Without a script and without windows nobody can answer the dialog: it runs with an empty
  // script, which cancels it as soon as it has opened, so the run still shows what opening
  // the dialog does to the store.
  CDialogScript script;
  std::string scriptError;
  if (!options.script.empty() && !CDialogScript::load(options.script, script, scriptError)) return fail(scriptError);
  if (options.script.empty() && !window)
    std::cerr << "qen-host: no --script and no window: the dialog is cancelled as soon as it opens\n";

  // Everything that can be refused is checked before any file is touched: the records and
  // the objects they name in the drawing.
  std::string error;
  qenDlgEnv_st checked;
  for (const auto& [name, value] : options.records)
    if (!applyRecord(checked, name, value, error)) return fail("--record " + name + ": " + error);
  CZelDrawing& drawing = CZelDrawing::current();
  drawing.reset();
  if (!options.drawing.empty() && !drawing.load(options.drawing)) return fail(ZEL::lastFileError());
  for (const auto& [name, handle] : {std::pair{"object", &checked.object}, std::pair{"object2", &checked.object2}})
    if (!handle->isNull() && !drawing.objectData(handle->handle()))
      return fail(std::string("--record ") + name + "=" + handle->handle().toUtf8() + ": the drawing has no such object");

  std::string storePath = options.store.empty() ? hostUserStorePath() : options.store;
  if (options.store.empty() && !hostEnsureStore(storePath, error)) return fail(error);
  ZEL::CConfig* cfg = ZEL::cfgMgrPtr();
  if (!cfg->loadFromFile(storePath)) return fail(ZEL::lastFileError());
  // The store as loaded: at the end only what the run changed against it is saved.
  std::unique_ptr<CZelDataItem> loaded(cfg->root()->clone());

  // The add-on's data files (article table, label lists) live beside the store.
  ZEL::setDataFolder(std::filesystem::path(storePath).has_parent_path()
                         ? std::filesystem::path(storePath).parent_path().string()
                         : std::string("."));
  hostRegisterLispFunctions();

  qenDlgEnv_st record;
  record.unit = static_cast<Zel::lUnit>(drawing.insUnits);
  // The user's country is the store's "_COUNTRY"; --country changes it for this run only.
  std::unique_ptr<CZelDataItem> storedCountry;
  if (CZelDataItem* c = ZEL::cfg_get(L"_COUNTRY")) {
    storedCountry.reset(c->clone());
    CZelString code;
    if (c->get(code) && !code.isEmpty()) record.country = code;
  }
  if (!options.country.empty()) {
    record.country = CZelString::fromUtf8(options.country);
    ZEL::cfg_set(L"_COUNTRY", ZEL::mkDataItem(ZEL::mkResbuf(record.country.c_str())), true);
  }
  for (const auto& [name, value] : options.records)
    if (!applyRecord(record, name, value, error)) return fail("--record " + name + ": " + error);

  CZelDataItem* object = record.object.isNull() ? nullptr : drawing.objectData(record.object.handle());

  ZEL::cmdSetSink([](const CZelString& line) { std::cerr << line.toUtf8() << "\n"; });
  ZEL::clearDataFileFailures();
  HostCall call{record, object};
  call.picks = options.picks;
  call.projections = options.projections;
  call.projectionsGiven = options.projectionsGiven;
  call.editing = options.editing;
  call.sheared = options.sheared;
  if (entry->prepare) entry->prepare(call);
  CScriptBackend backend(std::move(script), std::cout, std::cerr, options.trace);
  int code = 0;
#ifdef QEN_WITH_WX
  if (window) {
    CWxBackend windows(std::cout, std::cerr, options.trace);
    CDialogBackendScope scope(windows);
    code = entry->call(call);
  } else
#endif
  {
    CDialogBackendScope scope(backend);
    code = entry->call(call);
  }
  if (code == -1) return fail(std::string(entry->function) + ": the dialog could not be shown; nothing was saved");
  if (entry->finish) entry->finish(call, code);
  // What is left of the script checks the final state; a failing script still ends the run
  // as usual (end code printed, store saved), only its exit status is 1.
  int scriptStatus = backend.finish();
  std::cout << "end code: " << code << "\n";

  if (!options.country.empty()) {
    if (storedCountry) ZEL::cfg_set(L"_COUNTRY", storedCountry.release(), true);
    else ZEL::cfg_remove(L"_COUNTRY");
  }
  if (int saved = saveResults(options, storePath, *loaded, *cfg->root(), drawing)) return saved;
  // A data file (article table, label list) that the dialog could not write: the user saw a
  // message; the caller learns it from the exit status.
  if (!ZEL::dataFileFailures().empty()) {
    for (const std::string& message : ZEL::dataFileFailures()) fail(message);
    return 2;
  }
  return scriptStatus;
}
