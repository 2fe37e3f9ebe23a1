// The dialog templates compiled into the program: resource scripts registered at load time
// by generated sources, parsed on first use and looked up by template ID.
#pragma once

#include "ui/CDialogTemplate.h"

#include <cstddef>
#include <string>
#include <vector>

class CDialogTemplates {
public:
  struct Source {
    const char* name;  // the script's file name, for messages
    const char* text;  // its text, with the #define lines of its ID headers put in
  };

  // Called by the generated registration of each library or program; returns true so that
  // it can initialise a static.
  static bool addSources(const Source* sources, std::size_t count);

  // The template, or none.
  static const CDialogTemplate* find(UINT id);
  // The template; a CDialogError naming the ID when there is none.
  static const CDialogTemplate& get(UINT id);
  // Every template's ID, and what went wrong reading the scripts (empty: nothing).
  static std::vector<UINT> ids();
  static const std::vector<std::string>& errors();
};
