#include "spec/ProgrammerControls.h"

#include "forms/Guard.h"
#include "forms/Named.h"

#include <QVBoxLayout>

namespace {
/// Device, programming voltage and organisation; the blanks are part of the texts, empty texts
/// separate families.
const QStringList devices{
    "               Eprom's",
    "2716   (+5 Only)   (25V)        2K X 8",
    "27C16              (12.5V)      2K X 8",
    "",
    "2732               (25V)        4K X 8",
    "2732A              (21V)        4K X 8",
    "27C32              (12.5V)      4K X 8",
    "",
    "2764               (21V)        8K X 8",
    "2764A              (12.5V)      8K X 8",
    "27C64              (12.5V)      8K X 8",
    "",
    "27128              (21V)       16K X 8",
    "27128A             (12.5V)     16K X 8",
    "27C128             (12.5V)     16K X 8",
    "",
    "27256              (12.5V)     32K X 8",
    "27C256             (12.5V)     32K X 8",
    "",
    "27512              (12.5V)     64K X 8",
    "27C512             (12.5V)     64K X 8",
    "",
    "AT29C256  Atmel    (5V)        32K X 8",
};
} // namespace

TProgrammerControls::TProgrammerControls(QWidget *parent)
    : QWidget(parent),
      chkUsePP2_(Named("chkUsePP2", new QCheckBox(tr("Use Direct Interface to Programmer"), this))),
      btnRead_(Named("btnRead", new QPushButton(tr("Read ROM"), this))),
      btnWrite_(Named("btnWrite", new QPushButton(tr("Write ROM"), this))),
      cmbDevice_(Named("cmbDevice", new QComboBox(this))) {
    cmbDevice_->setEditable(true); // typing completes to a device
    cmbDevice_->addItems(devices);
    cmbDevice_->setCurrentIndex(-1);
    cmbDevice_->setEditText(tr("Select EPROM type"));
    cmbDevice_->setAccessibleName(tr("EPROM type"));
    auto *column = new QVBoxLayout(this);
    for (QWidget *control :
         std::initializer_list<QWidget *>{chkUsePP2_, btnRead_, btnWrite_, cmbDevice_}) {
        control->hide();
        column->addWidget(control);
    }
    btnRead_->setFocusPolicy(Qt::NoFocus);
    btnWrite_->setFocusPolicy(Qt::NoFocus);
    ConnectGuarded(chkUsePP2_, &QCheckBox::clicked, this, [this] { chkUsePP2Click(); });
    ConnectGuarded(btnRead_, &QPushButton::clicked, this, [this] { btnReadClick(); });
    ConnectGuarded(btnWrite_, &QPushButton::clicked, this, [this] { btnWriteClick(); });
    ConnectGuarded(cmbDevice_, &QComboBox::currentIndexChanged, this,
                   [this] { cmbDeviceChange(); });
    hide();
}

void TProgrammerControls::chkUsePP2Click() {
    useProgrammer_ = chkUsePP2_->isChecked();
    for (QWidget *control : std::initializer_list<QWidget *>{btnRead_, btnWrite_, cmbDevice_})
        control->setEnabled(useProgrammer_);
}
