#pragma once

#include "platform/beeper.h"
#include "platform/hot_keys.h"
#include "platform/text_services.h"
#include "shortcuts/carbon_key_event.h"
#include "shortcuts/qf_shortcut_recorder.h"
#include "ui/shortcut_remark.h"

#include <memory>
#include <string>

namespace panewright {

class Model;

/// Where a person records a shortcut of ours: the recorder, and what stands beside it.
class ShortcutEntry : public QFShortcutRecorderDelegate,
                      public std::enable_shared_from_this<ShortcutEntry> {
public:
    /// All of it must outlive the entry.
    struct Services {
        Beeper& beeper;
        const HotKeys& hotKeys;
        const Model& model;
        const TextServices& text;
        ShortcutText shortcutText;
    };

    QFShortcutRecorder& shortcutRecorder() { return recorder_; }

    void shortcutRecorderSetFlags(QFShortcutRecorder& recorder, std::uint64_t flags,
                                  std::uint16_t andKeyCode) override;
    void shortcutRecorderDidClearFlags(QFShortcutRecorder& recorder, std::uint64_t flags,
                                       std::uint16_t andKeyCode) override;
    void shortcutRecorderRefusesKey(QFShortcutRecorder& recorder, bool refuses) override;

protected:
    explicit ShortcutEntry(const Services& services);

    /// From now on what is recorded is kept. Needs an owner of the entry.
    void listenToRecorder() { recorder_.setDelegate(weak_from_this()); }
    /// Lets the recorder show the shortcut, or none for null.
    void showShortcut(const CarbonKeyEvent* event);
    /// Says anew what is to be said of the shortcut that the recorder shows. Does nothing during a
    /// recording.
    void updateShortcutRemark();

private:
    /// Null when the shortcut was cleared.
    virtual void keepShortcut(const std::shared_ptr<CarbonKeyEvent>& event) = 0;
    virtual ShortcutOwner shortcutOwner() const = 0;
    /// In lines; empty for nothing.
    virtual void showShortcutRemark(const std::string& text) = 0;

    Services services_;
    QFShortcutRecorder recorder_;
};

} // namespace panewright
