// The button at the right end of the tab bar, whose menu has every command of the current page and,
// behind them, those of the whole window. What the commands are is the pages' business
// (Commands.h).
#pragma once

#include <vector>

#include <QToolButton>

class QMenu;
class TfrmKelvaneNotebook;

class TCommandMenu : public QToolButton {
    Q_OBJECT
public:
    /// Of `notebook`, whose tab bar it takes its place beside. F10 and Alt+M open the menu.
    explicit TCommandMenu(TfrmKelvaneNotebook &notebook);

    QMenu *const menu;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    /// Those whose commands are shown: the current page, where there is one, and the notebook.
    std::vector<const QWidget *> Panes() const;
    void Open();
    void Fill();
    void Release();

    TfrmKelvaneNotebook &notebook_;
};
