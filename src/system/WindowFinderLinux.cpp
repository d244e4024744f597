// The window finder of X11, on a connection of its own. Properties and messages are those of the
// Inter-Client Communication Conventions Manual (ICCCM) and the Extended Window Manager Hints.
#include "system/WindowFinder.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <vector>
#include <xcb/xcb.h>

namespace {
struct TFree {
    void operator()(void *reply) const { std::free(reply); }
};
template <class Reply>
using TReply = std::unique_ptr<Reply, TFree>;

constexpr std::uint32_t longestProperty = 16384; // units of four bytes; more is never wanted here
constexpr std::size_t groupLeaderOfHints = 8;    // ninth field of WM_HINTS
constexpr std::uint32_t groupLeaderGiven = 1U << 6U; // "window group hint" in the hints' flags
constexpr std::uint32_t iconicState = 3;
constexpr std::uint32_t requestByUser = 2; // source indication of a request that is not refused

TWindowId RootOf(xcb_connection_t *connection, int screen) {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    while (screen-- > 0 && screens.rem > 1)
        xcb_screen_next(&screens);
    return screens.data->root;
}

/// Without a server the connection is a broken one, on which every question has no answer.
class TX11WindowFinder : public IWindowFinder {
public:
    TX11WindowFinder() {
        int screen = 0;
        connection_.reset(xcb_connect(nullptr, &screen));
        if (!xcb_connection_has_error(connection_.get()))
            root_ = RootOf(connection_.get(), screen);
    }

    TWindowId Find(std::string_view windowClass, std::string_view title) override {
        for (const TWindowId window : TopLevelWindows())
            if (ClassOf(window) == windowClass && TitleOf(window) == title)
                return window;
        return 0;
    }

    /// WM_TRANSIENT_FOR, or else the group leader of WM_HINTS.
    TWindowId OwnerOf(TWindowId window) override {
        if (const TWindowId parent = Number(window, XCB_ATOM_WM_TRANSIENT_FOR, 0))
            return parent;
        if (Number(window, XCB_ATOM_WM_HINTS, 0) & groupLeaderGiven)
            return Number(window, XCB_ATOM_WM_HINTS, groupLeaderOfHints);
        return 0;
    }

    bool IsMinimised(TWindowId window) override {
        return Number(window, Atom("WM_STATE"), 0) == iconicState;
    }

    void ShowNormal(TWindowId window) override {
        xcb_map_window(connection_.get(), window); // what ICCCM says leaves the iconic state
        WaitUntilHandled();
    }

    void BringToForeground(TWindowId window) override {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = window;
        message.type = Atom("_NET_ACTIVE_WINDOW");
        message.data.data32[0] = requestByUser;
        xcb_send_event(connection_.get(), 0, root_,
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char *>(&message));
        WaitUntilHandled();
    }

private:
    /// A server drops what it has not yet read of a connection that has been closed, and a second
    /// start ends right after its request: the answer to a question asked later says that it was
    /// handled.
    void WaitUntilHandled() {
        const TReply<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(
            connection_.get(), xcb_get_input_focus(connection_.get()), nullptr));
    }

    std::uint32_t Atom(std::string_view name) {
        const auto cookie = xcb_intern_atom(connection_.get(), 0,
                                            static_cast<std::uint16_t>(name.size()), name.data());
        const TReply<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(connection_.get(), cookie, nullptr));
        return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    }

    /// The bytes of a property; nothing when there is none or the window has gone.
    std::optional<std::string> Property(TWindowId window, std::uint32_t property) {
        const auto cookie = xcb_get_property(connection_.get(), 0, window, property, XCB_ATOM_ANY,
                                             0, longestProperty);
        const TReply<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(connection_.get(), cookie, nullptr));
        if (!reply || reply->type == XCB_ATOM_NONE)
            return std::nullopt;
        const auto length = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
        return std::string(static_cast<const char *>(xcb_get_property_value(reply.get())), length);
    }

    std::vector<std::uint32_t> Numbers(TWindowId window, std::uint32_t property) {
        const std::string bytes = Property(window, property).value_or("");
        std::vector<std::uint32_t> numbers(bytes.size() / sizeof(std::uint32_t));
        if (!numbers.empty())
            std::memcpy(numbers.data(), bytes.data(), numbers.size() * sizeof(std::uint32_t));
        return numbers;
    }

    /// One number of a property; 0 when the property is shorter or missing.
    std::uint32_t Number(TWindowId window, std::uint32_t property, std::size_t index) {
        const auto numbers = Numbers(window, property);
        return index < numbers.size() ? numbers[index] : 0;
    }

    /// Those that the window manager lists; without one, the whole tree.
    std::vector<TWindowId> TopLevelWindows() {
        const std::uint32_t listed = Atom("_NET_CLIENT_LIST");
        std::vector<TWindowId> windows = Numbers(root_, listed);
        // A list that is there but empty is an answer too; the tree costs a question for every
        // window.
        if (windows.empty() && !Property(root_, listed))
            AddChildren(root_, windows);
        return windows;
    }

    void AddChildren(TWindowId window, std::vector<TWindowId> &windows) {
        const TReply<xcb_query_tree_reply_t> reply(xcb_query_tree_reply(
            connection_.get(), xcb_query_tree(connection_.get(), window), nullptr));
        if (!reply)
            return;
        const TWindowId *children = xcb_query_tree_children(reply.get());
        for (int i = 0; i < xcb_query_tree_children_length(reply.get()); ++i) {
            windows.push_back(children[i]);
            AddChildren(children[i], windows);
        }
    }

    /// The second of the two zero-terminated texts of WM_CLASS; the first is the instance's name.
    std::string ClassOf(TWindowId window) {
        const std::string both = Property(window, XCB_ATOM_WM_CLASS).value_or("");
        const std::size_t end = both.find('\0');
        return end == std::string::npos ? std::string() : std::string(both.c_str() + end + 1);
    }

    std::string TitleOf(TWindowId window) {
        const std::string title = Property(window, Atom("_NET_WM_NAME")).value_or("");
        return title.empty() ? Property(window, XCB_ATOM_WM_NAME).value_or("") : title;
    }

    struct TDisconnect {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };
    std::unique_ptr<xcb_connection_t, TDisconnect> connection_;
    TWindowId root_ = 0;
};
} // namespace

std::unique_ptr<IWindowFinder> DesktopWindowFinder() {
    return std::make_unique<TX11WindowFinder>();
}
