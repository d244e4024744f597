// A label for one line of plain text that may be longer than its room: drawn with its middle left
// out, while `text` stays whole for whoever reads it.
#pragma once

#include <QLabel>

class TElidedLabel : public QLabel {
    Q_OBJECT

public:
    explicit TElidedLabel(QWidget *parent = nullptr);

    /// The text and, as the tool tip, the same where it is drawn shortened.
    void ShowText(const QString &text);
    /// What is drawn.
    QString ShownText() const;

protected:
    void paintEvent(QPaintEvent *event) override;
};
