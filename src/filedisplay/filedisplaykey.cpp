#include "filedisplay/filedisplaykey.h"

#include "filedisplay/Marks.h"
#include "forms/Access.h"
#include "forms/Hint.h"
#include "forms/OtherWindows.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
QString LocationText(const QString &text, std::int32_t location) {
    return text.arg(location < 0 ? TfrmKey::tr("(not specified)") : QString::number(location));
}

/// A box filled with one colour of the legend.
QFrame *ColorBox(QWidget *parent, TColor color, const QString &name) {
    auto *box = new QFrame(parent);
    QPalette colors;
    colors.setColor(QPalette::Window,
                    QColor(int(color & 0xFF), int(color >> 8 & 0xFF), int(color >> 16 & 0xFF)));
    box->setPalette(colors);
    box->setAutoFillBackground(true);
    box->setFrameShape(QFrame::Box);
    const int height = box->fontMetrics().height();
    box->setFixedSize(2 * height, height);
    SetRole(*box, QAccessible::Graphic, name);
    return box;
}
} // namespace

TfrmKey::TfrmKey(QWidget *owner, const TSearchParameters &parameters)
    : TfrmBaseForm(owner), parameters_(parameters) {
    setObjectName("frmKey");
    setWindowTitle(tr("Key"));
    setWindowFlag(Qt::Tool);
    setAttribute(Qt::WA_ShowWithoutActivating); // the user goes on in the page
    StopOnF6(*this);
    Contents()->addWidget(MakeLegend());
    Contents()->addWidget(MakeGroup(tr("Fuel values to search for"), lblFuelMin_, lblFuelMax_));
    Contents()->addWidget(
        MakeGroup(tr("Timing values to search for"), lblTimingMin_, lblTimingMax_));
    Contents()->addWidget(
        MakeGroup(tr("Relevant CPU RAM Locations"), lblRPMLocation_, lblLoadLocation_));
    lblFuelMin_->setObjectName("lblFuelMin");
    lblFuelMax_->setObjectName("lblFuelMax");
    lblTimingMin_->setObjectName("lblTimingMin");
    lblTimingMax_->setObjectName("lblTimingMax");
    lblRPMLocation_->setObjectName("lblRPMLocation");
    lblLoadLocation_->setObjectName("lblLoadLocation");
    SetHint(btnOK, tr("Hide this window"));
    btnCancel->hide();
}

QWidget *TfrmKey::MakeLegend() {
    auto *box = new QWidget(this);
    auto *grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    for (const TMark &mark : marks) {
        if (!mark.legend)
            continue;
        const int row = grid->rowCount();
        grid->addWidget(ColorBox(box, mark.legend->color, tr(mark.legend->colorName)), row, 0);
        grid->addWidget(new QLabel(tr(mark.legend->text), box), row, 1);
    }
    grid->setColumnStretch(1, 1);
    return box;
}

QWidget *TfrmKey::MakeGroup(const QString &title, QLabel *&first, QLabel *&second) {
    auto *group = new QGroupBox(title, this);
    auto *column = new QVBoxLayout(group);
    first = new QLabel(group);
    second = new QLabel(group);
    column->addWidget(first);
    column->addWidget(second);
    return group;
}

void TfrmKey::PlaceAt(const QWidget &window) {
    ShowParameters(); // their texts decide the size
    adjustSize();
    // The own frame is not known before the first show: the main window's stands for it.
    const QWidget &framed = isVisible() ? static_cast<const QWidget &>(*this) : window;
    const QSize whole = size() + framed.frameGeometry().size() - framed.size();
    const QRect place = window.frameGeometry();
    move(place.x() + place.width() - whole.width(), place.y() + place.height() - whole.height());
}

void TfrmKey::ShowParameters() {
    lblFuelMin_->setText(tr("min: %1").arg(parameters_.fuelMinimum));
    lblFuelMax_->setText(tr("max: %1").arg(parameters_.fuelMaximum));
    lblTimingMin_->setText(tr("min: %1").arg(parameters_.timingMinimum));
    lblTimingMax_->setText(tr("max: %1").arg(parameters_.timingMaximum));
    lblRPMLocation_->setText(LocationText(tr("RPM: %1"), parameters_.rpmLocation));
    lblLoadLocation_->setText(LocationText(tr("Load: %1"), parameters_.loadLocation));
}
