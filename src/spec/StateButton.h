// The button at the right end of the bottom line that says how the work stands, and the list that
// it opens. What it says is ProgramState.h's.
#pragma once

#include "spec/ProgramState.h"

#include <functional>

#include <QPushButton>

class QMenu;

class TStateButton : public QPushButton {
    Q_OBJECT
public:
    explicit TStateButton(QWidget *parent);

    QMenu *const list; ///< an item for each text

    /// Runs, guarded, with the tab of the text that was chosen from the list.
    std::function<void(int tab)> OnChoose;

    /// A warning makes the line bold, with a sign in front of it.
    void ShowState(const std::vector<TStateText> &texts);
    void OpenList();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void FillList(const std::vector<TStateText> &texts);
    void CutLine();
    QSize SizeFor(int letters) const;
    /// What the warning sign takes, with the gap behind it; 0 without one.
    int SignWidth() const;

    QString line_; ///< whole; the button shows what fits
};
