#pragma once

namespace panewright {

class MenuExporter;
class MenuView;
class ScriptingEndpoint;
class ViewFactory;

/// What people and scripts have of the program. All of it must outlive whoever is given it.
struct Views {
    ViewFactory& factory;
    MenuView& menu;
    MenuExporter& exportedMenu;
    ScriptingEndpoint& scripting;
};

} // namespace panewright
