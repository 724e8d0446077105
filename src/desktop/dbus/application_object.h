#pragma once

#include <QObject>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <utility>

namespace panewright {

/// What the session bus sees of the program.
class ApplicationObject : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationObject(std::function<void()> activated)
        : activated_(std::move(activated)) {}

public slots:
    // Names and arguments are the interface's; none of the data matters here.
    // NOLINTBEGIN(readability-identifier-naming)
    Q_SCRIPTABLE void Activate(const QVariantMap& /*platformData*/) { activated_(); }
    Q_SCRIPTABLE void Open(const QStringList& /*uris*/, const QVariantMap& /*platformData*/) {
        activated_();
    }
    Q_SCRIPTABLE void ActivateAction(const QString& /*name*/, const QVariantList& /*parameter*/,
                                     const QVariantMap& /*platformData*/) {}
    // NOLINTEND(readability-identifier-naming)

private:
    std::function<void()> activated_;
};

} // namespace panewright
