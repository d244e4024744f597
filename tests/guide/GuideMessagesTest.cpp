// Every question, message and error of the program is in the guide's last chapter, letter by
// letter and with an explanation; and that chapter holds no others.
#include "guide/Guide.h"
#include "guide/ProgramTexts.h"
#include "guide/Windows.h"
#include "maps/PasteBuffer.h"

#include <algorithm>

#include <QAction>
#include <QMenu>
#include <QRegularExpression>
#include <gmock/gmock.h>

namespace {
/// Texts that are no messages, and that no control carries at the start: where they are shown.
struct TOtherText {
    const char *what; ///< one text, or all of a unit that raises nothing
    const char *where;
};

const TOtherText otherTexts[] = {
    {"MapCellNames", "cells of maps, for screen readers"},
    {"MarkNames", "hints at coloured cells"},
    {"WhyNoMap", "in place of a map"},
    {"F1 opens the guide: every button, message and colour.", "the line that changes"},
    {"Every byte that you did not edit stays as it was.", "the line that changes"},
    {"Keep a copy of the original image. Always.", "the line that changes"},
    {"Small steps: change, log, listen, then change again.", "the line that changes"},
    {"Check the rev limiter twice; the engine checks it once.", "the line that changes"},
    {"2-D Fuel Map at $%1", "the tab of an added page"},
    {"1-D Fuel Map at $%1", "the tab of an added page"},
    {"2-D Timing Map at $%1", "the tab of an added page"},
    {"1-D Timing Map at $%1", "the tab of an added page"},
    {"map at $%1", "an added page, before its caption"},
    {"Contents of the ROM image, 16 bytes a row", "the head of what is printed"},
    {"Select Mapping Specification", "the list, when there are spec files"},
    {"Map Offset: %1", "the title of Quick Map, once it has a map"},
    {"Initializing.", "the splash, once it runs"},
    {"(not specified)", "in the window Key, a part of a line"},
    {"%1 series of up to %2 points", "charts, for screen readers"},
    {"%1, values from %2 to %3", "charts, for screen readers"},
    {"Lambda", "maps, for screen readers"},
    {"Lambda Trim", "the left axis of a chart"},
    {"Lam. Trim", "the left axis of a chart"},
    {"empty", "cells, for screen readers"},
    {"from", "Tools, when it subtracts"},
    {"&Lookup", "a button that no window of the program has"},
    {"Set Mapping Type", "the list, until it is filled"},
    {"TChangesReport", "the printed differences"},
    {"Replaced", "the list of earlier versions"},
    {"Bytes", "the list of earlier versions"},
    {"Differ from memory", "the list of earlier versions"},
    {"No earlier version of %1 is kept", "above the list of earlier versions"},
    {"What saves have replaced of %1", "above the list of earlier versions"},
    {"TMapCommands", "the menu of commands"},
    {"TUndoCommands", "the menu of commands"},
    {"Take Over", "the menu of commands, behind Undo and Redo"},
    {"what was not saved", "the page Compare, in place of a file's name"},
    {"Put Back Cells", "the menu of commands, behind Undo and Redo"},
    {"Put Back All", "the menu of commands, behind Undo and Redo"},
    {"ChangesTexts", "the pages Changes and Compare"},
    {"MapChanges", "the pages Changes and Compare"},
    {"TDifferencesView", "the pages Changes and Compare"},
    {"FindTexts", "the page Find Maps"},
    {"%1 KiB", "above the list of found maps"},
    {"%1 bytes", "above the list of found maps"},
    {"No likely map was found in %2", "above the list of found maps"},
    {"1 likely map in %2", "above the list of found maps"},
    {"%1 likely maps in %2", "above the list of found maps"},
    {"1 less likely one below", "above the list of found maps"},
    {"%1 less likely ones below", "above the list of found maps"},
    {"%1, likely", "the list of found maps"},
    {"%1, less likely", "the list of found maps"},
    {"Picture", "the list of found maps"},
    {"%1 %", "the list of found maps"},
    {"%1: %2 at %3, %4", "the list of found maps, for screen readers"},
    {"The map's bytes in colours", "the list of found maps, for screen readers"},
    {"%1 at %2, %3: %4", "below the list of found maps"},
    {"For it: %1", "below the list of found maps"},
    {"Against it: %1", "below the list of found maps"},
    {"MovedTexts", "the page Moved Maps"},
    {"Here", "the list of moved maps"},
    {"How sure", "the list of moved maps"},
    {"yes", "the list of moved maps"},
    {"Maps of %1 in this image: %2 sure, %3 unsure, %4 not found", "above the list of moved maps"},
    {"In the known image: %1", "above a moved map"},
    {"In the known image: %1, %2 RPM", "above a moved map"},
    {"In the known image: nowhere", "above a moved map"},
    {"Here: %1", "above a moved map"},
    {"Here: %1, %2 RPM", "above a moved map"},
    {"Here: not found", "above a moved map"},
    {"To be added to the new spec file by hand: timing_divider=%1, timing_subtractor=%2",
     "below moved maps"},
    {"typing %1", "the menu of commands, behind Undo and Redo"},
    {"adjustment", "the menu of commands, behind Undo and Redo"},
};

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

/// What of these texts `headings` do not hold.
QStringList Missing(const QStringList &texts, const QStringList &headings) {
    QStringList missing;
    for (const QString &text : texts)
        for (const QString &fragment : Fragments(text))
            if (!AnyContains(headings, OnOneLine(fragment)))
                missing << fragment;
    return missing;
}

bool IsOf(const TOtherText &other, const TProgramText &text) {
    return text.context == other.what || text.text == other.what;
}

bool IsOther(const TProgramText &text) {
    return std::any_of(std::begin(otherTexts), std::end(otherTexts),
                       [&](const TOtherText &other) { return IsOf(other, text); });
}

/// Whether a control shows the text, with anything in place of "%1" and the like.
bool IsCarried(const QString &text, const QSet<QString> &carried) {
    static const QRegularExpression filled("%L?[0-9]");
    if (!text.contains(filled))
        return carried.contains(text);
    const QStringList pieces = text.split(filled);
    QStringList escaped;
    for (const QString &piece : pieces)
        escaped << QRegularExpression::escape(piece);
    const QRegularExpression form(QRegularExpression::anchoredPattern(escaped.join(".*")));
    return std::any_of(carried.begin(), carried.end(),
                       [&](const QString &one) { return form.match(one).hasMatch(); });
}

/// Every sentence among the literals of the sources.
QStringList SourceSentences() {
    static const QRegularExpression joint("(?<!\\\\)\"\\s*\"");
    static const QRegularExpression sentence("[A-Za-z]{2}[,.:;]? [A-Za-z0-9]");
    const QString literals = R"(//.*$|'(?:[^'\\]|\\.)'|((?:"(?:[^"\\]|\\.)*"\s*)+))";
    QStringList sentences;
    for (const QString &literal : FoundIn({"*.cpp", "*.h"}, literals))
        if (literal.contains(sentence))
            sentences << literal.trimmed().remove(joint).mid(1).chopped(1);
    return sentences;
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

class GuideMessages : public TWindowsTest {
protected:
    /// What is no control's text and not accounted for otherwise.
    QStringList Messages(const std::vector<TProgramText> &texts) {
        const QSet<QString> carried = AllCarried();
        QStringList messages;
        for (const TProgramText &text : texts)
            if (!IsOther(text) && !IsCarried(text.text, carried))
                messages << text.text;
        return messages;
    }
};
} // namespace

TEST_F(GuideMessages, StandInTheGuide) {
    const QStringList messages = Messages(ProgramTexts());
    EXPECT_GT(messages.size(), 60);
    EXPECT_EQ(Missing(messages, Headings()), QStringList());
}

TEST_F(GuideMessages, ThatAreNewAreMissed) {
    EXPECT_EQ(Missing(Messages({{"Model", "Out of petrol"}}), Headings()),
              QStringList("Out of petrol"));
    EXPECT_EQ(Messages({{"TfrmMaps", "Commit"}}), QStringList()) << "a button";
}

TEST(GuideMessageTexts, ThatAreSaidToBeShownOtherwiseAreThere) {
    const std::vector<TProgramText> texts = ProgramTexts();
    for (const TOtherText &other : otherTexts)
        EXPECT_TRUE(std::any_of(texts.begin(), texts.end(),
                                [&](const TProgramText &text) { return IsOf(other, text); }))
            << other.what << ": " << other.where;
}

TEST(GuideMessageTexts, OfTheSourcesGoThroughTheTranslation) {
    // Of spec files, patches and tables of differences.
    QStringList known{"Other Maps", "Ferrolyn patch 1", "rev limiter",
                      "map,what,RPM,load,old offset,new offset,old count,new count,old value,new "
                      "value\\r\\n"};
    for (const TProgramText &text : ProgramTexts())
        known << QString(text.text).replace('\\', "\\\\").replace('"', "\\\"");
    const QStringList sentences = SourceSentences();
    EXPECT_GT(sentences.size(), 100);
    for (const QString &sentence : sentences)
        EXPECT_TRUE(known.contains(sentence) || sentence.startsWith('<')) // markup
            << sentence.toStdString();
}

TEST(GuideMessageTexts, OfPastingStandThereInFull) {
    const QStringList headings = Headings();
    const QStringList messages = PasteMessages();
    EXPECT_EQ(QSet<QString>(messages.begin(), messages.end()).size(), 18);
    for (const QString &message : messages)
        EXPECT_TRUE(headings.contains(message)) << message.toStdString();
}

TEST_F(GuideMessages, PromptsOfTheSearchParametersStandThere) {
    const QStringList headings = Headings();
    const auto &menu = FindControl<QMenu>(window, "SetSearchParameters1");
    for (QAction *item : menu.actions()) {
        dialogs.inputs.push_back("1");
        item->trigger();
    }
    EXPECT_EQ(dialogs.inputBoxes.size(), 6);
    for (const QString &box : dialogs.inputBoxes)
        EXPECT_TRUE(headings.contains(box.section('|', 1, 1))) << box.toStdString();
}

TEST(GuideMessageEntries, AreTheProgramsOwn) {
    QStringList fragments = PasteMessages();
    for (const TProgramText &text : ProgramTexts())
        fragments << Fragments(text.text);
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
