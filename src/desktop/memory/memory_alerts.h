#pragma once

#include "platform/alerts.h"

#include <optional>
#include <utility>

namespace panewright {

/// Keeps the question until a test answers it. One at a time: another one waits for nothing.
class MemoryAlerts : public Alerts {
public:
    Registration ask(const Alert& alert, Answered answered) override {
        const int question = ++questions_;
        open = alert;
        answered_ = std::move(answered);
        return Registration([this, question] {
            if (question == questions_) {
                open = std::nullopt;
            }
        });
    }
    std::optional<AlertAnswer> runModal(const Alert& alert) override {
        modal.push_back(alert);
        return modalAnswer;
    }
    /// Presses a button, the first being 0. There must be a question.
    void press(int button) {
        open = std::nullopt;
        std::exchange(answered_, nullptr)(kAlertFirstButtonReturn + button);
    }

    /// Nil while there is no question.
    std::optional<Alert> open;
    /// What was asked while everything waited, and how each such question is answered.
    std::vector<Alert> modal;
    std::optional<AlertAnswer> modalAnswer;

private:
    Answered answered_;
    int questions_ = 0;
};

} // namespace panewright
