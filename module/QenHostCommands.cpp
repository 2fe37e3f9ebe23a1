// The host command functions: thin bridges to the host's Lisp functions, the
// synchronisation of an object type's settings with its stored properties, and the
// function list the host deposits in the module.
#include "qen_mfc.h"

#include "data/CConfig.h"
#include "data/CUniqPointer.h"
#include "data/CZelApp.h"
#include "data/CZelDataDir.h"
#include "data/ZelDataAccess.h"
#include "module/CQenDialApp.h"
#include "obj/CZelAttributeMgr.h"
#include "obj/ZelObjKey.h"
#include "obj/ZelObjProps.h"
#include "store/QenStoreAccess.h"
#include "ui/ZelWindowEnable.h"

namespace {

func_lst g_functionList{};

// Calls a host function with an optional string argument; the result chain or none.
resbuf* callHost(const wchar_t* name, const wchar_t* argument) {
  ZEL::CSmartResbuf args(argument ? ZEL::mkResbuf(argument, RTSTR) : nullptr);
  resbuf* result = nullptr;
  if (ZEL::zelAppPtr()->invoke(name, args.get(), &result) != RTNORM) {
    zelRelRb(result);
    return nullptr;
  }
  return result;
}

// A host result read as a boolean: only T is true.
bool isTrue(const resbuf* r) { return r && r->restype == RTT; }

// The result as a new data item when it is a list or nil, as the selection functions give it.
CZelDataItem* listItem(resbuf* result) {
  if (!result || (result->restype != RTLB && result->restype != RTNIL)) {
    zelRelRb(result);
    return nullptr;
  }
  return ZEL::mkDataItem(result, 1);
}

// The window is disabled while the host runs its command, so the user cannot reach it.
class WindowDisabled {
public:
  explicit WindowDisabled(HWND window) : m_window(window) { ZEL::windowEnable(m_window, false); }
  ~WindowDisabled() { ZEL::windowEnable(m_window, true); }

private:
  HWND m_window;
};

}  // namespace

QEN_API void fav_save(const CZelString& type) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  zelRelRb(callHost(L"qen_fav_save", type.c_str()));
}

QEN_API void fav_restore(const CZelString& type) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  zelRelRb(callHost(L"qen_fav_restore", type.c_str()));
}

QEN_API bool obj_save(const CZelString& type) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  ZEL::CSmartResbuf r(callHost(L"qen_obj_save", type.c_str()));
  return r.get() && r.get()->restype == RTENAME;
}

QEN_API int obj_restore(const CZelString& type, int flag, HWND window) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  if (flag == 1) {
    // Tells the host's restore command that it runs from a dialog.
    CZelDataKey key;
    key.set(5005, L"*RESTORE*", 5005, L"CMDACTIV", 0);
    int one = 1;
    QEN::storeSet(&key, &one);
  }
  WindowDisabled disabled(window);
  ZEL::CSmartResbuf r(callHost(L"qen_obj_restore", type.c_str()));
  if (!r.get()) return 0;
  if (r.get()->restype == RTSHORT) return r.get()->resval.rint;
  if (r.get()->restype == RTLONG) return r.get()->resval.rlong;
  return 0;
}

QEN_API bool obj_lib1(HWND window) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  WindowDisabled disabled(window);
  ZEL::CSmartResbuf r(callHost(L"qen_obj_lib1", nullptr));
  return isTrue(r.get());
}

QEN_API CZelString obj_lib1_init(const wchar_t* arg) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  ZEL::CSmartResbuf r(callHost(L"qen_obj_lib1_init", arg ? arg : L""));
  if (!r.get() || r.get()->restype != RTSTR) return CZelString();
  return CZelString(r.get()->resval.rstring);
}

QEN_API bool ate_select(HWND window) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  WindowDisabled disabled(window);
  ZEL::CSmartResbuf r(callHost(L"zel_ate_select", nullptr));
  return isTrue(r.get());
}

QEN_API CZelDataItem* ate_select_init(const wchar_t* arg) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  return listItem(callHost(L"zel_ate_select_init", arg ? arg : L""));
}

QEN_API CZelDataItem* dwg_dict_import(const wchar_t* arg) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  return listItem(callHost(L"qen_dwg_dict_import", arg ? arg : L""));
}

QEN_API bool mat_edge() {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  ZEL::CSmartResbuf r(callHost(L"qen_mat_edge", nullptr));
  return isTrue(r.get());
}

QEN_API void objGen_objProp_Sync(const CZelString& type) {
  AFX_MANAGE_STATE(AfxGetStaticModuleState());
  static const std::pair<const wchar_t*, const wchar_t*> kSections[] = {
      {L"AXIS", L"*AXIS*"},       {L"DICHT", L"*HZ_DICHT*"},     {L"DM", L"*HZ_DM*"},
      {L"FOLIE", L"*HZ_FOLIE*"},  {L"KLOTZ", L"*HZ_KLOTZ*"},     {L"SILIKON", L"*HZ_SILIKON*"},
      {L"DIN", L"*NM*"},          {L"BLECH", L"*HZ_BLECH*"},     {L"HLBZ", L"*HZ_PROFIL*"},
  };
  const wchar_t* section = nullptr;
  for (const auto& [t, s] : kSections)
    if (type == t) section = s;
  if (!section) return;

  // The section's settings describe the next object of the type; its key is that object's.
  auto propertiesOf = [&type](const CZelDataItem& settings) -> CZelDataItem* {
    ZEL::CUniqPointer<CZelDataItem> asObject(settings.clone());
    CZelDataKey typeKey(L"TYPE");
    CZelString stored;
    if (!asObject->get(stored, &typeKey)) ZEL::dataItemSet(asObject.get(), &typeKey, type);
    CZelDataItem* props = ZEL::prop_data(ZEL::objKey(asObject.get(), 3));
    return props && props->isDir() ? props : nullptr;
  };

  if (type == L"BLECH") {
    CZelAttributeMgr attributes(type);
    ZEL::CUniqPointer<CZelDataItem> built(attributes.gen_from_cfg(true, false));
    CZelDataItem* props = built ? propertiesOf(*built) : nullptr;
    if (!props) return;
    built->mkDir()->mergeFrom(*props->getDir(), 1);
    attributes.gen_to_cfg(built.get(), true);
    return;
  }
  CZelDataItem* settings = ZEL::cfg_get(CZelDataKey(section));
  if (!settings || !settings->isDir()) return;
  if (CZelDataItem* props = propertiesOf(*settings)) settings->getDir()->mergeFrom(*props->getDir(), 1);
}

QEN_API func_lst getDllFcnLst() { return g_functionList; }

QEN_API bool setDllFcnLst(const func_lst& list) {
  g_functionList = list;
  return true;
}
