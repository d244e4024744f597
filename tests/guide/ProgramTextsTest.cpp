// Whether the texts of the sources are found on every road to the user.
#include "guide/ProgramTexts.h"

#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::UnorderedElementsAre;

namespace {
QStringList TextsOf(const std::string &source) {
    const TTemporaryFolder folder;
    const std::string all = "class T : public QObject { Q_OBJECT };\n" + source;
    PutFile(folder / "a.cpp", {all.begin(), all.end()});
    QStringList texts;
    for (const TProgramText &text : ProgramTexts(QString::fromStdString(folder.Path().string())))
        texts << text.text;
    return texts;
}
} // namespace

TEST(ProgramTexts, AreFoundOnEveryRoadToTheUser) {
    EXPECT_THAT(TextsOf(R"(
        void T::F() { Dialogs().ShowMessage(tr("one " "message")); }
        void T::G() { SetHint(box, tr("in \"the\" line")); }
        void H() { ShowModelMessage(Translated("Model", "of the core")); }
        void I() { throw E(Filled(Translated("Model", "no %1"), {a})); }
        constexpr auto item = QT_TRANSLATE_NOOP("TFileMenu", "of a table");)"),
                UnorderedElementsAre("one message", "in \"the\" line", "of the core", "no %1",
                                     "of a table"));
}

TEST(ProgramTexts, AreNotWhatWordsOfTheSameNameHold) {
    EXPECT_THAT(TextsOf("// a tr(\"comment\")\nconst char *text = \"\\xEF\\xBB\\xBF\";\n"
                        "void T::F(const QString &text) { Dialogs().ShowMessage(text); }"),
                IsEmpty());
}

TEST(ProgramTexts, SayWhereTheyAreShown) {
    std::vector<QString> contexts;
    for (const TProgramText &text : ProgramTexts())
        contexts.push_back(text.context);
    EXPECT_THAT(contexts, IsSupersetOf({QString("TfrmMaps"), QString("SafeFile")}));
    EXPECT_GT(contexts.size(), 250U);
}

TEST(Fragments, AreWhatIsShownAsItStands) {
    EXPECT_EQ(Fragments("col: %1 row: %2"), QStringList({"col:", "row:"}));
    EXPECT_EQ(Fragments("%L1 bytes"), QStringList("bytes"));
    EXPECT_EQ(Fragments("Spec Files (*.SPC)|*.SPC"), QStringList("Spec Files (*.SPC)"));
    EXPECT_THAT(Fragments("': "), IsEmpty());
}

TEST(FoundIn, TheSourcesIsWhatTheGroupTakes) {
    EXPECT_EQ(FoundIn({"ferrolyn.*"}, "^int (\\w+)\\(int argc"), QStringList("main"));
    EXPECT_EQ(FoundIn({"ferrolyn.*"}, "^double (\\w+)"), QStringList());
}
