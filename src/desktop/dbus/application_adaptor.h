#pragma once

#include "desktop/dbus/incoming_calls.h"

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <map>
#include <string>
#include <utility>

namespace panewright {

/// What desktops ask of the program as an application (Desktop Entry Specification, "D-Bus
/// Activation").
class ApplicationAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// By the names that the desktop entry gives the actions.
    using Actions = std::map<std::string, std::function<void()>, std::less<>>;

    /// Belongs to the object of the calls.
    ApplicationAdaptor(IncomingCalls& calls, std::function<void()> activated, Actions actions)
        : QDBusAbstractAdaptor(&calls.object()), calls_(calls), activated_(std::move(activated)),
          actions_(std::move(actions)) {}

public slots:
    // Names and arguments are the interface's; none of the data matters here.
    // NOLINTBEGIN(readability-identifier-naming)
    void Activate(const QVariantMap& /*platform_data*/, const QDBusMessage& message) {
        calls_.answerAndDo(message, activated_);
    }
    void Open(const QStringList& /*uris*/, const QVariantMap& /*platform_data*/,
              const QDBusMessage& message) {
        calls_.answerAndDo(message, activated_);
    }
    void ActivateAction(const QString& action_name, const QVariantList& /*parameter*/,
                        const QVariantMap& /*platform_data*/, const QDBusMessage& message) {
        const auto action = actions_.find(action_name.toStdString());
        calls_.answerAndDo(message, action == actions_.end() ? [] {} : action->second);
    }
    // NOLINTEND(readability-identifier-naming)

private:
    IncomingCalls& calls_;
    std::function<void()> activated_;
    Actions actions_;
};

} // namespace panewright
