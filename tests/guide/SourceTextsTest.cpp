// Whether the reading of the sources finds what it is there for.
#include "guide/SourceTexts.h"

#include <gmock/gmock.h>

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

QStringList Words(const QString &source) {
    QStringList words;
    for (const TToken &token : TokensOf(source))
        words << token.text;
    return words;
}

struct TTokenCase {
    const char *name;
    const char *source;
    QStringList tokens;
};

const TTokenCase tokenCases[] = {
    {"words_and_signs", "a = b::c->d;", {"a", "=", "b", "::", "c", "->", "d", ";"}},
    {"text", R"(f("one two"))", {"f", "(", "one two", ")"}},
    {"neighbours_join", "\"one \"\n    \"two\"", {"one two"}},
    {"escapes", R"("a \"b\" \\ \n")", {"a \"b\" \\ \n"}},
    {"raw_text", "R\"x(a \"b\")x\";", {"a \"b\"", ";"}},
    {"comments", "a // \"b\"\n/* \"c\" */ d", {"a", "d"}},
    {"directives", "#include \"a.h\"\n#define B \\\n c\nd", {"d"}},
    {"sign_of_one_letter", R"(a = '"' + b)", {"a", "=", "\"", "+", "b"}},
    {"number_with_separators", "1'000 x", {"1'000", "x"}},
};

class Tokens : public testing::TestWithParam<TTokenCase> {};

struct TRaiseCase {
    const char *name;
    const char *source;
    QStringList texts; ///< of all places together
    int places;
};

const TRaiseCase raiseCases[] = {
    {"message", R"(void F() { Dialogs().ShowMessage(tr("one")); })", {"one"}, 1},
    {"question", R"(if (Dialogs().AskYesNo("one?") == x) return;)", {"one?"}, 1},
    {"returned", R"(return ShowModelMessage("one");)", {"one"}, 1},
    {"input_box", R"(x.InputBox("a", "b", "c");)", {"a", "b", "c"}, 3},
    {"input_box_without_prompt", R"(x.InputBox("a", b, c);)", {"a"}, 2},
    {"thrown", R"(throw EError("a " + b + " c");)", {"a ", " c"}, 1},
    {"error_class", R"(E() : std::runtime_error("a") {})", {"a"}, 1},
    {"thrown_again", "catch (...) { throw; }", {}, 0},
    {"helper_that_throws",
     R"([[noreturn]] void Fail(int a) { throw E("x" + a); } void F() { Fail("y"); })",
     {"x", "y"},
     2},
    {"variable", R"(const QString a = tr("one"); ShowMessage(a);)", {"one"}, 1},
    {"nearest_variable", R"(QString a = "one"; QString a = "two"; ShowMessage(a);)", {"two"}, 1},
    {"constant_behind", R"(void F() { ShowMessage(a); } constexpr auto a = "one";)", {"one"}, 1},
    {"function",
     R"(QString A(int b) { return b ? "one" : "two"; } void F() { ShowMessage(A(1)); })",
     {"one", "two"},
     1},
    {"from_anywhere", "ShowMessage(text);", {}, 1},
    {"dialog_title", R"(dialog->title = tr("one");)", {"one"}, 1},
    {"declared", "void ShowMessage(const QString &text); void T::ShowMessage(int a) {}", {}, 0},
};

class Raises : public testing::TestWithParam<TRaiseCase> {};
} // namespace

TEST_P(Tokens, AreTheLanguagesOwn) {
    EXPECT_EQ(Words(GetParam().source), GetParam().tokens);
}

INSTANTIATE_TEST_SUITE_P(Cases, Tokens, testing::ValuesIn(tokenCases),
                         [](const auto &test) { return std::string(test.param.name); });

TEST_P(Raises, AreFoundWithTheirTexts) {
    QStringList texts;
    const std::vector<TRaise> raises = RaisesIn({{"a.cpp", TokensOf(GetParam().source)}});
    for (const TRaise &raise : raises)
        texts << raise.texts;
    EXPECT_EQ(texts, GetParam().texts);
    EXPECT_EQ(static_cast<int>(raises.size()), GetParam().places);
}

INSTANTIATE_TEST_SUITE_P(Cases, Raises, testing::ValuesIn(raiseCases),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(Raise, SaysWhereItIs) {
    const auto raises = RaisesIn({{"a.cpp", TokensOf("\n\nShowMessage(text + \"a\");")}});
    ASSERT_EQ(raises.size(), 1U);
    EXPECT_EQ(raises[0].file, "a.cpp");
    EXPECT_EQ(raises[0].line, 3);
    EXPECT_EQ(raises[0].how, "ShowMessage");
    EXPECT_EQ(raises[0].argument, "text+\"a\"");
}

TEST(Raise, TakesConstantsAndFunctionsOfOtherFiles) {
    const auto raises =
        RaisesIn({{"a.cpp", TokensOf("void F() { ShowMessage(outOfPaper); ShowMessage(Why(1)); }")},
                  {"b.cpp", TokensOf("inline constexpr const char *outOfPaper = \"one\";")},
                  {"c.cpp", TokensOf("std::string Why(int a) { return \"two\"; }")}});
    ASSERT_EQ(raises.size(), 2U);
    EXPECT_EQ(raises[0].texts, QStringList("one"));
    EXPECT_EQ(raises[1].texts, QStringList("two"));
}

TEST(Fragments, AreWhatIsShownAsItStands) {
    EXPECT_EQ(Fragments("col: %1 row: %2"), QStringList({"col:", "row:"}));
    EXPECT_EQ(Fragments("%L1 bytes"), QStringList("bytes"));
    EXPECT_EQ(Fragments("Spec Files (*.SPC)|*.SPC"), QStringList("Spec Files (*.SPC)"));
    EXPECT_THAT(Fragments("': "), IsEmpty());
}

TEST(Classes, AreFoundByTheirBase) {
    const TSources sources{
        {"a.h", TokensOf("class A : public TBase {}; class B : public TOther {}; class C {};")}};
    EXPECT_THAT(ClassesDerivedFrom(sources, "TBase"), ElementsAre("A"));
}

TEST(ProgramSources, AreThere) {
    const TSources sources = ProgramSources();
    EXPECT_TRUE(sources.contains("ferrolyn.cpp"));
    EXPECT_TRUE(sources.contains("model/Messages.h"));
    EXPECT_TRUE(sources.contains("forms/Dialogs.h"));
}
