// What the checks of the documents want of a Markdown text: its links, the anchors of its headings,
// its code. Not a renderer.
#pragma once

#include <set>
#include <string>
#include <vector>

struct TMarkdown {
    std::vector<std::string> links;       ///< targets of links and pictures, as written
    std::set<std::string> anchors;        ///< of the headings, without "#", as web hosts make them
    std::vector<std::string> codeLines;   ///< of the fenced blocks; continued lines are joined
    std::vector<std::string> inlineCodes; ///< what stands between single backticks
};

TMarkdown ReadMarkdown(const std::string &text);
