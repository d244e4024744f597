// For Linux alone: the desktop there is X11, with a server and properties of its windows.
#include "start/WaitFor.h"
#include "start/XServer.h"
#include "system/WindowFinder.h"

#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <string>
#include <xcb/xcb.h>

#include <gtest/gtest.h>

namespace {
/// An X server of its own and, on a second connection, another program's windows.
class WindowFinder : public testing::Test {
protected:
    static void SetUpTestSuite() { server = std::make_unique<TXServer>(); }
    static void TearDownTestSuite() { server.reset(); }
    void SetUp() override {
        before_ = qgetenv("DISPLAY");
        qputenv("DISPLAY", server->Display());
        other_ = xcb_connect(server->Display().constData(), nullptr);
        ASSERT_EQ(xcb_connection_has_error(other_), 0);
        root_ = xcb_setup_roots_iterator(xcb_get_setup(other_)).data->root;
        finder_ = DesktopWindowFinder();
    }
    void TearDown() override {
        if (finder_)
            xcb_delete_property(other_, root_, Atom("_NET_CLIENT_LIST"));
        xcb_destroy_subwindows(other_, root_);
        finder_.reset();
        Sync();
        xcb_disconnect(other_);
        before_.isNull() ? qunsetenv("DISPLAY") : qputenv("DISPLAY", before_);
    }

    /// Waits until the server has done all that was asked for.
    void Sync() {
        std::free(xcb_get_input_focus_reply(other_, xcb_get_input_focus(other_), nullptr));
    }
    xcb_atom_t Atom(const std::string &name) {
        auto *reply = xcb_intern_atom_reply(
            other_,
            xcb_intern_atom(other_, 0, static_cast<std::uint16_t>(name.size()), name.c_str()),
            nullptr);
        const xcb_atom_t atom = reply->atom;
        std::free(reply);
        return atom;
    }
    void SetText(TWindowId window, xcb_atom_t property, const std::string &text) {
        xcb_change_property(other_, XCB_PROP_MODE_REPLACE, window, property, XCB_ATOM_STRING, 8,
                            static_cast<std::uint32_t>(text.size()), text.data());
        Sync();
    }
    void SetNumbers(TWindowId window, xcb_atom_t property,
                    std::initializer_list<std::uint32_t> numbers) {
        xcb_change_property(other_, XCB_PROP_MODE_REPLACE, window, property, XCB_ATOM_CARDINAL, 32,
                            static_cast<std::uint32_t>(numbers.size()), numbers.begin());
        Sync();
    }
    TWindowId NewWindow(TWindowId parent, const std::string &windowClass,
                        const std::string &title) {
        const TWindowId window = xcb_generate_id(other_);
        xcb_create_window(other_, XCB_COPY_FROM_PARENT, window, parent, 0, 0, 50, 50, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        using namespace std::string_literals;
        SetText(window, XCB_ATOM_WM_CLASS, "instance\0"s + windowClass + "\0"s);
        SetText(window, XCB_ATOM_WM_NAME, title);
        return window;
    }
    TWindowId NewNotebook() { return NewWindow(root_, "TfrmNotebook", "Ferrolyn "); }
    TWindowId Search() { return finder_->Find("TfrmNotebook", "Ferrolyn "); }

    static std::unique_ptr<TXServer> server;
    QByteArray before_;
    xcb_connection_t *other_ = nullptr;
    TWindowId root_ = 0;
    std::unique_ptr<IWindowFinder> finder_;
};
std::unique_ptr<TXServer> WindowFinder::server;
} // namespace

TEST_F(WindowFinder, FindsClassAndTitleExactly) {
    EXPECT_EQ(Search(), 0U);
    NewWindow(root_, "TfrmNotebook", "Ferrolyn");
    NewWindow(root_, "TfrmNotebook", "Ferrolyn - map.bin");
    NewWindow(root_, "TfrmNotebook", "ferrolyn ");
    NewWindow(root_, "Tfrmnotebook", "Ferrolyn ");
    NewWindow(root_, "", "Ferrolyn ");
    EXPECT_EQ(Search(), 0U);
    const TWindowId notebook = NewNotebook();
    EXPECT_EQ(Search(), notebook);
}

TEST_F(WindowFinder, FindsAWindowInsideAFrame) {
    const TWindowId frame = NewWindow(root_, "frame", "frame");
    const TWindowId notebook = NewWindow(frame, "TfrmNotebook", "Ferrolyn ");
    EXPECT_EQ(Search(), notebook);
}

TEST_F(WindowFinder, TheNewerTitleRules) {
    const TWindowId notebook = NewNotebook();
    SetText(notebook, Atom("_NET_WM_NAME"), "Ferrolyn");
    EXPECT_EQ(Search(), 0U);
    SetText(notebook, XCB_ATOM_WM_NAME, "Ferrolyn");
    SetText(notebook, Atom("_NET_WM_NAME"), "Ferrolyn ");
    EXPECT_EQ(Search(), notebook);
}

TEST_F(WindowFinder, LooksOnlyAtWhatTheWindowManagerLists) {
    const TWindowId unlisted = NewNotebook();
    const TWindowId listed = NewNotebook();
    const TWindowId gone = listed + 1000;
    SetNumbers(root_, Atom("_NET_CLIENT_LIST"), {gone, listed});
    EXPECT_EQ(Search(), listed);
    SetNumbers(root_, Atom("_NET_CLIENT_LIST"), {gone, unlisted});
    EXPECT_EQ(Search(), unlisted);
}

TEST_F(WindowFinder, TheOwnerIsTheParentOfADialogOrTheGroupLeader) {
    constexpr std::uint32_t leaderGiven = 64;
    const TWindowId notebook = NewNotebook();
    const TWindowId leader = NewWindow(root_, "leader", "leader");
    const TWindowId parent = NewWindow(root_, "parent", "parent");
    EXPECT_EQ(finder_->OwnerOf(notebook), 0U);
    SetNumbers(notebook, XCB_ATOM_WM_HINTS, {0, 0, 0, 0, 0, 0, 0, 0, leader});
    EXPECT_EQ(finder_->OwnerOf(notebook), 0U) << "a leader that is not given";
    SetNumbers(notebook, XCB_ATOM_WM_HINTS, {leaderGiven});
    EXPECT_EQ(finder_->OwnerOf(notebook), 0U) << "hints cut short";
    SetNumbers(notebook, XCB_ATOM_WM_HINTS, {leaderGiven, 0, 0, 0, 0, 0, 0, 0, leader});
    EXPECT_EQ(finder_->OwnerOf(notebook), leader);
    SetNumbers(notebook, XCB_ATOM_WM_TRANSIENT_FOR, {parent});
    EXPECT_EQ(finder_->OwnerOf(notebook), parent);
}

TEST_F(WindowFinder, OnlyTheIconicStateIsMinimised) {
    const TWindowId notebook = NewNotebook();
    const xcb_atom_t state = Atom("WM_STATE");
    EXPECT_FALSE(finder_->IsMinimised(notebook));
    SetNumbers(notebook, state, {1, 0});
    EXPECT_FALSE(finder_->IsMinimised(notebook));
    SetNumbers(notebook, state, {3, 0});
    EXPECT_TRUE(finder_->IsMinimised(notebook));
}

TEST_F(WindowFinder, ShowingNormallyMapsTheWindow) {
    const TWindowId notebook = NewNotebook();
    finder_->ShowNormal(notebook);
    const auto mapped = [&] {
        auto *reply = xcb_get_window_attributes_reply(
            other_, xcb_get_window_attributes(other_, notebook), nullptr);
        const bool is = reply->map_state != XCB_MAP_STATE_UNMAPPED;
        std::free(reply);
        return is;
    };
    EXPECT_TRUE(WaitFor(mapped));
}

TEST_F(WindowFinder, BringingToTheForegroundAsksTheWindowManager) {
    const TWindowId notebook = NewNotebook();
    const xcb_atom_t request = Atom("_NET_ACTIVE_WINDOW");
    const std::uint32_t listen = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(other_, root_, XCB_CW_EVENT_MASK, &listen);
    Sync();
    finder_->BringToForeground(notebook);
    bool asked = false;
    const auto seen = [&] {
        while (auto *event = xcb_poll_for_event(other_)) {
            xcb_client_message_event_t message{};
            std::memcpy(&message, event, sizeof message);
            std::free(event);
            asked |= (message.response_type & 0x7F) == XCB_CLIENT_MESSAGE &&
                     message.type == request && message.window == notebook &&
                     message.data.data32[0] == 2;
        }
        return asked;
    };
    EXPECT_TRUE(WaitFor(seen));
}

TEST_F(WindowFinder, AWindowThatHasGoneIsNone) {
    const TWindowId gone = NewNotebook();
    xcb_destroy_window(other_, gone);
    Sync();
    EXPECT_EQ(finder_->OwnerOf(gone), 0U);
    EXPECT_FALSE(finder_->IsMinimised(gone));
    finder_->ShowNormal(gone);
    finder_->BringToForeground(gone);
    EXPECT_EQ(Search(), 0U);
}

TEST_F(WindowFinder, WithoutAServerNothingIsFound) {
    const auto expectNothing = [] {
        const auto finder = DesktopWindowFinder();
        EXPECT_EQ(finder->Find("TfrmNotebook", "Ferrolyn "), 0U);
        EXPECT_EQ(finder->OwnerOf(1), 0U);
        EXPECT_FALSE(finder->IsMinimised(1));
        finder->ShowNormal(1);
        finder->BringToForeground(1);
    };
    for (const char *nowhere : {"", "nonsense", ":63999"}) {
        qputenv("DISPLAY", nowhere);
        expectNothing();
    }
    qunsetenv("DISPLAY");
    expectNothing();
    qputenv("DISPLAY", server->Display());
    const TWindowId notebook = NewNotebook();
    EXPECT_EQ(DesktopWindowFinder()->Find("TfrmNotebook", "Ferrolyn "), notebook);
}
