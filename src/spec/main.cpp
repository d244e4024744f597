#include "spec/main.h"

#include "changes/ChangesPage.h"
#include "changes/ComparePage.h"
#include "changes/EarlierPage.h"
#include "changes/RecoveryBar.h"
#include "discovery/FindMapsPage.h"
#include "discovery/MovedMapsPage.h"
#include "filedisplay/FileDisplay.h"
#include "forms/Commands.h"
#include "forms/Dialogs.h"
#include "forms/FrameRoom.h"
#include "forms/Guard.h"
#include "forms/PageControl.h"
#include "forms/Paths.h"
#include "maps/FuelMaps.h"
#include "maps/FuelMapsGraphical.h"
#include "maps/TimingMaps.h"
#include "maps/TimingMapsGraphical.h"
#include "spec/ROMInfo.h"
#include "spec/StateButton.h"
#include "spec/StateOfWork.h"
#include "system/StateFolder.h"

#include <algorithm>

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <QUrl>

namespace {
constexpr std::uint16_t splashInterval = 2500; // milliseconds
constexpr int smallScreenHeight = 600;
constexpr QSize sizeAsMade(956, 538);
constexpr QSize usualSize(800, 600);

/// The one image file that is dragged; empty for anything else.
QString ImageIn(const QMimeData &dragged) {
    const QList<QUrl> urls = dragged.urls();
    const QString name = urls.size() == 1 ? urls.constFirst().toLocalFile() : QString();
    return name.endsWith(".BIN", Qt::CaseInsensitive) ? QDir::toNativeSeparators(name) : QString();
}
} // namespace

Qt::WindowState StateAtFirstShow(int screenHeight) {
    return screenHeight <= smallScreenHeight ? Qt::WindowMaximized : Qt::WindowMinimized;
}

QSize NormalSize(int screenHeight, QSize available) {
    const QSize room = available - frameRoom;
    if (StateAtFirstShow(screenHeight) == Qt::WindowMaximized)
        return sizeAsMade.boundedTo(room);
    return {usualSize.width(), std::min(usualSize.height(), room.height())};
}

TfrmNotebook::TfrmNotebook() : recovery_(workspace, StateFolder()) {
    setObjectName("frmNotebook");
    resize(sizeAsMade);
    tmrSplash_.setObjectName("tmrSplash");
    tmrSplash_.SetEnabled(false);
    tmrSplash_.SetInterval(splashInterval);
    tmrSplash_.SetOnTimer([this] { tmrSplashTimer(); });
    FormCreate();
}

TfrmNotebook::~TfrmNotebook() {
    btnState_ = nullptr;
    delete PageControl1; // and the pages with it, which refer to the workspace
}

void TfrmNotebook::FormCreate() {
    connect(PageControl1, &QTabWidget::currentChanged, this, [this](int index) {
        if (index == 0)
            tabROMInfoShow();
    });
    auto rom = std::make_unique<TfrmROMInformation>(nullptr, workspace, recovery_);
    rom_ = rom.get();
    AddPage(std::move(rom), "tabROMInfo", tr("ROM Information"));
    AddPage(std::make_unique<TfrmFuelMaps>(nullptr, workspace, workspace.fuelMapSet), "tabFuelMaps",
            tr("Fuel Maps"));
    AddPage(std::make_unique<TfrmTimingMaps>(nullptr, workspace, workspace.timingMapSet),
            "tabTimingMaps", tr("Timing Maps"));
    AddPage(std::make_unique<TfrmFuelMapsGraphical>(nullptr, workspace), "tabFuelMapGraphical",
            tr("Graphical Fuel Maps"));
    AddPage(std::make_unique<TfrmTimingMapsGraphical>(nullptr, workspace), "tabGraphicalTimingMaps",
            tr("Graphical Timing Maps"));
    // TabSheet1 is the tab of the contents view.
    AddPage(std::make_unique<TfrmFileContents>(nullptr, workspace, printing_), "TabSheet1",
            tr("File Contents"));
    btnState_ = new TStateButton(StatusBar1);
    btnState_->OnChoose = [this](int tab) {
        if (tab == changesTab)
            ShowChanges();
        else
            PageControl1->SelectByUser(tab);
    };
    StatusBar1->addPermanentWidget(btnState_);
    AddCommands();
    rom_->RecoveryBar().OnShow = [this](const TKeptPatch &offer) { ShowOffer(offer); };
    recovery_.OnNews = [this] {
        QMetaObject::invokeMethod(
            this, [this] { StateChanged(); }, Qt::QueuedConnection);
    };
    setAcceptDrops(true);
    StateChanged();
}

void TfrmNotebook::AddCommands() {
    AddCommand(*this, {.name = "actLoad",
                       .text = tr("&Load ROM Image"),
                       .keys = {Qt::CTRL | Qt::Key_O},
                       .run = [this] { Press("btnLoad"); }});
    AddCommand(*this, {.name = "actSave",
                       .text = tr("&Save ROM"),
                       .keys = {Qt::CTRL | Qt::Key_S},
                       .run = [this] { Press("btnSave"); },
                       .can = [this] { return MaySave(); }});
    AddCommand(*this,
               {.name = "actState", .text = tr("S&tate"), .keys = {Qt::Key_F9}, .run = [this] {
                    btnState_->OpenList();
                }});
    AddCommandLine(*this);
    AddCommand(*this, {.name = "actFindMaps",
                       .text = tr("&Find Maps"),
                       .keys = {Qt::CTRL | Qt::SHIFT | Qt::Key_F},
                       .run = [this] { ShowFindMaps(); }});
    AddCommand(*this,
               {.name = "actMovedMaps", .text = tr("Move&d Maps"), .keys = {}, .run = [this] {
                    ShowMovedMaps({});
                }});
    AddCommand(*this, {.name = "actChanges",
                       .text = tr("Sho&w Changes"),
                       .keys = {Qt::CTRL | Qt::SHIFT | Qt::Key_D},
                       .run = [this] { ShowChanges(); }});
    AddCommand(*this, {.name = "actCompare",
                       .text = tr("Co&mpare"),
                       .keys = {Qt::CTRL | Qt::SHIFT | Qt::Key_O},
                       .run = [this] { ShowCompare({}); }});
    AddCommand(*this,
               {.name = "actEarlier", .text = tr("Earl&ier Versions"), .keys = {}, .run = [this] {
                    ShowEarlier();
                }});
    AddCommandLine(*this);
    addAction(actGuide); // behind these
    AddCommand(*this, {.name = "actAbout", .text = tr("&About"), .keys = {}, .run = [this] {
                           ShowAbout();
                       }});
}

bool TfrmNotebook::GoToROMPage() {
    PageControl1->SelectByUser(PageIndex(rom_));
    return CurrentPage() == rom_;
}

void TfrmNotebook::Press(const char *button) {
    if (GoToROMPage())
        rom_->findChild<QPushButton *>(button)->click(); // nothing while it is disabled
}

bool TfrmNotebook::MaySave() const {
    if (CurrentPage() == rom_)
        return rom_->findChild<QPushButton *>("btnSave")->isEnabled();
    return AnyDataChanged() || !StateOfWork(*this, *rom_, workspace).edited.empty();
}

template <class TPage>
TPage *TfrmNotebook::GoToOnly(const QString &tabName, const QString &caption) {
    auto *page = FindPage<TPage>();
    if (!page) {
        auto made = std::make_unique<TPage>(nullptr, workspace);
        page = made.get();
        AddPage(std::move(made), tabName, caption);
    }
    PageControl1->SelectByUser(PageIndex(page));
    return CurrentPage() == page ? page : nullptr;
}

void TfrmNotebook::ShowChanges() {
    GoToOnly<TfrmChanges>("tabChanges", tr("Changes"));
}

void TfrmNotebook::ShowCompare(std::optional<TOtherImage> with) {
    auto *page = GoToOnly<TfrmCompare>("tabCompare", tr("Compare"));
    if (page && with)
        page->CompareWith(std::move(*with));
    else if (page && !page->HasOther())
        page->btnOtherClick();
}

void TfrmNotebook::ShowEarlier() {
    if (auto *page = GoToOnly<TfrmEarlier>("tabEarlier", tr("Earlier Versions")))
        page->LetShow([this](const std::string &title, std::vector<std::uint8_t> bytes) {
            ShowCompare(TOtherImage(title, std::move(bytes)));
        });
}

void TfrmNotebook::ShowFindMaps() {
    auto *page = GoToOnly<TfrmFindMaps>("tabFindMaps", tr("Find Maps"));
    if (!page)
        return;
    page->LetSaveSpec(*rom_->findChild<QPushButton *>("btnSaveSpec"));
    page->FirstControl()->setFocus();
}

void TfrmNotebook::ShowMovedMaps(std::optional<TOtherImage> known) {
    auto *page = GoToOnly<TfrmMovedMaps>("tabMovedMaps", tr("Moved Maps"));
    if (!page)
        return;
    page->LetSaveSpec(*rom_->findChild<QPushButton *>("btnSaveSpec"));
    if (known)
        page->LookFrom(std::move(*known));
    else if (!page->HasKnown())
        page->btnOtherClick();
}

void TfrmNotebook::ShowOffer(const TKeptPatch &offer) {
    std::vector<std::uint8_t> bytes = CommittedBytes(workspace);
    ApplyPatch(offer.patch, bytes);
    ShowCompare(TOtherImage(tr("what was not saved").toStdString(), std::move(bytes)));
}

void TfrmNotebook::LoadDropped(const QString &fileName) {
    if (GoToROMPage())
        rom_->LoadChosen(fileName);
}

void TfrmNotebook::StateChanged() {
    if (!btnState_)
        return;
    TellRecovery();
    btnState_->ShowState(StateTexts(StateOfWork(*this, *rom_, workspace)));
}

void TfrmNotebook::TellRecovery() {
    recovery_.Look();
    rom_->RecoveryBar().ShowOffer();
    if (PageCount() == 0)
        return; // the window closes
    if (const std::string problem = recovery_.TakeProblem(); !problem.empty())
        CurrentPage()->Say(QString::fromStdString(problem));
}

void TfrmNotebook::ShowAbout() {
    const QStringList lines{tr("Ferrolyn %1").arg(QCoreApplication::applicationVersion()),
                            tr("Editor and analyser for engine control unit ROM images"),
                            tr("Licence: MIT"), tr("Copyright 2026 the Ferrolyn authors")};
    Dialogs().ShowMessage(lines.join('\n'));
}

void TfrmNotebook::dragEnterEvent(QDragEnterEvent *event) {
    if (!ImageIn(*event->mimeData()).isEmpty() && !QApplication::activeModalWidget())
        event->acceptProposedAction();
}

void TfrmNotebook::dropEvent(QDropEvent *event) {
    event->acceptProposedAction();
    // Behind the event: whoever dropped it must not wait for our questions.
    const bool compare = event->modifiers().testFlag(Qt::ShiftModifier);
    QTimer::singleShot(0, this, [this, compare, name = ImageIn(*event->mimeData())] {
        activateWindow();
        Guarded([&] {
            if (compare)
                ShowCompare(TOtherImage(ToPath(name)));
            else
                LoadDropped(name);
        });
    });
}

void TfrmNotebook::FormShow() {
    TfrmKelvaneNotebook::FormShow();
    const int screenHeight = screen()->geometry().height();
    // The size first: a window that is resized on its way to the screen comes up in normal state.
    resize(NormalSize(screenHeight, screen()->availableGeometry().size()));
    setWindowState(StateAtFirstShow(screenHeight));
    splashThread_ = std::make_unique<TSplashScreen>();
    tmrSplash_.SetEnabled(true);
    QTimer::singleShot(0, this, [this] { PreparePages(); });
}

void TfrmNotebook::PreparePages() {
    for (TfrmMaps *page : findChildren<TfrmMaps *>())
        page->Prepare();
}

void TfrmNotebook::tmrSplashTimer() {
    splashThread_->Terminate();
    const Qt::WindowStates normal = windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized);
    if (normal != windowState())
        setWindowState(normal);
}

void TfrmNotebook::tabROMInfoShow() {
    for (QPushButton *button : {btnPrint, btnClose, btnSave, btnCancel})
        button->hide();
}
