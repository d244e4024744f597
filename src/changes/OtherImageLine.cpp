#include "changes/OtherImageLine.h"

#include "forms/Dialogs.h"
#include "forms/Guard.h"
#include "forms/Hint.h"
#include "forms/Named.h"
#include "forms/Paths.h"

#include <utility>

#include <QComboBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

TOtherImageLine::TOtherImageLine(QWidget *parent, const TWords &words)
    : QWidget(parent),
      words_(words),
      btnOther_(Named("btnOther", new QPushButton(words.choose, this))),
      cboSpec_(Named("cboSpec", new QComboBox(this))) {
    SetHint(btnOther_, words.chooseHint);
    auto *label = new QLabel(tr("&Its maps"), this);
    label->setBuddy(cboSpec_);
    SetHint(cboSpec_, words.specsHint);
    ConnectGuarded(cboSpec_, &QComboBox::currentIndexChanged, this, [this] { OnChange(); });
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(btnOther_);
    row->addStretch(1);
    row->addWidget(label);
    row->addWidget(cboSpec_, 2);
    FillSpecs();
}

void TOtherImageLine::FillSpecs() {
    const QSignalBlocker silent(cboSpec_);
    cboSpec_->clear();
    cboSpec_->addItem(words_.noSpec);
    if (other_)
        for (const auto &[label, path] : other_->Specs())
            cboSpec_->addItem(
                tr("%1 (%2)").arg(QString::fromStdString(label), FromPath(path.filename())));
}

std::optional<std::size_t> TOtherImageLine::Spec() const {
    const int line = cboSpec_->currentIndex();
    return line > 0 ? std::optional(static_cast<std::size_t>(line - 1)) : std::nullopt;
}

void TOtherImageLine::Take(TOtherImage other) {
    other_ = std::move(other);
    FillSpecs();
    OnChange();
}

bool TOtherImageLine::Ask(const std::filesystem::path &beside) {
    const QString chosen =
        Dialogs().OpenFile(tr("Binary Data (*.BIN)|*.BIN"), QFileInfo(FromPath(beside)).path());
    if (chosen.isEmpty())
        return false;
    Take(TOtherImage(ToPath(chosen)));
    return true;
}

void TOtherImageLine::ChooseOwnSpec() {
    if (!other_)
        return;
    const QString own = QFileInfo(QString::fromStdString(other_->Name())).completeBaseName();
    for (std::size_t i = 0; i < other_->Specs().size(); ++i)
        if (FromPath(other_->Specs()[i].path.stem()).compare(own, Qt::CaseInsensitive) == 0)
            cboSpec_->setCurrentIndex(static_cast<int>(i) + 1);
}
