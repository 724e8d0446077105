#pragma once

#include "platform/analytics.h"
#include "platform/beeper.h"
#include "platform/program_information.h"
#include "platform/text_services.h"

#include <algorithm>
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

class MemoryProgram : public ProgramInformation {
public:
    std::string bundleIdentifier() const override { return "com.quillfen.Panewright"; }
    std::string executableName() const override { return "panewright"; }
};

/// Upper-cases the letters of ASCII.
class MemoryTextServices : public TextServices {
public:
    std::string upperCased(std::string_view text) const override {
        std::string upper(text);
        std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) {
            return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        });
        return upper;
    }
};

} // namespace panewright
