#pragma once

#include "base/observer_list.h"
#include "platform/analytics.h"
#include "platform/background_work.h"
#include "platform/beeper.h"
#include "platform/crash_reporter.h"
#include "platform/program_information.h"
#include "platform/reopen_requests.h"
#include "platform/software_updater.h"
#include "platform/sounds.h"
#include "platform/text_services.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace panewright {

/// Counts its beeps.
class MemoryBeeper : public Beeper {
public:
    void beep() override { ++beeps; }

    int beeps = 0;
};

/// Has threads of one priority.
class MemoryBackgroundWork : public BackgroundWork {
public:
    void beginThread() const override {}
};

/// Keeps the events.
class MemoryAnalytics : public Analytics {
public:
    struct Event {
        std::string name;
        EventAttributes attributes;

        friend bool operator==(const Event&, const Event&) = default;
    };

    void logCustomEvent(std::string_view name, const EventAttributes& attributes) override {
        events.push_back({std::string(name), attributes});
    }

    std::vector<Event> events;
};

/// Keeps the names of what was played.
class MemorySounds : public Sounds {
public:
    void play(std::string_view name, float volume) override {
        played.emplace_back(std::string(name), volume);
    }

    std::vector<std::pair<std::string, float>> played;
};

/// Counts what it is asked for.
class MemoryCrashReporter : public CrashReporter {
public:
    void start() override { ++starts; }
    void crash() override { ++crashes; }

    int starts = 0;
    int crashes = 0;
};

class MemorySoftwareUpdater : public SoftwareUpdater {
public:
    void setWillShowHandler(std::function<void()> handler) override {
        willShow = std::move(handler);
    }
    void checkForUpdates() override { ++checks; }
    void checkForUpdatesInBackground() override { ++backgroundChecks; }

    std::function<void()> willShow;
    int checks = 0;
    int backgroundChecks = 0;
};

class MemoryReopenRequests : public ReopenRequests {
public:
    Registration onReopen(std::function<void()> callback) override {
        return requested_.add(std::move(callback));
    }

    /// As the user who starts the program again.
    void reopen() const { requested_.notify(); }

private:
    ObserverList<> requested_;
};

class MemoryProgram : public ProgramInformation {
public:
    std::string bundleIdentifier() const override { return "com.quillfen.Panewright"; }
    std::string shortVersion() const override { return "1.2.8"; }
    std::string buildVersion() const override { return "57"; }
    std::string website() const override { return site; }
    std::string updateFeed() const override { return feed; }
    std::optional<std::filesystem::path> helpPage(std::string_view language) const override {
        const auto page = helpPages.find(language);
        return page == helpPages.end() ? std::nullopt : std::optional(page->second);
    }
    std::string executableName() const override { return "panewright"; }
    std::string executablePath() const override { return path; }

    std::string path = "/opt/panewright/bin/panewright";
    std::string feed;
    std::string site = "http://quillfen.com";
    /// By language.
    std::map<std::string, std::filesystem::path, std::less<>> helpPages;
};

/// Knows the letters of ASCII, and says everything in English.
class MemoryTextServices : public TextServices {
public:
    std::string upperCased(std::string_view text) const override {
        std::string upper(text);
        std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) {
            return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        });
        return upper;
    }
    std::string localized(const char* text) const override { return text; }
    std::string language() const override { return userLanguage; }
    int localizedCaseInsensitiveCompare(std::string_view a, std::string_view b) const override {
        return upperCased(a).compare(upperCased(b));
    }

    std::string userLanguage{kSourceLanguage};
};

} // namespace panewright
