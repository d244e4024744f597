#include "PlayedSession.h"

#include "forms/PageControl.h"
#include "maps/FuelMaps.h"
#include "maps/MapsGraphical.h"
#include "maps/TimingMaps.h"
#include "maps/ToolWindow.h"

#include <cstring>

#include <QRadioButton>
#include <QSpinBox>
#include <QTest>

namespace {
constexpr std::array<TMapKind, 3> kinds{TMapKind::PT, TMapKind::Idle, TMapKind::WOT};
} // namespace

TPlayedSession::TPlayedSession(TFuzzInput &input) : input_(input) {
    session_.window->setUpdatesEnabled(false); // painting at each step takes a third of the time
    session_.WriteSamples();
    for (const char *name : {"FERRO32K.BIN", "FERRO64K.BIN"})
        files_[name] = session_.Read(name);
    const std::array<int, 6> maps{0x6000, 0x6100, 0x6140, 0x6200, 0x6300, 0x6340};
    specs_.push_back({byOffsets, false, maps, 0, 0x1F0, {0.65, 12.7}, {}});
    specs_.push_back({byPointers,
                      true,
                      {0x210, 0x212, 0x214, 0x216, 0x218, 0x21A},
                      0x7F,
                      0x1F0,
                      {0.65, 12.7},
                      {}});
    // Over each other, over the file's end, beyond it, and one that stays where it was.
    WriteSpec(
        {"edges", false, {0x7FE0, 0x6108, 0x6000, 0x8010, 0, 0x60F0}, 0, 0x7FFF, {-1.5, 200}, {}});
    WriteSpec({"no rev limiter", false, maps, 0, -1, {1.0, 0.0}, {}});
    WriteSpec({"broken", false, maps, 0, 0, {2.0, 2.0}, "none"});

    TfrmNotebook &window = *session_.window;
    TakeNewPages();
    session_.dialogs.opens.push_back(
        QString::fromStdString((session_.folder / "FERRO32K.BIN").string()));
    romFile_ = "FERRO32K.BIN";
    session_.Click(romPage, "btnLoad");
    LoadBytes();
    maySaveSpec_ = true;
    listed_ = specs_.size();
    Demand(window.PageCount() == static_cast<int>(pages_.size()), "another number of pages");
    Choose();
    Compare();
}

void TPlayedSession::Run(int mostSteps) {
    for (int step = 0; step < mostSteps && !input_.Empty(); ++step) {
        Step();
        QTest::qWait(0); // what has been closed goes, as between two actions of a user
        Compare();
    }
    session_.window->setUpdatesEnabled(true);
    QTest::qWait(0); // what the session has come to is painted
    CloseWindow();
    Compare();
}

void TPlayedSession::Step() {
    const int what = input_.Below(48);
    switch (what) {
    case 0:
        return Load();
    case 1:
        return Choose();
    case 2:
        return Save();
    case 3:
        return SaveSpec();
    case 4:
        return AddFoundPages();
    case 5:
        return UpdateMap();
    case 6:
    case 7:
    case 8:
        return GoTo(input_.Byte() % pages_.size());
    case 9:
        return ChooseManually();
    default:
        if (CurrentPage().map)
            OnMapPage(what);
        else
            GoTo(IndexOf(input_.Flag() ? fuelPage : timingPage));
    }
}

void TPlayedSession::OnMapPage(int what) {
    const auto which = static_cast<std::size_t>(input_.Below(3));
    const QString name = CurrentPage().form->objectName();
    if (what == 10)
        return ClosePage();
    if (what == 11)
        return Adjust(which);
    if (CurrentPage().graphical)
        return;
    switch (what) {
    case 12:
        return Interpret();
    case 13:
        CurrentPage().map->Copy(which);
        return session_.Trigger(name, QString("Copy%1").arg(which + 1));
    case 14:
        return Paste(which);
    case 15:
        return PlayRevLimiter();
    case 16:
        return MoveMap(which);
    case 17:
    case 18:
        return Reset(which);
    case 19:
    case 20:
    case 21:
    case 22:
        return Commit(which);
    case 23:
    case 24:
    case 25:
        return EditAxis(which);
    case 26:
    case 27:
    case 28:
    case 29:
        if (EditCell(which, true))
            EndOpenEdit(which);
        return;
    case 30:
        return UndoAndRedo();
    default:
        EditCell(which, false);
    }
}

/// Which leaves everything as it is.
void TPlayedSession::UndoAndRedo() {
    TMapHistory &history = dynamic_cast<TfrmMaps &>(*CurrentPage().form).history;
    const int last = history.Stack().index();
    for (int steps = input_.Below(8); steps > 0; --steps)
        history.Undo();
    while (history.Stack().index() < last)
        history.Redo();
}

/// What ends an edit that is still open, and accepts it.
void TPlayedSession::EndOpenEdit(std::size_t which) {
    switch (input_.Below(7)) {
    case 0:
        return Reset(which);
    case 1:
        return Interpret();
    case 2:
        PasteIntoEdit(which);
        return Commit(which);
    case 3:
        return Adjust(which);
    case 4:
        return ClosePage();
    case 5:
        return Commit(which);
    default:
        return GoTo(Current() == 0 ? 1 : Current() - 1);
    }
}

void TPlayedSession::Interpret() {
    CurrentPage().map->Interpret();
    session_.Interpret(CurrentPage().form->objectName());
}

void TPlayedSession::Paste(std::size_t which) {
    CurrentPage().map->Paste(which);
    session_.Trigger(CurrentPage().form->objectName(), QString("Paste%1").arg(which + 1));
}

/// Where nothing can be pasted this says why not and leaves the edit open: what the edit has to say
/// comes as it ends.
void TPlayedSession::PasteIntoEdit(std::size_t which) {
    const std::size_t told = world_.messages.size();
    Paste(which);
    if (editTells_ && world_.messages.size() > told)
        std::swap(world_.messages[told - 1], world_.messages[told]);
}

void TPlayedSession::Reset(std::size_t which) {
    if (!Shown(which))
        return;
    CurrentPage().map->Reset(which);
    session_.Reset(CurrentPage().form->objectName(), kinds[which]);
}

void TPlayedSession::Commit(std::size_t which) {
    if (!Shown(which))
        return;
    CurrentPage().map->Commit(which);
    session_.Commit(CurrentPage().form->objectName(), kinds[which]);
}

std::size_t TPlayedSession::Current() const {
    return static_cast<std::size_t>(session_.window->PageControl1->currentIndex());
}

std::size_t TPlayedSession::IndexOf(const QString &form) const {
    for (std::size_t i = 0; i < pages_.size(); ++i)
        if (pages_[i].form->objectName() == form)
            return i;
    return 0; // the page has been closed
}

void TPlayedSession::GoTo(std::size_t index) {
    if (index == Current())
        return;
    Leave(CurrentPage());
    session_.window->PageControl1->SelectByUser(static_cast<int>(index));
    Demand(Current() == index, "the tab is not shown");
    Enter(pages_[index]);
}

void TPlayedSession::Leave(TPlayedPage &page) {
    if (!page.map || !page.map->Asks())
        return;
    const bool commit = input_.Flag();
    questions_ << "Commit Changes?";
    session_.dialogs.answers.push_back(commit ? TAnswer::Yes : TAnswer::No);
    page.map->Leave(commit);
}

void TPlayedSession::Enter(TPlayedPage &page) {
    if (page.map)
        page.map->Show();
    if (page.form->objectName() != romPage)
        return;
    maySave_ = false;
    for (const TPlayedPage &any : pages_)
        maySave_ = maySave_ || (any.map && any.map->dataChanged);
}

void TPlayedSession::ClosePage() {
    const std::size_t index = Current();
    Leave(pages_[index]);
    session_.Click(pages_[index].form->objectName(), "btnClose");
    pages_.erase(pages_.begin() + static_cast<std::ptrdiff_t>(index));
    Demand(session_.window->PageCount() == static_cast<int>(pages_.size()),
           "a page is still there");
    Enter(CurrentPage());
}

void TPlayedSession::CloseWindow() {
    for (TPlayedPage &page : pages_)
        Leave(page);
    session_.window->close();
    Demand(!session_.window->isVisible(), "the window is still open");
    pages_.clear();
}

/// Pages that the window has and the model has not yet.
void TPlayedSession::TakeNewPages() {
    TfrmNotebook &window = *session_.window;
    while (window.PageCount() > static_cast<int>(pages_.size())) {
        const auto index = static_cast<int>(pages_.size());
        TPlayedPage page{window.Page(index), nullptr, nullptr};
        if (auto *maps = dynamic_cast<TfrmMaps *>(page.form)) {
            const bool fuel = dynamic_cast<TFuelMapSet *>(maps->MapSet) != nullptr;
            TLiteralSet &workspace = fuel ? fuel_ : timing_;
            page.graphical = dynamic_cast<TfrmMapsGraphical *>(maps) != nullptr;
            const bool added = maps->MapSet != &window.workspace.fuelMapSet &&
                               maps->MapSet != &window.workspace.timingMapSet;
            if (added) {
                page.ownSet = std::make_unique<TLiteralSet>(world_, fuel);
                page.only = window.PageControl1->tabText(index).startsWith("2-D") ? 0 : 2;
                page.ownSet->PlaceDirectly(page.ownSet->entries[*page.only],
                                           maps->MapSet->Map(kinds[*page.only]).GetLocation());
                page.form->setObjectName("added" + QString::number(written_++));
            }
            page.map = std::make_unique<TLiteralPage>(
                added ? *page.ownSet : workspace, workspace, fuel ? fuelSlots_ : timingSlots_,
                dynamic_cast<TfrmFuelMaps *>(maps) != nullptr);
        }
        pages_.push_back(std::move(page));
    }
}

bool TPlayedSession::Shown(std::size_t which) {
    const TPlayedPage &page = CurrentPage();
    return page.map->set.entries[which].map.Fits() && (!page.only || *page.only == which);
}

bool TPlayedSession::Editable(std::size_t which) {
    const TFakeMapGrid &grid = CurrentPage().map->grids[which];
    return Shown(which) && grid.ColCount() > 1 && grid.RowCount() > 1;
}

/// Mostly numbers of the sizes that maps hold.
std::string TPlayedSession::NumberText() {
    constexpr std::array odd{"abc", "1e12", "-0.0", " 7 ", "1,5", "$10", "1e999", "."};
    const std::uint8_t kind = input_.Byte();
    const int number = input_.Word();
    if (kind < 16)
        return odd[static_cast<std::size_t>(number) % odd.size()];
    if (kind < 96)
        return FormatReal("0.00", (number % 30000 - 5000) / 100.0);
    return std::to_string(number % 400 - 60);
}

void TPlayedSession::TypeInto(std::size_t which, TGridCell cell, const std::string &text,
                              bool leaveOpen) {
    const QString name = CurrentPage().form->objectName();
    TLiteralPage &page = *CurrentPage().map;
    // An edit that begins in a cell that is no number says so, and goes on.
    if (!page.CellNumber(which, cell.column, cell.row)) {
        const std::string shown = page.grids[which].Cell(cell.column, cell.row);
        world_.messages.push_back("'" + shown + "' is not a valid floating point value");
    }
    const std::size_t told = world_.messages.size();
    page.Edit(which, cell.column, cell.row, text);
    editTells_ = world_.messages.size() > told;
    if (!leaveOpen)
        return session_.Type(name, kinds[which], cell, QString::fromStdString(text));
    TStringAlignGrid &grid = session_.Grid(name, kinds[which]);
    grid.SetCurrent(cell.column, cell.row);
    QTest::keyClick(grid.viewport(), Qt::Key_F2);
    auto *editor = grid.viewport()->findChild<QLineEdit *>();
    Demand(editor != nullptr, "no editor has opened");
    editor->selectAll();
    QTest::keyClicks(editor, QString::fromStdString(text));
}

bool TPlayedSession::EditCell(std::size_t which, bool leaveOpen) {
    const int column = input_.Byte();
    const int row = input_.Byte();
    const std::string text = NumberText();
    if (!Editable(which))
        return false;
    const TFakeMapGrid &grid = CurrentPage().map->grids[which];
    TypeInto(which, {1 + column % (grid.ColCount() - 1), 1 + row % (grid.RowCount() - 1)}, text,
             leaveOpen);
    return true;
}

void TPlayedSession::EditAxis(std::size_t which) {
    const bool load = input_.Flag() && which == 0;
    const int point = input_.Byte();
    const int number = input_.Word();
    if (!Editable(which))
        return;
    const TFakeMapGrid &grid = CurrentPage().map->grids[which];
    session_.Trigger(CurrentPage().form->objectName(), QString("UnlockAxis%1").arg(which + 1));
    if (load)
        TypeInto(which, {0, 1 + point % (grid.RowCount() - 1)},
                 std::to_string(number % 140 - 20) + "%", false);
    else
        TypeInto(which, {1 + point % (grid.ColCount() - 1), 0},
                 std::to_string(number % 12000 - 1000), false);
}

void TPlayedSession::Adjust(std::size_t which) {
    const int operation = input_.Below(2);
    const int scale = input_.Below(2);
    const int range = input_.Below(3);
    const int amount = input_.Word() % 600 - 100;
    const QString name = CurrentPage().form->objectName();
    session_.Click(name, "btnRecalculate");
    auto &tool = FindControl<TfrmToolWindow>(*session_.window, "frmToolWindow");
    const auto pick = [&](const char *group, int item) {
        FindControl<QRadioButton>(tool, group + QString::number(item)).click();
    };
    pick("rdoOperation", operation);
    pick("rdoScale", scale);
    pick("rdoDataset", static_cast<int>(which));
    pick("rdoRange", range);
    auto &box = FindControl<QLineEdit>(tool, "edtVal");
    box.selectAll();
    QTest::keyClicks(&box, QString::number(amount));
    QTest::keyClick(&box, Qt::Key_Enter);

    const TStringAlignGrid &grid = session_.Grid(name, kinds[which]);
    const TFakeMapGrid &plain = CurrentPage().map->grids[which];
    TLiteralAdjustment how{operation == 0 ? 1 : -1,
                           scale == 1,
                           amount,
                           1,
                           1,
                           plain.ColCount() - 1,
                           which == 0 ? plain.RowCount() - 1 : 1};
    if (which == 0 && range == 1)
        how.top = how.bottom = grid.Row();
    if (which == 0 && range == 2)
        how.left = how.right = grid.Col();
    CurrentPage().map->Adjust(which, how);
    FindControl<QAbstractButton>(tool, "btnExec").click();
    session_.Click(name, "btnRecalculate");
}

void TPlayedSession::PlayRevLimiter() {
    const int what = input_.Below(4);
    const int rpm = 10 + input_.Word() % 12000;
    TLiteralPage &page = *CurrentPage().map;
    if (!page.hasRevBox)
        return;
    const QString name = CurrentPage().form->objectName();
    auto &box = session_.On<QSpinBox>(name, "spnRevLimiter");
    Demand(box.isVisible() == (fuel_.revPlace > 0), "the rev limiter is shown or hidden wrongly");
    if (what == 0) {
        page.Commit(0);
        session_.Click(name, "btnSaverev");
    } else if (what == 1) {
        page.Reset(0);
        session_.Click(name, "btnResetRev");
    } else if (box.isVisible()) {
        page.TypeRevLimiter(rpm);
        box.selectAll();
        QTest::keyClicks(&box, QString::number(rpm));
    }
}

void TPlayedSession::MoveMap(std::size_t which) {
    const std::uint8_t kind = input_.Byte();
    const int number = input_.Word();
    constexpr std::array known{0x6000, 0x6100, 0x6140, 0x6200, 0x6300, 0x6340, 0x1F0, 0x8000};
    int place = known[static_cast<std::size_t>(number) % known.size()];
    if (kind < 64)
        place = 1 + number;
    else if (kind < 96)
        place = size_ - number % 64;
    else if (kind < 104)
        place = 0x100000 - number % 64;
    TPlayedPage &page = CurrentPage();
    if (page.only && *page.only != which)
        return;
    page.map->Move(which, place);
    session_.TypeOffset(page.form->objectName(), kinds[which],
                        kind % 2 == 0 ? QString::number(place) : "$" + QString::number(place, 16));
}

void TPlayedSession::Compare() {
    const TROMImage &image = *ROMImage();
    Demand(image.size == size_, "another size of the image");
    Demand(std::memcmp(image.data.data(), world_.image.data(), world_.image.size()) == 0,
           "another image in memory");
    QStringList messages;
    for (const std::string &text : world_.messages)
        messages << QString::fromStdString(text);
    TFakeDialogs &dialogs = session_.dialogs;
    Demand(dialogs.messages == messages, "messages: " + dialogs.messages.join("|").toStdString() +
                                             "\nexpected: " + messages.join("|").toStdString());
    Demand(dialogs.questions == questions_,
           "questions: " + dialogs.questions.join("|").toStdString() +
               "\nexpected: " + questions_.join("|").toStdString());
    Demand(dialogs.answers.empty() && dialogs.opens.empty() && dialogs.saves.empty() &&
               dialogs.inputs.empty(),
           "a dialog did not come");
    dialogs.messages.clear();
    dialogs.questions.clear();
    world_.messages.clear();
    questions_.clear();
    const TWorkspace &workspace = session_.window->workspace;
    Demand(workspace.fuelMapSet.IsModified() == fuel_.Modified() &&
               workspace.timingMapSet.IsModified() == timing_.Modified(),
           "another answer to whether a set is modified");
    if (!pages_.empty() && CurrentPage().map)
        CompareGrids();
}

void TPlayedSession::CompareGrids() {
    const QString name = CurrentPage().form->objectName();
    const TLiteralPage &page = *CurrentPage().map;
    for (std::size_t which = 0; which < 3; ++which) {
        const TStringAlignGrid &grid = session_.Grid(name, kinds[which]);
        const TFakeMapGrid &plain = page.grids[which];
        Demand(grid.ColCount() == plain.ColCount() && grid.RowCount() == plain.RowCount(),
               "a grid of another shape");
        for (int column = 0; column < plain.ColCount(); ++column)
            for (int row = 0; row < plain.RowCount(); ++row) {
                const std::string shown = grid.Cell(column, row).toStdString();
                Demand(shown == plain.Cell(column, row),
                       "map " + std::to_string(which) + " shows " + shown + " instead of " +
                           plain.Cell(column, row) + " at " + std::to_string(column) + ", " +
                           std::to_string(row));
                Demand(grid.FontColor(column, row) == plain.FontColor(column, row),
                       "a cell has another mark");
            }
    }
    if (page.hasRevBox)
        Demand(session_.On<QSpinBox>(name, "spnRevLimiter").value() == page.revShown,
               "another rev limiter is shown");
}
