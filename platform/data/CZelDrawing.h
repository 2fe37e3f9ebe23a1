// The host's drawing as the platform sees it: units, layers, line types, hatch patterns,
// the objects with their attached data, the object being edited per type, and the
// library and favourites folders. Kept in a JSON drawing file by the host program.
#pragma once

#include "data/CZelColor.h"
#include "data/CZelDataItem.h"
#include "data/CZelString.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct ZelLayerRecord {
  CZelString name;
  CZelColor color;
  CZelString linetype = L"CONTINUOUS";
  int lineweight = -3;  // -3 default, -2 by block, -1 by layer, else hundredths of a mm
  CZelString plotstyle;
  CZelString description;
  bool off = false;
  bool frozen = false;
  bool locked = false;
};

class CZelDrawing {
public:
  CZelDrawing();
  ~CZelDrawing();

  static CZelDrawing& current();

  // An empty drawing in millimetres with layer "0" and the standard hatch patterns.
  void reset();
  // Replaces this drawing with the file's; on failure the drawing is untouched and
  // ZEL::lastFileError() names the file and the place.
  bool load(const std::string& path);
  // The same for a drawing file's text; `path` names it in messages and gives the folder.
  bool loadText(std::string_view bytes, const std::string& path);
  bool save(const std::string& path) const;

  int insUnits = 4;
  int background = 7;
  std::vector<ZelLayerRecord> layers;
  std::vector<CZelString> linetypes;
  // Name, description; the standard set when the drawing file lists none.
  std::vector<std::pair<CZelString, CZelString>> hatchPatterns;
  std::map<CZelString, CZelString> currentObject;                 // object type -> handle
  std::vector<CZelString> sheared;                                // object types shown sheared
  CZelString libraryFolder = L"library";
  CZelString favouritesFolder = L"favourites";
  std::string directory;  // folder of the drawing file; relative folders are taken from it

  CZelDataItem* objectData(const CZelString& handle) const;
  bool setObjectData(const CZelString& handle, const CZelDataItem& data);
  CZelString addObject(const CZelDataItem& data);  // a new handle
  std::vector<CZelString> objectHandles() const;
  ZelLayerRecord* layer(const CZelString& name);

private:
  std::vector<std::pair<CZelString, std::unique_ptr<CZelDataItem>>> m_objects;
  std::vector<std::pair<std::string, std::string>> m_extra;  // keys of the file that are not ours, kept as JSON text
};
