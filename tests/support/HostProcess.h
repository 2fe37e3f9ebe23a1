// Runs qen-host (or any command line) as a user would from a shell, for the tests of what
// a run prints, what it exits with and what it leaves in files.
#pragma once

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>

struct HostResult {
  int status = -1;
  std::string out;  // stdout and stderr together
};

// A shell command line (which may start several processes and wait for them).
inline HostResult runShell(const std::string& line) {
  HostResult r;
  FILE* p = popen((line + " 2>&1").c_str(), "r");
  if (!p) return r;
  std::array<char, 4096> buf{};
  std::size_t n;
  while ((n = fread(buf.data(), 1, buf.size(), p)) > 0) r.out.append(buf.data(), n);
  const int st = pclose(p);
  r.status = WIFEXITED(st) ? WEXITSTATUS(st) : -1;
  return r;
}

// qen-host with its arguments, after environment settings ("VAR=x ").
inline HostResult runHost(const std::string& args, const std::string& environment = "") {
  return runShell(environment + std::string(QEN_HOST_EXE) + " " + args);
}

inline std::string slurp(const std::filesystem::path& p) {
  std::ifstream in(p, std::ios::binary);
  std::stringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

inline void write(const std::filesystem::path& p, const std::string& text) { std::ofstream(p, std::ios::binary) << text; }
