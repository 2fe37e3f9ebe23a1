// qen-host run, list and init: the host side of a dialog call.
#include "HostCommands.h"
#include "HostEntries.h"
#include "HostLispFunctions.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/CZelDrawing.h"
#include "data/ZelCommandLine.h"
#include "data/ZelDataAccess.h"
#include "data/ZelDataFiles.h"
#include "data/ZelFactorySettings.h"
#include "backend/CDialogScript.h"
#include "backend/CScriptBackend.h"
#ifdef QEN_WITH_WX
#include "backend/wx/CWxBackend.h"
#endif

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>

namespace {

int fail(const std::string& message) {
  std::cerr << "qen-host: " << message << "\n";
  return 2;
}

bool parseInt(const std::string& s, int& out) {
  char* end = nullptr;
  long v = std::strtol(s.c_str(), &end, 10);
  if (s.empty() || *end) return false;
  out = static_cast<int>(v);
  return true;
}

// --record NAME=VALUE into the dialog environment record.
bool applyRecord(qenDlgEnv_st& rec, const std::string& name, const std::string& value, std::string& error) {
  int n = 0;
  if (name == "unit") {
    if (!parseInt(value, n) || n < 0 || n > 20) { error = "unit takes an insertion-unit code from 0 to 20"; return false; }
    rec.unit = static_cast<Zel::lUnit>(n);
  } else if (name == "format") {
    if (!parseInt(value, n) || n < 1 || n > 5) { error = "format takes a number format from 1 to 5"; return false; }
    rec.format = static_cast<Zel::lFormat>(n);
  } else if (name == "country") rec.country = CZelString::fromUtf8(value);
  else if (name == "help-file") rec.helpFile = CZelString::fromUtf8(value);
  else if (name == "help-topic") rec.helpTopic = CZelString::fromUtf8(value);
  else if (name == "object") rec.object = ZEL::CAdsName(CZelString::fromUtf8(value));
  else if (name == "object2") rec.object2 = ZEL::CAdsName(CZelString::fromUtf8(value));
  else if (name == "material-mode") {
    if (value != "0" && value != "1") { error = "material-mode takes 0 or 1"; return false; }
    rec.materialMode = value == "1";
  } else {
    error = "unknown record field \"" + name + "\" (unit, format, country, help-file, help-topic, object, object2, material-mode)";
    return false;
  }
  return true;
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
  if (!CStoreFile::save(path, *factory)) {
    error = ZEL::lastFileError();
    return false;
  }
  return true;
}

int hostList() {
  for (const auto& e : hostEntries())
    std::cout << e.function << "\t" << e.objectType << "\t" << e.serves << (e.call ? "" : "\t(not built yet)") << "\n";
  return 0;
}

int hostInit(const CHostOptions& options) {
  std::unique_ptr<CZelDataItem> factory(ZEL::factorySettings());
  if (!factory) return fail(ZEL::lastFileError());
  if (!CStoreFile::save(options.store, *factory)) return fail(ZEL::lastFileError());
  std::cout << "factory settings written to " << options.store << "\n";
  return 0;
}

int hostRun(const CHostOptions& options) {
  const HostEntry* entry = findHostEntry(options.entry);
  if (!entry) return fail("unknown entry \"" + options.entry + "\"; qen-host list shows them");
  if (!entry->call) return fail(std::string(entry->function) + " (" + entry->objectType + "): this dialog does not exist yet");
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

  std::string storePath = options.store.empty() ? hostUserStorePath() : options.store;
  std::string error;
  if (options.store.empty() && !hostEnsureStore(storePath, error)) return fail(error);
  ZEL::CConfig* cfg = ZEL::cfgMgrPtr();
  if (!cfg->loadFromFile(storePath)) return fail(ZEL::lastFileError());

  // The add-on's data files (article table, label lists) live beside the store.
  ZEL::setDataFolder(std::filesystem::path(storePath).has_parent_path()
                         ? std::filesystem::path(storePath).parent_path().string()
                         : std::string("."));
  hostRegisterLispFunctions();

  CZelDrawing& drawing = CZelDrawing::current();
  drawing.reset();
  if (!options.drawing.empty() && !drawing.load(options.drawing)) return fail(ZEL::lastFileError());

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

  CZelDataItem* object = nullptr;
  if (!record.object.isNull()) {
    object = drawing.objectData(record.object.handle());
    if (!object) return fail("--record object=" + record.object.handle().toUtf8() + ": the drawing has no such object");
  }

  ZEL::cmdSetSink([](const CZelString& line) { std::cerr << line.toUtf8() << "\n"; });
  HostCall call{record, object};
  call.picks = options.picks;
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
  const std::string& outPath = options.out.empty() ? storePath : options.out;
  if (!cfg->saveToFile(outPath)) return fail(ZEL::lastFileError());
  if (!options.drawingOut.empty() && !drawing.save(options.drawingOut)) return fail(ZEL::lastFileError());
  return scriptStatus;
}
