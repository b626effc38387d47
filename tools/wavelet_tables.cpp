// Writes the decomposition tables of the wavelet step, "a.<e>.<k>" for every order k and level e
// the editor's tables hold, into a directory (made when missing).
//
// Usage: wavelet_tables <directory>
#include <cstdio>
#include <exception>
#include <filesystem>

#include "tools/wavelet_matrix.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: wavelet_tables <directory>\n");
        return 2;
    }
    try {
        std::filesystem::create_directories(argv[1]);
        for (int k = 1; k <= zw::kWaveletMaxOrde; ++k) {
            for (int e = 1; e <= zw::kWaveletMaxNiveau; ++e) {
                const int fijn = (1 << e) + k - 1;
                const int grof = (1 << (e - 1)) + k - 1;
                if (fijn <= zw::kWaveletMaxFijn && grof <= zw::kWaveletMaxGrof) {
                    zw::writeWaveletTable(argv[1], k, e);
                }
            }
        }
    } catch (const std::exception& e) {
        std::fprintf(stderr, "wavelet_tables: %s: %s\n", argv[1], e.what());
        return 1;
    }
    return 0;
}
