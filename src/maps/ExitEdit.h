// A line edit that is heard when the user has moved on from it.
#pragma once

#include <QLineEdit>

class TExitEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit TExitEdit(QWidget *parent);

signals:
    /// The user moved on by Tab, mouse, shortcut or Enter; not because of a message box, a menu,
    /// another window or a page that is hidden.
    void Left();

protected:
    void focusOutEvent(QFocusEvent *event) override;
};
