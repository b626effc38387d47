// The main window without a screen: the editor's own state, start-up, drawing and handlers on
// surfaces of a given pixel size. The renderer, the fuzz targets, the benchmarks and the model's
// tests drive the whole editor through it.
//
// It has no settings dialog: its settings come from a settings file read once (the one in the
// program directory, unless another is named), else from the defaults. It never shows a window
// of its own, so a first start asks nothing.
#pragma once

#include <string>

#include "window/instellingen.h"
#include "window/zwierlijn.h"

namespace zw {

class HeadlessEditor : public Zwierlijn {
  public:
    // A client area of `breedte` by `hoogte` pixels. An empty `instellingenBestand` means the
    // settings file "zwierlijn" in the program directory; a file that does not exist gives the
    // defaults, one that cannot be read raises its run-time error.
    HeadlessEditor(std::string programDirectory, Dialogs& dialogs, int breedte = 1200,
                   int hoogte = 800, const std::string& instellingenBestand = "");

    // Form_Initialize, then Form_Load.
    void start();

    float scaleWidth() const override { return scaleWidth_; }
    // The tooltip a screen would show now, and the status bar's line.
    void toonTip(const std::string& tekst) override { tip = tekst; }
    std::string tip;
    float scaleHeight() const override { return scaleHeight_; }
    // A new size of the client area, as the user would drag the window's border.
    void resize(int breedte, int hoogte);

    bool gesloten() const { return gesloten_; }

  protected:
    std::int32_t instelling(int record) override;
    bool instellingenBestonden() override { return true; }
    void zetInstellingenBestonden() override {}
    void toonKleurtjes(bool) override {}
    void sluitKleurtjes() override {}
    void sluitGewichten() override {}
    void sluitVenster() override { gesloten_ = true; }

  private:
    Instellingen instellingen_;
    float scaleWidth_ = 0.0f;
    float scaleHeight_ = 0.0f;
    bool gesloten_ = false;
};

}  // namespace zw
