// Does at the window what a reader does who knows only the captions: presses, checks, chooses and
// clicks what is visible on the current page. A caption that is not there throws
// std::runtime_error.
#pragma once

#include "Session.h"

#include <QMenu>

class TReadmeHands {
public:
    explicit TReadmeHands(TSession &session) : session_(session) {}

    void Tab(const QString &caption) { session_.SelectTab(caption); }
    /// Of several buttons of that caption the one beside the grid that was typed in last.
    void Press(const QString &caption);
    /// The one button of that caption in another window.
    static void Press(const QString &caption, const QWidget &window);
    void Check(const QString &caption);
    /// An item of a radio group.
    void Choose(const QString &caption);
    /// An item of the page's menu, or of the menu that one of its items opens.
    void ChooseInMenu(const QString &item);
    void ChooseInMenu(const QString &menu, const QString &item);
    /// An item of the menu at the right end of the tabs.
    void ChooseInWindowMenu(const QString &item);
    /// Chooses another item of the menu that was used last.
    void ChooseInSameMenu(const QString &item) { ChooseInMenu(menu_, item); }
    void RememberMenu(const QString &menu) { menu_ = menu; }
    /// Types into the cell of the page below that engine speed and beside that load. Its text
    /// before is `shown`.
    void Type(const QString &text, const QString &rpm, const QString &load, const QString &shown);
    /// On the current line of a list of the page.
    void PressEnterOn(const QString &list);
    /// Scrolls "File Contents" to a byte and clicks it.
    void ClickByte(int offset);

    /// Whether the current page, the tabs or a menu of the page have that text.
    bool Shows(const QString &text) const;
    TColor TypedColor() const { return grid_->FontColor(cell_.column, cell_.row); }
    TStringAlignGrid &Contents() {
        return session_.On<TStringAlignGrid>("frmFileContents", "grdFile");
    }

private:
    QWidget &Page() const;

    TSession &session_;
    TStringAlignGrid *grid_ = nullptr; ///< typed in last
    TGridCell cell_{};
    QString menu_;
};
