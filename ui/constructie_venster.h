// The construction's window: a small window beside the editor that names the construction, moves
// t (a slider, a number field, Left and Right, "Afspelen"), steps through the levels, switches the
// labels and the tangent, and inserts t as a knot. What it shows is ConstructieBeeld's; closing
// it turns the view off.
#pragma once

#include <QWidget>
#include <functional>
#include <string>

#include "platform/dialogs.h"
#include "platform/event_guard.h"

class QCheckBox;
class QDoubleSpinBox;
class QLabel;
class QPushButton;
class QSlider;
class QTimer;

namespace zw {

class ConstructieBeeld;

class ConstructieVenster : public QWidget, public ShowableWindow {
  public:
    // `uit` turns the view off, as its menu item does.
    ConstructieVenster(ConstructieBeeld& beeld, EventGuard& guard, std::function<void()> uit,
                       QWidget& hoofdvenster);
    ~ConstructieVenster() override;

    std::string windowName() const override { return "Constructie"; }

    // Shows what the view holds now.
    void bijwerken();
    // Stops playing, without a word.
    void stop();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void bouw();
    void doe(const std::function<void()>& actie);
    void speel();

    ConstructieBeeld& beeld_;
    EventGuard& guard_;
    std::function<void()> uit_;
    QWidget& hoofdvenster_;
    bool bijwerkend_ = false;
    int afgespeeld_ = 0;

    QLabel* naam_ = nullptr;
    QSlider* schuif_ = nullptr;
    QDoubleSpinBox* getal_ = nullptr;
    QLabel* segment_ = nullptr;
    QLabel* niveau_ = nullptr;
    QPushButton* vorige_ = nullptr;
    QPushButton* volgende_ = nullptr;
    QPushButton* afspelen_ = nullptr;
    QCheckBox* labels_ = nullptr;
    QCheckBox* raaklijn_ = nullptr;
    QPushButton* invoegen_ = nullptr;
    QTimer* klok_ = nullptr;
};

}  // namespace zw
