#include "changes/DifferencesPage.h"

#include "changes/ChangesTexts.h"
#include "forms/Guard.h"
#include "forms/Hint.h"
#include "forms/Named.h"
#include "forms/TabOrder.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

TfrmDifferences::TfrmDifferences(QWidget *parent, TWorkspace &sharedWorkspace)
    : TEmbeddedForm(parent),
      workspace(sharedWorkspace),
      view_(new TDifferencesView(this)),
      lblTotal_(Named("lblTotal", new QLabel(this))),
      buttons_(new TFoldingLine(this)),
      btnExport_(new TExportButton(this)),
      btnClose_(MakeCloseButton()) {
    btnExport_->OnExport = [this] { return Exported(); };
    view_->OnChoose = [this] { UpdateButtons(); };
    lblTotal_->setWordWrap(true);
    buttons_->End().addWidget(btnExport_);
    buttons_->End().addWidget(btnClose_);
    auto *column = new QVBoxLayout(this);
    column->addWidget(lblTotal_);
    column->addWidget(view_, 1);
    column->addWidget(buttons_);
}

QPushButton *TfrmDifferences::AddButton(const char *name, const QString &text, const QString &hint,
                                        const std::function<void()> &click) {
    auto *button = Named(name, new QPushButton(text, this));
    SetHint(button, hint);
    ConnectGuarded(button, &QPushButton::clicked, this, click);
    buttons_->Start().addWidget(button);
    MoveToTabEnd(*this, {btnExport_, btnClose_});
    return button;
}

void TfrmDifferences::AddOnTop(QWidget *controls, QWidget *first, QWidget *second) {
    static_cast<QVBoxLayout *>(layout())->insertWidget(0, controls);
    SetTabSequence({first, second});
    view_->TabFrom(second);
}

void TfrmDifferences::ShowPage() {
    Compare();
    TEmbeddedForm::ShowPage();
}

TMappedImage TfrmDifferences::Here() const {
    TMappedImage here(CommittedBytes(workspace));
    here.PlaceAs(workspace);
    return here;
}

void TfrmDifferences::Compare() {
    view_->Show(nullptr);
    shown_.reset();
    lblTotal_->clear(); // finding the other image may fail
    if (!ROMImage() || ROMImage()->size == 0) {
        lblTotal_->setText(tr("No ROM image is loaded"));
    } else if (!HasOther()) {
        lblTotal_->setText(tr("No other image is chosen"));
    } else {
        shown_.emplace(Here(), There());
        lblTotal_->setText(QString::fromStdString(TotalText(shown_->changes, FileThere())));
        view_->Show(&*shown_);
    }
    btnExport_->setEnabled(shown_.has_value());
    UpdateButtons();
}

TExported TfrmDifferences::Exported() const {
    const std::string nameHere = workspace.romFileName.string();
    if (ThereIsBefore())
        return {shown_->there, shown_->here, FileThere(), nameHere};
    return {shown_->here, shown_->there, nameHere, FileThere()};
}
