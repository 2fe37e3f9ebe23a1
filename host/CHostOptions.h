// The command line of qen-host, parsed.
#pragma once

#include <string>
#include <utility>
#include <vector>

struct CHostOptions {
  std::string command;  // run, list, init, store
  std::string entry;
  std::string store;
  std::string drawing;
  std::string country;
  std::string script;
  std::string out;
  std::string drawingOut;
  std::vector<std::pair<std::string, std::string>> records;
  // What the user picks in the drawing when a dialog ends to let them pick, one value per
  // round trip, in order (--pick VALUE, repeated).
  std::vector<std::string> picks;
  int projections = 0;
  bool projectionsGiven = false;
  bool editing = false;
  bool sheared = false;
  bool trace = false;
  bool gui = false;       // a window, or exit 2 when none can be shown
  bool headless = false;  // no window even with a display
  std::vector<std::string> rest;  // store FILE VERB ARGS

  // False with `error` set when the arguments are not understood.
  bool parse(int argc, char** argv, std::string& error);
  static const char* usage();
};
