#include "filedisplay/filedisplaykey.h"

#include "forms/Access.h"
#include "forms/OtherWindows.h"

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
    {QT_TRANSLATE_NOOP("TfrmKey", "Axis Count"), 0xFF0000, QT_TRANSLATE_NOOP("TfrmKey", "blue")},
    {QT_TRANSLATE_NOOP("TfrmKey", "Axis Values"), 0x008000, QT_TRANSLATE_NOOP("TfrmKey", "green")},
    {QT_TRANSLATE_NOOP("TfrmKey", "Map Data"), 0x00FFFF, QT_TRANSLATE_NOOP("TfrmKey", "yellow")},
    {QT_TRANSLATE_NOOP("TfrmKey", "Possible Fuel Val"), 0x00FF00,
     QT_TRANSLATE_NOOP("TfrmKey", "lime")},
    {QT_TRANSLATE_NOOP("TfrmKey", "Possible Timing Val"), 0xFF00FF,
     QT_TRANSLATE_NOOP("TfrmKey", "fuchsia")},
    {QT_TRANSLATE_NOOP("TfrmKey", "Searched Val"), 0x008080, QT_TRANSLATE_NOOP("TfrmKey", "olive")},
}};

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
    lblFuelMin_->setText(tr("min: %1").arg(parameters_.fuelMinimum));
    lblFuelMax_->setText(tr("max: %1").arg(parameters_.fuelMaximum));
    lblTimingMin_->setText(tr("min: %1").arg(parameters_.timingMinimum));
    lblTimingMax_->setText(tr("max: %1").arg(parameters_.timingMaximum));
    lblRPMLocation_->setText(LocationText(tr("RPM: %1"), parameters_.rpmLocation));
    lblLoadLocation_->setText(LocationText(tr("Load: %1"), parameters_.loadLocation));
}
