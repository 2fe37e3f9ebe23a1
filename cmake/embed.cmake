# Writes the bytes of IN as a C++ array named SYMBOL into OUT (run with cmake -P).
file(READ "${IN}" hex HEX)
string(LENGTH "${hex}" hexlen)
math(EXPR size "${hexlen} / 2")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
string(REGEX REPLACE "(0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f],0x[0-9a-f][0-9a-f])" "\\1\n" bytes "${bytes}")
file(WRITE "${OUT}" "// Generated from ${IN}; do not edit.\n#include <cstddef>\n#include <string_view>\nnamespace qen_res {\nstatic const unsigned char data_[] = {\n${bytes}0x00};\nextern const std::string_view ${SYMBOL};\nconst std::string_view ${SYMBOL}(reinterpret_cast<const char*>(data_), ${size});\n}\n")
