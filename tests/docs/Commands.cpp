#include "docs/Commands.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <regex>
#include <sstream>

namespace {
using TWords = std::vector<std::string>;
using TFindings = std::vector<std::string>;

bool Matches(const std::string &text, const char *pattern) {
    static std::map<std::string, std::regex> expressions; // making one takes longer than its use
    return std::regex_match(text, expressions.try_emplace(pattern, pattern).first->second);
}

TWords Words(const std::string &command) {
    std::istringstream stream(command);
    return {std::istream_iterator<std::string>(stream), {}};
}

/// Words that only the reader can fill in.
bool IsPlaceholder(const std::string &word) {
    return Matches(word, R"(\[?[A-Z][A-Z_]*(\.\.\.)?\]?)");
}

/// The commands of a line, without the comment.
std::vector<std::string> Split(const std::string &line) {
    const std::string bare = std::regex_replace(line, std::regex(R"((^|\s)#.*)"), "");
    const std::regex separator(R"(\s*(?:&&|\|\||[;|])\s*(?:do\s+|then\s+)?)");
    return {std::sregex_token_iterator(bare.begin(), bare.end(), separator, -1), {}};
}

bool IsScript(const std::string &word) {
    return Matches(word, R"(\./[\w.-]+|\.ci/run|(tools|tests)/[\w./-]+\.(sh|py))");
}

bool IsProgram(const std::string &word) {
    return Matches(word, R"(build/[\w-]+/[\w/-]+)");
}

class TCommandCheck {
public:
    explicit TCommandCheck(const TTree &tree) : tree_(tree) {}

    TFindings Check(TWords words) {
        TakeVariables(words);
        if (words.empty())
            return findings_;
        const std::string name = words.front();
        if (name == "cmake" || name == "ctest")
            CheckCMake(words);
        else if (IsScript(name))
            CheckScript(words);
        else if (IsProgram(name))
            CheckProgram(name);
        else if (name == "bash" && words.size() > 1)
            return Check(TWords(words.begin() + 1, words.end()));
        return findings_;
    }

private:
    /// Variables set for one command: somebody must read them.
    void TakeVariables(TWords &words) {
        while (!words.empty() && Matches(words.front(), "[A-Z_]+=.*")) {
            const std::string name = words.front().substr(0, words.front().find('='));
            const bool others = Matches(name, "(CMAKE|QT|XDG)_.*");
            Expect(others || tree_.StandsAnywhere(name), "nobody reads the variable " + name);
            words.erase(words.begin());
        }
    }

    void CheckScript(const TWords &words) {
        const std::string file = words[0].starts_with("./") ? words[0].substr(2) : words[0];
        if (!Expect(tree_.HasFile(file), "there is no script " + words[0]))
            return;
        // ./test and CI hand their words on.
        const std::string reader = file == "test" ? "tools/check.sh" : file;
        for (std::size_t i = 1; i < words.size(); ++i) {
            if (IsScript(words[i]) || words[i] == "bash") { // what the script is told to run
                Check(TWords(words.begin() + static_cast<std::ptrdiff_t>(i), words.end()));
                return;
            }
            const bool named = words[i].starts_with("-") || file == "test";
            if (named && !IsPlaceholder(words[i]))
                Expect(tree_.Stands(words[i], reader), file + " knows no " + words[i]);
        }
    }

    void CheckProgram(const std::string &path) {
        const std::string name = path.substr(path.rfind('/') + 1);
        const std::string preset = path.substr(6, path.find('/', 6) - 6);
        Expect(IsPlaceholder(preset) || tree_.HasPreset("configurePresets", preset) ||
                   preset == "coverage",
               "there is no preset for " + path);
        Expect(tree_.HasTarget(name) || name.find('$') != std::string::npos ||
                   name.find("NAME") != std::string::npos,
               "there is no target " + name);
    }

    void CheckCMake(const TWords &words) {
        const bool builds = std::find(words.begin(), words.end(), "--build") != words.end();
        const std::string kind = words[0] == "ctest" ? "testPresets"
                                 : builds            ? "buildPresets"
                                                     : "configurePresets";
        bool targets = false;
        for (std::size_t i = 1; i < words.size(); ++i) {
            const std::string &word = words[i];
            if (words[i - 1] == "--preset")
                Expect(IsPlaceholder(word) || tree_.HasPreset(kind, word),
                       "no preset " + word + " in " + kind);
            else if (targets && !word.starts_with("-"))
                Expect(IsPlaceholder(word) || tree_.HasTarget(word), "no target " + word);
            else if (word.starts_with("-DFERROLYN_"))
                CheckSwitch(word.substr(2, word.find('=') - 2));
            if (word.starts_with("-"))
                targets = word == "--target" || word == "-t";
        }
    }

    void CheckSwitch(const std::string &name) {
        Expect(tree_.Stands(name, "CMakeLists.txt"), "no switch " + name);
    }

    bool Expect(bool good, const std::string &finding) {
        if (!good)
            findings_.push_back(finding);
        return good;
    }

    const TTree &tree_;
    TFindings findings_;
};

/// Endings of files that lie in the project; other names are the user's files.
bool IsFileName(const std::string &code) {
    return Matches(code, R"([\w.*-]+\.(h|cpp|sh|py|md|cmake|supp|svg|xml|json|SPC|BIN))") &&
           !code.starts_with("*.");
}

bool IsPath(const std::string &code) {
    return Matches(code, R"(\.?[\w*][\w.*-]*(/[\w.*-]+)*/?)") &&
           code.find('/') != std::string::npos && !code.starts_with("build/");
}

bool HasPlaceholder(const std::string &code) {
    return Matches(code, R"((.*[/_])?[A-Z]{3,}([/.].*)?)") && !Matches(code, R"(.*\.(SPC|BIN|md))");
}
} // namespace

std::vector<std::string> CommandFindings(const std::string &line, const TTree &tree) {
    TFindings findings;
    for (const std::string &command : Split(line)) {
        const TFindings more = TCommandCheck(tree).Check(Words(command));
        findings.insert(findings.end(), more.begin(), more.end());
    }
    return findings;
}

std::vector<std::string> InlineFindings(const std::string &code, const TTree &tree) {
    if ((IsPath(code) || IsFileName(code)) && !IsScript(code)) {
        // A plain name may be that of a file that the tour or a test writes.
        const bool known = HasPlaceholder(code) || tree.HasFile(code) || tree.Installs(code) ||
                           (!IsPath(code) && tree.StandsAnywhere(code));
        return known ? TFindings() : TFindings{"there is no " + code};
    }
    std::smatch name;
    if (std::regex_match(code, name, std::regex(R"(([TEI](?:frm)?[A-Z][a-z]\w+)(?:::(\w+))?)"))) {
        const bool known =
            tree.StandsAnywhere(name[1]) && (!name[2].matched || tree.StandsAnywhere(name[2]));
        return known ? TFindings() : TFindings{"nothing is called " + code};
    }
    return CommandFindings(code, tree);
}
