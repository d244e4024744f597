#include "maps/Maps.h"

#include "forms/Dialogs.h"
#include "forms/Guard.h"
#include "forms/TabOrder.h"
#include "maps/ChartData.h"
#include "maps/MapCommands.h"
#include "maps/PasteBuffer.h"
#include "maps/ToolWindow.h"
#include "maps/WhyNoMap.h"
#include "model/Numbers.h"

#include <array>

#include <QApplication>
#include <QSignalBlocker>

namespace {
/// The load point of a one-axis map: idle at closed, full throttle at open throttle.
double SingleLoadPoint(TMapKind kind) {
    return kind == TMapKind::WOT ? 100 : 0;
}
} // namespace

TfrmMaps::TfrmMaps(QWidget *parent, TWorkspace &sharedWorkspace, TMapSet &mapSet)
    : TEmbeddedForm(parent), MapSet(&mapSet), workspace(sharedWorkspace) {}

TfrmMaps::~TfrmMaps() {
    disconnect(qApp, nullptr, this, nullptr); // the focus still moves while the widgets go
    delete ToolWindow;
}

void TfrmMaps::Prepare() {
    if (controls_)
        return;
    MakeControls();
    // Behind those that a derived page has put in front of them.
    MoveToTabEnd(*window(), {&controls_->interpret, &controls_->recalculate, &controls_->close});
}

TMapPageControls &TfrmMaps::Controls() {
    Prepare();
    return *controls_;
}

void TfrmMaps::ShowOnly(TMapKind kind) {
    only_ = kind;
    if (controls_)
        controls_->maps.ShowOnly(kind);
}

void TfrmMaps::MakeControls() {
    controls_ = std::make_unique<TMapPageControls>(*this);
    for (const TMapKind kind : allMapKinds) {
        ConnectPanel(Panel(kind));
        Panel(kind).chart->SetDepthTitle(DepthTitle());
    }
    if (only_)
        controls_->maps.ShowOnly(*only_);
    // Accessibility tools toggle without a click.
    ConnectGuarded(&controls_->interpret, &QCheckBox::toggled, this,
                   [this] { chkInterpretClick(); });
    ConnectGuarded(&controls_->recalculate, &QPushButton::clicked, this,
                   [this] { btnRecalculateClick(); });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, const QWidget *now) {
        for (const TMapKind kind : allMapKinds)
            if (Panel(kind).grid == now)
                currentKind_ = kind;
    });
    AddMapCommands(*this);
}

void TfrmMaps::ConnectPanel(TMapPanel &row) {
    using T = TfrmMaps;
    const auto kind = static_cast<std::size_t>(row.traits.kind);
    const auto connect = [this, kind](auto *control, auto signal,
                                      const std::array<void (T::*)(), 3> &handlers) {
        ConnectGuarded(control, signal, this,
                       [this, handler = handlers[kind]] { (this->*handler)(); });
    };
    const auto onEdit = [this, kind](const std::array<void (T::*)(int, int), 3> &handlers) {
        return [this, handler = handlers[kind]](int c, int r) { (this->*handler)(c, r); };
    };
    constexpr auto clicked = &QPushButton::clicked;
    constexpr auto triggered = &QAction::triggered;
    row.grid->OnBeforeEdit =
        onEdit({&T::grdPTMapBeforeEdit, &T::grdIdMapBeforeEdit, &T::grdFTMapBeforeEdit});
    row.grid->OnAfterEdit =
        onEdit({&T::grdPTMapAfterEdit, &T::grdIdMapAfterEdit, &T::grdFTMapAfterEdit});
    connect(row.commit, clicked, {&T::btnSavePTClick, &T::btnSaveIdleClick, &T::btnSaveFTClick});
    connect(row.reset, clicked, {&T::btnResetPTClick, &T::btnResetIdleClick, &T::btnResetFTClick});
    connect(row.copyAction, triggered, {&T::Copy1Click, &T::Copy2Click, &T::Copy3Click});
    connect(row.pasteAction, triggered, {&T::Paste1Click, &T::Paste2Click, &T::Paste3Click});
    connect(row.unlockAction, triggered,
            {&T::UnlockAxis1Click, &T::UnlockAxis2Click, &T::UnlockAxis3Click});
    connect(row.offset, &TOffsetEdit::Left,
            {&T::edtPTOffsetExit, &T::edtIdOffsetExit, &T::edtFTOffsetExit});
    ConnectGuarded(row.offset, &TOffsetEdit::DoubleClicked, this,
                   [this, box = row.offset] { edtOffsetDblClick(*box); });
    TellNotes(row);
}

bool &TfrmMaps::Changed(TMapKind kind) {
    if (kind == TMapKind::PT)
        return PTChanged;
    return kind == TMapKind::Idle ? IdleChanged : FTChanged;
}

void TfrmMaps::ShowPage() {
    {
        const QSignalBlocker silent(InterpretBox());
        InterpretBox().setChecked(MapSet->showConverted);
    }
    LoadPTMap();
    LoadIdleMap();
    LoadFTMap();
    ShowShades();
    SetPageVisible(true);
}

void TfrmMaps::ShowShades() {
    for (const TMapKind kind : allMapKinds)
        Panel(kind).shades.Show();
}

QWidget *TfrmMaps::FirstControl() {
    for (const TMapKind kind : allMapKinds)
        if (Panel(kind).grid->isVisible())
            return Panel(kind).grid;
    return TEmbeddedForm::FirstControl();
}

bool TfrmMaps::QueryClose() {
    if (controls_)
        CloseEditors();
    if (AnyChanged() && Dialogs().AskAboutEdits(tr("Commit Changes?")) == TAnswer::Yes)
        CommitAll();
    SetPageVisible(false);
    return true;
}

void TfrmMaps::CommitAll() {
    CommitPT();
    CommitIdle();
    CommitFT();
}

void TfrmMaps::FormShow() {
    ToolWindow = new TfrmToolWindow(*this);
}

void TfrmMaps::FormHide() {
    delete ToolWindow;
}

void TfrmMaps::LoadMap(TMapKind kind) {
    TMap &map = Map(kind);
    // Read again first: the point counts may be others than those the grid was last sized by.
    map.SetOffset(map.GetLocation());
    if (kind != TMapKind::PT)
        map.axes->throttleAxis->SetSinglePoint(SingleLoadPoint(kind));
    map.data->SetShowConverted(MapSet->showConverted);
    ShapeRow(kind);
    FillMap(kind);
    RedrawMapChart(kind);
    Panel(kind).SetCaption(windowTitle());
    Changed(kind) = false;
    history.Begin();
}

void TfrmMaps::ShapeRow(TMapKind kind) {
    TMapPanel &row = Panel(kind);
    const TMap &map = Map(kind);
    map.SizeGrid(row.gridView);
    map.SizeChart(row.chartView);
    row.ShowNote(QString::fromStdString(WhyNotShown(map)));
}

void TfrmMaps::FillMap(TMapKind kind) {
    TMapPanel &row = Panel(kind);
    TMap &map = Map(kind);
    std::string location;
    map.FillGrid(row.gridView, location, map.GetCellFormat(), row.traits.maxRows,
                 row.traits.maxColumns);
    row.offset->setText(QString::fromStdString(location));
}

void TfrmMaps::RedrawMapChart(TMapKind kind) {
    RedrawChart(Panel(kind).gridView, Panel(kind).chartView);
}

void TfrmMaps::Commit(TMapKind kind) {
    TMapPanel &row = Panel(kind);
    row.grid->CloseEditor();
    history.RunOnImage(tr("Commit"), [&] {
        if (Changed(kind)) {
            const QString notes = StoredNotes(kind, EditedCells(kind), TNoteTime::After);
            try {
                Map(kind).ReadGrid(row.gridView);
                Map(kind).Save();
                Changed(kind) = false;
                DataChanged = true;
                Say(notes);
            } catch (const std::exception &) {
                Dialogs().ShowMessage(tr("Error saving new data"));
            }
        }
        FillMap(kind);
        TakeFocus();
    });
}

void TfrmMaps::Reset(TMapKind kind) {
    Panel(kind).grid->CloseEditor();
    history.Run(tr("Reset"), [&] {
        FillMap(kind);
        RedrawMapChart(kind);
        Changed(kind) = false;
        TakeFocus();
    });
}

void TfrmMaps::chkInterpretClick() {
    CloseEditors();
    history.Run(InterpretBox().text(), [&] {
        MapSet->SetShowConverted(InterpretBox().isChecked());
        // The flags stay although the edits are discarded, and no chart is drawn again. Both are
        // intended: see docs/peculiarities.md.
        FillMap(TMapKind::PT);
        FillMap(TMapKind::WOT);
        FillMap(TMapKind::Idle);
    });
}

void TfrmMaps::OffsetExit(TMapKind kind) {
    TMapPanel &row = Panel(kind);
    TMap &map = Map(kind);
    if (kind == TMapKind::WOT)
        map.SizeChart(row.chartView);
    const int offset = ParseInteger(row.offset->text().toStdString());
    // An unchanged number leaves the box writable. This is intended: the user is not done yet.
    if (offset == map.GetLocation())
        return;
    if (Changed(kind)) {
        Dialogs().ShowMessage(tr("You have uncommitted changes, save first"));
        row.offset->setText(QString::fromStdString(FormatOffset(map.GetLocation())));
    } else {
        map.SetOffset(offset);
        LoadMap(kind);
    }
    row.offset->SetWritable(false);
}

void TfrmMaps::UnlockAxis(TMapKind kind) {
    TMapPanel &row = Panel(kind);
    row.grid->CloseEditor(); // its text is accepted: a grid of another shape would drop it
    history.Run(row.unlockAction->text(), [&] { row.gridView.UnlockAxes(kind == TMapKind::PT); });
}

void TfrmMaps::btnRecalculateClick() {
    if (QWidget *tool = ToolWindow.data())
        tool->setVisible(!tool->isVisible());
}

void TfrmMaps::CloseEditors() {
    for (const TMapKind kind : allMapKinds)
        Panel(kind).grid->CloseEditor();
}

void TfrmMaps::CopyTo(TPasteSlots &buffer, TMapSet &from, TMapKind kind) {
    std::unique_ptr<TMap> copy = from.Map(kind).CreateCopy();
    if (kind != TMapKind::PT)
        copy->axes->throttleAxis->SetSinglePoint(SingleLoadPoint(kind));
    buffer[kind] = std::move(copy);
}

bool TfrmMaps::Paste(const TMap *pasted, TMapKind kind, const QString &step) {
    TMap &map = Map(kind);
    const std::string problem = WhyNoPaste(pasted, map, SetName().toStdString(), kind);
    if (!problem.empty()) {
        Dialogs().ShowMessage(QString::fromStdString(problem));
        return false;
    }
    Panel(kind).grid->CloseEditor();
    history.Run(step, [&] {
        pasted->AssignTo(map);
        ShapeRow(kind);
        FillMap(kind);
        RedrawMapChart(kind);
        Changed(kind) = true;
    });
    return true;
}
