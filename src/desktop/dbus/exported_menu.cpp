#include "desktop/dbus/exported_menu.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMetaType>

#include <utility>

namespace panewright {
namespace {

constexpr int kRoot = 0;

// What the toolkit calls the connection of its first item, and where that says it has no menu: some
// panels, such as mate-panel, take the path for one.
constexpr const char* kItemConnection = "org.kde.StatusNotifierItem-%1-1";
constexpr const char* kNoMenuPath = "/NO_DBUSMENU";

/// The letter that chooses an item stands behind "_" there, and behind "&" here.
QString busLabel(const std::string& title) {
    auto label = QString::fromStdString(title).replace('_', "__");
    return label.replace("&&", QChar(0)).replace('&', '_').replace(QChar(0), '&');
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuItem& item) {
    argument.beginStructure();
    argument << item.id << item.properties;
    argument.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const auto& child : item.children) {
        argument << QDBusVariant(child);
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuItem& item) {
    argument.beginStructure();
    argument >> item.id >> item.properties >> item.children;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuProperties& item) {
    argument.beginStructure();
    argument << item.id << item.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuProperties& item) {
    argument.beginStructure();
    argument >> item.id >> item.properties;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const BusMenuEvent& event) {
    argument.beginStructure();
    argument << event.id << event.name << event.data << event.timestamp;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusMenuEvent& event) {
    argument.beginStructure();
    argument >> event.id >> event.name >> event.data >> event.timestamp;
    argument.endStructure();
    return argument;
}

ExportedMenu::ExportedMenu() {
    qDBusRegisterMetaType<BusMenuItem>();
    qDBusRegisterMetaType<BusMenuProperties>();
    qDBusRegisterMetaType<QList<BusMenuProperties>>();
    qDBusRegisterMetaType<BusMenuEvent>();
    qDBusRegisterMetaType<QList<BusMenuEvent>>();
    qDBusRegisterMetaType<QList<int>>();
}

void ExportedMenu::exportMenu(std::function<const Menu&()> bringUpToDate) {
    bringUpToDate_ = std::move(bringUpToDate);
}

void ExportedMenu::publishForToolkitItem() {
    QDBusConnection item(QString(kItemConnection).arg(QCoreApplication::applicationPid()));
    if (item.isConnected()) {
        item.registerObject(kNoMenuPath, this,
                            QDBusConnection::ExportScriptableContents |
                                QDBusConnection::ExportAllProperties);
    }
}

void ExportedMenu::update() {
    if (bringUpToDate_) {
        shown_ = bringUpToDate_();
        ++revision_;
    }
}

const MenuItem* ExportedMenu::find(int id) const {
    const auto index = static_cast<std::size_t>(id) - 1;
    return id > kRoot && index < shown_.items.size() ? shown_.items[index].get() : nullptr;
}

QVariantMap ExportedMenu::propertiesOf(int id) const {
    if (id == kRoot) {
        return {{"children-display", "submenu"}};
    }
    const auto* item = find(id);
    if (!item) {
        return {};
    }
    if (item->isSeparator) {
        return {{"type", "separator"}};
    }
    QVariantMap properties{{"label", busLabel(item->title)},
                           {"enabled", item->action && item->isEnabled}};
    if (item->isCheckable) {
        properties.insert("toggle-type", "checkmark");
        properties.insert("toggle-state", item->isChecked ? 1 : 0);
    }
    return properties;
}

bool ExportedMenu::AboutToShow(int id) {
    if (id != kRoot) {
        return false;
    }
    update();
    emit LayoutUpdated(revision_, kRoot);
    return true;
}

QList<int> ExportedMenu::AboutToShowGroup(const QList<int>& ids, QList<int>& /*idErrors*/) {
    QList<int> changed;
    for (const int id : ids) {
        if (AboutToShow(id)) {
            changed.append(id);
        }
    }
    return changed;
}

void ExportedMenu::Event(int id, const QString& name, const QDBusVariant& /*data*/,
                         uint /*timestamp*/) {
    const auto* item = find(id);
    if (name == "clicked" && item && item->action && item->isEnabled) {
        const auto action = item->action; // which may bring the menu up to date
        action();
    }
}

QList<int> ExportedMenu::EventGroup(const QList<BusMenuEvent>& events) {
    for (const auto& event : events) {
        Event(event.id, event.name, event.data, event.timestamp);
    }
    return {};
}

QList<BusMenuProperties> ExportedMenu::GetGroupProperties(const QList<int>& ids,
                                                          const QStringList& /*names*/) {
    QList<BusMenuProperties> all;
    for (const int id : ids) {
        if (id == kRoot || find(id)) {
            all.append({id, propertiesOf(id)});
        }
    }
    return all;
}

uint ExportedMenu::GetLayout(int parent, int depth, const QStringList& /*names*/,
                             BusMenuItem& layout) {
    if (revision_ == 0) {
        update();
    }
    layout = {parent, propertiesOf(parent), {}};
    for (int id = 1; parent == kRoot && depth != 0 && find(id); ++id) {
        layout.children.append(QVariant::fromValue(BusMenuItem{id, propertiesOf(id), {}}));
    }
    return revision_;
}

QDBusVariant ExportedMenu::GetProperty(int id, const QString& name) {
    const auto value = propertiesOf(id).value(name);
    if (!value.isValid() && calledFromDBus()) {
        sendErrorReply(QDBusError::InvalidArgs, "there is no such property");
    }
    return QDBusVariant(value);
}

} // namespace panewright
