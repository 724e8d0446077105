#pragma once

#include "desktop/shared/update_feed.h"

#include <filesystem>
#include <memory>

namespace panewright {

class MainLoop;
class ProgramInformation;

/// Looks into a feed with the program "panewright-updates", which lies beside this one: so neither
/// the network's library nor what a server sends comes into this process. The time of the last look
/// is that of a file.
class UpdateProcess : public UpdateFeed {
public:
    /// The folder may be missing; without one nobody knows when somebody looked. The others must
    /// outlive this object.
    UpdateProcess(MainLoop& mainLoop, const ProgramInformation& program,
                  std::optional<std::filesystem::path> stateFolder);

    Registration look(const std::string& address,
                      std::function<void(const FeedAnswer&)> answered) override;
    std::optional<std::chrono::system_clock::time_point> lastLook() const override;

private:
    struct Look;

    void noteLook() const;

    MainLoop& mainLoop_;
    const ProgramInformation& program_;
    std::optional<std::filesystem::path> stateFolder_;
};

/// What the program has printed, as an answer; a failure for anything else.
FeedAnswer feedAnswerIn(const std::string& output);

} // namespace panewright
