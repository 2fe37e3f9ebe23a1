#include "CHostOptions.h"

#include <cerrno>
#include <cstdlib>

const char* CHostOptions::usage() {
  return "usage:\n"
         "  qen-host run ENTRY [--store FILE] [--drawing FILE] [--country CODE] [--script FILE] [--out FILE]\n"
         "                     [--drawing-out FILE] [--record NAME=VALUE]... [--projections N]\n"
         "                     [--editing] [--sheared] [--trace] [--gui | --headless]\n"
         "                     [--pick VALUE]...\n"
         "      --projections N, --editing, --sheared: for run DIN (the standard parts) only: the\n"
         "        edited part's projections in the drawing (0 to 1000; default: the object's\n"
         "        \"PROJECTIONS\"), an existing part is edited (also with --record object=HANDLE),\n"
         "        it is sheared (also when the drawing's \"sheared\" lists DIN)\n"
         "      --pick VALUE: the answer to a pick the dialog ends for, in order: a length for a\n"
         "        value pick (DIN: end code 3 the further dimension, 4 the length), a handle for\n"
         "        \"Objekt <\" (103)\n"
         "  qen-host list\n"
         "  qen-host init --store FILE\n"
         "  qen-host store FILE get KEY | set KEY JSON | remove KEY | check\n"
         "  qen-host --help\n";
}

bool CHostOptions::parse(int argc, char** argv, std::string& error) {
  if (argc < 2) {
    error = "no command given";
    return false;
  }
  command = argv[1];
  int i = 2;
  if (command == "store") {
    for (; i < argc; ++i) rest.emplace_back(argv[i]);
    return true;
  }
  if (command == "run") {
    if (i >= argc || argv[i][0] == '-') {
      error = "run needs an entry (an entry function such as qenDlgHzKl, or an object type such as KLOTZ)";
      return false;
    }
    entry = argv[i++];
  } else if (command != "list" && command != "init") {
    error = "unknown command \"" + command + "\"";
    return false;
  }
  for (; i < argc; ++i) {
    std::string a = argv[i];
    auto value = [&](std::string& out) {
      if (i + 1 >= argc) {
        error = a + " needs a value";
        return false;
      }
      out = argv[++i];
      // An empty name would quietly mean "not given": for --store the user's own store.
      if (out.empty()) {
        error = a + " needs a value, not an empty one";
        return false;
      }
      return true;
    };
    if (a == "--store") { if (!value(store)) return false; }
    else if (a == "--drawing") { if (!value(drawing)) return false; }
    else if (a == "--country") { if (!value(country)) return false; }
    else if (a == "--script") { if (!value(script)) return false; }
    else if (a == "--out") { if (!value(out)) return false; }
    else if (a == "--drawing-out") { if (!value(drawingOut)) return false; }
    else if (a == "--pick") {
      std::string v;
      if (!value(v)) return false;
      picks.push_back(v);
    }
    else if (a == "--record") {
      std::string r;
      if (!value(r)) return false;
      auto eq = r.find('=');
      if (eq == std::string::npos || eq == 0) {
        error = "--record takes NAME=VALUE, not \"" + r + "\"";
        return false;
      }
      records.emplace_back(r.substr(0, eq), r.substr(eq + 1));
    } else if (a == "--projections") {
      std::string n;
      if (!value(n)) return false;
      char* end = nullptr;
      errno = 0;
      long v = std::strtol(n.c_str(), &end, 10);
      if (n.empty() || *end || errno == ERANGE || v < 0 || v > 1000) {
        error = "--projections takes a whole number from 0 to 1000, not \"" + n + "\"";
        return false;
      }
      projections = static_cast<int>(v);
      projectionsGiven = true;
    } else if (a == "--editing") editing = true;
    else if (a == "--sheared") sheared = true;
    else if (a == "--trace") trace = true;
    else if (a == "--gui") gui = true;
    else if (a == "--headless") headless = true;
    else {
      error = "unknown option \"" + a + "\"";
      return false;
    }
  }
  if (command == "init" && store.empty()) {
    error = "init needs --store FILE";
    return false;
  }
  return true;
}
