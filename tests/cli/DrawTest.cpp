#include "cli/CliFixture.h"

#include <QXmlStreamReader>

namespace {
struct TPicture {
    QString size;
    QStringList texts;
    int faces = 0;
};

/// Reads what was drawn; fails for what is no XML.
TPicture ReadPicture(const std::string &svg) {
    QXmlStreamReader xml(QByteArray::fromStdString(svg));
    TPicture picture;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == u"svg")
            picture.size = xml.attributes().value("viewBox").toString();
        if (xml.name() == u"polygon")
            ++picture.faces;
        if (xml.name() == u"text")
            picture.texts << xml.readElementText();
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return picture;
}

class TCliDrawTest : public TCliTest {
protected:
    TPicture Draw(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"draw", "32K.BIN", "--spec", "32K.SPC"});
        return ReadPicture(Done(arguments));
    }
    void ExpectDrawRefused(std::vector<std::string> arguments, const std::string &line) {
        arguments.insert(arguments.begin(), {"draw", "32K.BIN", "--spec", "32K.SPC"});
        ExpectRefused(arguments, line);
    }
};

TEST_F(TCliDrawTest, DrawsTheWallsAndAxesOfAMap) {
    const TPicture picture = Draw({"fuel-pt"});
    EXPECT_EQ(picture.size, "0 0 900.00 600.00");
    EXPECT_GT(picture.faces, 12 * 16);
    for (const char *text : {"Partial Throttle /\\ Trim Map", "/\\ Trim", "RPM", "% Load", "600",
                             "7600", "100%", "0.85", "1.10"})
        EXPECT_TRUE(picture.texts.contains(text)) << text;
    const TPicture timing = Draw({"timing-wot"});
    for (const char *text : {"Full Throttle Ign Timing Map", "Ign Timing", "% Throttle"})
        EXPECT_TRUE(timing.texts.contains(text)) << text;
}

TEST_F(TCliDrawTest, DrawsCounts) {
    EXPECT_TRUE(Draw({"fuel-pt", "--raw"}).texts.contains("140"));
    EXPECT_FALSE(Draw({"fuel-pt"}).texts.contains("140"));
}

TEST_F(TCliDrawTest, DrawsInAnySizeAndView) {
    EXPECT_EQ(Draw({"fuel-idle", "--size", "300x200"}).size, "0 0 300.00 200.00");
    EXPECT_EQ(Draw({"fuel-idle", "--size", "50x50"}).size, "0 0 50.00 50.00");
    const QStringList fromTheFront =
        Draw({"fuel-pt", "--rotation", "360", "--elevation", "360"}).texts;
    EXPECT_FALSE(fromTheFront.contains("% Load")) << "no depth is seen";
    EXPECT_FALSE(Draw({"fuel-pt", "--elevation", "270"}).texts.contains("1.10")) << "nor height";
    EXPECT_TRUE(Draw({"fuel-pt", "--rotation", "-700"}).texts.contains("% Load"));
}

TEST_F(TCliDrawTest, NothingIsDrawnOutsideThePicture) {
    for (int rotation = 0; rotation < 360; rotation += 60)
        for (int elevation = 0; elevation < 360; elevation += 60) {
            const std::string svg = Done(
                {"draw", "32K.BIN", "--spec", "32K.SPC", "fuel-pt", "--size", "400x300",
                 "--rotation", std::to_string(rotation), "--elevation", std::to_string(elevation)});
            ASSERT_EQ(svg.find("=\"-"), std::string::npos) << rotation << ", " << elevation;
            ASSERT_EQ(svg.find(" -"), std::string::npos) << rotation << ", " << elevation;
        }
}

TEST_F(TCliDrawTest, WritesAFile) {
    const std::string svg = Done({"draw", "32K.BIN", "--spec", "32K.SPC", "fuel-pt"});
    EXPECT_EQ(Done({"draw", "32K.BIN", "--spec", "32K.SPC", "fuel-pt", "-o", "A.SVG"}), "");
    EXPECT_EQ(Text("A.SVG"), svg);
    std::filesystem::copy_file(folder / "32K.BIN", folder / "B.svg");
    ExpectRefused({"draw", "B.svg", "--spec", "32K.SPC", "fuel-pt", "-o", "B.svg"},
                  "B.svg: the output is an input, and would replace it");
}

TEST_F(TCliDrawTest, RefusesOtherKindsOfPicture) {
    for (const char *name : {"A.png", "A", "A.svg.png"})
        ExpectDrawRefused({"fuel-pt", "-o", name},
                          std::string(name) + ": charts are written as SVG alone: name it .svg, "
                                              "and convert that file");
}

TEST_F(TCliDrawTest, RefusesWrongUse) {
    for (const char *size : {"900", "x", "900x", "900x600x3", "49x600", "900x10001", "-5x-5", ""})
        ExpectDrawRefused({"fuel-pt", "--size", size},
                          "--size " + std::string(size) +
                              ": it is WIDTHxHEIGHT, as 900x600, of 50 to 10000 each");
    ExpectDrawRefused({"fuel-pt", "--rotation", "left"}, "Could not convert: --rotation = left");
    ExpectDrawRefused({"fuel-pt", "--elevation", "up"}, "Could not convert: --elevation = up");
    ExpectDrawRefused({"fuel"}, "'fuel' is no map; maps are fuel-pt fuel-idle fuel-wot timing-pt "
                                "timing-idle timing-wot");
    ExpectDrawRefused({}, "MAP is required");
    ExpectRefused({"draw", "64K.BIN", "--spec", "32K.SPC", "fuel-pt"},
                  "64K.BIN: fuel-pt: 182 engine speeds: a map of 32 or more is not shown");
}
} // namespace
