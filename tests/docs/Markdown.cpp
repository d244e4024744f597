#include "docs/Markdown.h"

#include <cctype>
#include <regex>
#include <sstream>

namespace {
/// "How to report?" is "how-to-report". What is no letter, digit, "_" or "-" goes; blanks become
/// "-".
std::string AnchorOf(const std::string &heading) {
    std::string anchor;
    for (const char c : heading) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == ' ')
            anchor += '-';
        else if (std::isalnum(byte) || c == '-' || c == '_' || byte >= 0x80)
            anchor += static_cast<char>(std::tolower(byte));
    }
    return anchor;
}

void TakeAll(const std::string &text, const char *pattern, std::vector<std::string> &found) {
    const std::regex expression(pattern);
    for (std::sregex_iterator i(text.begin(), text.end(), expression), end; i != end; ++i)
        found.push_back((*i)[1]);
}

std::string Without(const std::string &text, const char *pattern) {
    return std::regex_replace(text, std::regex(pattern), "");
}

class TReader {
public:
    TMarkdown Read(const std::string &text) {
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);)
            Line(line);
        TakeAll(prose_, "`([^`]+)`", result_.inlineCodes);
        TakeAll(Without(prose_, "`[^`]+`"), R"(\]\(([^)\s]+)\))", result_.links);
        return result_;
    }

private:
    void Line(const std::string &line) {
        if (line.starts_with("```")) {
            inBlock_ = !inBlock_;
        } else if (inBlock_) {
            CodeLine(line);
        } else {
            std::smatch heading;
            if (std::regex_match(line, heading, std::regex("#+ +(.*)")))
                result_.anchors.insert(AnchorOf(heading[1]));
            prose_ += line + "\n";
        }
    }
    void CodeLine(const std::string &line) {
        if (continued_)
            result_.codeLines.back() += line;
        else
            result_.codeLines.push_back(line);
        continued_ = line.ends_with('\\');
        if (continued_)
            result_.codeLines.back().pop_back();
    }

    TMarkdown result_;
    std::string prose_;
    bool inBlock_ = false;
    bool continued_ = false;
};
} // namespace

TMarkdown ReadMarkdown(const std::string &text) {
    return TReader().Read(text);
}
