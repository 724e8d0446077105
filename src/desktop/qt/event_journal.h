#pragma once

#include "platform/analytics.h"
#include "platform/user_defaults.h"

#include <filesystem>
#include <optional>

namespace panewright {

/// Usage events in files of the user's own: "events.jsonl", one JSON object a line with "time"
/// (UTC, ISO 8601), "event" and "attributes", and "events.jsonl.1" with what came before. Nothing
/// is sent anywhere, and nothing is kept unless the user default "KeepUsageEvents" is set.
class EventJournal : public Analytics {
public:
    /// Deletes the files unless events are to be kept. The folder may be missing; without
    /// one nothing is kept. The defaults must outlive this object.
    EventJournal(std::optional<std::filesystem::path> folder, UserDefaults& defaults);

    void logCustomEvent(std::string_view name, const EventAttributes& attributes) override;

private:
    bool keepsEvents() const;

    std::optional<std::filesystem::path> folder_;
    UserDefaults& defaults_;
};

} // namespace panewright
