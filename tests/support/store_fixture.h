#pragma once

#include "desktop/memory/memory_services.h"
#include "desktop/memory/memory_standard_folders.h"
#include "desktop/memory/memory_user_defaults.h"
#include "model/model.h"
#include "model/store_lock.h"
#include "support/captured_log.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>

namespace panewright {

inline Bytes bytes(const std::string& text) {
    return Bytes(text.begin(), text.end());
}

/// A store in a folder of the test's own.
class StoreFixture : public testing::Test {
protected:
    TemporaryFolder temporary_;
    MemoryStandardFolders folders_{temporary_.path()};
    MemoryUserDefaults defaults_;
    MemoryBackgroundWork background_;
    StoreLock lock_{folders_, "the test"};
    std::filesystem::path folder_ = temporary_.path() / "Panewright";
    std::filesystem::path file_ = folder_ / "keyEvents.data";

    std::unique_ptr<Model> makeModel() {
        return std::make_unique<Model>(Model::Services{folders_, defaults_, lock_, background_});
    }

    static void save(Model& model) {
        model.save();
        model.finishSaving();
    }

    /// What a fresh look at the file finds.
    std::optional<WindowStates> statesOnDisk() const {
        const auto content = readFile(file_);
        return content ? unarchivedWindowStates(content.value()) : std::nullopt;
    }

    static std::shared_ptr<WindowState> makeState(const std::string& app, const std::string& name) {
        auto state = WindowState::windowStateIsDefault(false, false);
        state->setAppBundleId(app);
        state->setWindowStateName(name);
        state->setKeyEvent(CarbonKeyEvent::carbonEventWithKeyCode(123, 0x80000));
        return state;
    }

    /// So many states of 20 applications, all of the same name.
    static WindowStates makeStates(int count, const std::string& name) {
        WindowStates states;
        for (int index = 0; index < count; ++index) {
            const std::string app = "org.example.Application" + std::to_string(index % 20);
            auto& array =
                states.try_emplace(app, std::make_shared<WindowStateArray>()).first->second;
            array->push_back(makeState(app, name));
        }
        return states;
    }
};

} // namespace panewright
