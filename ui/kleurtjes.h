// The settings dialog: display colours, the control-point radius and the size of the blending
// pane. Every change takes effect at once in the main window's public settings and is written to
// its record of the settings file "zwierlijn" beside the program, which stays open while the
// dialog exists; the main window reads its settings at start-up from the file opened here.
//
// Records (4-byte Longs): 1 Datakleur, 2 krommekleur, 3 controlkleur, 4 doekkleur, 5 lijnkleur,
// 6 ControleStraal, 7 berngrootte, 8 segmentkleur, 9 not written here, 10 Bezierkleur,
// 11 Reeel, 12 virtueel.
#pragma once

#include <QWidget>
#include <memory>
#include <string>

#include "platform/dialogs.h"
#include "platform/event_guard.h"
#include "platform/main_window.h"
#include "platform/record_file.h"

class QLineEdit;
class QPushButton;

namespace zw {

class Kleurtjes : public QWidget, public ShowableWindow {
  public:
    // Form_Initialize: announces a settings file that does not exist yet, then opens (and so
    // creates) it.
    Kleurtjes(MainWindow& window, Dialogs& dialogs, EventGuard& guard,
              const std::string& programDirectory, QWidget* parent = nullptr);
    ~Kleurtjes() override;

    std::string windowName() const override { return "Kleurtjes"; }

    // The settings file existed when the dialog was made. "Nieuw" sets it, so that the dialog is
    // not shown again at the new start.
    bool file_bestaat = false;

    // The open settings file, from which the main window reads its settings.
    RecordFile& instellingen() { return *file_; }
    const std::string& bestand() const { return bestand_; }

    QLineEdit* Straal() const { return straal_; }
    QLineEdit* bern() const { return bern_; }
    // The button of a control name: "Datakleur", "Kromme", ..., "Exit".
    QPushButton* knop(const QString& name) const;

  protected:
    void showEvent(QShowEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void bouw();
    void kiesKleur(Colour& variabele, int record, bool achtergrond);
    void Straal_Validate();
    void bern_Validate();
    void bern_KeyPress_Enter();
    void Exit_Click();
    void Form_Activate();
    bool naarAnderVeld(const QEvent* event) const;
    void toonWaarden();
    void ververs();

    MainWindow& window_;
    Dialogs& dialogs_;
    EventGuard& guard_;
    std::string bestand_;
    std::unique_ptr<RecordFile> file_;
    std::int64_t aantal_records_ = 0;
    std::int32_t waarde_ = 0;
    QLineEdit* straal_ = nullptr;
    QLineEdit* bern_ = nullptr;
};

}  // namespace zw
