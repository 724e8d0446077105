#include "desktop/qt/icon_file.h"

#include "base/file.h"
#include "platform/images.h"

#include <QBuffer>
#include <QByteArray>
#include <QFileInfo>
#include <QIcon>
#include <QImageReader>
#include <QRegularExpression>
#include <QSettings>
#include <QStringList>
#include <QXmlStreamReader>

#include <algorithm>
#include <cstdlib>

namespace panewright {
namespace {

// Of a picture. Larger ones are seen nowhere, and only take memory when decoded.
constexpr int kMaxSide = 2048;
constexpr int kShownSide = 256;

// Of an SVG. Parts that repeat parts multiply, nested ones take stack, and all take time to draw.
constexpr qsizetype kMaxSvgBytes = qsizetype{64} << 10U;
constexpr int kMaxUses = 8;
constexpr int kMaxNesting = 100;

// Of themes.
constexpr qint64 kMaxIndexBytes = qint64{1} << 20U;
constexpr qsizetype kMaxThemes = 16;
constexpr qsizetype kMaxFolders = 1000;

bool isHarmlessSvg(const QByteArray& text) {
    // Dashes may be far shorter than a pixel. Editors write that there are none.
    static const QRegularExpression kDashes(R"(dasharray(?!\s*(:|=\s*["'])\s*none\b))");
    if (text.size() > kMaxSvgBytes || kDashes.match(QString::fromLatin1(text)).hasMatch()) {
        return false;
    }
    QXmlStreamReader xml(text);
    int nesting = 0;
    int uses = 0;
    while (!xml.atEnd()) {
        const auto token = xml.readNext();
        if (token == QXmlStreamReader::StartElement) {
            uses += xml.name() == u"use" ? 1 : 0;
            if (++nesting > kMaxNesting || uses > kMaxUses || xml.name() == u"image") {
                return false;
            }
        } else if (token == QXmlStreamReader::EndElement) {
            --nesting;
        } else if (token == QXmlStreamReader::ProcessingInstruction) {
            return false; // a style sheet, in another file
        }
    }
    return !xml.hasError();
}

bool isUsable(const QString& file, qint64 maxBytes) {
    const QFileInfo info(file);
    return info.isFile() && info.size() <= maxBytes;
}

/// A folder of a theme, and how far its pictures are from the size that is wanted.
struct ThemeFolder {
    QString name;
    int distance = 0;
};

/// The nearest first.
QList<ThemeFolder> themeFolders(const QSettings& index, int size) {
    QList<ThemeFolder> folders;
    const auto names = index.value("Icon Theme/Directories").toStringList();
    for (const auto& name : names.first(std::min(names.size(), kMaxFolders))) {
        const auto number = [&](const char* key, int fallback) {
            return index.value(name + '/' + key, fallback).toInt();
        };
        const int own = number("Size", 0);
        const bool isScalable = index.value(name + "/Type").toString() == "Scalable";
        const int nearest =
            isScalable ? std::max(number("MinSize", own), std::min(number("MaxSize", own), size))
                       : own;
        if (!name.contains("..")) {
            folders.append({name, std::abs(nearest - size)});
        }
    }
    std::ranges::stable_sort(folders, {}, &ThemeFolder::distance);
    return folders;
}

QString fileIn(const QString& folder, const QString& name) {
    for (const char* extension : {".png", ".svg", ".xpm"}) {
        QString file = folder + '/' + name + extension;
        if (isUsable(file, kLargestImageFile)) {
            return file;
        }
    }
    return {};
}

QString fileIn(const QStringList& folders, const QString& name) {
    for (const auto& folder : folders) {
        if (auto file = fileIn(folder, name); !file.isEmpty()) {
            return file;
        }
    }
    return {};
}

} // namespace

QImage readIconFile(const QString& path) {
    const auto content = readFile(path.toStdString(), kLargestImageFile);
    return content ? readIcon(content.value()) : QImage();
}

QImage readIcon(const Bytes& content) {
    if (content.size() > kLargestImageFile) {
        return {};
    }
    QByteArray data(reinterpret_cast<const char*>(content.data()), qsizetype(content.size()));
    QBuffer buffer(&data);
    QImageReader reader(&buffer);
    const bool isPacked = data.startsWith("\x1F\x8B"); // how large it gets is not known
    const bool isSvg = reader.format() == "svg";
    if (isPacked || (isSvg && !isHarmlessSvg(data))) {
        return {};
    }
    const QSize size = reader.size();
    const QSize bound(kShownSide, kShownSide);
    if (size.isEmpty() || (!isSvg && (size.width() > kMaxSide || size.height() > kMaxSide))) {
        return {};
    }
    if (isSvg || size.boundedTo(bound) != size) {
        reader.setScaledSize(size.scaled(bound, Qt::KeepAspectRatio).expandedTo({1, 1}));
    }
    return reader.read();
}

const IconThemeFiles::Theme& IconThemeFiles::theme(const QString& name) {
    const auto [place, isNew] = themes_.try_emplace(name);
    auto& theme = place->second;
    if (!isNew || name.isEmpty()) {
        return theme;
    }
    QStringList roots;
    QList<ThemeFolder> folders;
    for (const auto& base : QIcon::themeSearchPaths()) {
        const QString root = base + '/' + name;
        const QString index = root + "/index.theme";
        if (QFileInfo(root).isDir()) {
            roots.append(root);
        }
        if (folders.isEmpty() && isUsable(index, kMaxIndexBytes)) {
            const QSettings settings(index, QSettings::IniFormat);
            theme.inherited = settings.value("Icon Theme/Inherits").toStringList();
            folders = themeFolders(settings, size_);
        }
    }
    for (const auto& folder : folders) {
        for (const auto& root : roots) {
            if (const QString path = root + '/' + folder.name; QFileInfo(path).isDir()) {
                theme.folders.append(path);
            }
        }
    }
    return theme;
}

QString IconThemeFiles::file(const QString& name) {
    if (name.isEmpty() || name.contains('/')) {
        return {};
    }
    QStringList names{QIcon::themeName(), QIcon::fallbackThemeName()};
    for (qsizetype i = 0; i < names.size(); ++i) {
        const auto& [folders, inherited] = theme(names[i]);
        if (auto file = fileIn(folders, name); !file.isEmpty()) {
            return file;
        }
        if (i + 1 < kMaxThemes) {
            names.append(inherited);
        }
        names.removeDuplicates();
        if (i + 1 == names.size() && !names.contains("hicolor")) {
            names.append("hicolor"); // the one that all others inherit at last
        }
    }
    return fileIn(QIcon::fallbackSearchPaths() + QStringList{"/usr/share/pixmaps"}, name);
}

} // namespace panewright
