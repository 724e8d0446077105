#pragma once

#include <QIcon>

namespace panewright {

/// The program's own icon, for title bars and window lists: the icon theme's if it has one.
inline QIcon programIcon() {
    return QIcon::fromTheme("com.quillfen.Panewright", QIcon(":/images/Panewright.svg"));
}

} // namespace panewright
