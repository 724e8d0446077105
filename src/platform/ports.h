#pragma once

namespace panewright {

class Accessibility;
class Alerts;
class Analytics;
class ApplicationIcons;
class ApplicationMoving;
class BackgroundWork;
class Beeper;
class CrashReporter;
class Displays;
class HotKeys;
class Images;
class KeyboardLayout;
class LoginItemFormat;
class MainLoop;
class ProgramInformation;
class ReopenRequests;
class SoftwareUpdater;
class StandardFolders;
class StatusItem;
class TextServices;
class UserDefaults;
class WorkAreas;
class Workspace;

/// A whole desktop: every service that the program as such needs. All of it must outlive whoever is
/// given it.
struct Ports {
    Accessibility& accessibility;
    Alerts& alerts;
    Analytics& analytics;
    ApplicationIcons& applicationIcons;
    ApplicationMoving& applicationMoving;
    const BackgroundWork& backgroundWork;
    Beeper& beeper;
    CrashReporter& crashReporter;
    Displays& displays;
    HotKeys& hotKeys;
    Images& images;
    const KeyboardLayout& keyboardLayout;
    const LoginItemFormat& loginItems;
    MainLoop& mainLoop;
    const ProgramInformation& program;
    ReopenRequests& reopenRequests;
    SoftwareUpdater& softwareUpdater;
    const StandardFolders& standardFolders;
    StatusItem& statusItem;
    const TextServices& text;
    UserDefaults& userDefaults;
    const WorkAreas& workAreas;
    Workspace& workspace;
};

} // namespace panewright
