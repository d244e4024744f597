// Nothing that is shown bypasses the translation: in a made-up language that puts every text in
// brackets no text is without them.
#include "forms/KelvaneNotebook.h"
#include "forms/RadioGroup.h"
#include "forms/baseform.h"
#include "look/LookFixture.h"
#include "look/VisibleTexts.h"
#include "maps/AreaChart.h"
#include "maps/PasteBuffer.h"
#include "spec/SpecFile.h"
#include "spec/main.h"
#include "support/FakeDialogs.h"
#include "system/Texts.h"

#include <regex>

#include <QAction>
#include <QMenu>
#include <QMessageBox>
#include <QTranslator>

namespace {
class TBrackets : public QTranslator {
public:
    TBrackets() { QCoreApplication::installTranslator(this); }
    ~TBrackets() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override {
        // The toolkit asks for the layout's direction as if it were a text.
        return qstrcmp(context, "QGuiApplication") == 0 ? QString()
                                                        : "[" + QString::fromUtf8(text) + "]";
    }
};

class TTranslationTest : public TLookTest {
protected:
    void TearDown() override { SetTextTranslator({}); }

    TBrackets brackets;
};

bool IsTranslated(QString text) {
    text = text.remove('&').trimmed();
    while (text.endsWith('.'))
        text.chop(1); // the splash adds dots
    return text.startsWith('[') && text.endsWith(']');
}

/// Numbers, offsets and names are the same in every language.
bool IsValue(const QString &text) {
    static const QRegularExpression value("^[-+$0-9A-F.,%x ]*$|^10%$");
    return value.match(text).hasMatch() || text == "Ferrolyn" || text.startsWith("Ferrolyn - ") ||
           text.startsWith("Ferrolyn sample") || text.contains("/FERRO32K.BIN");
}

void ExpectTranslated(const QString &what, const QString &text) {
    if (!text.isEmpty() && !IsValue(text)) {
        EXPECT_TRUE(IsTranslated(text)) << what.toStdString() << ": " << text.toStdString();
    }
}

void ExpectTranslated(const QString &where, const QWidget &control) {
    const QString what =
        where + ", " + control.metaObject()->className() + " " + control.objectName();
    ExpectTranslated(what + ", hint", control.toolTip());
    ExpectTranslated(what + ", long hint", control.statusTip());
    ExpectTranslated(what + ", name", control.accessibleName());
    ExpectTranslated(what + ", description", control.accessibleDescription());
    ExpectTranslated(what + ", title", control.windowTitle().remove("[*]"));
    if (const auto *chart = qobject_cast<const TAreaChart *>(&control)) {
        ExpectTranslated(what, chart->Title());
        ExpectTranslated(what + ", left axis", chart->LeftAxisTitle());
        ExpectTranslated(what + ", depth axis", chart->DepthTitle());
    }
}

TEST_F(TTranslationTest, EveryTextOfEveryWindowIsTranslated) {
    int checked = 0;
    Visit([&](const QString &name, QWidget &window) {
        for (const TVisibleText &text : VisibleTexts(window)) {
            if (text.control->inherits("QLineEdit"))
                continue; // what the user types
            if (window.inherits("QFileDialog") && !text.control->inherits("QAbstractButton"))
                continue; // names of folders
            ExpectTranslated(name + ", " + text.owner, text.text);
            ++checked;
        }
        ExpectTranslated(name, window);
        if (!window.inherits("QFileDialog"))
            for (const QWidget *control : window.findChildren<QWidget *>())
                if (!control->inherits("QComboBox") && !control->inherits("QListView"))
                    ExpectTranslated(name, *control);
        for (const QAction *action : window.findChildren<QAction *>())
            if (!window.inherits("QFileDialog"))
                ExpectTranslated(name + ", menu item " + action->objectName(), action->text());
    });
    EXPECT_GT(checked, 100);
}

TEST_F(TTranslationTest, SoAreTheTextsOfTheCore) {
    SetUpApplication();
    TFakeDialogs dialogs;
    const auto message = [](auto &&operation) -> std::string {
        try {
            operation();
        } catch (const std::exception &error) {
            return error.what();
        }
        return "no error";
    };
    EXPECT_EQ(message([] { ParseInteger("abc"); }), "['abc' is not a valid integer value]");
    EXPECT_EQ(message([] { ParseReal("%1"); }), "['%1' is not a valid floating point value]");
    EXPECT_EQ(message([] { TROMImage().LoadFromFile("/no/such"); }).substr(0, 23),
              "[Cannot read '/no/such'");
    EXPECT_EQ(message([] { throw EFormNotfound(); }), "[Form Not Found]");
    TFuelMapSet maps;
    EXPECT_EQ(WhyNoPaste(nullptr, *maps.PTMap, "[Fuel]", TMapKind::PT),
              "[No [Fuel] [PT] Map currently in paste buffer]");
    SetMessageHook([](const std::string &text) { Dialogs().ShowMessage(text.c_str()); });
    ShowOutOfMemory();
    EXPECT_EQ(dialogs.messages, QStringList{"[Out of memory allocating data map data]"});
}

TEST_F(TTranslationTest, WhatIsKeptOrLookedForIsNot) {
    SetUpApplication();
    TFuelMapSet fuel;
    TTimingMapSet timing;
    const std::string text = NewSpecFile("label", fuel, timing);
    EXPECT_EQ(text.find("[["), std::string::npos);
    for (const char *kept : {"; label\n", "[Fuel Maps]\n", "[Timing Maps]\n", "[Other Maps]\n",
                             "pt_offset=", "revlimit_offset="})
        EXPECT_NE(text.find(kept), std::string::npos) << kept;
    EXPECT_EQ(QCoreApplication::applicationName(), "Ferrolyn");
    EXPECT_EQ(TfrmBaseForm::ProgRegKey, "\\Software\\Kelvane\\Ferrolyn");
    TfrmNotebook window;
    for (const QObject *object : window.findChildren<QObject *>())
        EXPECT_FALSE(object->objectName().contains('[')) << object->objectName().toStdString();
}

std::string WithoutComments(const std::string &text) {
    return std::regex_replace(text, std::regex("(^|\n) *//[^\n]*"), "$1");
}

/// The program's sources and where they are.
std::vector<std::pair<std::string, std::string>> Sources() {
    std::vector<std::pair<std::string, std::string>> sources;
    for (const auto &entry :
         std::filesystem::recursive_directory_iterator(FERROLYN_SOURCE_DIR "/src")) {
        if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h")
            continue;
        const auto bytes = GetFile(entry.path());
        sources.emplace_back(entry.path().string(), WithoutComments({bytes.begin(), bytes.end()}));
    }
    EXPECT_GT(sources.size(), 100U);
    return sources;
}

/// Calls that show their argument, with a literal that has letters as the first (or second) one.
TEST(Sources, ShowNoLiteralText) {
    const std::regex shown(
        "\\b(ShowMessage|AskYesNo|AskAboutEdits|AskYesNoCancel|InputBox|setText|setWindowTitle|"
        "setToolTip|setStatusTip|setAccessibleName|setAccessibleDescription|setTitle|addAction|"
        "addMenu|"
        "setTabText|setPlaceholderText|showMessage|setLabelText|ShowModelMessage|EConvertError|"
        "EFileError|ERangeError|runtime_error|SetHint\\([^,]+,|QLabel|QPushButton|QCheckBox|"
        "QGroupBox)\\(?\\s*(QString)?\\(?\"([^\"]*[A-Za-z]{2}[^\"]*)\"");
    for (const auto &[file, text] : Sources())
        for (std::sregex_iterator found(text.begin(), text.end(), shown), end; found != end;
             ++found)
            EXPECT_EQ((*found)[3].str(), "Ferrolyn") << file << ": " << found->str();
}

/// A translator sees where a text belongs.
TEST(Sources, TranslateInTheContextOfTheirOwnClass) {
    for (const auto &[file, text] : Sources())
        EXPECT_EQ(text.find("QObject::tr("), std::string::npos) << file;
}
} // namespace
