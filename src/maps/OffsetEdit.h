// The box that shows where a map begins: read-only until it is double-clicked, or F2 is pressed in
// it.
#pragma once

#include "maps/ExitEdit.h"

class TOffsetEdit : public TExitEdit {
    Q_OBJECT
public:
    TOffsetEdit(QWidget *parent, const QString &name);

    /// Read-only with the face colour, or writable with the window colour.
    void SetWritable(bool writable);

signals:
    void DoubleClicked(); ///< or F2

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void TakeThemeColors();
};
