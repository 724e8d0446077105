#include "model/model.h"

#include "base/log.h"
#include "model/default_window_states.h"

#include <algorithm>
#include <utility>

namespace panewright {
namespace {

// Keys of the user defaults.
constexpr std::string_view kMoveToNextWindowKeyCodeKey = "MoveToNextWindowKeyEventKeyCode";
constexpr std::string_view kMoveToNextWindowKeyModifiersKey =
    "MoveToNextWindowKeyEventKeyModifiers";
constexpr std::string_view kAllowMoveWindowKey = "AllowMoveWindow";

SharedInstance<Model>& shared() {
    static SharedInstance<Model> shared;
    return shared;
}

} // namespace

Model& Model::instance() {
    return shared().get();
}

void Model::setFactory(SharedInstance<Model>::Factory factory) {
    shared().setFactory(std::move(factory));
}

Model::Model(const Services& services)
    : defaults_(services.defaults), file_(services.folders, services.lock),
      writer_(file_, services.background) {
    loadWindowStates();
    if (!defaultWindowStates()) {
        restoreDefaultWindowStates();
    }
}

void Model::loadWindowStates() {
    writer_.drain();
    windowStates_ = std::nullopt;
    readFailure_ = std::nullopt;
    const auto content = file_.read();
    if (content) {
        windowStates_ = unarchivedWindowStates(content.value());
        if (windowStates_) {
            file_.accept();
            save(); // a file in the plain form becomes a compressed one
        } else {
            readFailure_ = {StoreFailureCause::kDamaged, "the file is damaged and stays as it is"};
        }
    } else if (content.error().isNoSuchFile) {
        windowStates_.emplace();
    } else {
        readFailure_ = storeFailureFrom(content.error());
    }
    if (readFailure_) {
        logLine("Error reading window states: " + readFailure_->message);
    }
}

void Model::startAfresh() {
    if (!windowStates_) {
        setWindowStates(WindowStates());
        restoreDefaultWindowStates();
    }
}

void Model::setWindowStates(std::optional<WindowStates> states) {
    windowStates_ = std::move(states);
    readFailure_ = std::nullopt;
    removals_.notify();
}

void Model::save() {
    if (!windowStates_) {
        return;
    }
    for (auto entry = windowStates_->begin(); entry != windowStates_->end();) {
        const bool isKept = appliesEverywhere(entry->first) || !entry->second->empty();
        entry = isKept ? std::next(entry) : windowStates_->erase(entry);
    }
    writer_.write(snapshotOf(*windowStates_));
}

void Model::restoreDefaultWindowStates() {
    if (windowStates_) {
        windowStates_->insert_or_assign(
            std::string(kDefaultsKey),
            std::make_shared<WindowStateArray>(makeDefaultWindowStates()));
        save();
        removals_.notify();
    }
}

void Model::addWindowState(const std::shared_ptr<WindowState>& state) {
    if (!windowStates_ || !state || (!state->isGlobal() && !state->appBundleId())) {
        return;
    }
    auto& array =
        (*windowStates_)[state->isGlobal() ? std::string(kGlobalsKey) : *state->appBundleId()];
    if (!array) {
        array = std::make_shared<WindowStateArray>();
    }
    array->push_back(state);
}

void Model::removeWindowState(const std::shared_ptr<WindowState>& state) {
    if (const auto key = keyOfWindowState(state)) {
        auto& holder = *arrayFor(*key);
        holder.erase(std::remove(holder.begin(), holder.end(), state), holder.end());
    }
    save();
    removals_.notify();
}

std::optional<std::string>
Model::keyOfWindowState(const std::shared_ptr<WindowState>& state) const {
    std::optional<std::string> holder;
    for (const auto& [key, array] : windowStates_.value_or(WindowStates())) {
        if (std::find(array->begin(), array->end(), state) != array->end()) {
            holder = key;
        }
    }
    return holder;
}

std::shared_ptr<CarbonKeyEvent> Model::moveToNextWindowKeyEvent() const {
    if (!defaults_.objectForKey(kMoveToNextWindowKeyCodeKey)) {
        return nullptr;
    }
    return CarbonKeyEvent::carbonEventWithKeyCode(
        static_cast<std::uint64_t>(defaults_.integerForKey(kMoveToNextWindowKeyCodeKey)),
        static_cast<std::uint64_t>(defaults_.integerForKey(kMoveToNextWindowKeyModifiersKey)));
}

void Model::setMoveToNextWindowKeyEvent(const std::shared_ptr<CarbonKeyEvent>& event) {
    if (event) {
        defaults_.setInteger(kMoveToNextWindowKeyCodeKey,
                             static_cast<std::int64_t>(event->keyCode()));
        defaults_.setInteger(kMoveToNextWindowKeyModifiersKey,
                             static_cast<std::int64_t>(event->modifierFlags()));
    } else {
        defaults_.removeObjectForKey(kMoveToNextWindowKeyCodeKey);
        defaults_.removeObjectForKey(kMoveToNextWindowKeyModifiersKey);
    }
    defaults_.synchronize();
}

bool Model::allowWindowStateShortcutsToMoveWindowNextDisplay() {
    defaults_.registerDefaults({{std::string(kAllowMoveWindowKey), std::int64_t{0}}});
    return defaults_.boolForKey(kAllowMoveWindowKey);
}

void Model::setAllowsMoveWindow(bool allows) {
    defaults_.setBool(kAllowMoveWindowKey, allows);
}

std::shared_ptr<WindowStateArray> Model::arrayFor(std::string_view key) const {
    const auto found = windowStates_ ? windowStates_->find(key) : WindowStates::const_iterator();
    return windowStates_ && found != windowStates_->end() ? found->second : nullptr;
}

} // namespace panewright
