#include "desktop/x11_compositor.h"

#include <QGuiApplication>

#ifdef QUILLON_XCB
#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string_view>
#endif

namespace quillon {

#if defined(QUILLON_XCB) && QT_CONFIG(xcb)

namespace {

struct Freed {
    void operator()(void* reply) const noexcept { std::free(reply); }
};

}  // namespace

bool x11CompositorRuns() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // The toolkit offers the interface without a connection where it draws offscreen.
    if (x11 == nullptr || x11->connection() == nullptr)
        return false;
    // Whoever composites owns the selection of this name, by convention.
    constexpr std::string_view kSelection = "_NET_WM_CM_S0";
    xcb_connection_t* display = x11->connection();
    const std::unique_ptr<xcb_intern_atom_reply_t, Freed> atom(xcb_intern_atom_reply(
        display,
        xcb_intern_atom(display, 1, static_cast<std::uint16_t>(kSelection.size()),
                        kSelection.data()),
        nullptr));
    if (!atom || atom->atom == XCB_ATOM_NONE)
        return false;
    const std::unique_ptr<xcb_get_selection_owner_reply_t, Freed> owner(
        xcb_get_selection_owner_reply(display, xcb_get_selection_owner(display, atom->atom),
                                      nullptr));
    return owner && owner->owner != XCB_NONE;
}

#else

bool x11CompositorRuns() {
    return false;
}

#endif

}  // namespace quillon
