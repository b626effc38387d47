// The toolbar `Tb`: its buttons from left to right, each known by its key, with tooltip and
// image. A click hands the clicked button's key to one handler, which runs inside the guard.
#pragma once

#include <QHash>
#include <QString>
#include <functional>

#include "platform/event_guard.h"

class QAction;
class QToolBar;

namespace zw {

class Werkbalk {
  public:
    Werkbalk(QToolBar& tb, EventGuard& guard, std::function<void(const QString&)> klik);

    // The button of a key, or none.
    QAction* knop(const QString& key) const { return knoppen_.value(key, nullptr); }
    // The keys from left to right, the separator's included.
    const QStringList& sleutels() const { return sleutels_; }

  private:
    QHash<QString, QAction*> knoppen_;
    QStringList sleutels_;
};

}  // namespace zw
