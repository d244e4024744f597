#include "maps/MapsGraphical.h"

#include "maps/ViewButtons.h"

#include <QKeyEvent>

TfrmMapsGraphical::TfrmMapsGraphical(QWidget *parent, TWorkspace &sharedWorkspace, TMapSet &mapSet)
    : TfrmMaps(parent, sharedWorkspace, mapSet) {
    setFocusPolicy(Qt::StrongFocus); // a click into the page makes the keys work, and so does Tab
    setAccessibleDescription(tr("The arrow keys turn and tilt the chart"));
}

void TfrmMapsGraphical::MakeControls() {
    TfrmMaps::MakeControls();
    ShowChartOnly();
    auto *view = new TViewButtons(this);
    view->ConnectTo(*this);
    BottomLine().insertWidget(0, view);
    installEventFilter(this);
    for (QWidget *control : findChildren<QWidget *>())
        control->installEventFilter(this);
}

void TfrmMapsGraphical::ShowChartOnly() {
    ShowOnly(TMapKind::PT);
    Panel(TMapKind::PT).panel->hide();
    Chart().TakeKeys(false);     // the page does
    Chart().setFocusProxy(this); // so that the wheel zooms while the keys work
    Panel(TMapKind::PT).commit->hide();
    Panel(TMapKind::PT).reset->hide();
    InterpretBox().hide();
}

void TfrmMapsGraphical::FormShow() {
    TfrmMaps::FormShow();
    for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT})
        Panel(kind).gridView.SetVisible(false);
}

void TfrmMapsGraphical::btnUpClick() {
    Chart().TiltBy(-turnStep);
    TakeFocus();
}

void TfrmMapsGraphical::btnDownClick() {
    Chart().TiltBy(turnStep);
    TakeFocus();
}

void TfrmMapsGraphical::btnLeftClick() {
    Chart().TurnBy(turnStep);
    TakeFocus();
}

void TfrmMapsGraphical::btnRightClick() {
    Chart().TurnBy(-turnStep);
    TakeFocus();
}

void TfrmMapsGraphical::udZoomClick(int direction) {
    Chart().ZoomBy(direction * zoomStep);
    TakeFocus();
}

bool TfrmMapsGraphical::FormKeyDown(int key) {
    switch (key) {
    case Qt::Key_Up:
        btnUpClick();
        return true;
    case Qt::Key_Down:
        btnDownClick();
        return true;
    case Qt::Key_Left:
        btnLeftClick();
        return true;
    case Qt::Key_Right:
        btnRightClick();
        return true;
    default:
        return false;
    }
}

bool TfrmMapsGraphical::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::KeyPress && FormKeyDown(static_cast<QKeyEvent *>(event)->key()))
        return true;
    return TfrmMaps::eventFilter(watched, event);
}
