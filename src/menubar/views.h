#pragma once

namespace panewright {

class MenuExporter;
class MenuView;
class ViewFactory;

/// What shows the program to a person. All of it must outlive whoever is given it.
struct Views {
    ViewFactory& factory;
    MenuView& menu;
    MenuExporter& exportedMenu;
};

} // namespace panewright
