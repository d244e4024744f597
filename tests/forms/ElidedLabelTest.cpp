#include "forms/ElidedLabel.h"

#include <QImage>
#include <gtest/gtest.h>

namespace {
const QString longName = "/home/somebody/images/" + QString("very-").repeated(40) + "long.BIN";

class TElidedLabelTest : public testing::Test {
protected:
    TElidedLabelTest() { label.setFixedSize(200, 20); }
    QImage Picture() { return label.grab().toImage(); }
    TElidedLabel label;
};

TEST_F(TElidedLabelTest, AShortTextIsDrawnAsALabelDraws) {
    label.ShowText("A.BIN");
    QLabel plain("A.BIN");
    plain.setFixedSize(200, 20);
    EXPECT_EQ(Picture(), plain.grab().toImage());
    EXPECT_EQ(label.ShownText(), "A.BIN");
    EXPECT_EQ(label.toolTip(), "");
}

TEST_F(TElidedLabelTest, ALongTextStaysWholeAndIsDrawnWithoutItsMiddle) {
    label.ShowText(longName);
    EXPECT_EQ(label.text(), longName);
    EXPECT_EQ(label.toolTip(), longName);
    const QString shown = label.ShownText();
    EXPECT_LE(label.fontMetrics().horizontalAdvance(shown), 200);
    EXPECT_TRUE(shown.startsWith("/home")) << shown.toStdString();
    EXPECT_TRUE(shown.endsWith(".BIN")) << shown.toStdString();
    QLabel plain(shown);
    plain.setFixedSize(200, 20);
    EXPECT_EQ(Picture(), plain.grab().toImage());
}

TEST_F(TElidedLabelTest, MarkupIsShownLetterByLetter) {
    label.ShowText("<b>bold</b>" + longName);
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_TRUE(label.toolTip().contains("&lt;b&gt;")) << label.toolTip().toStdString();
}

TEST_F(TElidedLabelTest, TheToolTipGoesWithTheLongText) {
    label.ShowText(longName);
    label.ShowText("A.BIN");
    EXPECT_EQ(label.toolTip(), "");
}
} // namespace
