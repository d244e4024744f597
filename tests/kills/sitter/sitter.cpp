// A sitting at the real window that never ends, to be killed: loads an image, commits to it, saves
// it, reads it anew, brings back or forgets what is offered.
//   kills_sitter FOLDER SEED    the folder with A.BIN and A.SPC
// Writes a line before each step and "done" behind it, when all is kept that is to be:
//   commit OFFSET BYTE    save    read    back    forget
#include "changes/Recovery.h"
#include "forms/Aligrid.h"
#include "forms/PageControl.h"
#include "forms/TEmbedFm.h"
#include "spec/main.h"
#include "support/FakeDialogs.h"
#include "support/FindControl.h"

#include <cstdlib>
#include <iostream>
#include <random>
#include <string>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTest>

namespace {
void Tell(const std::string &line) {
    if (!(std::cout << line << '\n' << std::flush))
        std::exit(1); // nobody reads any more
}

class TSitting {
public:
    TSitting(const QString &folder, unsigned seed) : image_(folder + "/A.BIN"), random_(seed) {
        window_.show();
        window_.tmrSplashTimer(); // what the first tick does
        QTest::qWait(0);
    }

    void Go() {
        Step("read", [this] {
            dialogs_.opens = {image_};
            Click("btnLoad");
            Choose();
        });
        for (;;) {
            TakeOffers();
            const int number = UpTo(9);
            if (number < 6)
                Commit(UpTo(1) == 0, 1 + UpTo(3), 1 + UpTo(2), UpTo(255));
            else if (number < 9)
                Save();
            else
                Step("read", [this] { Choose(); });
        }
    }

private:
    int UpTo(int most) { return std::uniform_int_distribution(0, most)(random_); }

    template <class TAction>
    void Step(const std::string &line, TAction action) {
        Tell(line);
        action();
        window_.Recovery().Finish();
        QTest::qWait(0); // what came late
        Tell("done");
    }

    void TakeOffers() {
        while (!window_.Recovery().Offers().empty()) {
            const bool back = UpTo(1) == 0;
            Step(back ? "back" : "forget", [&] { Click(back ? "btnBringBack" : "btnForget"); });
        }
    }

    void Commit(bool fuel, int column, int row, int value) {
        constexpr int fuelBody = 0x100B;
        constexpr int timingBody = 0x200B;
        const int offset = (fuel ? fuelBody : timingBody) + (column - 1) * 3 + row - 1;
        Step("commit " + std::to_string(offset) + " " + std::to_string(value), [&] {
            window_.PageControl1->SelectByUser(fuel ? 1 : 2);
            auto &grid = FindControl<TStringAlignGrid>(*window_.CurrentPage(), "grdPTMap");
            grid.SetCurrent(column, row);
            QTest::keyClick(grid.viewport(), Qt::Key_F2);
            auto &editor = *grid.viewport()->findChild<QLineEdit *>();
            editor.selectAll();
            QTest::keyClicks(&editor, QString::number(value));
            QTest::keyClick(&editor, Qt::Key_Enter);
            QTest::qWait(0);
            Click("btnSavePT");
            window_.PageControl1->SelectByUser(0);
        });
    }

    void Save() {
        if (!FindControl<QPushButton>(*window_.CurrentPage(), "btnSave").isEnabled())
            return;
        Step("save", [this] {
            dialogs_.saves = {image_};
            dialogs_.answers = {TAnswer::Yes};
            Click("btnSave");
        });
    }

    /// Reads the image anew, and the maps, which hold what they held until their pages are shown.
    void Choose() {
        FindControl<QRadioButton>(*window_.CurrentPage(), "rdoROMtemplate0").click();
        for (const int tab : {1, 2, 0})
            window_.PageControl1->SelectByUser(tab);
    }
    void Click(const QString &button) {
        FindControl<QPushButton>(*window_.CurrentPage(), button).click();
        if (!dialogs_.messages.empty())
            std::exit(2);
    }

    QString image_;
    std::mt19937 random_;
    TFakeDialogs dialogs_;
    TfrmNotebook window_;
};
} // namespace

int main(int argc, char **argv) {
    if (argc != 3)
        return 2;
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    QApplication application(argc, argv);
    const QString folder = argv[1];
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder);
    TSitting(folder, static_cast<unsigned>(std::atoi(argv[2]))).Go();
}
