#pragma once

#include <filesystem>

namespace panewright {

class Alerts;
class ApplicationMoving;
class TextServices;
class UserDefaults;

/// What moving works with.
struct MovingServices {
    ApplicationMoving& moving;
    Alerts& alerts;
    UserDefaults& defaults;
    const TextServices& text;
};

/// What the process is to do after the offer.
enum class AfterMoving { kGoOn, kEnd };

/// Offers to move a program that was started from outside the applications folders into one, unless
/// the user wants no such offer, and moves it. kEnd when another copy takes over, or the user ends
/// the program meanwhile; then nothing more may happen in this process. Failures are shown, and
/// the program goes on from where it is.
[[nodiscard]] AfterMoving
PFMoveToApplicationsFolderIfNecessary( // NOLINT(readability-identifier-naming)
    const MovingServices& services);

/// Moves the file or folder to the trash; false, with a line in the log, where that fails.
bool Trash(ApplicationMoving& moving, // NOLINT(readability-identifier-naming)
           const std::filesystem::path& path);

} // namespace panewright
