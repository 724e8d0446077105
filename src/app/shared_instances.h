#pragma once

#include "model/model.h"
#include "platform/ports.h"
#include "shortcuts/carbon_event_manager.h"

#include <memory>

namespace panewright {

/// The shared registry of hot keys and the shared store, which can be had for as long as this
/// object lives. All that they work with must outlive it.
class SharedInstances {
public:
    SharedInstances(const Ports& ports, StoreLock& lock) {
        CarbonEventManager::setSharedManagerFactory([ports] {
            return std::make_unique<CarbonEventManager>(
                CarbonEventManager::Services{ports.hotKeys, ports.mainLoop, ports.userDefaults});
        });
        Model::setFactory([ports, &lock] {
            return std::make_unique<Model>(Model::Services{
                ports.standardFolders, ports.userDefaults, lock, ports.backgroundWork});
        });
    }
    /// Writes what is still to be saved and releases the hot keys.
    ~SharedInstances() {
        Model::setFactory(nullptr);
        CarbonEventManager::setSharedManagerFactory(nullptr);
    }
    SharedInstances(const SharedInstances&) = delete;
    SharedInstances& operator=(const SharedInstances&) = delete;
};

} // namespace panewright
