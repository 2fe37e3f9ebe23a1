// qen-host: the host program. It owns the drawing and the settings store, calls the
// module's entry functions and saves what the dialogs chose.
#include "CHostOptions.h"
#include "HostCommands.h"

#include <clocale>
#include <iostream>
#include <string>

int main(int argc, char** argv) {
  std::setlocale(LC_CTYPE, "C.UTF-8");
  if (argc >= 2 && (std::string(argv[1]) == "--help" || std::string(argv[1]) == "-h" || std::string(argv[1]) == "help")) {
    std::cout << CHostOptions::usage();
    return 0;
  }
  CHostOptions options;
  std::string error;
  if (!options.parse(argc, argv, error)) {
    std::cerr << "qen-host: " << error << "\n" << CHostOptions::usage();
    return 2;
  }
  if (options.command == "list") return hostList();
  if (options.command == "init") return hostInit(options);
  if (options.command == "store") return hostStore(options.rest);
  return hostRun(options);
}
