#pragma once

#include <QAccessible>
#include <QString>

#include <functional>

class QWidget;

namespace panewright {

/// What a person can do with a control without touching it, beside giving it the focus.
struct AccessibleAction {
    /// The same in every language.
    QString name;
    /// In the user's language.
    QString description;
    /// The key that does it while the control has the focus.
    QString key;
    std::function<void()> run;
};

/// A widget of our own drawing, which the toolkit cannot describe to screen readers. Its name and
/// its description are those of the widget.
class AccessibleControl {
public:
    virtual ~AccessibleControl() = default;

    virtual QAccessible::Role accessibleRole() const = 0;
    /// Those that do something now.
    virtual QList<AccessibleAction> accessibleActions() = 0;
    /// Whether it is held down, as it were.
    virtual bool isAccessiblyPressed() const { return false; }
};

/// Makes screen readers know the controls of this kind, and the menu as one of the application's
/// windows. To be called before the main loop runs, as the toolkit asks once for each object.
void describeOwnControls();

/// What the toolkit takes for less: a label for a heading, a plain widget for a group. To be called
/// before anything is told of the widget.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

} // namespace panewright
