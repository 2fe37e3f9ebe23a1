#include "ui/CDialogTemplates.h"

#include "ui/CDialogError.h"
#include "ui/CRcParser.h"

#include <map>

namespace {

struct Registry {
  std::vector<CDialogTemplates::Source> pending;
  std::map<UINT, CDialogTemplate> templates;
  std::vector<std::string> errors;

  void parsePending() {
    std::vector<CDialogTemplates::Source> sources;
    sources.swap(pending);
    for (const auto& source : sources) {
      std::vector<CDialogTemplate> parsed;
      std::string error;
      CRcParser parser;
      if (!parser.parse(source.text, source.name, parsed, error)) {
        errors.push_back(error);
        continue;
      }
      for (auto& t : parsed) {
        auto [it, inserted] = templates.emplace(t.id, t);
        if (!inserted)
          errors.push_back(t.source + ":" + std::to_string(t.line) + ": dialog " + std::to_string(t.id) +
                           " is defined in " + it->second.source + ":" + std::to_string(it->second.line) + " already");
      }
    }
  }
};

Registry& registry() {
  static Registry r;
  return r;
}

}  // namespace

bool CDialogTemplates::addSources(const Source* sources, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) registry().pending.push_back(sources[i]);
  return true;
}

const CDialogTemplate* CDialogTemplates::find(UINT id) {
  Registry& r = registry();
  if (!r.pending.empty()) r.parsePending();
  auto it = r.templates.find(id);
  return it == r.templates.end() ? nullptr : &it->second;
}

const CDialogTemplate& CDialogTemplates::get(UINT id) {
  if (const CDialogTemplate* t = find(id)) return *t;
  std::string message = "dialog template " + std::to_string(id) + " does not exist";
  if (!registry().errors.empty()) message += " (" + registry().errors.front() + ")";
  throw CDialogError(message);
}

std::vector<UINT> CDialogTemplates::ids() {
  find(0);
  std::vector<UINT> out;
  for (const auto& [id, t] : registry().templates) out.push_back(id);
  return out;
}

const std::vector<std::string>& CDialogTemplates::errors() {
  find(0);
  return registry().errors;
}
