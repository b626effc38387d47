// The store: spline files (".zwl") and the undo/redo versions kept as numbered spline files in
// "undoredo" beside the program.
//
// A spline file is a flat sequence of 4-byte Single records without header, record 1 first:
//   1            G, the index of the last control point
//   2, 3         reserved
//   3i+1..3i+3   X, Y and weight of control point i - 1, for i = 1 .. G + 1
//   R = 3G + 7   the order
//   R + 1        L, the number of knots       } only when the order is above 0
//   R + 2 ..     knots 0 .. L (L + 1 values)  }
//   N .. N + 2   reserved (N = R + L + 3 with knots, R + 1 without)
//   N + 3        Spline Punt mode: exactly 1.0 for on
//   N + 4        the largest weight
#pragma once

#include <string>

#include "platform/dialogs.h"
#include "platform/main_window.h"

namespace zw {

class Opslag {
  public:
    // `programDirectory` holds the "undoredo" directory.
    Opslag(MainWindow& window, Dialogs& dialogs, std::string programDirectory);

    // Version now shown, and the highest one that may be redone to.
    float versie = 0.0f;
    float maxversie = 0.0f;

    // Writes the whole state. The new content goes to a file beside the target, which replaces
    // the target only once it is complete: a failed save leaves the old file as it was.
    void opslaan(const std::string& sFileName);
    // Replaces the state by the file's, record by record, without validation; records past the
    // end read as 0. Counts that cannot be (NaN, negative, beyond the array limit) end the read
    // with the run-time error of the array they would size.
    void openen(const std::string& file);
    bool FileExists(const std::string& sFileName) const;

    void save();
    void undo();
    void redo();
    void volgende_versie();
    void restart();

    // The file of version v: program directory + "\\undoredo\\" + v + ".zwl".
    std::string versieBestand(float v) const;

  private:
    void schrijf(const std::string& fileName);

    MainWindow& window_;
    Dialogs& dialogs_;
    std::string programDirectory_;
};

}  // namespace zw
