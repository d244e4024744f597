// For Linux alone: without a screen, the toolkit knows a font of fixed pitch only where the
// desktop's fonts are looked up by name.
#include "forms/Help.h"
#include "forms/ProgramFile.h"

#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextDocument>
#include <gtest/gtest.h>

TEST(TfrmHelp, ShowsItsColumnsAndRowsWithoutScrolling) {
    const QByteArray line = QByteArray(helpColumns, 'm') + '\n';
    const TProgramFile file("help-test.txt", line.repeated(helpRows));
    TfrmHelp help("help-test.txt");
    help.show();
    help.grab();
    EXPECT_EQ(help.Memo1->horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(help.Memo1->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(help.Memo1->document()->size().height(), helpRows); // no line is broken
}
