#pragma once

#include "base/lifetime.h"
#include "menubar/menu_exporter.h"

#include <QDBusArgument>
#include <QDBusContext>
#include <QDBusVariant>
#include <QObject>
#include <QStringList>
#include <QVariant>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>

namespace panewright {

/// A menu item as the bus has it, with its children, each a variant of this again.
struct BusMenuItem {
    int id = 0;
    QVariantMap properties;
    QList<QVariant> children;
};

/// Some of the properties of an item.
struct BusMenuProperties {
    int id = 0;
    QVariantMap properties;
};

/// What the user did with an item.
struct BusMenuEvent {
    int id = 0;
    QString name;
    QDBusVariant data;
    uint timestamp = 0;
};

/// The menu on the session bus (interface com.canonical.dbusmenu, version 3), for panels that draw
/// the menu of an item themselves, whether the item says that it has one or not. The root is item
/// 0. Each line keeps its number for as long as it is in the menu, and no other gets that number: a
/// choice that comes late means what the user saw, or nothing.
class ExportedMenu : public QObject, protected QDBusContext, public MenuExporter {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(QString TextDirection READ textDirection)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath)

public:
    /// What is held now, in the application's form.
    using HeldModifiers = std::function<std::uint64_t()>;

    explicit ExportedMenu(HeldModifiers heldModifiers);

    Registration exportMenu(const Menu& menu, Handlers handlers) override;

    /// Puts the menu where panels look for it: where the toolkit's item says that its menu is, and
    /// where panels look that do not know that it has none. Nothing while the item is not on the
    /// bus.
    void publishForToolkitItem();

    uint version() const { return 3; }
    QString status() const { return "normal"; }
    QString textDirection() const { return "ltr"; }
    QStringList iconThemePath() const { return {}; }

    // Names and arguments are the interface's. The toolkit knows types by their full names.
    // NOLINTBEGIN(readability-identifier-naming)
public slots:
    Q_SCRIPTABLE bool AboutToShow(int id);
    Q_SCRIPTABLE QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors);
    Q_SCRIPTABLE void Event(int id, const QString& name, const QDBusVariant& data, uint timestamp);
    Q_SCRIPTABLE QList<int> EventGroup(const QList<panewright::BusMenuEvent>& events);
    Q_SCRIPTABLE QList<panewright::BusMenuProperties> GetGroupProperties(const QList<int>& ids,
                                                                         const QStringList& names);
    Q_SCRIPTABLE uint GetLayout(int parent, int depth, const QStringList& names,
                                panewright::BusMenuItem& layout);
    Q_SCRIPTABLE QDBusVariant GetProperty(int id, const QString& name);

signals:
    Q_SCRIPTABLE void LayoutUpdated(uint revision, int parent);
    // NOLINTEND(readability-identifier-naming)

private:
    /// A line, or the root, with what was in the menu when it was brought up to date.
    struct Line {
        std::shared_ptr<MenuItem> item;
        QList<int> children;
    };

    /// Counts the lines of the menu as it is.
    void update();
    QList<int> addLines(const Menu& menu, const std::map<const MenuItem*, int>& numbers);
    const MenuItem* find(int id) const;
    QVariantMap propertiesOf(int id) const;
    BusMenuItem layoutOf(int id, int depth) const;

    HeldModifiers heldModifiers_;
    const Menu* menu_ = nullptr;
    Handlers handlers_;
    Lifetime lifetime_;
    std::map<int, Line> lines_;
    int lastId_ = 0;
    uint revision_ = 0;
};

} // namespace panewright

Q_DECLARE_METATYPE(panewright::BusMenuItem)
Q_DECLARE_METATYPE(panewright::BusMenuProperties)
Q_DECLARE_METATYPE(panewright::BusMenuEvent)
