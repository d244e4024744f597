#include "ReadmeWalk.h"

#include <QDir>

namespace {
constexpr const char *imageName = "`([A-Z0-9]+\\.BIN)`";
constexpr const char *specName = "`([A-Z0-9]+\\.SPC)`";
constexpr const char *labelText = "such as \"([^\"]+)\"";

} // namespace

// Earlier lines go before later ones where both begin at the same place.
const std::vector<TReadmeWalk::TSentence> &TReadmeWalk::Table() {
    using W = TReadmeWalk;
    static const std::vector<TSentence> table{
        {"(?:[Oo]n(?: the tab)?|[Gg]o to) \"([^\"]+)\"", &W::Tab},
        {"[Pp]ress \"([^\"]+)\" to see what the colours mean; \"([^\"]+)\" hides it",
         &W::ShowAndHideKey},
        {"[Pp]ress \"([^\"]+)\"", &W::Press},
        {"[Oo]pen the menu at the right end of the tabs and choose \"([^\"]+)\"",
         &W::ChooseInWindowMenu},
        {"In bold, (\\d+ likely maps) stand above", &W::ExpectLikely},
        {"Press Enter on a line, and the map is drawn", &W::DrawLine},
        {"the (part throttle|idle|full throttle \\(WOT\\)) maps at \\$(\\w{4}) and \\$(\\w{4})",
         &W::ExpectGiven},
        {"The list has (\\w+) line: \"([^\"]+)\", \"([^\"]+)\"", &W::ExpectChanges},
        {"the cell shows (\\S+), and beneath it the (\\S+) of the file", &W::ExpectOldValue},
        {"[Cc]heck \"([^\"]+)\"", &W::Check},
        {"[Cc]hoose \"([^\"]+)\", \"([^\"]+)\", type (\\S+) and press Enter", &W::ChooseAndAnswer},
        {"[Cc]hoose \"([^\"]+)\", \"([^\"]+)\"", &W::ChooseInMenu},
        {"[Cc]hoose \"([^\"]+)\" as before", &W::RememberMenu},
        {"[Cc]hoose \"([^\"]+)\"", &W::Choose},
        {"the same with \"([^\"]+)\"", &W::ChooseInSameMenu},
        {"at \\$(\\w{4}) with \"([^\"]+)\"", &W::ChooseAtByte},
        {"[Cc]lick the cell of \\$(\\w{4})", &W::ClickByte},
        {"go to row (\\w{3})x and click the cell below (\\w), where the colours begin",
         &W::ClickInRow},
        {"type (\\S+) into the cell at (\\d+) rpm and (\\d+) % load, which shows (\\S+), and press "
         "Enter",
         &W::TypeIntoCell},
        {"close them with \"([^\"]+)\"", &W::ClosePages},
        {"first dialog opens in the folder of the program", &W::ExpectFirstFolder},
        {"into `([^`]+)/`", &W::ExpectFolder},
        {"type `(\\.\\.[^`]+)` and press Enter", &W::ExpectPath},
        {"choose `([^`]+)`(?: in `samples/`)?", &W::ExpectLoaded},
        {"such as `([^`]+)`", &W::ExpectSaved},
        {labelText, &W::ExpectLabel},
        {"a byte of (\\d+) is (\\d\\.\\d+)", &W::ExpectByteAsTrim},
        {"The cell turns (\\w+)", &W::ExpectColor},
        {"the cell is plain again", &W::ExpectPlain},
        {"differs from the old one in (\\w+) byte: (\\d+) instead of (\\d+) at \\$(\\w{4})",
         &W::ExpectDifference},
        {"(\\d+) bytes a row", &W::ExpectRowLength},
        {"(\\w+) map each time", &W::ExpectOneMapEach},
        {"(\\w+) tabs come", &W::ExpectTabs},
        {"[Tt]he (fuel|timing) map at \\$(\\w{4})", &W::ExpectPage},
        {"pages for \\$(\\w{4}) and \\$(\\w{4}) are no maps: there stands the last byte of a load "
         "axis, a (\\d+),",
         &W::ExpectFalsePages},
        {"The byte at \\$(\\w{4}) is (\\d+), and so is the byte at \\$(\\w{4})",
         &W::ExpectFirstBytes},
        {"searched for at once, (\\d+) places are marked, and (\\d+) of them are true",
         &W::ExpectChanceFinds},
        {"Now (\\d+) maps are marked, (\\d+) by each search: \\$(\\w{4}), \\$(\\w{4}), \\$(\\w{4}) "
         "and \\$(\\w{4})",
         &W::ExpectLinearFinds},
        {"idle map resembles the (first|last) row of its part throttle map, a full throttle map "
         "\\(WOT in the menu\\) the (first|last) row",
         &W::TakeResemblance},
        {"If you made these two without the (\\d+), choose \"([^\"]+)\"", &W::ExpectClearing},
        {"\"([^\"]+)\"", &W::ExpectMention},
    };
    return table;
}

QStringList TReadmeWalk::Patterns() {
    QStringList patterns;
    for (const TSentence &sentence : Table())
        patterns << sentence.pattern;
    return patterns;
}

TReadmeWalk::TReadmeWalk(TSession &session) : session_(session), hands_(session) {}

QString TReadmeWalk::Walk(const std::vector<QString> &steps) {
    for (const QString &step : steps) {
        try {
            Step(step);
        } catch (const std::exception &error) {
            session_.dialogs.opens.clear();
            session_.dialogs.saves.clear();
            session_.dialogs.inputs.clear();
            return QString::fromUtf8(error.what()) + ", in: " + step;
        }
    }
    return {};
}

void TReadmeWalk::Step(const QString &text) {
    static const QRegularExpression unread("[\"`$0-9]");
    text_ = text;
    for (qsizetype at = 0; at < text.size(); at = match_.capturedEnd()) {
        match_ = {};
        const TSentence *next = nullptr;
        for (const TSentence &sentence : Table()) {
            const auto match = QRegularExpression(sentence.pattern).match(text, at);
            if (match.hasMatch() && (!next || match.capturedStart() < match_.capturedStart())) {
                next = &sentence;
                match_ = match;
            }
        }
        const QString before = text.mid(at, next ? match_.capturedStart() - at : -1);
        Expect(!before.contains(unread), "nobody reads: " + before);
        if (!next)
            return;
        used_ << next->pattern;
        (this->*next->act)();
    }
}

QString TReadmeWalk::Named(const char *pattern, qsizetype from) const {
    const auto match = QRegularExpression(pattern).match(text_, from);
    Expect(match.hasMatch(), "no name in the step");
    return match.captured(1);
}

void TReadmeWalk::Expect(bool condition, const QString &what) {
    if (!condition)
        throw std::runtime_error(what.toStdString());
}

void TReadmeWalk::Press() {
    const QDir folder(QString::fromStdString(session_.folder.Path().string()));
    const QString caption = Part(1);
    const qsizetype from = match_.capturedEnd();
    if (caption == "Load ROM Image") {
        session_.dialogs.opens = {folder.filePath(Named(imageName, from))};
    } else if (caption == "Save ROM") {
        session_.dialogs.saves = {folder.filePath(Named(imageName, from))};
    } else if (caption == "Save Spec") {
        session_.dialogs.saves = {folder.filePath(Named(specName, from))};
        session_.dialogs.inputs = {Named(labelText, from)};
    }
    hands_.Press(caption);
}

void TReadmeWalk::ShowAndHideKey() {
    auto &key = FindControl<QWidget>(*session_.window, "frmKey");
    hands_.Press(Part(1));
    Expect(key.isVisible(), "the colours are not told by " + Part(1));
    TReadmeHands::Press(Part(2), key);
    Expect(key.isHidden(), "the window stays");
}

void TReadmeWalk::ChooseAndAnswer() {
    memory_.answer = Part(3);
    session_.dialogs.inputs = {memory_.answer};
    hands_.ChooseInMenu(Part(1), Part(2));
}

void TReadmeWalk::ChooseAtByte() {
    hands_.ClickByte(Address(1));
    hands_.ChooseInSameMenu(Part(2));
    ExpectResemblance();
}

void TReadmeWalk::ClickInRow() {
    const int offset = (Part(1) + Part(2)).toInt(nullptr, 16);
    hands_.ClickByte(offset);
    Expect(Marked().contains(offset) && !Marked().contains(offset - 1), "no colours begin there");
}

void TReadmeWalk::TypeIntoCell() {
    hands_.Type(Part(1), Part(2), Part(3), Part(4));
}

void TReadmeWalk::ClosePages() {
    for (const int address : memory_.falsePages) {
        hands_.Tab(TabOf(address));
        hands_.Press(Part(1));
        Expect(TabOf(address).isEmpty(), "the page stays");
    }
}

void TReadmeWalk::DrawLine() {
    hands_.PressEnterOn("lstFound");
    const QList<QWidget *> windows = session_.window->findChildren<QWidget *>("frmQuickChart");
    Expect(windows.size() == 1 && windows.constFirst()->isVisible(), "nothing is drawn");
    windows.constFirst()->close();
}
