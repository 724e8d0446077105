#pragma once

#include "platform/child_processes.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace panewright {

/// The rights of an administrator, where the system lends them to a program for a while (Security,
/// "Authorization Services"). A status of 0 means success. Main thread only.
class Authorization {
public:
    virtual ~Authorization() = default;

    /// Begins without any right.
    virtual int create() = 0;
    /// Asks for one right; the flags are the system's.
    virtual int copyRights(const std::string& right, std::uint32_t flags) = 0;
    /// Whether the system can still start programs with these rights.
    virtual bool canExecute() = 0;
    /// Runs the program with the rights and waits for its end; nil if it cannot be started.
    virtual std::optional<ChildEnd> execute(const std::vector<std::string>& arguments) = 0;
    /// Gives the rights back.
    virtual void free() = 0;
};

} // namespace panewright
