#include "desktop/dbus/exported_menu.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMetaType>

#include <utility>

namespace panewright {
namespace {

constexpr int kRoot = 0;

// What the toolkit calls the connection of its first item, where that says that its menu is, and
// where it says that it has none: some panels, such as mate-panel, take that path for one.
constexpr const char* kItemConnection = "org.kde.StatusNotifierItem-%1-1";
constexpr const char* kNoMenuPath = "/NO_DBUSMENU";
constexpr const char* kMenuPath = "/MenuBar";

const QString kBeforeShortcut = "    ";

/// "_" stands there before the letter that chooses an item, and twice for itself.
QString busLabel(const MenuItem& item) {
    auto label = QString::fromStdString(item.title);
    if (!item.shortcut.text.empty()) {
        // Few panels show the property for it.
        label += kBeforeShortcut + QString::fromStdString(item.shortcut.text);
    }
    return label.replace('_', "__");
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

ExportedMenu::ExportedMenu(HeldModifiers heldModifiers) : heldModifiers_(std::move(heldModifiers)) {
    qDBusRegisterMetaType<BusMenuItem>();
    qDBusRegisterMetaType<BusMenuProperties>();
    qDBusRegisterMetaType<QList<BusMenuProperties>>();
    qDBusRegisterMetaType<BusMenuEvent>();
    qDBusRegisterMetaType<QList<BusMenuEvent>>();
    qDBusRegisterMetaType<QList<int>>();
}

Registration ExportedMenu::exportMenu(const Menu& menu, Handlers handlers) {
    menu_ = &menu;
    handlers_ = std::move(handlers);
    return Registration(lifetime_.guard([this] {
        menu_ = nullptr;
        handlers_ = {};
        lines_.clear();
    }));
}

void ExportedMenu::publishForToolkitItem() {
    QDBusConnection item(QString(kItemConnection).arg(QCoreApplication::applicationPid()));
    if (!item.isConnected()) {
        return;
    }
    for (const char* path : {kNoMenuPath, kMenuPath}) {
        item.unregisterObject(path); // the toolkit may have put an empty one there
        item.registerObject(path, this,
                            QDBusConnection::ExportScriptableContents |
                                QDBusConnection::ExportAllProperties);
    }
}

void ExportedMenu::update() {
    if (!menu_) {
        return;
    }
    // Until the new lines have been counted the old items live, so that no two share an address.
    const auto before = std::exchange(lines_, {});
    std::map<const MenuItem*, int> numbers;
    for (const auto& [id, line] : before) {
        numbers.emplace(line.item.get(), id);
    }
    const auto children = addLines(*menu_, numbers);
    lines_[kRoot].children = children;
    ++revision_;
}

QList<int> ExportedMenu::addLines(const Menu& menu, const std::map<const MenuItem*, int>& numbers) {
    QList<int> ids;
    for (const auto& item : menu.items()) {
        const auto known = numbers.find(item.get());
        const int id = known == numbers.end() ? ++lastId_ : known->second;
        lines_[id] = {item, item->submenu ? addLines(*item->submenu, numbers) : QList<int>()};
        ids.append(id);
    }
    return ids;
}

const MenuItem* ExportedMenu::find(int id) const {
    const auto line = lines_.find(id);
    return line == lines_.end() ? nullptr : line->second.item.get();
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
    QVariantMap properties{{"label", busLabel(*item)}, {"enabled", item->canBeChosen()}};
    if (item->submenu) {
        properties.insert("children-display", "submenu");
    }
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
    if (handlers_.aboutToShow) {
        handlers_.aboutToShow(heldModifiers_());
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
    const auto line = lines_.find(id);
    if (name == "closed" && id == kRoot && handlers_.closed) {
        handlers_.closed();
    }
    if (name == "clicked" && line != lines_.end() && line->second.item &&
        line->second.item->canBeChosen() && line->second.item->action) {
        const auto item = line->second.item; // the action may bring the menu up to date
        item->action({heldModifiers_()});
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
    layout = layoutOf(parent, depth);
    return revision_;
}

/// `depth` is how many levels of children there are; below 0 all.
BusMenuItem ExportedMenu::layoutOf(int id, int depth) const {
    BusMenuItem layout{id, propertiesOf(id), {}};
    const auto line = lines_.find(id);
    if (depth != 0 && line != lines_.end()) {
        for (const int child : line->second.children) {
            layout.children.append(QVariant::fromValue(layoutOf(child, depth - 1)));
        }
    }
    return layout;
}

QDBusVariant ExportedMenu::GetProperty(int id, const QString& name) {
    const auto value = propertiesOf(id).value(name);
    if (!value.isValid() && calledFromDBus()) {
        sendErrorReply(QDBusError::InvalidArgs, "there is no such property");
    }
    return QDBusVariant(value);
}

} // namespace panewright
