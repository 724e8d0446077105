#pragma once

#include "base/bytes.h"

#include <QImage>
#include <QString>
#include <QStringList>

#include <map>

namespace panewright {

/// The picture in a file that anybody may have made, at most 256 pixels wide and high. Null for
/// what is no regular file or no picture, and for one that would take too much memory or time, or
/// read other files.
QImage readIconFile(const QString& path);
/// The same for the content of such a file.
QImage readIcon(const Bytes& content);

/// The files of the icon theme (Icon Theme Specification, "Icon Lookup") whose size in pixels is
/// nearest to one. What the themes say is read once, which takes some 10 ms: one object should
/// serve for all icons that are wanted at the same time, and not live longer.
class IconThemeFiles {
public:
    explicit IconThemeFiles(int size) : size_(size) {}

    /// Empty if there is none of that name. Folders never lead out of the theme's.
    QString file(const QString& name);

private:
    /// What an index.theme says that matters.
    struct Theme {
        /// Those that exist, the nearest size first.
        QStringList folders;
        QStringList inherited;
    };

    const Theme& theme(const QString& name);

    int size_;
    std::map<QString, Theme> themes_;
};

} // namespace panewright
