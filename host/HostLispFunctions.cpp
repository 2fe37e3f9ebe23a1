// What each host function does here, where the CAD program would ask the user:
// - qen_fav_save TYPE / qen_fav_restore TYPE: the type's settings section to and from
//   "<favourites>/<TYPE>.json"; T, or nil when there is nothing to save or restore.
// - qen_obj_save TYPE: the type's settings become a library object
//   "<library>/<TYPE>/<article key>.json" and an object of the drawing, which becomes the
//   type's current object; the answer is its entity name.
// - qen_obj_restore TYPE: the most recently saved library object of the type (the one
//   named at ("*RESTORE*", "NAME") when that is set) is loaded into the type's settings and
//   becomes the current object; 1 as a short, or 0 when the library has none.
// - qen_obj_lib1: T when the library holds any object; qen_obj_lib1_init TYPE: the folder
//   of the type's library objects.
// - zel_ate_select: T when the drawing has objects; zel_ate_select_init TYPE: the handles
//   of the drawing's objects of that type as a list (nil: none).
// - qen_dwg_dict_import NAME: the names of the library objects of that type, as a list.
// - qen_mat_edge: T when the settings name an edge material ("*MAT_EDGE*\MAT").
// Folders are taken relative to the drawing file's folder.
#include "HostLispFunctions.h"

#include "data/CConfig.h"
#include "data/CStoreFile.h"
#include "data/ZelDataFileUpdate.h"
#include "data/CUniqPointer.h"
#include "data/CZelApp.h"
#include "data/CZelDataDir.h"
#include "data/CZelDrawing.h"
#include "data/ZelCommandLine.h"
#include "data/ZelDataAccess.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjTypes.h"

#include <algorithm>
#include <filesystem>
#include <vector>

namespace fs = std::filesystem;

namespace {

CZelString stringArg(const resbuf* args) {
  return args && args->restype == RTSTR ? CZelString(args->resval.rstring) : CZelString();
}

fs::path folderOf(const CZelString& folder) {
  fs::path p(folder.toUtf8());
  if (p.is_relative() && !CZelDrawing::current().directory.empty()) p = fs::path(CZelDrawing::current().directory) / p;
  return p;
}

// A library file name from an object key: the characters a file name may not hold go.
std::string fileNameOf(const CZelString& key) {
  std::string name = key.toUtf8();
  for (char& c : name)
    if (c == '/' || c == '\\' || c == ':' || c == '*' || c == '?' || c == '"' || c == '<' || c == '>' || c == '|') c = '_';
  return name.empty() ? std::string("object") : name;
}

CZelDataItem* sectionOf(const CZelString& type) {
  const ZEL::ObjTypeInfo* info = ZEL::objTypeInfo(type);
  return info ? ZEL::cfg_get(CZelDataKey(info->section)) : nullptr;
}

// A library object placed in the drawing knows where it comes from: its own entity name
// ("OBJ"), its library name ("NAME": type and name) and the folders it lies in.
CZelString placeLibraryObject(const CZelString& type, const CZelDataItem& object, const std::string& stem) {
  CZelDrawing& drawing = CZelDrawing::current();
  CZelString handle = drawing.addObject(object);
  CZelDataItem* data = drawing.objectData(handle);
  CZelDataKey obj(L"OBJ"), name(L"NAME"), path(L"DICT_PATH");
  data->put(&obj, ZEL::mkResbuf(handle.c_str(), RTENAME));
  ZEL::dataItemSet(data, &name, type + L"\\" + CZelString::fromUtf8(stem));
  CZelArrayTempl<CZelString> folders;
  folders.add(L"QEN");
  folders.add(drawing.libraryFolder);
  folders.add(type);
  data->put(&path, ZEL::mkResbuf(folders));
  drawing.currentObject[type] = handle;
  return handle;
}

int answer(resbuf** result, resbuf* value) {
  *result = value;
  return RTNORM;
}

int favSave(const resbuf* args, resbuf** result) {
  CZelString type = stringArg(args);
  CZelDataItem* section = sectionOf(type);
  if (!section) return answer(result, ZEL::newRb(RTNIL));
  fs::path dir = folderOf(CZelDrawing::current().favouritesFolder);
  std::error_code ec;
  fs::create_directories(dir, ec);
  const ZEL::DataFileUpdateResult saved =
      ZEL::replaceStoreFile((dir / (type.upper().toUtf8() + ".json")).string(), ZEL::kDataFileWaitMs, *section);
  if (!saved.ok()) {
    ZEL::cmdPrint(CZelString::fromUtf8(saved.message));
    return answer(result, ZEL::newRb(RTNIL));
  }
  return answer(result, ZEL::newRb(RTT));
}

int favRestore(const resbuf* args, resbuf** result) {
  CZelString type = stringArg(args);
  const ZEL::ObjTypeInfo* info = ZEL::objTypeInfo(type);
  fs::path file = folderOf(CZelDrawing::current().favouritesFolder) / (type.upper().toUtf8() + ".json");
  std::error_code ec;
  if (!info || !fs::exists(file, ec)) return answer(result, ZEL::newRb(RTNIL));
  ZEL::CUniqPointer<CZelDataItem> fav(CStoreFile::load(file.string()));
  if (!fav || !fav->isDir()) {
    ZEL::cmdPrint(CZelString::fromUtf8(fav ? file.string() + ": a favourite holds a directory" : ZEL::lastFileError()));
    return answer(result, ZEL::newRb(RTNIL));
  }
  ZEL::cfg_set(CZelDataKey(info->section), fav.release(), true);
  return answer(result, ZEL::newRb(RTT));
}

// The type's settings as an object: the section's values with the type.
CZelDataItem* objectFromSettings(const CZelString& type, const CZelDataItem& section) {
  CZelDataItem* object = section.clone();
  object->mkDir();
  object->getDir()->remove(CZelString(L"MODE"));
  object->getDir()->remove(CZelString(L"ORIG"));
  CZelDataKey k(L"TYPE");
  ZEL::dataItemSet(object, &k, type.upper());
  return object;
}

int objSave(const resbuf* args, resbuf** result) {
  CZelString type = stringArg(args).upper();
  CZelDataItem* section = sectionOf(type);
  if (!section) return answer(result, ZEL::newRb(RTNIL));
  ZEL::CUniqPointer<CZelDataItem> object(objectFromSettings(type, *section));
  fs::path dir = folderOf(CZelDrawing::current().libraryFolder) / type.toUtf8();
  std::error_code ec;
  fs::create_directories(dir, ec);
  const std::string stem = fileNameOf(ZEL::objKey(object.get(), 4));
  const ZEL::DataFileUpdateResult saved = ZEL::replaceStoreFile((dir / (stem + ".json")).string(), ZEL::kDataFileWaitMs, *object);
  if (!saved.ok()) {
    ZEL::cmdPrint(CZelString::fromUtf8(saved.message));
    return answer(result, ZEL::newRb(RTNIL));
  }
  const CZelString handle = placeLibraryObject(type, *object, stem);
  return answer(result, ZEL::mkResbuf(handle.c_str(), RTENAME));
}

std::vector<fs::path> libraryObjects(const CZelString& type) {
  std::vector<fs::path> files;
  std::error_code ec;
  fs::path dir = folderOf(CZelDrawing::current().libraryFolder) / type.upper().toUtf8();
  for (const auto& e : fs::directory_iterator(dir, ec))
    if (e.path().extension() == ".json") files.push_back(e.path());
  // Most recently saved first; names settle ties, so the choice is repeatable.
  std::sort(files.begin(), files.end(), [](const fs::path& a, const fs::path& b) {
    std::error_code e1, e2;
    auto ta = fs::last_write_time(a, e1), tb = fs::last_write_time(b, e2);
    return ta != tb ? ta > tb : a.filename() < b.filename();
  });
  return files;
}

int objRestore(const resbuf* args, resbuf** result) {
  CZelString type = stringArg(args).upper();
  const ZEL::ObjTypeInfo* info = ZEL::objTypeInfo(type);
  std::vector<fs::path> files = info ? libraryObjects(type) : std::vector<fs::path>{};
  CZelString wanted;
  if (CZelDataItem* name = ZEL::cfg_get(L"*RESTORE*\\NAME")) name->get(wanted);
  const fs::path* chosen = files.empty() ? nullptr : &files.front();
  for (const auto& f : files)
    if (!wanted.isEmpty() && CZelString::fromUtf8(f.stem().string()) == wanted) chosen = &f;
  if (!chosen) return answer(result, ZEL::mkRbShort(0));
  ZEL::CUniqPointer<CZelDataItem> object(CStoreFile::load(chosen->string()));
  if (!object || !object->isDir()) {
    ZEL::cmdPrint(CZelString::fromUtf8(object ? chosen->string() + ": a library object holds a directory" : ZEL::lastFileError()));
    return answer(result, ZEL::mkRbShort(0));
  }
  CZelDataItem* settings = object->clone();
  settings->getDir()->remove(CZelString(L"TYPE"));
  ZEL::cfg_set(CZelDataKey(info->section), settings, true);
  placeLibraryObject(type, *object, chosen->stem().string());
  return answer(result, ZEL::mkRbShort(1));
}

resbuf* stringList(const std::vector<CZelString>& items) {
  if (items.empty()) return ZEL::newRb(RTNIL);
  resbuf* chain = nullptr;
  for (const auto& s : items) chain = ZEL::rbAppend(chain, ZEL::mkResbuf(s.c_str()));
  return ZEL::rbToList(chain);
}

}  // namespace

void hostRegisterLispFunctions() {
  ZEL::CZelApp* app = ZEL::zelAppPtr();
  app->registerFunction(L"qen_fav_save", favSave);
  app->registerFunction(L"qen_fav_restore", favRestore);
  app->registerFunction(L"qen_obj_save", objSave);
  app->registerFunction(L"qen_obj_restore", objRestore);
  app->registerFunction(L"qen_obj_lib1", [](const resbuf*, resbuf** r) {
    std::error_code ec;
    fs::path dir = folderOf(CZelDrawing::current().libraryFolder);
    bool any = false;
    for (const auto& e : fs::recursive_directory_iterator(dir, ec))
      any = any || e.path().extension() == ".json";
    return answer(r, ZEL::newRb(any ? RTT : RTNIL));
  });
  app->registerFunction(L"qen_obj_lib1_init", [](const resbuf* args, resbuf** r) {
    fs::path dir = folderOf(CZelDrawing::current().libraryFolder) / stringArg(args).upper().toUtf8();
    return answer(r, ZEL::mkResbuf(CZelString::fromUtf8(dir.string()).c_str()));
  });
  app->registerFunction(L"zel_ate_select", [](const resbuf*, resbuf** r) {
    return answer(r, ZEL::newRb(CZelDrawing::current().objectHandles().empty() ? RTNIL : RTT));
  });
  app->registerFunction(L"zel_ate_select_init", [](const resbuf* args, resbuf** r) {
    CZelString type = stringArg(args);
    std::vector<CZelString> handles;
    CZelDataKey k(L"TYPE");
    for (const auto& h : CZelDrawing::current().objectHandles()) {
      CZelString t;
      if (CZelDrawing::current().objectData(h)->get(t, &k) && t.match(type)) handles.push_back(h);
    }
    return answer(r, stringList(handles));
  });
  app->registerFunction(L"qen_dwg_dict_import", [](const resbuf* args, resbuf** r) {
    std::vector<CZelString> names;
    for (const auto& f : libraryObjects(stringArg(args))) names.push_back(CZelString::fromUtf8(f.stem().string()));
    return answer(r, stringList(names));
  });
  app->registerFunction(L"qen_mat_edge", [](const resbuf*, resbuf** r) {
    CZelString mat;
    CZelDataItem* item = ZEL::cfg_get(L"*MAT_EDGE*\\MAT");
    return answer(r, ZEL::newRb(item && item->get(mat) && !mat.isEmpty() ? RTT : RTNIL));
  });
}
