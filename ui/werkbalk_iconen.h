// The toolbar's images, drawn in code: one per button key, none for an unknown key.
#pragma once

#include <QIcon>
#include <QString>

namespace zw {

QIcon werkbalkIcoon(const QString& sleutel);

}  // namespace zw
