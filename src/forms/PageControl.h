// A tab widget that asks before the user leaves a tab. Mouse, wheel, keys and accessibility tools
// all end in SelectByUser; the program selects by SelectByProgram, which asks nobody. It knows
// nothing of pages: what to ask and what to run afterwards is set by the notebook.
#pragma once

#include <functional>

#include <QPointer>
#include <QTabWidget>

class TPageControl : public QTabWidget {
    Q_OBJECT
public:
    explicit TPageControl(QWidget *parent = nullptr);

    /// May the current tab be left? Runs guarded; an error counts as "no". Empty: always.
    std::function<bool()> OnChanging;

    /// Runs, guarded, after the user has changed the tab.
    std::function<void()> OnChange;

    /// Runs, guarded, when the mouse has chosen a tab (also the current one) and behind OnChange:
    /// who points somewhere goes on there, while the keys and accessibility tools stay in the bar.
    std::function<void()> OnMouseChoice;

    /// What a user's choice of a tab does: takes the keyboard focus out of the current page, asks
    /// OnChanging, selects the tab and runs OnChange. Nothing for the current tab, an index out of
    /// range, a disabled tab, and while a question is still open.
    void SelectByUser(int index);

    /// Selects a tab without asking and without running OnChange. Out of range: nothing.
    void SelectByProgram(int index);

    /// SelectByUser and, when that tab is the current one then, OnMouseChoice.
    void SelectByMouse(int index);

    /// Runs `add`, which adds tabs behind those that there are; they come in one go when it ends.
    /// Each tab that comes by itself has the whole bar laid out anew.
    void AddInOneGo(const std::function<void()> &add);

    /// The next (+1) or previous (-1) tab that can be selected, behind the last the first when told
    /// to wrap round; -1 when there is none.
    int TabAtStep(int step, bool wrap) const;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void tabInserted(int index) override;

private:
    void CurrentTabChanged();
    void TakeFocusOutOfPage();
    bool MayChange();

    QPointer<QWidget> accepted_; ///< the current tab's widget as the two operations left it
    bool asking_ = false;
    bool adding_ = false;
};
