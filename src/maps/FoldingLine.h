// A line of controls in two groups, one at either end, that folds into two lines where they do not
// fit beside each other: large fonts and long languages need more room than a small screen has.
#pragma once

#include <QBoxLayout>
#include <QWidget>

class TFoldingLine : public QWidget {
    Q_OBJECT
public:
    explicit TFoldingLine(QWidget *parent);

    QHBoxLayout &Start() const { return *start_; } ///< controls at the beginning of the line
    QHBoxLayout &End() const { return *end_; }     ///< controls at its end

    /// As narrow as the wider group.
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool event(QEvent *event) override;

private:
    int UnfoldedWidth() const;
    void Fold();

    QBoxLayout *lines_;
    QHBoxLayout *start_;
    QHBoxLayout *end_;
};
