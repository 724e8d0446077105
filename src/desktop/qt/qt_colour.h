#pragma once

#include "base/colour.h"

#include <QColor>

namespace panewright {

inline QColor toQt(const Colour& colour) {
    return QColor::fromRgbF(float(colour.red), float(colour.green), float(colour.blue),
                            float(colour.alpha));
}

} // namespace panewright
