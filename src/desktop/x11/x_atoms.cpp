#include "desktop/x11/x_atoms.h"

#include <cstdlib>

namespace panewright {

XAtomsRequest::XAtomsRequest(xcb_connection_t* connection, int screen) : connection_(connection) {
#define PANEWRIGHT_ASK_FOR_X_ATOM(name) ask(#name, &XAtoms::name);
    PANEWRIGHT_X_ATOMS(PANEWRIGHT_ASK_FOR_X_ATOM)
#undef PANEWRIGHT_ASK_FOR_X_ATOM
    ask("_NET_SYSTEM_TRAY_S" + std::to_string(screen), &XAtoms::systemTrayOfScreen);
    ask("_NET_WM_CM_S" + std::to_string(screen), &XAtoms::compositorOfScreen);
}

void XAtomsRequest::ask(const std::string& name, xcb_atom_t XAtoms::*member) {
    const auto size = static_cast<std::uint16_t>(name.size());
    asked_.push_back({xcb_intern_atom(connection_, 0, size, name.data()), member});
}

XAtoms XAtomsRequest::take() {
    XAtoms atoms;
    for (const auto& [cookie, member] : asked_) {
        if (auto* const reply = xcb_intern_atom_reply(connection_, cookie, nullptr)) {
            atoms.*member = reply->atom;
            std::free(reply);
        }
    }
    return atoms;
}

} // namespace panewright
