// The figures of a standard part as the drawings read them from the part item: the
// standard's key, category and group, its named dimensions ("DIM": the catalogue table's
// columns, mm), its length ("LEN") and countersink depth ("SENK") where it has them.
#pragma once

#include "data/CZelDataItem.h"

#include <initializer_list>
#include <map>
#include <string>

namespace ZEL::geo::norm {

class NormPartFigures {
public:
  NormPartFigures() = default;
  explicit NormPartFigures(const CZelDataItem* part);

  std::string norm, category, group;
  std::map<std::string, double> dims;
  double length = 0.0;  // 0: none

  bool has(const std::string& name) const;
  // The first of the names that the part has with a usable (finite, positive) value, else
  // the fallback.
  double first(std::initializer_list<const char*> names, double fallback = 0.0) const;
  double operator()(const char* name, double fallback = 0.0) const { return first({name}, fallback); }
  void set(const std::string& name, double value) { dims[name] = value; }
};

}  // namespace ZEL::geo::norm
