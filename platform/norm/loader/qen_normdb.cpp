// qen-normdb FOLDER DATABASE: builds the standard-parts database from the catalogue folder.
#include "CNormDbBuilder.h"

#include <cstdio>
#include <string>

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: qen-normdb CATALOGUE_FOLDER DATABASE\n");
        return 2;
    }
    std::string why;
    if (!CNormDbBuilder::build(argv[1], argv[2], why)) {
        std::fprintf(stderr, "qen-normdb: %s\n", why.c_str());
        return 1;
    }
    return 0;
}
