#include "filedisplay/filedisplaykey.h"

#include "forms/Access.h"

#include <array>

#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
struct TLegendRow {
    const char *text;
    TColor color; ///< 0x00BBGGRR
    const char *colorName;
};

constexpr std::array<TLegendRow, 6> legend{{
    {"Axis Count", 0xFF0000, "blue"},
    {"Axis Values", 0x008000, "green"},
    {"Map Data", 0x00FFFF, "yellow"},
    {"Possible Fuel Val", 0x00FF00, "lime"},
    {"Possible Timing Val", 0xFF00FF, "fuchsia"},
    {"Searched Val", 0x008080, "olive"},
}};

QString LocationText(const QString &prefix, std::int32_t location) {
    return prefix + (location < 0 ? QString("(not specified)") : QString::number(location));
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
    box->setFixedSize(28, 16);
    SetRole(*box, QAccessible::Graphic, name);
    return box;
}
} // namespace

TfrmKey::TfrmKey(QWidget *owner, const TSearchParameters &parameters)
    : TfrmBaseForm(owner), parameters_(parameters) {
    setObjectName("frmKey");
    setWindowTitle(tr("Key"));
    setWindowFlag(Qt::Tool);
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
    btnCancel->hide();
}

QWidget *TfrmKey::MakeLegend() {
    auto *box = new QWidget(this);
    auto *grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    for (const TLegendRow &row : legend) {
        const int place = grid->rowCount();
        grid->addWidget(ColorBox(box, row.color, tr(row.colorName)), place, 0);
        grid->addWidget(new QLabel(tr(row.text), box), place, 1);
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
    lblFuelMin_->setText(tr("min: ") + QString::number(parameters_.fuelMinimum));
    lblFuelMax_->setText(tr("max: ") + QString::number(parameters_.fuelMaximum));
    lblTimingMin_->setText(tr("min: ") + QString::number(parameters_.timingMinimum));
    lblTimingMax_->setText(tr("max: ") + QString::number(parameters_.timingMaximum));
    lblRPMLocation_->setText(LocationText(tr("RPM: "), parameters_.rpmLocation));
    lblLoadLocation_->setText(LocationText(tr("Load: "), parameters_.loadLocation));
}
