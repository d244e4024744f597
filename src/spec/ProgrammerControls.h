// The controls for an EPROM programmer on the page "ROM Information". They are inert and hidden for
// good: the list of devices is kept as the page's data, and no code drives any hardware
// (docs/peculiarities.md).
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QWidget>

class TProgrammerControls : public QWidget {
    Q_OBJECT
public:
    explicit TProgrammerControls(QWidget *parent);

    /// Whether "Use Direct Interface to Programmer" is ticked.
    bool UseProgrammer() const { return useProgrammer_; }

    void chkUsePP2Click();
    void btnReadClick() {}
    void btnWriteClick() {}
    void cmbDeviceChange() {}

private:
    bool useProgrammer_ = false;
    QCheckBox *chkUsePP2_;
    QPushButton *btnRead_;
    QPushButton *btnWrite_;
    QComboBox *cmbDevice_;
};
