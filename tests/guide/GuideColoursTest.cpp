// Every colour that tells something has its line in the guide, and a colour that is added to the
// sources without one is noticed.
#include "guide/Guide.h"
#include "guide/ProgramTexts.h"

#include <QSet>
#include <gmock/gmock.h>

namespace {
struct TColorWord {
    const char *constant; ///< in the sources
    const char *word;     ///< that begins its line
};

/// Text colours of the map grids.
const TColorWord editMarks[] = {
    {"clWindowText", "black"}, {"clBlue", "blue"}, {"clRed", "red"}, {"clGreen", "green"}};

/// Cell colours of the contents view.
const TColorWord marks[] = {{"unmarkedColor", "white"},         {"possibleFuelColor", "lime"},
                            {"possibleTimingColor", "fuchsia"}, {"searchedColor", "olive"},
                            {"axisCountColor", "blue"},         {"linearAxisColor", "green"},
                            {"twoDAxisColor", "green"},         {"fuelMapColor", "green"},
                            {"timingMapColor", "purple"},       {"anyMapColor", "yellow to white"}};

/// The lines of a chapter that explain colours begin with one, a little indented.
bool Explains(const QString &title, const QString &word) {
    const QString guide = GuideText();
    const qsizetype start = guide.indexOf("  " + title + '\n');
    EXPECT_GE(start, 0) << title.toStdString();
    const QString chapter = guide.mid(start, guide.indexOf("\n\n\n", start) - start);
    return chapter.contains("\n    " + word + "  ") || chapter.contains("\n    " + word + " (");
}

QSet<QString> ConstantsOf(const QString &file) {
    const QStringList names = FoundIn({file}, "^[^/\n]*\\bTColor (\\w+) =");
    return {names.begin(), names.end()};
}
} // namespace

TEST(GuideColours, OfMapGridsAreExplained) {
    for (const TColorWord &mark : editMarks)
        EXPECT_TRUE(Explains("FUEL MAPS AND TIMING MAPS", mark.word)) << mark.constant;
}

TEST(GuideColours, OfTheContentsViewAreExplained) {
    for (const TColorWord &mark : marks)
        EXPECT_TRUE(Explains("THE COLOURS OF FILE CONTENTS", mark.word)) << mark.constant;
}

TEST(GuideColours, AreAllOfThem) {
    QSet<QString> named;
    for (const TColorWord &mark : marks)
        named << mark.constant;
    EXPECT_EQ(ConstantsOf("SearchCells.h"), named);
    // The others tell nothing: backgrounds, and the plain text of a header that was committed.
    QSet<QString> texts{"clBlack", "clWhite", "clWindow", "clBtnFace"};
    for (const TColorWord &mark : editMarks)
        texts << mark.constant;
    EXPECT_EQ(ConstantsOf("MapViews.h"), texts);
}
