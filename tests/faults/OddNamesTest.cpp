// Names that mean something to a shell, to markup, to the toolkit or to nobody, for folders, images
// and spec files, and labels of the same kind: they work, and they are shown letter by letter.
#include "forms/Paths.h"
#include "forms/QtDialogs.h"
#include "pages/ROMInfoFixture.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QTimer>
#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;

struct TName {
    const char *name;
    std::string text;
};

const TName oddNames[] = {
    {"blanks", "  with  blanks "},
    {"quotes", "it's a \"quote\" `too`"},
    {"line_breaks", "two\nlines\r\n"},
    {"control_characters", "tab\tbell\aescape\x1B[31m"},
    {"markup", "<b>bold<b>&amp;<img src=x>"},
    {"shortcut", "&File && more"},
    {"placeholders", "%1 %n %s [*] $(HOME) ${x} *?"},
    {"backslashes", "C:\\dir\\file"},
    {"dash", "-rf --help"},
    {"accents", "Z\xC3\xBCndung \xC3\xA9t\xC3\xA9"},
    {"japanese", "\xE7\x87\x83\xE6\x96\x99"},
    {"right_to_left", "\xD9\x88\xD9\x82\xD9\x88\xD8\xAF"},
    {"emoji", "\xF0\x9F\x9A\x97"},
    {"long", std::string(200, 'x')},
};

QString Text(const std::string &utf8) {
    return QString::fromStdString(utf8);
}

class TOddNames : public TROMInfoTest, public testing::WithParamInterface<TName> {
protected:
    void SetUp() override {
        TROMInfoTest::SetUp();
        inner = folder / GetParam().text;
        fs::create_directory(inner);
        rom = inner / (GetParam().text + ".BIN");
        fs::rename(MakeROM("A.BIN", 7), rom);
        fs::rename(MakeSpec(), inner / (GetParam().text + ".SPC"));
        Load(rom);
        ASSERT_EQ(dialogs.messages, QStringList());
    }
    /// The caption; the toolkit takes "[*]" for a mark of its own unless it is doubled.
    static QString CaptionOf(const fs::path &file) {
        return "Ferrolyn - " + FromPath(file).replace("[*]", "[*][*]");
    }
    fs::path inner;
    fs::path rom;
};

TEST_P(TOddNames, OfAnImageItsFolderAndASpecFile) {
    EXPECT_EQ(Caption(), CaptionOf(rom));
    EXPECT_EQ(workspace.romFileName, rom);
    Choose("Direct");
    EXPECT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), fuelPT);
    EXPECT_EQ(page->CurrentSpecFileName(), inner / (GetParam().text + ".SPC"));
    EXPECT_EQ(Image().Peek(0x7000), 7);
    EXPECT_EQ(dialogs.messages, QStringList());
}

TEST_P(TOddNames, OfWhatIsSaved) {
    Choose("Direct");
    Cell(*workspace.fuelMapSet.PTMap).SetValue(77);
    other->DataChanged = true;
    page->ShowPage();
    const fs::path saved = inner / (GetParam().text + "2.BIN");
    dialogs.saves = {FromPath(saved)};
    Button("btnSave").click();
    EXPECT_EQ(Caption(), CaptionOf(saved));
    TBytes expected = GetFile(rom);
    expected[fuelPT + 6 + 5] = 77;
    EXPECT_EQ(GetFile(saved), expected);

    const fs::path spec = inner / (GetParam().text + "2.SPC");
    dialogs.saves = {FromPath(spec)};
    dialogs.inputs = {"New"};
    Button("btnSaveSpec").click();
    EXPECT_TRUE(fs::exists(spec));
    EXPECT_EQ(dialogs.messages, QStringList());
    EXPECT_EQ(std::distance(fs::directory_iterator(inner), {}), 4) << "and nothing else";
    workspace.fuelMapSet.SetOffsets(fuelPT, fuelIdle, fuelWOT);
    workspace.timingMapSet.SetOffsets(timingPT, timingIdle, timingWOT);
    Load(saved);
    EXPECT_TRUE(Items().contains("New"));
}

TEST_P(TOddNames, InMessages) {
    fs::remove(rom);
    fs::create_directory(rom);
    SetDialogs(nullptr);
    QStringList shown;
    Qt::TextFormat format = Qt::AutoText;
    QTimer::singleShot(0, qApp, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        shown << box->text();
        format = box->textFormat();
        box->accept();
    });
    page->ScanSpecDirectory();
    Choose("Direct");
    SetDialogs(&dialogs);
    EXPECT_EQ(shown, QStringList{"Cannot read '" + FromPath(rom) + "': Is a directory"});
    EXPECT_EQ(format, Qt::PlainText);
}

TEST_P(TOddNames, InTheStatusBar) {
    int found = 0;
    for (const QLabel *label : page->findChildren<QLabel *>())
        if (label->text() == FromPath(rom)) {
            ++found;
            EXPECT_EQ(label->textFormat(), Qt::PlainText);
        }
    EXPECT_EQ(found, 1);
}

TEST_P(TOddNames, AsALabelOfASpecFile) {
    dialogs.saves = {FromPath(inner / "label.SPC")};
    dialogs.inputs = {Text(GetParam().text)};
    Button("btnSaveSpec").click();
    workspace.fuelMapSet.SetOffsets(fuelPT, fuelIdle, fuelWOT);
    workspace.timingMapSet.SetOffsets(timingPT, timingIdle, timingWOT);
    fs::remove(inner / (GetParam().text + ".SPC"));
    page->ScanSpecDirectory();
    ASSERT_EQ(Group().ItemCount(), 2);

    QString label = Text(GetParam().text);
    label.replace('\n', ' ').replace('\r', ' ');
    EXPECT_EQ(Group().Item(0), label.trimmed().left(40));
    const QString shown = Group().findChildren<QRadioButton *>().front()->text();
    QString plain = shown;
    EXPECT_FALSE(plain.replace("&&", "").contains('&')) << "a shortcut letter";
    for (const QChar letter : shown)
        EXPECT_NE(letter.category(), QChar::Other_Control);
    EXPECT_EQ(shown.contains("<b>"), label.contains("<b>")) << "letter by letter";
}

INSTANTIATE_TEST_SUITE_P(All, TOddNames, testing::ValuesIn(oddNames),
                         [](const auto &test) { return std::string(test.param.name); });

// Names from another time are no UTF-8; the list shows them as Latin-1 and reads the right file.
TEST_F(TROMInfoTest, ASpecFileWhoseNameIsNotUtf8IsListedAndRead) {
    fs::rename(MakeSpec(), folder / "Z\xFCndung.SPC");
    Load(MakeROM("A.BIN"));
    Choose("Direct");
    EXPECT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), fuelPT);
    EXPECT_EQ(page->CurrentSpecFileName(), folder / "Z\xFCndung.SPC");
    EXPECT_EQ(dialogs.messages, QStringList());
}

} // namespace
