// Every question, message and error of the program is in the guide's last chapter, letter by
// letter and with an explanation; and that chapter holds no others.
#include "forms/baseform.h"
#include "guide/Guide.h"
#include "guide/SourceTexts.h"
#include "maps/PasteBuffer.h"
#include "model/ROMTypes.h"
#include "pages/PageFixture.h"
#include "spec/main.h"

#include <algorithm>

#include <QAction>
#include <QMenu>
#include <QRegularExpression>
#include <gmock/gmock.h>

namespace {
/// Places that hand on a text made elsewhere. What is not here must have its text in the sources
/// where it is shown.
struct TRelay {
    const char *file;
    const char *how;
    const char *argument; ///< nullptr: any
    const char *why;
};

const TRelay relays[] = {
    {"forms/Guard.cpp", "ShowMessage", "QString::fromUtf8(error.what())",
     "an error, see its throw"},
    {"forms/KelvaneNotebook.cpp", "throw EFormNotfound", nullptr, "the class has the text"},
    {"spec/Application.cpp", "ShowMessage", "QString::fromStdString(text)", "ShowModelMessage"},
    {"filedisplay/FileSearches.cpp", "InputBox", "prompt", "asked for below"},
    {"forms/Help.cpp", "Fail", "file,file.errorString()", "the system's words"},
    {"model/SafeFile.cpp", "Fail", nullptr, "the system's words"},
    {"model/SafeFile.cpp", "throw TSystemFailure", nullptr, "the system's words"},
    {"model/SafeFile.cpp", "throw failure", nullptr, "the system's words"},
    {"model/SafeFile.cpp", "throw EFileError", nullptr, "ThrowFileError is handed it"},
    {"maps/AreaChart.cpp", "title", nullptr, "of a series, not of a dialog"},
};

bool IsOf(const TRelay &relay, const TRaise &raise) {
    return raise.file == relay.file && raise.how == relay.how &&
           (!relay.argument || raise.argument == relay.argument);
}

bool IsRelay(const TRaise &raise) {
    return std::any_of(std::begin(relays), std::end(relays),
                       [&](const TRelay &relay) { return IsOf(relay, raise); });
}

std::string Place(const TRaise &raise) {
    return (raise.file + ':' + QString::number(raise.line) + ' ' + raise.how + '(' +
            raise.argument + ')')
        .toStdString();
}

QStringList Headings() {
    QStringList headings;
    for (const TGuideEntry &entry : MessageEntries(GuideText()))
        headings << entry.headings;
    return headings;
}

bool AnyContains(const QStringList &headings, const QString &text) {
    return std::any_of(headings.begin(), headings.end(),
                       [&](const QString &heading) { return heading.contains(text); });
}

/// What the sources show that `headings` do not hold.
QStringList Missing(const std::vector<TRaise> &raises, const QStringList &headings) {
    QStringList missing;
    for (const TRaise &raise : raises)
        for (const QString &text : raise.texts)
            for (const QString &fragment : Fragments(text))
                if (!AnyContains(headings, OnOneLine(fragment)))
                    missing << fragment;
    return missing;
}

/// The 18 refusals of "Paste Map".
QStringList PasteMessages() {
    TFuelMapSet fuel;
    QStringList messages;
    for (const char *set : {"Fuel", "Timing"})
        for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT}) {
            TMap &target = fuel.Map(kind);
            const auto add = [&](const TMap *buffered) {
                messages << QString::fromStdString(WhyNoPaste(buffered, target, set, kind));
            };
            add(nullptr);
            auto other = target.CreateCopy();
            other->axes->throttleAxis->SetSinglePoint(0);
            other->axes->throttleAxis->rows = target.axes->throttleAxis->rows + 1;
            other->axes->throttleAxis->size = target.axes->throttleAxis->size + 1;
            add(other.get());
            other->axes->rpmAxis->SetSinglePoint(0);
            other->axes->rpmAxis->size = target.axes->rpmAxis->size + 1;
            add(other.get());
        }
    return messages;
}

class GuideMessages : public TPageTest {};
} // namespace

TEST(GuideMessageTexts, StandInTheGuide) {
    EXPECT_EQ(Missing(RaisesIn(ProgramSources()), Headings()), QStringList());
}

TEST(GuideMessageTexts, HaveTheirTextWhereTheTestSeesIt) {
    for (const TRaise &raise : RaisesIn(ProgramSources())) {
        const bool seen =
            std::any_of(raise.texts.begin(), raise.texts.end(), [](const QString &text) {
                return text.isEmpty() || !Fragments(text).isEmpty();
            });
        EXPECT_TRUE(seen || IsRelay(raise)) << Place(raise) << " shows a text from elsewhere";
    }
}

TEST(GuideMessageTexts, OfRelaysAreStillThere) {
    const std::vector<TRaise> raises = RaisesIn(ProgramSources());
    for (const TRelay &relay : relays)
        EXPECT_TRUE(std::any_of(raises.begin(), raises.end(),
                                [&](const TRaise &raise) { return IsOf(relay, raise); }))
            << relay.file << ' ' << relay.how << ": " << relay.why;
}

TEST(GuideMessageTexts, ThatAreNewAreMissed) {
    const auto raises = RaisesIn({{"a.cpp", TokensOf(R"(ShowMessage(tr("Out of petrol"));)")}});
    EXPECT_EQ(Missing(raises, Headings()), QStringList("Out of petrol"));
}

TEST(GuideMessageTexts, OfPastingStandThereInFull) {
    const QStringList headings = Headings();
    const QStringList messages = PasteMessages();
    EXPECT_EQ(QSet<QString>(messages.begin(), messages.end()).size(), 18);
    for (const QString &message : messages)
        EXPECT_TRUE(headings.contains(message)) << message.toStdString();
}

TEST_F(GuideMessages, PromptsOfTheSearchParametersStandThere) {
    TfrmBaseForm::ProgRegKey = "key";
    TfrmNotebook window;
    const QStringList headings = Headings();
    const auto &menu = FindControl<QMenu>(window, "SetSearchParameters1");
    for (QAction *item : menu.actions()) {
        dialogs.inputs.push_back("1");
        item->trigger();
    }
    EXPECT_EQ(dialogs.inputBoxes.size(), 6);
    for (const QString &box : dialogs.inputBoxes)
        EXPECT_TRUE(headings.contains(box.section('|', 1, 1))) << box.toStdString();
    TfrmBaseForm::ProgRegKey.clear();
}

TEST(GuideMessageEntries, AreTheProgramsOwn) {
    QStringList fragments = PasteMessages();
    for (const QString &literal : LiteralsIn(ProgramSources()))
        fragments << Fragments(literal);
    // Long ones first, so that none is taken for a piece of itself.
    std::sort(fragments.begin(), fragments.end(),
              [](const QString &a, const QString &b) { return a.size() > b.size(); });
    static const QRegularExpression placeholder("[A-Z]{4,}");
    static const QRegularExpression letter("[A-Za-z]");
    for (QString heading : Headings()) {
        const std::string text = heading.toStdString();
        for (const QString &fragment : fragments)
            if (fragment.size() > 1)
                heading.replace(OnOneLine(fragment), " ");
        EXPECT_FALSE(heading.remove(placeholder).contains(letter))
            << text << ": the program does not show \"" << heading.trimmed().toStdString() << '"';
    }
}

TEST(GuideMessageEntries, AreExplained) {
    const std::vector<TGuideEntry> entries = MessageEntries(GuideText());
    EXPECT_GE(entries.size(), 30U);
    for (const TGuideEntry &entry : entries)
        EXPECT_GE(entry.explanation.size(), 20) << entry.headings.join(" / ").toStdString();
}

TEST(GuideMessageEntries, AreInAlphabeticalOrder) {
    QStringList questions;
    QStringList messages;
    for (const TGuideEntry &entry : MessageEntries(GuideText())) {
        // The messages begin with those that begin with a quote.
        const bool message = !messages.isEmpty() || entry.headings[0].startsWith('\'');
        (message ? messages : questions) << entry.headings[0].toLower();
    }
    EXPECT_TRUE(std::is_sorted(questions.begin(), questions.end()))
        << questions.join('\n').toStdString();
    EXPECT_TRUE(std::is_sorted(messages.begin(), messages.end()))
        << messages.join('\n').toStdString();
}
