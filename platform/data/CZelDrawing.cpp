#include "data/CZelDrawing.h"

#include "data/CJsonText.h"
#include "data/CStoreFile.h"
#include "data/ZelHatchPatternTable.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <cstdlib>
#include <filesystem>

using json = nlohmann::ordered_json;

namespace {

// Every value of a drawing is checked for its type and range before it is used; a
// failed check names the file and the key, and the drawing in memory stays as it was.
class Reader {
public:
  explicit Reader(const std::string& path) : m_path(path) {}

  bool bad(const std::string& where, const std::string& what) {
    ZEL::setLastFileError(m_path + ": " + where + what);
    return false;
  }

  // A whole number within [min, max]; numbers are never cut to fit.
  static bool whole(const json& v, std::int64_t min, std::int64_t max, int& out) {
    if (v.is_number_unsigned()) {
      if (v.get<std::uint64_t>() > static_cast<std::uint64_t>(max)) return false;
    } else if (!v.is_number_integer() || v.get<std::int64_t>() < min || v.get<std::int64_t>() > max) {
      return false;
    }
    out = static_cast<int>(v.get<std::int64_t>());
    return true;
  }

  bool number(const json& obj, const char* key, std::int64_t min, std::int64_t max, int& out, const std::string& where,
              const std::string& meaning) {
    auto it = obj.find(key);
    if (it == obj.end()) return true;
    if (!whole(*it, min, max, out)) return bad(where, "\"" + std::string(key) + "\" must be " + meaning + ", not " + shown(*it));
    return true;
  }

  bool flag(const json& obj, const char* key, bool& out, const std::string& where) {
    auto it = obj.find(key);
    if (it == obj.end()) return true;
    if (!it->is_boolean()) return bad(where, "\"" + std::string(key) + "\" must be true or false, not " + shown(*it));
    out = it->get<bool>();
    return true;
  }

  bool text(const json& v, CZelString& out, const std::string& where, const std::string& key) {
    if (!v.is_string()) return bad(where, "\"" + key + "\" must be a string, not " + shown(v));
    const std::string& s = v.get_ref<const std::string&>();
    if (s.find('\0') != std::string::npos) return bad(where, "\"" + key + "\" cannot hold U+0000");
    out = CZelString::fromUtf8(s);
    return true;
  }

  bool text(const json& obj, const char* key, CZelString& out, const std::string& where) {
    auto it = obj.find(key);
    return it == obj.end() || text(*it, out, where, key);
  }

  static bool color(const json& j, CZelColor& out) {
    int index = 0;
    if (whole(j, 0, 256, index)) {
      out = CZelColor::fromIndex(index);
      return true;
    }
    if (!j.is_object() || j.size() != 1 || !j.contains("rgb") || !j["rgb"].is_array() || j["rgb"].size() != 3) return false;
    int c[3];
    for (std::size_t k = 0; k < 3; ++k)
      if (!whole(j["rgb"][k], 0, 255, c[k])) return false;
    out = CZelColor::fromRgb(static_cast<std::uint8_t>(c[0]), static_cast<std::uint8_t>(c[1]), static_cast<std::uint8_t>(c[2]));
    return true;
  }

  // A value as the message shows it: short, never the whole of a large value.
  static std::string shown(const json& v) {
    if (v.is_object()) return "an object";
    if (v.is_array()) return "a list";
    std::string s = v.dump(-1, ' ', false, json::error_handler_t::replace);
    return s.size() > 40 ? s.substr(0, 37) + "..." : s;
  }

private:
  std::string m_path;
};

json writeColor(const CZelColor& c) {
  if (c.isTrueColor()) return json{{"rgb", {c.red(), c.green(), c.blue()}}};
  return c.index();
}

const char* const kOwnKeys[] = {"INSUNITS", "background", "layers", "linetypes", "hatch_patterns",
                                "objects", "current", "sheared", "library", "favourites"};

}  // namespace

CZelDrawing::CZelDrawing() { reset(); }
CZelDrawing::~CZelDrawing() = default;

CZelDrawing& CZelDrawing::current() {
  static CZelDrawing drawing;
  return drawing;
}

void CZelDrawing::reset() {
  insUnits = 4;
  background = 7;
  layers.assign(1, ZelLayerRecord{});
  layers[0].name = L"0";
  linetypes = {L"CONTINUOUS"};
  hatchPatterns = ZEL::standardHatchPatterns();
  currentObject.clear();
  sheared.clear();
  libraryFolder = L"library";
  favouritesFolder = L"favourites";
  directory.clear();
  m_objects.clear();
  m_extra.clear();
}

bool CZelDrawing::load(const std::string& path) {
  std::string bytes;
  if (!CStoreFile::readFile(path, bytes)) return false;
  return loadText(bytes, path);
}

bool CZelDrawing::loadText(std::string_view bytes, const std::string& path) {
  json j;
  std::string error;
  // Object data stands two levels down ("objects", its handle) and nests as a store file may.
  if (!CJsonText::parse(bytes, path, j, error, CJsonText::kMaxDepth + 2)) {
    ZEL::setLastFileError(error);
    return false;
  }
  Reader r(path);
  if (!j.is_object()) return r.bad("", "a drawing file holds a JSON object");

  CZelDrawing d;
  d.layers.clear();
  std::filesystem::path p(path);
  d.directory = p.has_parent_path() ? p.parent_path().string() : std::string(".");
  if (!r.number(j, "INSUNITS", 0, 20, d.insUnits, "", "an insertion-unit code from 0 to 20")) return false;
  if (!r.number(j, "background", 0, 256, d.background, "", "a colour index from 0 to 256")) return false;
  if (j.contains("layers")) {
    if (!j["layers"].is_array()) return r.bad("", "\"layers\" must be a list of layers");
    for (std::size_t i = 0; i < j["layers"].size(); ++i) {
      const json& l = j["layers"][i];
      std::string at = "layer " + std::to_string(i + 1) + ": ";
      if (!l.is_object() || !l.contains("name")) return r.bad(at, "every layer needs a \"name\"");
      ZelLayerRecord rec;
      if (!r.text(l, "name", rec.name, at)) return false;
      at = "layer \"" + rec.name.toUtf8() + "\": ";
      if (l.contains("color") && !Reader::color(l["color"], rec.color))
        return r.bad(at, "\"color\": a colour is an index (0 to 256) or {\"rgb\": [r, g, b]} with r, g, b from 0 to 255, not " +
                             Reader::shown(l["color"]));
      if (!r.text(l, "linetype", rec.linetype, at) ||
          !r.number(l, "lineweight", -3, 211, rec.lineweight, at,
                    "-3 (default), -2 (by block), -1 (by layer) or hundredths of a millimetre up to 211") ||
          !r.text(l, "plotstyle", rec.plotstyle, at) || !r.text(l, "description", rec.description, at) ||
          !r.flag(l, "off", rec.off, at) || !r.flag(l, "frozen", rec.frozen, at) || !r.flag(l, "locked", rec.locked, at))
        return false;
      d.layers.push_back(std::move(rec));
    }
  }
  if (d.layers.empty()) {
    d.layers.emplace_back();
    d.layers[0].name = L"0";
  }
  if (j.contains("linetypes")) {
    if (!j["linetypes"].is_array()) return r.bad("", "\"linetypes\" must be a list of names");
    d.linetypes.clear();
    for (const auto& l : j["linetypes"]) {
      CZelString name;
      if (!r.text(l, name, "", "linetypes")) return false;
      d.linetypes.push_back(name);
    }
  }
  if (j.contains("hatch_patterns")) {
    if (!j["hatch_patterns"].is_object()) return r.bad("", "\"hatch_patterns\" maps a pattern name to its description");
    d.hatchPatterns.clear();
    for (auto it = j["hatch_patterns"].begin(); it != j["hatch_patterns"].end(); ++it) {
      CZelString name, desc;
      if (!r.text(json(it.key()), name, "hatch_patterns: ", "name") ||
          !r.text(*it, desc, "hatch_patterns: ", it.key()))
        return false;
      d.hatchPatterns.emplace_back(name, desc);
    }
    // A drawing that lists no patterns has the standard ones, as the CAD program has them.
    if (d.hatchPatterns.empty()) d.hatchPatterns = ZEL::standardHatchPatterns();
  }
  if (j.contains("objects")) {
    if (!j["objects"].is_object()) return r.bad("", "\"objects\" maps a handle to the object's data");
    for (auto it = j["objects"].begin(); it != j["objects"].end(); ++it) {
      CZelString handle;
      if (!r.text(json(it.key()), handle, "objects: ", "handle")) return false;
      if (!it->is_object()) return r.bad("objects: ", "\"" + it.key() + "\" must be the object's data (a JSON object)");
      std::unique_ptr<CZelDataItem> data(CStoreFile::parse(it->dump(), path + ", object " + it.key()));
      if (!data) return false;
      d.m_objects.emplace_back(handle, std::move(data));
    }
  }
  if (j.contains("current")) {
    if (!j["current"].is_object()) return r.bad("", "\"current\" maps an object type to a handle");
    for (auto it = j["current"].begin(); it != j["current"].end(); ++it) {
      CZelString type, handle;
      if (!r.text(json(it.key()), type, "current: ", "type") || !r.text(*it, handle, "current: ", it.key())) return false;
      d.currentObject[type] = handle;
    }
  }
  if (j.contains("sheared")) {
    if (!j["sheared"].is_array()) return r.bad("", "\"sheared\" must be a list of object types");
    for (const auto& s : j["sheared"]) {
      CZelString type;
      if (!r.text(s, type, "", "sheared")) return false;
      d.sheared.push_back(type);
    }
  }
  if (!r.text(j, "library", d.libraryFolder, "") || !r.text(j, "favourites", d.favouritesFolder, "")) return false;
  for (auto it = j.begin(); it != j.end(); ++it) {
    bool own = false;
    for (const char* k : kOwnKeys) own = own || it.key() == k;
    if (!own) d.m_extra.emplace_back(it.key(), it->dump());
  }

  insUnits = d.insUnits;
  background = d.background;
  layers = std::move(d.layers);
  linetypes = std::move(d.linetypes);
  hatchPatterns = std::move(d.hatchPatterns);
  currentObject = std::move(d.currentObject);
  sheared = std::move(d.sheared);
  libraryFolder = d.libraryFolder;
  favouritesFolder = d.favouritesFolder;
  directory = d.directory;
  m_objects = std::move(d.m_objects);
  m_extra = std::move(d.m_extra);
  return true;
}

bool CZelDrawing::save(const std::string& path) const {
  json j = json::object();
  j["INSUNITS"] = insUnits;
  j["background"] = background;
  j["layers"] = json::array();
  for (const auto& l : layers) {
    j["layers"].push_back({{"name", l.name.toUtf8()}, {"color", writeColor(l.color)}, {"linetype", l.linetype.toUtf8()},
                           {"lineweight", l.lineweight}, {"plotstyle", l.plotstyle.toUtf8()},
                           {"description", l.description.toUtf8()}, {"off", l.off}, {"frozen", l.frozen},
                           {"locked", l.locked}});
  }
  j["linetypes"] = json::array();
  for (const auto& l : linetypes) j["linetypes"].push_back(l.toUtf8());
  // The standard set is what a drawing without a list has: it is not written into the file.
  j["hatch_patterns"] = json::object();
  if (hatchPatterns != ZEL::standardHatchPatterns())
    for (const auto& [name, desc] : hatchPatterns) j["hatch_patterns"][name.toUtf8()] = desc.toUtf8();
  j["current"] = json::object();
  for (const auto& [type, handle] : currentObject) j["current"][type.toUtf8()] = handle.toUtf8();
  j["sheared"] = json::array();
  for (const auto& s : sheared) j["sheared"].push_back(s.toUtf8());
  j["library"] = libraryFolder.toUtf8();
  j["favourites"] = favouritesFolder.toUtf8();
  for (const auto& [k, v] : m_extra) j[k] = json::parse(v);
  // Object data is written in store-file JSON; a placeholder keeps the key order simple.
  j["objects"] = json::object();
  for (const auto& [handle, data] : m_objects) {
    std::string text, why;
    if (!CStoreFile::toText(*data, text, why)) {
      ZEL::setLastFileError(path + ": not saved: object " + handle.toUtf8() + ": " + why);
      return false;
    }
    j["objects"][handle.toUtf8()] = json::parse(text);
  }
  return CStoreFile::writeAtomic(path, j.dump(2) + "\n");
}

CZelDataItem* CZelDrawing::objectData(const CZelString& handle) const {
  for (const auto& [h, data] : m_objects)
    if (h.match(handle)) return data.get();
  return nullptr;
}

bool CZelDrawing::setObjectData(const CZelString& handle, const CZelDataItem& data) {
  if (CZelDataItem* existing = objectData(handle)) {
    if (existing != &data) existing->assign(data);
    return true;
  }
  m_objects.emplace_back(handle, std::unique_ptr<CZelDataItem>(data.clone()));
  return true;
}

CZelString CZelDrawing::addObject(const CZelDataItem& data) {
  unsigned long next = 0x20;
  for (const auto& [h, d] : m_objects) {
    unsigned long v = std::wcstoul(h.c_str(), nullptr, 16);
    if (v >= next) next = v + 1;
  }
  wchar_t buf[32];
  std::swprintf(buf, 32, L"%lX", next);
  CZelString handle(buf);
  m_objects.emplace_back(handle, std::unique_ptr<CZelDataItem>(data.clone()));
  return handle;
}

std::vector<CZelString> CZelDrawing::objectHandles() const {
  std::vector<CZelString> out;
  for (const auto& [h, d] : m_objects) out.push_back(h);
  return out;
}

ZelLayerRecord* CZelDrawing::layer(const CZelString& name) {
  for (auto& l : layers)
    if (l.name.match(name)) return &l;
  return nullptr;
}
