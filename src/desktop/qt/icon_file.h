#pragma once

#include "base/bytes.h"

#include <QImage>
#include <QString>

namespace panewright {

/// The picture in a file that anybody may have made, at most 256 pixels wide and high. Null for
/// what is no regular file or no picture, and for one that would take too much memory or time, or
/// read other files.
QImage readIconFile(const QString& path);
/// The same for the content of such a file.
QImage readIcon(const Bytes& content);

/// The file of that name in the icon theme (Icon Theme Specification, "Icon Lookup") whose size in
/// pixels is nearest; empty if there is none. Folders never lead out of the theme's.
QString iconThemeFile(const QString& name, int size);

} // namespace panewright
