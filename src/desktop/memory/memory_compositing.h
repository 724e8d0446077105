#pragma once

#include "platform/compositing.h"

namespace panewright {

/// As a test wants it.
class MemoryCompositing : public Compositing {
public:
    bool isActive() const override { return active; }

    bool active = false;
};

} // namespace panewright
