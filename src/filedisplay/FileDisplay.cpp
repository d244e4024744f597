#include "filedisplay/FileDisplay.h"

#include "filedisplay/ContentsTexts.h"
#include "filedisplay/FileCommands.h"
#include "filedisplay/FileGrid.h"
#include "filedisplay/FileMenu.h"
#include "filedisplay/Overview.h"
#include "filedisplay/filedisplaykey.h"
#include "forms/Dialogs.h"
#include "forms/Guard.h"
#include "forms/Hint.h"
#include "forms/TabOrder.h"
#include "model/ROMTypes.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

TfrmFileContents::TfrmFileContents(QWidget *parent, TWorkspace &workspace, IPrinting &printing)
    : TEmbeddedForm(parent),
      session([this] { return MarksOf(*grdFile_); }),
      placing(*this, workspace),
      workspace_(workspace),
      printing_(printing),
      grdFile_(new TStringAlignGrid(this)),
      ovwFile_(new TOverview(*grdFile_, this)),
      chkDisplayHex_(new QCheckBox(tr("Display in Hex"), this)),
      redPrint_(new QTextEdit(this)),
      PopupMenu1_(new TFileMenu(*this)) {
    setObjectName("frmFileContents");
    grdFile_->setObjectName("grdFile");
    grdFile_->setAccessibleName(tr("File Contents"));
    grdFile_->setAccessibleDescription(tr("The Menu key or Shift+F10 opens the menu"));
    ovwFile_->setObjectName("ovwFile");
    chkDisplayHex_->setObjectName("chkDisplayHex");
    SetHint(grdFile_, tr("Right-click for copies, searches and what to do with found maps"));
    SetHint(chkDisplayHex_, tr("Show 10 as $0A; takes all marks away"));
    redPrint_->setObjectName("redPrint");
    redPrint_->hide();
    // All 17 columns fit the width of a landscape page.
    redPrint_->setTabStopDistance(redPrint_->fontMetrics().horizontalAdvance("0000x "));
    PrepareFileGrid(*grdFile_);
    LayOut();
    ConnectGrid();
    AddFileCommands(*this);
}

TfrmFileContents::~TfrmFileContents() {
    delete key_;
}

void TfrmFileContents::LayOut() {
    auto *key = new QPushButton(tr("Key"), this);
    key->setObjectName("Button1");
    SetHint(key, tr("Show or hide what the colours mean"));
    SetTabSequence({grdFile_, chkDisplayHex_, key, ovwFile_});
    // Below the grid: beside it they would not fit a screen of 800 pixels.
    auto *line = new QHBoxLayout;
    line->addStretch(1);
    line->addWidget(chkDisplayHex_);
    line->addWidget(key);
    auto *contents = new QVBoxLayout;
    contents->addWidget(grdFile_, 1);
    contents->addLayout(line);
    auto *page = new QHBoxLayout(this);
    page->addLayout(contents);
    page->addWidget(ovwFile_);
    page->addStretch(1);
    ConnectGuarded(key, &QPushButton::clicked, this, [this] { Button1Click(); });
    ConnectGuarded(chkDisplayHex_, &QCheckBox::clicked, this, [this] { chkDisplayHexClick(); });
}

void TfrmFileContents::ConnectGrid() {
    grdFile_->OnSelectCell = [this](int column, int row, bool &) {
        grdFileSelectCell(column, row);
    };
    grdFile_->OnMouseDown = [this](Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
                                   QPoint at) { grdFileMouseDown(button, modifiers, at); };
    grdFile_->OnMouseUp = [this](Qt::MouseButton button, Qt::KeyboardModifiers, QPoint) {
        grdFileMouseUp(button);
    };
    grdFile_->OnDblClick = [this] { grdFileDblClick(); };
    grdFile_->setContextMenuPolicy(Qt::NoContextMenu);
    grdFile_->OnMenuKey = [this](QPoint at) { PopupMenu1_->popup(at); };
    grdFile_->OnCellPlace = [this](int column, int row, QString &place) {
        place = PlaceOf({column, row});
    };
    grdFile_->OnCellMeaning = [this](int column, int row, QString &meaning) {
        meaning = QString::fromStdString(MarkName(grdFile_->CellColor(column, row)));
    };
    grdFile_->ShowCellHints = true;
    grdFile_->OnShowHintCell = grdFile_->OnCellMeaning;
}

QString TfrmFileContents::PlaceOf(TGridCell cell) const {
    if (cell.column == 0)
        return tr("Row");
    return cell.row == 0 ? tr("Column")
                         : grdFile_->Cell(0, cell.row).chopped(1).prepend('$') +
                               grdFile_->Cell(cell.column, 0);
}

void TfrmFileContents::ShowFile() {
    // Another file name is what counts: commits and reloads of the same file do not refresh the
    // view; intended, see docs/peculiarities.md.
    if (workspace_.romFileName != shownFile_) {
        Rebuild();
        shownFile_ = workspace_.romFileName;
    }
}

void TfrmFileContents::ShowPage() {
    ShowFile();
    SetPageVisible(true);
}

void TfrmFileContents::FormShow() {
    SizeFileGrid(*grdFile_, grdFile_->height());
    key_ = new TfrmKey(window(), session.parameters);
}

void TfrmFileContents::FormHide() {
    delete key_;
}

void TfrmFileContents::resizeEvent(QResizeEvent *event) {
    TEmbeddedForm::resizeEvent(event);
    SizeFileGrid(*grdFile_, grdFile_->height());
}

void TfrmFileContents::Rebuild() {
    const TROMImage &image = *ROMImage();
    const std::span bytes(image.data.data(), static_cast<std::size_t>(image.size));
    session.Show(bytes);
    FillFileGrid(*grdFile_, bytes, chkDisplayHex_->isChecked());
    SizeFileGrid(*grdFile_, grdFile_->height());
    Say({}); // what was said is of marks that are gone
}

void TfrmFileContents::ShowOutcome(const std::string &text) {
    { const TGridUpdate colored(*grdFile_); } // its end announces the new colours
    Say(text);
}

void TfrmFileContents::Say(const std::string &text) {
    TEmbeddedForm::Say(QString::fromStdString(text));
}

std::string TfrmFileContents::CellTold(std::size_t offset) const {
    const TGridCell cell = CellAt(offset);
    return CellText(offset, session.ValueAt(offset),
                    MarkName(grdFile_->CellColor(cell.column, cell.row)));
}

TSeenColors TfrmFileContents::SeenMarks() const {
    return ::SeenMarks(*grdFile_);
}

std::size_t TfrmFileContents::CurrentOffset() const {
    return CellOffset(grdFile_->Col(), grdFile_->Row());
}

std::int32_t TfrmFileContents::CurrentAddress() const {
    return HeaderAddress(CurrentOffset());
}

void TfrmFileContents::GoTo(std::size_t offset) {
    const TGridCell cell = CellAt(offset);
    const int below = cell.row - 1 - grdFile_->verticalScrollBar()->value();
    const bool seen = below >= 0 && below < grdFile_->VisibleRowCount();
    grdFile_->SetCurrent(cell.column, cell.row);
    // From afar with what stands round it.
    grdFile_->scrollTo(grdFile_->currentIndex(), seen ? QAbstractItemView::EnsureVisible
                                                      : QAbstractItemView::PositionAtCenter);
}

void TfrmFileContents::ShowMap(std::size_t offset, TMapShape shape, TMapContents contents) {
    GoTo(offset);
    ShowOutcome(session.HighlightMap(offset, shape, contents));
}

void TfrmFileContents::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Delete || event->matches(QKeySequence::Paste))
        Say(NothingIsChangedHere());
    else
        TEmbeddedForm::keyPressEvent(event);
}

void TfrmFileContents::Button1Click() {
    if (TfrmKey *key = key_) {
        key->PlaceAt(*window());
        key->setVisible(!key->isVisible());
    }
}

void TfrmFileContents::grdFileSelectCell(int column, int row) {
    const std::size_t offset = CellOffset(column, row);
    session.Record(offset);
    Say(CellTold(offset));
}

void TfrmFileContents::grdFileMouseDown(Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
                                        QPoint at) {
    if (button != Qt::LeftButton)
        return;
    if (modifiers & Qt::ShiftModifier) {
        mouseExtent = at;
    } else {
        mouseAnchor = at;
        mouseExtent = {-1, -1};
    }
}

void TfrmFileContents::grdFileMouseUp(Qt::MouseButton button) {
    if (button == Qt::RightButton)
        PopupMenu1_->popup(QCursor::pos());
    if (button != Qt::LeftButton)
        return;
    const TGridRect selection = grdFile_->Selection();
    if (mouseExtent.x() == -1) {
        mouseAnchor.setX(selection.left);
        mouseExtent.setX(selection.right);
    }
    if (mouseExtent.y() == -1) {
        mouseAnchor.setY(selection.top);
        mouseExtent.setY(selection.bottom);
    }
}

void TfrmFileContents::grdFileDblClick() {
    Dialogs().ShowMessage(tr("col: %1 row: %2").arg(grdFile_->Col()).arg(grdFile_->Row()));
}

void TfrmFileContents::Copy1Click() {
    grdFile_->CopyRectangle({0, 0, grdFile_->ColCount() - 1, grdFile_->RowCount() - 1}, '\t');
}

void TfrmFileContents::CopyCellsWithHeaders() {
    QGuiApplication::clipboard()->setText(HeadedText(*grdFile_, grdFile_->Selection()));
}

void TfrmFileContents::Print1Click() {
    redPrint_->clear();
    Copy1Click();
    redPrint_->setPlainText("\nFerrolyn\n" + tr("Contents of the ROM image, 16 bytes a row") +
                            "\n\n\n" + QGuiApplication::clipboard()->text());
    printing_.Print(*redPrint_->document(), "Ferrolyn");
}
