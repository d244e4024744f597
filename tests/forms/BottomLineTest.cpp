// The line at the bottom of the notebook: hints, what a page says, and what stands there at rest.
#include "forms/Hint.h"
#include "forms/KelvaneNotebook.h"
#include "forms/RecordingPage.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QTest>
#include <gtest/gtest.h>

namespace {
class BottomLine : public testing::Test {
protected:
    BottomLine() {
        window.AddPage(std::unique_ptr<TEmbeddedForm>(&page), "tab", "page");
        window.show();
        QApplication::setActiveWindow(&window);
    }

    QStringList calls;
    TfrmKelvaneNotebook window;
    TRecordingPage &page = *new TRecordingPage("a", calls); ///< the window's
};
} // namespace

TEST_F(BottomLine, AtRestTheBottomLineTellsOfF1) {
    const auto &atRest = *window.StatusBar1->findChild<QLabel *>();
    EXPECT_EQ(atRest.text(), "F1: guide");
    for (const char *hint : {"", "Print Displayed Data", ""}) {
        QStatusTipEvent event(hint);
        QApplication::sendEvent(window.btnPrint, &event);
        EXPECT_EQ(atRest.isVisible(), !*hint) << hint;
    }
}

TEST_F(BottomLine, WhatAPageSaysOutlastsHintsUntilTheUserActs) {
    const auto hint = [this] {
        QStatusTipEvent event("Close");
        QApplication::sendEvent(window.btnClose, &event);
        return window.StatusBar1->currentMessage();
    };
    for (const bool byKey : {true, false}) {
        page.Say("done");
        EXPECT_EQ(hint(), "done");
        if (byKey)
            QTest::keyClick(page.edit, Qt::Key_Right);
        else
            QTest::mouseClick(page.edit, Qt::LeftButton);
        EXPECT_EQ(window.StatusBar1->currentMessage(), "done");
        EXPECT_EQ(hint(), "Close");
    }
}
