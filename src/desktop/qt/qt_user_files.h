#pragma once

#include <QFile>
#include <QStandardPaths>
#include <QString>

#include <filesystem>

namespace panewright {

/// Where the user keeps downloads.
inline std::filesystem::path downloadsFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::DownloadLocation).toStdString();
}

/// Moves the file or folder to the trash of the desktop; false where that fails.
inline bool moveToTrash(const std::filesystem::path& path) {
    return QFile::moveToTrash(QString::fromStdString(path));
}

} // namespace panewright
