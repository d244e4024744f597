// A page that writes down what its host calls, in a log that several pages share.
#pragma once

#include "forms/TEmbedFm.h"

#include <functional>

#include <QLineEdit>
#include <QStringList>

class TRecordingPage : public TEmbeddedForm {
public:
    TRecordingPage(const QString &name, QStringList &calls) : name_(name), calls_(calls) {
        setObjectName(name);
        edit->setObjectName("edtValue");
    }
    ~TRecordingPage() override { calls_ << name_ + " freed"; }

    QLineEdit *const edit = new QLineEdit(this);
    bool agrees = true;                ///< the answer of QueryClose
    std::function<void()> duringQuery; ///< runs inside QueryClose, when set
    std::function<void()> duringShow;  ///< runs inside ShowPage, when set

    void ShowPage() override {
        calls_ << name_ + " show";
        if (duringShow)
            duringShow();
        TEmbeddedForm::ShowPage();
    }
    bool QueryClose() override {
        calls_ << name_ + " query";
        if (duringQuery)
            duringQuery();
        return agrees && TEmbeddedForm::QueryClose();
    }
    void SavePage() override { calls_ << name_ + " save"; }
    void CancelPage() override { calls_ << name_ + " cancel"; }
    void PrintPage() override { calls_ << name_ + " print"; }
    void Help() override { calls_ << name_ + " help"; }

private:
    QString name_;
    QStringList &calls_;
};
