#include "data/CZelDrawing.h"

#include "data/CStoreFile.h"
#include "data/ZelHatchPatternTable.h"

#include <nlohmann/json.hpp>

#include <cstdlib>
#include <filesystem>

using json = nlohmann::ordered_json;

namespace {

CZelString text(const json& j, const char* key, const wchar_t* fallback = L"") {
  auto it = j.find(key);
  return it != j.end() && it->is_string() ? CZelString::fromUtf8(it->get<std::string>()) : CZelString(fallback);
}

bool readColor(const json& j, CZelColor& out) {
  if (j.is_number_integer()) {
    int i = j.get<int>();
    if (i < 0 || i > 256) return false;
    out = CZelColor::fromIndex(i);
    return true;
  }
  if (j.is_object() && j.contains("rgb") && j["rgb"].is_array() && j["rgb"].size() == 3) {
    int c[3];
    for (int k = 0; k < 3; ++k) {
      if (!j["rgb"][static_cast<std::size_t>(k)].is_number_integer()) return false;
      c[k] = j["rgb"][static_cast<std::size_t>(k)].get<int>();
      if (c[k] < 0 || c[k] > 255) return false;
    }
    out = CZelColor::fromRgb(static_cast<std::uint8_t>(c[0]), static_cast<std::uint8_t>(c[1]), static_cast<std::uint8_t>(c[2]));
    return true;
  }
  return false;
}

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
  json j;
  try {
    j = json::parse(bytes);
  } catch (const json::parse_error& e) {
    // Name the line and column as the store files do.
    std::size_t line = 1, col = 1;
    for (std::size_t i = 0; i + 1 < e.byte && i < bytes.size(); ++i) {
      if (bytes[i] == '\n') { line++; col = 1; } else if ((static_cast<unsigned char>(bytes[i]) & 0xC0) != 0x80) col++;
    }
    std::string what = e.what();
    std::size_t at = what.find(": ", what.find("column"));
    ZEL::setLastFileError(path + ":" + std::to_string(line) + ":" + std::to_string(col) + ": " +
                          (at == std::string::npos ? what : what.substr(at + 2)));
    return false;
  }
  auto bad = [&](const std::string& what) {
    ZEL::setLastFileError(path + ": " + what);
    return false;
  };
  if (!j.is_object()) return bad("a drawing file holds a JSON object");

  CZelDrawing d;
  d.layers.clear();
  std::filesystem::path p(path);
  d.directory = p.has_parent_path() ? p.parent_path().string() : std::string(".");
  if (j.contains("INSUNITS")) {
    if (!j["INSUNITS"].is_number_integer() || j["INSUNITS"].get<int>() < 0 || j["INSUNITS"].get<int>() > 20)
      return bad("\"INSUNITS\" must be an insertion-unit code from 0 to 20");
    d.insUnits = j["INSUNITS"].get<int>();
  }
  if (j.contains("background") && !j["background"].is_number_integer()) return bad("\"background\" must be a colour index");
  if (j.contains("background")) d.background = j["background"].get<int>();
  if (j.contains("layers")) {
    if (!j["layers"].is_array()) return bad("\"layers\" must be a list of layers");
    for (const auto& l : j["layers"]) {
      if (!l.is_object() || !l.contains("name") || !l["name"].is_string()) return bad("every layer needs a \"name\"");
      ZelLayerRecord r;
      r.name = text(l, "name");
      if (l.contains("color") && !readColor(l["color"], r.color))
        return bad("layer \"" + r.name.toUtf8() + "\": a colour is an index (0 to 256) or {\"rgb\": [r, g, b]}");
      r.linetype = text(l, "linetype", L"CONTINUOUS");
      if (l.contains("lineweight")) {
        if (!l["lineweight"].is_number_integer()) return bad("layer \"" + r.name.toUtf8() + "\": \"lineweight\" must be an integer");
        r.lineweight = l["lineweight"].get<int>();
      }
      r.plotstyle = text(l, "plotstyle");
      r.description = text(l, "description");
      r.off = l.value("off", false);
      r.frozen = l.value("frozen", false);
      r.locked = l.value("locked", false);
      d.layers.push_back(std::move(r));
    }
  }
  if (d.layers.empty()) {
    d.layers.emplace_back();
    d.layers[0].name = L"0";
  }
  if (j.contains("linetypes")) {
    if (!j["linetypes"].is_array()) return bad("\"linetypes\" must be a list of names");
    d.linetypes.clear();
    for (const auto& l : j["linetypes"]) {
      if (!l.is_string()) return bad("\"linetypes\" must be a list of names");
      d.linetypes.push_back(CZelString::fromUtf8(l.get<std::string>()));
    }
  }
  if (j.contains("hatch_patterns")) {
    if (!j["hatch_patterns"].is_object()) return bad("\"hatch_patterns\" maps a pattern name to its description");
    d.hatchPatterns.clear();
    for (auto it = j["hatch_patterns"].begin(); it != j["hatch_patterns"].end(); ++it)
      d.hatchPatterns.emplace_back(CZelString::fromUtf8(it.key()),
                                   CZelString::fromUtf8(it->is_string() ? it->get<std::string>() : std::string()));
    // A drawing that lists no patterns has the standard ones, as the CAD program has them.
    if (d.hatchPatterns.empty()) d.hatchPatterns = ZEL::standardHatchPatterns();
  }
  if (j.contains("objects")) {
    if (!j["objects"].is_object()) return bad("\"objects\" maps a handle to the object's data");
    for (auto it = j["objects"].begin(); it != j["objects"].end(); ++it) {
      std::unique_ptr<CZelDataItem> data(CStoreFile::parse(it->dump(), path + ", object " + it.key()));
      if (!data) return false;
      d.m_objects.emplace_back(CZelString::fromUtf8(it.key()), std::move(data));
    }
  }
  if (j.contains("current")) {
    if (!j["current"].is_object()) return bad("\"current\" maps an object type to a handle");
    for (auto it = j["current"].begin(); it != j["current"].end(); ++it) {
      if (!it->is_string()) return bad("\"current\" maps an object type to a handle");
      d.currentObject[CZelString::fromUtf8(it.key())] = CZelString::fromUtf8(it->get<std::string>());
    }
  }
  if (j.contains("sheared")) {
    if (!j["sheared"].is_array()) return bad("\"sheared\" must be a list of object types");
    for (const auto& s : j["sheared"])
      if (s.is_string()) d.sheared.push_back(CZelString::fromUtf8(s.get<std::string>()));
  }
  d.libraryFolder = text(j, "library", L"library");
  d.favouritesFolder = text(j, "favourites", L"favourites");
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
  for (const auto& [handle, data] : m_objects) j["objects"][handle.toUtf8()] = json::parse(CStoreFile::toText(*data));
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
