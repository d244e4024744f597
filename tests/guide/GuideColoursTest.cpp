// Every colour that tells something has its line in the guide, and a colour that is added to the
// sources without one is noticed.
#include "filedisplay/Marks.h"
#include "guide/Guide.h"
#include "guide/ProgramTexts.h"

#include <map>

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

/// Cell colours of the contents view: marks whose word the key window does not say.
const std::map<TColor, QString> furtherMarks{{fuelMapColor, "green"},
                                             {twoDAxisColor, "green"},
                                             {0x008001, "green"},
                                             {0x008002, "green"},
                                             {0x800081, "purple"},
                                             {0x800082, "purple"},
                                             {timingMapColor, "purple"},
                                             {anyMapColor, "yellow to white"},
                                             {anyMapColor + 2, "yellow to white"}};

QString WordOf(const TMark &mark) {
    if (const auto further = furtherMarks.find(mark.color); further != furtherMarks.end())
        return further->second;
    return mark.legend ? mark.legend->colorName : "";
}

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
    const QString chapter = "THE COLOURS OF FILE CONTENTS";
    EXPECT_TRUE(Explains(chapter, "white"));
    for (const TMark &mark : marks) {
        const QString word = WordOf(mark);
        EXPECT_NE(word, "") << mark.name << ": neither in the key window nor above";
        EXPECT_TRUE(Explains(chapter, word)) << mark.name << ": " << word.toStdString();
    }
}

TEST(GuideColours, OfTheContentsViewAreInTheTableOfMarks) {
    QStringList rows = FoundIn({"Marks.h"}, "^    \\{(\\w+)");
    rows << "unmarkedColor";
    for (const QString &constant : ConstantsOf("Marks.h"))
        EXPECT_TRUE(rows.contains(constant)) << constant.toStdString();
}

TEST(GuideColours, OfMapGridsAreAllOfThem) {
    // The others tell nothing: backgrounds, and the plain text of a header that was committed.
    QSet<QString> texts{"clBlack", "clWhite", "clWindow", "clBtnFace"};
    for (const TColorWord &mark : editMarks)
        texts << mark.constant;
    EXPECT_EQ(ConstantsOf("MapViews.h"), texts);
}
