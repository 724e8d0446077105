#include "desktop/qt/event_journal.h"

#include "base/file.h"
#include "services/defaults.h"

#include <QDateTime>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <system_error>
#include <utility>
#include <variant>

namespace panewright {
namespace {

constexpr std::string_view kKeepKey = "KeepUsageEvents";
constexpr const char* kFileName = "events.jsonl";
constexpr const char* kOlderFileName = "events.jsonl.1";
constexpr std::uintmax_t kLargestFile = 1 << 20;

QString textOf(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QJsonValue jsonOf(const EventAttribute& attribute) {
    if (const auto* const number = std::get_if<std::int64_t>(&attribute)) {
        return static_cast<qint64>(*number);
    }
    return textOf(std::get<std::string>(attribute));
}

QByteArray lineOf(std::string_view name, const EventAttributes& attributes) {
    QJsonObject object{{"time", QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs)},
                       {"event", textOf(name)}};
    if (!attributes.empty()) {
        QJsonObject values;
        for (const auto& [key, value] : attributes) {
            values.insert(textOf(key), jsonOf(value));
        }
        object.insert("attributes", values);
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

void append(const std::filesystem::path& path, const QByteArray& line) {
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered,
                  QFile::ReadOwner | QFile::WriteOwner)) {
        file.write(line);
    }
}

} // namespace

EventJournal::EventJournal(std::optional<std::filesystem::path> folder, UserDefaults& defaults)
    : folder_(std::move(folder)), defaults_(defaults) {
    if (folder_ && !keepsEvents()) {
        std::error_code ignored;
        std::filesystem::remove(*folder_ / kFileName, ignored);
        std::filesystem::remove(*folder_ / kOlderFileName, ignored);
    }
}

bool EventJournal::keepsEvents() const {
    return Defaults(defaults_).boolForKey(kKeepKey);
}

void EventJournal::logCustomEvent(std::string_view name, const EventAttributes& attributes) {
    if (!folder_ || !keepsEvents() || createFolders(*folder_)) {
        return;
    }
    const auto file = *folder_ / kFileName;
    const auto line = lineOf(name, attributes);
    std::error_code error;
    const auto size = std::filesystem::file_size(file, error);
    if (!error && size + static_cast<std::uintmax_t>(line.size()) > kLargestFile) {
        std::filesystem::rename(file, *folder_ / kOlderFileName, error);
    }
    append(file, line);
}

} // namespace panewright
