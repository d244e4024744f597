#include "maps/ToolWindow.h"

#include "forms/Beside.h"
#include "forms/FrameRoom.h"
#include "forms/Guard.h"
#include "forms/Help.h"
#include "forms/Hint.h"
#include "forms/OtherWindows.h"
#include "forms/PlainScroll.h"
#include "maps/MapSelection.h"
#include "maps/Maps.h"
#include "model/Numbers.h"

#include <algorithm>

#include <QAbstractButton>
#include <QMainWindow>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>
#include <QWindow>

namespace {
constexpr int itemRoom = 72; // pixels beside an item's text: the button, the margins and the frame
} // namespace

TfrmToolWindow::TfrmToolWindow(TfrmMaps &page)
    : QDockWidget(tr("Tools"), page.window()),
      page_(page),
      rdoOperation_(MakeGroup("rdoOperation", tr("&Operation"), {tr("Add"), tr("Subtract")})),
      edtVal_(new TExitEdit(this)),
      rdoScale_(MakeGroup("rdoScale", tr("&Scale"), {tr("Units"), tr("Percent")})),
      lblfromto_(new QLabel(tr("from"), this)),
      rdoRange_(MakeGroup("rdoRange", tr("&Range"), {tr("All"), tr("Row"), tr("Column")})),
      rdoDataset_(MakeGroup("rdoDataset", tr("&Data Set"),
                            {tr("Part Throttle"), tr("Idle"), tr("Full Throttle")})),
      btnExec_(new QPushButton(tr("&Go"), this)) {
    setObjectName("frmToolWindow");
    QWidget *contents = MakeContents();
    setWidget(MakePlainScroll(contents, this));
    ConnectControls();
    OnHelpKey(*this, [this] { ShowHelpOf(*this); });
    if (auto *host = qobject_cast<QMainWindow *>(page.window()))
        host->addDockWidget(Qt::RightDockWidgetArea, this);
    setFloating(true);
    MakeReachable();
    FitTo(*contents);
    MoveBeside(*this, *page.window());
    hide();
}

void TfrmToolWindow::MakeReachable() {
    StopOnF6(*this, edtVal_);
    // Docking without a mouse.
    for (const char *name : {"qt_dockwidget_floatbutton", "qt_dockwidget_closebutton"})
        if (auto *button = findChild<QAbstractButton *>(name))
            button->setFocusPolicy(Qt::TabFocus);
    edtVal_->setFocus(); // when the window comes up
}

/// As large as its contents, which scroll on a screen too small for them.
void TfrmToolWindow::FitTo(const QWidget &contents) {
    const QSize wanted = contents.sizeHint();
    const QSize frame = sizeHint() - widget()->sizeHint();
    const int height = wanted.height() + frame.height();
    const int highest = screen()->availableGeometry().height() - frameRoom.height();
    const int bar = height > highest ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
    widget()->setMinimumWidth(wanted.width() + bar);
    resize(wanted.width() + bar + frame.width(), std::min(height, highest));
}

TRadioGroup *TfrmToolWindow::MakeGroup(const char *name, const QString &title,
                                       const QStringList &items) {
    auto *group = new TRadioGroup(title, 1, this);
    group->setObjectName(name);
    for (const QString &item : items)
        group->AddItem(item);
    group->SetItemIndex(0);
    return group;
}

QWidget *TfrmToolWindow::MakeContents() {
    edtVal_->setObjectName("edtVal");
    edtVal_->setText("0");
    edtVal_->setAccessibleName(tr("Amount"));
    SetHint(rdoOperation_, tr("Whether the amount is added or subtracted"));
    SetHint(edtVal_, tr("The amount, a whole number"));
    SetHint(rdoScale_, tr("The amount in the numbers that the grid shows, or in percent of them"));
    SetHint(rdoRange_, tr("All cells, or the row or the column of the selected cell"));
    SetHint(rdoDataset_, tr("The map that is changed"));
    SetHint(btnExec_, tr("Change the cells"));
    lblfromto_->setObjectName("lblfromto");
    btnExec_->setObjectName("btnExec");
    auto *of = new QLabel(tr("of"), this);
    of->setObjectName("Label1");
    auto *undo = new QPushButton(tr("&Undo"), this);
    undo->setObjectName("Button2");
    undo->hide(); // there is no undo; "Reset" on the page is the way back

    auto *contents = new QWidget(this);
    auto *column = new QVBoxLayout(contents);
    for (QWidget *control :
         std::initializer_list<QWidget *>{rdoOperation_, edtVal_, rdoScale_, lblfromto_, rdoRange_,
                                          of, rdoDataset_, btnExec_, undo})
        column->addWidget(control);
    column->addStretch(1);
    // Room for the longest item, also when docked.
    contents->setMinimumWidth(fontMetrics().horizontalAdvance(tr("Full Throttle")) + itemRoom);
    return contents;
}

void TfrmToolWindow::ConnectControls() {
    rdoOperation_->OnClick = [this] { rdoOperationClick(); };
    rdoScale_->OnClick = [this] { rdoScaleClick(); };
    rdoRange_->OnClick = [this] { rdoRangeClick(); };
    rdoDataset_->OnClick = [this] { rdoDatasetClick(); };
    ConnectGuarded(edtVal_, &TExitEdit::Left, this, [this] { edtValExit(); });
    ConnectGuarded(btnExec_, &QPushButton::clicked, this, [this] {
        // The button's shortcut leaves the focus where it is: the amount must be left first.
        btnExec_->setFocus(Qt::ShortcutFocusReason);
        btnExecClick();
    });
}

void TfrmToolWindow::showEvent(QShowEvent *event) {
    QDockWidget::showEvent(event);
    StayOnTop(true);
    Guarded([this] { FormShow(); });
}

bool TfrmToolWindow::event(QEvent *event) {
    // A question comes up in front of its own window only, and must not lie behind this one.
    if (event->type() == QEvent::WindowBlocked)
        StayOnTop(false);
    if (event->type() == QEvent::WindowUnblocked)
        StayOnTop(true);
    return QDockWidget::event(event);
}

void TfrmToolWindow::StayOnTop(bool stay) {
    // The dock makes its window, and the flags of it, anew with each docking and floating.
    if (isFloating() && windowHandle())
        windowHandle()->setFlag(Qt::WindowStaysOnTopHint, stay);
}

void TfrmToolWindow::FormShow() {
    rdoOperationClick();
    rdoScaleClick();
    rdoRangeClick();
    rdoDatasetClick();
}

void TfrmToolWindow::rdoOperationClick() {
    Sign = rdoOperation_->ItemIndex() == 1 ? -1 : 1;
    lblfromto_->setText(Sign > 0 ? tr("to") : tr("from"));
}

void TfrmToolWindow::rdoScaleClick() {
    Scale = rdoScale_->ItemIndex();
}

void TfrmToolWindow::rdoRangeClick() {
    ApplyRange(TAdjustRange{rdoRange_->ItemIndex()});
}

void TfrmToolWindow::rdoDatasetClick() {
    DataSet = rdoDataset_->ItemIndex();
    if (DataSet > 0)
        ApplyRange(TAdjustRange::Row);
}

void TfrmToolWindow::ApplyRange(TAdjustRange requested) {
    Range = static_cast<int>(RangeFor(TMapKind{DataSet}, requested));
    rdoRange_->SetItemIndex(Range);
}

void TfrmToolWindow::edtValExit() {
    Amount = ParseInteger(edtVal_->text().toStdString());
    edtVal_->setText(QString::number(Amount));
}

void TfrmToolWindow::btnExecClick() {
    const TMapKind kind{DataSet};
    TStringAlignGrid &grid = *page_.Panel(kind).grid;
    grid.CloseEditor();
    const TCellRange cells = CellsToAdjust(kind, TAdjustRange{Range},
                                           {.columns = grid.ColCount(),
                                            .rows = grid.RowCount(),
                                            .currentColumn = grid.Col(),
                                            .currentRow = grid.Row()});
    page_.history.Run(tr("adjustment"), [&] {
        // The map counts as changed before any cell is touched, and even when none changes. This is
        // intended: see docs/peculiarities.md.
        page_.Changed(kind) = true;
        AdjustCells(page_.Panel(kind).gridView, cells, {Sign, Scale == 1, Amount},
                    page_.Map(kind).GetCellFormat());
        page_.RedrawMapChart(kind);
    });
    page_.Say(page_.StoredNotes(kind, CellsIn(cells)));
}
