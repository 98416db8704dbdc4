#include "desktop/HiddenDockIcon.h"

#include "base/Log.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include <xcb/xcb.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace lumeroom {

namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

xcb_connection_t* xConnection()
{
    const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

xcb_atom_t atom(xcb_connection_t* x, std::string_view name)
{
    const auto asked = xcb_intern_atom(x, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(
        xcb_intern_atom_reply(x, asked, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

// Before the window is shown its state is a property, to which the toolkit adds its own part; a
// window manager takes the property away when the window goes.
void keepOffTheTaskBar(xcb_connection_t* x, xcb_window_t window)
{
    const std::array states{
        atom(x, "_NET_WM_STATE_SKIP_TASKBAR"), atom(x, "_NET_WM_STATE_SKIP_PAGER")};
    constexpr std::uint8_t kAtomBits = 32;
    xcb_change_property(x, XCB_PROP_MODE_APPEND, window, atom(x, "_NET_WM_STATE"), XCB_ATOM_ATOM,
        kAtomBits, static_cast<std::uint32_t>(states.size()), states.data());
    xcb_flush(x);
}

} // namespace

HiddenDockIcon::HiddenDockIcon(Log& log)
{
    if (!xConnection())
        log.line("the dock icon cannot be hidden: this desktop gives programs no way to do so");
    qApp->installEventFilter(this);
}

bool HiddenDockIcon::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::Show || event->spontaneous())
        return false;
    auto* window = qobject_cast<QWidget*>(object);
    xcb_connection_t* x = xConnection();
    if (x && window && window->isWindow()
        && (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog))
        keepOffTheTaskBar(x, static_cast<xcb_window_t>(window->winId()));
    return false;
}

} // namespace lumeroom
