// Another program's windows, as a running copy with the title looked for would show them: one of
// class "TfrmNotebook" titled "Ferrolyn " and, as its owner, an application window. Prints both ids
// and stays until it is ended.
//   e2e_foreign_window normal|iconic    how the owner starts
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <xcb/xcb.h>

namespace {
void SetText(xcb_connection_t *connection, xcb_window_t window, xcb_atom_t property,
             std::string_view text) {
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, property, XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(text.size()), text.data());
}

/// Sets WM_HINTS; state 1 is normal, 3 iconic.
void SetHints(xcb_connection_t *connection, xcb_window_t window, std::uint32_t state,
              xcb_window_t group) {
    constexpr std::uint32_t stateGiven = 1U << 1U;
    constexpr std::uint32_t groupGiven = 1U << 6U;
    const std::uint32_t hints[9] = {
        stateGiven | (group ? groupGiven : 0U), 0, state, 0, 0, 0, 0, 0, group};
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_HINTS,
                        XCB_ATOM_WM_HINTS, 32, 9, hints);
}

xcb_window_t Create(xcb_connection_t *connection, std::string_view title,
                    std::string_view instanceAndClass) {
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    const xcb_window_t window = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root, 10, 10, 200, 100, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
    SetText(connection, window, XCB_ATOM_WM_NAME, title);
    SetText(connection, window, XCB_ATOM_WM_CLASS, instanceAndClass);
    return window;
}
} // namespace

int main(int argc, char **argv) {
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    if (argc != 2 || xcb_connection_has_error(connection))
        return 2;
    const xcb_window_t owner = Create(connection, "owner", {"owner\0Owner\0", 12});
    const xcb_window_t window = Create(connection, "Ferrolyn ", {"ferrolyn\0TfrmNotebook\0", 22});
    SetHints(connection, owner, std::strcmp(argv[1], "iconic") == 0 ? 3 : 1, 0);
    SetHints(connection, window, 1, owner);
    xcb_map_window(connection, owner);
    xcb_map_window(connection, window);
    xcb_flush(connection);
    std::printf("%u %u\n", owner, window);
    std::fflush(stdout);
    while (xcb_generic_event_t *event = xcb_wait_for_event(connection))
        std::free(event);
    xcb_disconnect(connection);
    return 0;
}
