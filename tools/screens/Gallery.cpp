#include "screens/Gallery.h"

#include "changes/EarlierVersions.h"
#include "filedisplay/FileDisplay.h"
#include "filedisplay/filedisplaykey.h"
#include "forms/Aligrid.h"
#include "forms/Help.h"
#include "forms/PageControl.h"
#include "forms/QtDialogs.h"
#include "maps/Maps.h"
#include "maps/QuickChart.h"
#include "maps/ToolWindow.h"
#include "spec/main.h"
#include "spec/offsetentry.h"
#include "spec/splash.h"
#include "system/StateFolder.h"

#include <stdexcept>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QSpinBox>
#include <QTimer>
#include <QTreeWidget>

namespace {
enum TPage { pageROM, pageFuel, pageTiming, pageFuelChart, pageTimingChart, pageContents };

constexpr int mapCell = 0x400; // of the sample image; something to point at

/// Shows what `open` opens modally to the visitor and closes it.
void VisitModal(const TGallery::TVisitor &visitor, const QString &name,
                const std::function<void()> &open) {
    std::exception_ptr error;
    QTimer::singleShot(0, qApp, [&] {
        TGallery::Settle();
        QWidget *box = QApplication::activeModalWidget();
        try {
            if (!box)
                throw std::runtime_error("nothing was opened: " + name.toStdString());
            visitor(name, *box);
        } catch (...) {
            error = std::current_exception(); // nothing is thrown through the toolkit
        }
        if (box)
            box->close();
    });
    open();
    if (error)
        std::rethrow_exception(error);
}

void VisitWindow(const TGallery::TVisitor &visitor, const QString &name, QWidget &window) {
    window.show();
    TGallery::Settle();
    visitor(name, window);
    window.close();
}
} // namespace

/// The program's own dialogs, but opening a file gives the sample image at once.
class TGallery::TSampleDialogs : public TQtDialogs {
public:
    explicit TSampleDialogs(QString image) : image_(std::move(image)) { SetDialogs(this); }
    ~TSampleDialogs() override { SetDialogs(nullptr); }

    QString OpenFile(const QString &, const QString &) override { return image_; }

private:
    QString image_;
};

TGallery::TGallery(const QDir &samples)
    : oldFolder_(QDir::currentPath()),
      samples_(samples.absolutePath()),
      dialogs_(std::make_unique<TSampleDialogs>(samples_.filePath("FERRO32K.BIN"))) {
    QDir::setCurrent(samples_.path());
    window_ = std::make_unique<TfrmNotebook>();
    window_->setWindowTitle("Ferrolyn");
    window_->show();
    window_->tmrSplashTimer(); // what the first tick does
    Settle();
}

TGallery::~TGallery() {
    window_.reset();
    dialogs_.reset();
    QDir::setCurrent(oldFolder_);
}

void TGallery::Settle() {
    for (int round = 0; round < 5; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

template <class Control>
Control &TGallery::Find(const QString &name, int page) {
    auto *control = window_->Page(page)->findChild<Control *>(name);
    if (!control)
        throw std::runtime_error("no control " + name.toStdString());
    return *control;
}

void TGallery::SelectPage(int page) {
    window_->PageControl1->SelectByUser(page);
    Settle();
}

void TGallery::Visit(const TVisitor &visitor) {
    ShowPages(visitor);
    ShowEdits(visitor);
    ShowToolWindow(visitor);
    ShowContents(visitor);
    ShowWindows(visitor);
    ShowBoxes(visitor);
    ShowMenus(visitor);
    ShowChanges(visitor);
}

void TGallery::ShowPages(const TVisitor &visitor) {
    visitor("01-start", *window_);
    Find<QAbstractButton>("btnLoad", pageROM).click();
    Find<QAbstractButton>("rdoROMtemplate0", pageROM).click();
    Settle();
    visitor("02-rom-information", *window_);
    for (const auto &[page, name] : {std::pair(pageTiming, "03-timing-maps"),
                                     std::pair(pageFuelChart, "04-graphical-fuel-maps"),
                                     std::pair(pageTimingChart, "05-graphical-timing-maps")}) {
        SelectPage(page);
        visitor(name, *window_);
    }
}

void TGallery::ShowEdits(const TVisitor &visitor) {
    SelectPage(pageFuel);
    visitor("06-fuel-maps", *window_);
    auto &grid = Find<TStringAlignGrid>("grdPTMap", pageFuel);
    // The marks as an edit, the bulk tool and a commit leave them.
    grid.SetFontColor(3, 3, clBlue);
    grid.SetFontColor(4, 3, clRed);
    grid.SetFontColor(5, 3, clGreen);
    grid.SetSelection({2, 2, 4, 4});
    Find<QSpinBox>("spnRevLimiter", pageFuel).stepUp();
    Settle();
    visitor("07-fuel-maps-edited", *window_);
    Find<QAbstractButton>("btnResetPT", pageFuel).click();
}

void TGallery::ShowToolWindow(const TVisitor &visitor) {
    QWidget *tool = dynamic_cast<TfrmMaps *>(window_->Page(pageFuel))->ToolWindow;
    VisitWindow(visitor, "08-tools", *tool);
}

void TGallery::ShowContents(const TVisitor &visitor) {
    SelectPage(pageContents);
    visitor("09-file-contents", *window_);
    auto &page = dynamic_cast<TfrmFileContents &>(*window_->Page(pageContents));
    page.searches.FindConsecutivePossFuelValsClick();
    page.searches.FindConsecutivePossTimeValsClick();
    page.searches.Fuel5Click();
    page.searches.Timing5Click();
    page.searches.Fuel6Click();
    auto &grid = Find<TStringAlignGrid>("grdFile", pageContents);
    grid.SetCurrent(5, mapCell / 16 + 8);
    grid.SetSelection({4, mapCell / 16 + 8, 8, mapCell / 16 + 10});
    Settle();
    visitor("10-file-contents-marked", *window_);
    Find<QAbstractButton>("chkDisplayHex", pageContents).click();
    Settle();
    visitor("11-file-contents-hex", *window_);
    page.searches.Fuel5Click();
    page.placing.AllHighlighted1Click();
    SelectPage(pageContents + 1);
    visitor("12-added-page", *window_);
}

void TGallery::ShowWindows(const TVisitor &visitor) {
    TfrmOffsetEntry offsets(window_.get(), window_->workspace);
    VisitWindow(visitor, "13-offset-entry", offsets);
    const TSearchParameters parameters;
    TfrmKey key(window_.get(), parameters);
    VisitWindow(visitor, "14-key", key);
    TfrmQuickChart chart(window_.get());
    chart.setAttribute(Qt::WA_DeleteOnClose, false);
    chart.SetMapKind(2);
    chart.SetMapOffset(window_->workspace.fuelMapSet.PTMap->GetLocation());
    VisitWindow(visitor, "15-quick-map", chart);
    TfrmHelp help("readme.txt", window_.get());
    VisitWindow(visitor, "16-help", help);
    TfrmSplash splash;
    splash.show();
    for (int step = 0; step < 20; ++step)
        splash.AnimateStatus();
    VisitWindow(visitor, "17-splash", splash);
}

void TGallery::ShowBoxes(const TVisitor &visitor) {
    VisitModal(visitor, "18-message", [] {
        Dialogs().ShowMessage(TfrmMaps::tr("You have uncommitted changes, save first"));
    });
    VisitModal(visitor, "19-question", [] { Dialogs().AskYesNo(TfrmMaps::tr("Commit Changes?")); });
    VisitModal(visitor, "20-question-cancel",
               [] { Dialogs().AskYesNoCancel(TfrmBaseForm::tr("Save Changes?")); });
    VisitModal(visitor, "21-input",
               [this] { Find<QAction>("MinFuelVal1", pageContents).trigger(); });
    SelectPage(pageROM);
    window_->Page(pageROM)->DataChanged = true; // so that there is something to save
    window_->Page(pageROM)->ShowPage();
    VisitModal(visitor, "22-save-dialog",
               [this] { Find<QAbstractButton>("btnSave", pageROM).click(); });
}

void TGallery::ShowMenus(const TVisitor &visitor) {
    int number = 23;
    const auto show = [&](QMenu &menu) {
        menu.popup({});
        Settle();
        visitor(QString("%1-menu-%2").arg(number++).arg(menu.objectName()), menu);
        menu.close();
    };
    show(Find<QMenu>("PopupMenu1", pageFuel));
    auto &contents = Find<QMenu>("PopupMenu1", pageContents);
    show(contents);
    for (QMenu *menu : contents.findChildren<QMenu *>())
        show(*menu);
}

void TGallery::ShowChanges(const TVisitor &visitor) {
    const TMap &map = *window_->workspace.fuelMapSet.PTMap;
    for (const auto &[cell, step] : {std::pair(15, 4), {16, 6}, {17, 4}, {27, -5}, {28, -7}}) {
        const int offset = map.data->offset + cell;
        ROMImage()->Poke(offset, static_cast<std::uint8_t>(ROMImage()->Peek(offset) + step));
    }
    ROMImage()->Poke(window_->workspace.fuelMapSet.revLimiter.offset, 160);
    ROMImage()->Poke(1, 0xA5);
    ReadMapsAnew(window_->workspace);
    window_->ShowChanges();
    const int page = window_->PageControl1->currentIndex();
    Find<TStringAlignGrid>("grdChanges", page).SetCurrent(2, 4);
    Settle();
    visitor("40-changes", *window_);
    Find<QTreeWidget>("lstChanges", page)
        .setCurrentItem(Find<QTreeWidget>("lstChanges", page).topLevelItem(2));
    Settle();
    visitor("41-changes-elsewhere", *window_);
    window_->ShowCompare(TOtherImage(samples_.filePath("FERRO64K.BIN").toStdString()));
    Settle();
    visitor("42-compare", *window_);
    for (const char *day : {"20261119", "20261120", "20261121"})
        KeepEarlier(*StateFolder(), window_->workspace.romFileName, ROMImage()->FileBytes(), day);
    window_->ShowEarlier();
    Settle();
    visitor("43-earlier-versions", *window_);
    ShowMoved(visitor);
    ShowFound(visitor);
}

void TGallery::ShowMoved(const TVisitor &visitor) {
    window_->ShowMovedMaps(TOtherImage(samples_.filePath("FERRO32K.BIN").toStdString()));
    Settle();
    visitor("47-moved-maps", *window_);
}

void TGallery::ShowFound(const TVisitor &visitor) {
    window_->ShowFindMaps();
    Settle();
    visitor("44-find-maps", *window_);
    const int page = window_->PageControl1->currentIndex();
    Find<QAbstractButton>("btnShowContents", page).click();
    Settle();
    visitor("45-found-in-contents", *window_);
    for (const TMapSet *set : std::initializer_list<const TMapSet *>{
             &window_->workspace.fuelMapSet, &window_->workspace.timingMapSet})
        for (const TMap *map : {&*set->PTMap, &*set->IdleMap, &*set->WOTMap})
            ROMImage()->Poke(map->GetLocation() + 1, 0); // a count of points that no map has
    window_->ShowFindMaps();
    Settle();
    visitor("46-few-maps-found", *window_);
}
