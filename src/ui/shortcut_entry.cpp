#include "ui/shortcut_entry.h"

namespace panewright {

ShortcutEntry::ShortcutEntry(const Services& services)
    : services_(services), recorder_(services.shortcutText, services.beeper) {
    recorder_.setDefaultLabel(services_.text.localized(kDefaultLabel));
    recorder_.setWaitingForKeysLabel(services_.text.localized(kWaitingForKeysLabel));
}

void ShortcutEntry::showShortcut(const CarbonKeyEvent* event) {
    recorder_.clear();
    if (event) {
        recorder_.setKeyCode(static_cast<std::int64_t>(event->keyCode()), event->modifierFlags());
    }
    updateShortcutRemark();
}

void ShortcutEntry::updateShortcutRemark() {
    if (recorder_.isRecording()) {
        return;
    }
    if (recorder_.keyCode() == QFShortcutRecorder::kNoKeyCode) {
        showShortcutRemark("");
        return;
    }
    showShortcutRemark(shortcutRemark({services_.hotKeys, services_.model, services_.text},
                                      static_cast<std::uint64_t>(recorder_.keyCode()),
                                      recorder_.modifierFlags(), shortcutOwner()));
}

void ShortcutEntry::shortcutRecorderSetFlags(QFShortcutRecorder& /*recorder*/, std::uint64_t flags,
                                             std::uint16_t andKeyCode) {
    keepShortcut(CarbonKeyEvent::carbonEventWithKeyCode(andKeyCode, flags));
    updateShortcutRemark();
}

void ShortcutEntry::shortcutRecorderDidClearFlags(QFShortcutRecorder& /*recorder*/,
                                                  std::uint64_t /*flags*/,
                                                  std::uint16_t /*andKeyCode*/) {
    keepShortcut(nullptr);
    showShortcutRemark("");
}

void ShortcutEntry::shortcutRecorderRefusesKey(QFShortcutRecorder& /*recorder*/, bool refuses) {
    showShortcutRemark(refuses ? refusedKeyRemark(services_.text) : "");
}

} // namespace panewright
