// Where a drawing object comes from in the object library: the dictionary entry the host
// recorded when the object was saved to or fetched from the library ("NAME", the type and
// the library name, "TYPE\name"; "DICT_PATH", the folders from the library's root: "QEN",
// the library folder, the type's folder), and its product system. An object whose name
// was taken away (a reset) no longer stands for a library object: it has neither.
#pragma once

#include "data/CDtaFilePointer.h"
#include "data/CZelArrayTempl.h"
#include "data/CZelString.h"

namespace ZEL {

// The dictionary name of a drawing object; false when the object has none. With `force`
// an object without one is named after its handle.
bool obj_dict_name(const CZelString& handle, CZelString& name, bool force = false);
// The library name in a dictionary name: what follows the last backslash.
CZelString str_lib_name(const CZelString& dictName);
// The folders of a dictionary path joined as the user reads them ("library/KLOTZ").
CZelString lib_folder_path(const CZelArrayTempl<CZelString>& path);
// The product system of an object's data ("PRODSYS"), empty when it has none.
CZelString lobj_prodsys(CDtaFilePointer* data);

}  // namespace ZEL

// The dictionary path of a drawing object; false when it has none.
bool zel_obj_dict_path(const CZelString& handle, CZelArrayTempl<CZelString>& path);
