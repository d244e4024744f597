#include "changes/EarlierPage.h"

#include "changes/MappedImage.h"
#include "forms/Dialogs.h"
#include "forms/Guard.h"
#include "forms/Hint.h"
#include "forms/Named.h"
#include "forms/Paths.h"
#include "maps/FoldingLine.h"
#include "model/ROMImage.h"
#include "system/StateFolder.h"

#include <algorithm>
#include <chrono>

#include <QDateTime>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
QString TimeText(const TEarlier &version) {
    const auto time = std::chrono::file_clock::to_sys(version.time).time_since_epoch();
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(time).count();
    return QLocale().toString(QDateTime::fromMSecsSinceEpoch(milliseconds), QLocale::ShortFormat);
}

/// Those that only the longer one has differ too.
std::size_t DifferingBytes(const std::vector<std::uint8_t> &one,
                           const std::vector<std::uint8_t> &other) {
    return BytesOf(DifferingRuns(one, other)) + std::max(one.size(), other.size()) -
           std::min(one.size(), other.size());
}
} // namespace

TfrmEarlier::TfrmEarlier(QWidget *parent, TWorkspace &workspace)
    : TEmbeddedForm(parent),
      workspace_(workspace),
      edits_(*this, workspace),
      lblVersions_(Named("lblVersions", new QLabel(this))),
      lstVersions_(Named("lstVersions", new QTreeWidget(this))),
      btnShowVersion_(Named("btnShowVersion", new QPushButton(tr("Show"), this))),
      btnBringBackVersion_(Named("btnBringBackVersion", new QPushButton(tr("Bring Back"), this))) {
    setObjectName("frmEarlier");
    edits_.OnStep = [this] { FillList(); };
    lblVersions_->setWordWrap(true);
    lstVersions_->setHeaderLabels({tr("Replaced"), tr("Bytes"), tr("Differ from memory")});
    for (const int column : {1, 2})
        lstVersions_->headerItem()->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    lstVersions_->header()->setStretchLastSection(false);
    lstVersions_->setRootIsDecorated(false);
    lstVersions_->setAllColumnsShowFocus(true);
    lstVersions_->setAccessibleName(tr("Earlier versions"));
    SetHint(lstVersions_, tr("What was replaced by the first save of a day"));
    SetHint(btnShowVersion_, tr("Compare the image in memory with this version"));
    SetHint(btnBringBackVersion_, tr("Give the image in memory the bytes of this version"));
    ConnectGuarded(lstVersions_, &QTreeWidget::currentItemChanged, this,
                   [this] { UpdateButtons(); });
    ConnectGuarded(lstVersions_, &QTreeWidget::itemActivated, this,
                   [this] { btnShowVersionClick(); });
    ConnectGuarded(btnShowVersion_, &QPushButton::clicked, this, [this] { btnShowVersionClick(); });
    ConnectGuarded(btnBringBackVersion_, &QPushButton::clicked, this,
                   [this] { btnBringBackVersionClick(); });
    btnShowVersion_->hide();
    LayOut();
}

void TfrmEarlier::LetShow(TShow show) {
    show_ = std::move(show);
    btnShowVersion_->show();
}

void TfrmEarlier::LayOut() {
    auto *buttons = new TFoldingLine(this);
    buttons->Start().addWidget(btnShowVersion_);
    buttons->Start().addWidget(btnBringBackVersion_);
    buttons->End().addWidget(MakeCloseButton());
    auto *column = new QVBoxLayout(this);
    column->addWidget(lblVersions_);
    column->addWidget(lstVersions_, 1);
    column->addWidget(buttons);
}

void TfrmEarlier::ShowPage() {
    edits_.Begin();
    TEmbeddedForm::ShowPage();
    ReadVersions();
}

void TfrmEarlier::FormHide() {
    versions_.clear();
    lstVersions_->clear();
}

void TfrmEarlier::ReadVersions() {
    versions_.clear();
    const std::optional<std::filesystem::path> folder = StateFolder();
    try {
        if (folder && ROMImage() && ROMImage()->size > 0)
            versions_ = EarlierVersions(*folder, workspace_.romFileName);
    } catch (...) {
        FillList();
        throw;
    }
    FillList();
}

void TfrmEarlier::FillList() {
    const int chosen = lstVersions_->indexOfTopLevelItem(lstVersions_->currentItem());
    lstVersions_->clear();
    const std::vector<std::uint8_t> now = CommittedBytes(workspace_);
    for (const TEarlier &version : versions_) {
        auto *line = new QTreeWidgetItem(lstVersions_,
                                         {TimeText(version), QString::number(version.bytes.size()),
                                          QString::number(DifferingBytes(version.bytes, now))});
        for (const int column : {1, 2})
            line->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    }
    lstVersions_->setCurrentItem(lstVersions_->topLevelItem(std::max(chosen, 0)));
    for (const int column : {0, 1, 2})
        lstVersions_->resizeColumnToContents(column);
    lblVersions_->setText(Headline());
    UpdateButtons();
}

QString TfrmEarlier::Headline() const {
    if (!ROMImage() || ROMImage()->size == 0)
        return tr("No ROM image is loaded");
    const QString file = QFileInfo(FromPath(workspace_.romFileName)).fileName();
    if (versions_.empty())
        return tr("No earlier version of %1 is kept").arg(file);
    return tr("What saves have replaced of %1").arg(file);
}

const TEarlier *TfrmEarlier::Chosen() const {
    const int line = lstVersions_->indexOfTopLevelItem(lstVersions_->currentItem());
    return line < 0 ? nullptr : &versions_[static_cast<std::size_t>(line)];
}

void TfrmEarlier::UpdateButtons() {
    const bool chosen = Chosen() != nullptr;
    btnShowVersion_->setEnabled(chosen);
    btnBringBackVersion_->setEnabled(chosen);
}

void TfrmEarlier::btnShowVersionClick() {
    const TEarlier *version = Chosen();
    if (!version || !show_)
        return;
    const QString file = QFileInfo(FromPath(workspace_.romFileName)).fileName();
    show_(tr("%1 of %2").arg(file, TimeText(*version)).toStdString(), version->bytes);
}

void TfrmEarlier::btnBringBackVersionClick() {
    const TEarlier *version = Chosen();
    if (!version)
        return;
    const auto size = static_cast<std::size_t>(ROMImage()->size);
    if (version->bytes.size() != size) {
        Dialogs().ShowMessage(
            tr("This version has %1 bytes, the image in memory has %2: it cannot be brought back")
                .arg(version->bytes.size())
                .arg(size));
        return;
    }
    const std::vector<std::uint8_t> bytes = version->bytes; // the list is made anew meanwhile
    edits_.Run(tr("Bring Back"), [&bytes](std::span<std::uint8_t> image) {
        std::copy(bytes.begin(), bytes.end(), image.begin());
    });
}
