// The menu bar of the main window, built from one table: the items' names, captions (with their
// access keys), levels, separators and order. Items are found by name; a submenu's item is the
// action that opens it, so enabling it enables the whole submenu.
#pragma once

#include <QHash>
#include <QString>
#include <functional>

#include "platform/event_guard.h"

class QAction;
class QMenuBar;

namespace zw {

class Menus {
  public:
    // A chosen item hands its name to `klik`, which runs inside the guard. Qt's own toggle of a
    // check mark is undone first: the program decides what the item shows.
    Menus(QMenuBar& bar, EventGuard& guard, std::function<void(const QString&)> klik);

    // The item of a name, or none for a name not in the tree.
    QAction* item(const QString& name) const { return items_.value(name, nullptr); }

  private:
    QHash<QString, QAction*> items_;
};

}  // namespace zw
