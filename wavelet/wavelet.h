// The wavelet step: replaces an open-uniform curve of 2^e segments by its least-squares
// approximation with half as many segments, from decomposition tables kept in "Wavelet" beside
// the program.
#pragma once

#include <string>
#include <utility>

#include "platform/dialogs.h"
#include "platform/main_window.h"

namespace zw {

class Wavelet {
  public:
    Wavelet(MainWindow& window, Dialogs& dialogs, std::string programDirectory)
        : window_(window), dialogs_(dialogs), programDirectory_(std::move(programDirectory)) {}

  private:
    [[maybe_unused]] MainWindow& window_;
    [[maybe_unused]] Dialogs& dialogs_;
    std::string programDirectory_;
};

}  // namespace zw
