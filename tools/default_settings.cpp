// Writes the default settings file beside the built editor, unless one is there.
//
// Usage: default_settings <path of the settings file "zwierlijn">
#include <cstdio>
#include <exception>

#include "window/instellingen.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: default_settings <settings file>\n");
        return 2;
    }
    try {
        zw::schrijfStandaardInstellingen(argv[1]);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "default_settings: %s: %s\n", argv[1], e.what());
        return 1;
    }
    return 0;
}
