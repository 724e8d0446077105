#include "desktop/qt/accessible_control.h"

#include <QAccessibleObject>
#include <QAccessibleWidget>
#include <QApplication>
#include <QWidget>

#include <algorithm>

namespace panewright {
namespace {

constexpr const char* kRoleProperty = "accessibleRole";

class ControlInterface : public QAccessibleWidget {
public:
    ControlInterface(QWidget& widget, AccessibleControl& control)
        : QAccessibleWidget(&widget, control.accessibleRole()), control_(control) {}

    QAccessible::State state() const override {
        auto state = QAccessibleWidget::state();
        state.pressed = control_.isAccessiblyPressed();
        return state;
    }
    QStringList actionNames() const override {
        QStringList names;
        for (const auto& action : control_.accessibleActions()) {
            names += action.name;
        }
        return names + QAccessibleWidget::actionNames();
    }
    QString localizedActionDescription(const QString& name) const override {
        const auto action = find(name);
        return action.run ? action.description
                          : QAccessibleWidget::localizedActionDescription(name);
    }
    QStringList keyBindingsForAction(const QString& name) const override {
        const auto action = find(name);
        return action.run ? QStringList(action.key) : QAccessibleWidget::keyBindingsForAction(name);
    }
    void doAction(const QString& name) override {
        const auto action = find(name);
        if (!action.run) {
            QAccessibleWidget::doAction(name);
        } else if (widget()->isEnabled()) {
            action.run();
        }
    }

private:
    /// One that runs nothing if it is none of the control's.
    AccessibleAction find(const QString& name) const {
        const auto actions = control_.accessibleActions();
        const auto found = std::find_if(actions.cbegin(), actions.cend(),
                                        [&](const auto& each) { return each.name == name; });
        return found == actions.cend() ? AccessibleAction() : *found;
    }

    AccessibleControl& control_;
};

/// The toolkit leaves pop-ups out of the application's windows, so that whoever has missed the
/// menu's opening would never find it.
class ApplicationInterface : public QAccessibleApplication {
public:
    int childCount() const override {
        return QAccessibleApplication::childCount() + (menu() ? 1 : 0);
    }
    QAccessibleInterface* child(int index) const override {
        auto* const window = QAccessibleApplication::child(index);
        return window || index != QAccessibleApplication::childCount() ? window : menu();
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child && child == menu() ? QAccessibleApplication::childCount()
                                        : QAccessibleApplication::indexOfChild(child);
    }

private:
    /// The one that is no submenu; null while none is open.
    static QAccessibleInterface* menu() {
        const auto windows = QApplication::topLevelWidgets();
        const auto found = std::find_if(windows.begin(), windows.end(), [](const auto* window) {
            return window->isVisible() && window->windowType() == Qt::Popup &&
                   !window->parentWidget();
        });
        return found == windows.end() ? nullptr : QAccessible::queryAccessibleInterface(*found);
    }
};

QAccessibleInterface* describe(const QString& /*className*/, QObject* object) {
    if (object == qApp) {
        return new ApplicationInterface;
    }
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget) {
        return nullptr;
    }
    if (auto* control = dynamic_cast<AccessibleControl*>(object)) {
        return new ControlInterface(*widget, *control);
    }
    const auto role = widget->property(kRoleProperty);
    return role.isValid() ? new QAccessibleWidget(widget, QAccessible::Role(role.toInt()))
                          : nullptr;
}

} // namespace

void describeOwnControls() {
    QAccessible::installFactory(describe);
}

void setAccessibleRole(QWidget& widget, QAccessible::Role role) {
    widget.setProperty(kRoleProperty, role);
}

} // namespace panewright
