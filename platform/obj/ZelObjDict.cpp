#include "obj/ZelObjDict.h"

#include "data/CZelDrawing.h"

namespace ZEL {

bool obj_dict_name(const CZelString& handle, CZelString& name, bool force) {
  const CZelDataItem* data = handle.isEmpty() ? nullptr : CZelDrawing::current().objectData(handle);
  CZelDataKey key(L"NAME");
  if (data && data->get(name, &key) && !name.isEmpty()) return true;
  if (!force || !data) return false;
  name = handle;
  return true;
}

CZelString str_lib_name(const CZelString& dictName) {
  const std::wstring& s = dictName.str();
  const auto slash = s.find_last_of(L'\\');
  return slash == std::wstring::npos ? dictName : CZelString(s.substr(slash + 1));
}

CZelString lib_folder_path(const CZelArrayTempl<CZelString>& path) {
  CZelString folder;
  for (const CZelString& part : path) {
    if (part.isEmpty()) continue;
    if (!folder.isEmpty()) folder += L"/";
    folder += part;
  }
  return folder;
}

CZelString lobj_prodsys(CDtaFilePointer* data) {
  CZelString system;
  CZelDataKey key(L"PRODSYS");
  if (CZelDataItem* root = data ? data->get() : nullptr) root->get(system, &key);
  return system;
}

}  // namespace ZEL

bool zel_obj_dict_path(const CZelString& handle, CZelArrayTempl<CZelString>& path) {
  const CZelDataItem* data = handle.isEmpty() ? nullptr : CZelDrawing::current().objectData(handle);
  CZelString name;
  CZelDataKey nameKey(L"NAME"), key(L"DICT_PATH");
  if (!data || !data->get(name, &nameKey) || name.isEmpty()) return false;
  return data->get(path, &key) && !path.isEmpty();
}
