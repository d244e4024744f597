// The grey line that stands in place of a map that cannot be shown. What it says is WhyNoMap.h.
#pragma once

#include <QLabel>

class TMapNote : public QLabel {
    Q_OBJECT
public:
    TMapNote(QWidget *parent, const QString &name);

    /// Room for two lines whatever the width: a height that follows the width would let the whole
    /// page be laid out by preferred heights.
    bool hasHeightForWidth() const override { return false; }
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override { return minimumSizeHint(); }

protected:
    void changeEvent(QEvent *event) override;

private:
    void TakeThemeColors();
};
