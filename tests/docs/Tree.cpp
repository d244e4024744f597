#include "docs/Tree.h"

#include <algorithm>
#include <fstream>
#include <regex>
#include <sstream>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace fs = std::filesystem;

namespace {
bool IsSource(const fs::path &file) {
    const std::string name = file.filename().string();
    static const std::set<std::string> endings = {".cpp", ".h", ".sh", ".py", ".cmake", ""};
    return name == "CMakeLists.txt" || name == "CMakePresets.json" ||
           endings.contains(file.extension().string());
}

/// The file name pattern as a regular expression.
std::string Expression(const std::string &name) {
    std::string expression;
    for (const char c : name)
        expression += c == '*' ? "[^/]*"
                      : std::isalnum(static_cast<unsigned char>(c)) || c == '/'
                          ? std::string(1, c)
                          : std::string("\\") + c;
    return expression;
}

bool StandsIn(const std::string &word, const std::string &text) {
    const auto isPart = [](char c) {
        return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '-';
    };
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        if ((at == 0 || !isPart(text[at - 1])) && (end == text.size() || !isPart(text[end])))
            return true;
    }
    return false;
}
} // namespace

std::string TextOf(const fs::path &file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

TTree::TTree(fs::path top) : top_(std::move(top)) {
    ReadInstalled();
    for (auto i = fs::recursive_directory_iterator(top_); i != fs::recursive_directory_iterator();
         ++i) {
        const std::string name = i->path().lexically_relative(top_).string();
        if (name == "build" || name == ".git") {
            i.disable_recursion_pending();
            continue;
        }
        files_.insert(name);
        const bool told = name.starts_with("tests/docs/") || name.starts_with("fuzz/corpus/");
        if (!told && i->is_regular_file() && IsSource(i->path()))
            sources_ += TextOf(i->path());
        if (i->path().filename() == "CMakeLists.txt")
            ReadTargets(TextOf(i->path()));
    }
}

void TTree::ReadInstalled() {
    std::istringstream lines(TextOf(top_ / "packaging/files.txt"));
    for (std::string line; std::getline(lines, line);)
        installed_.push_back(line);
}

void TTree::ReadTargets(const std::string &cmakeFile) {
    static const std::regex maker(
        R"((add_executable|add_library|add_custom_target|ferrolyn_library|ferrolyn_test|ferrolyn_bench|ferrolyn_fuzz)\(([\w-]+))");
    for (std::sregex_iterator i(cmakeFile.begin(), cmakeFile.end(), maker), end; i != end; ++i)
        targets_.insert((*i)[1] == "ferrolyn_fuzz" ? "fuzz_" + (*i)[2].str() : (*i)[2].str());
}

bool TTree::HasFile(const std::string &name) const {
    const std::string plain = name.ends_with('/') ? name.substr(0, name.size() - 1) : name;
    for (const char *folder : {"", "src/", "tests/"})
        for (const char *ending : {"", ".h", ".cpp"})
            if (files_.contains(folder + plain + ending))
                return true;
    const bool inAnyFolder = plain.find('/') == std::string::npos;
    if (plain.find('*') == std::string::npos)
        return inAnyFolder &&
               std::any_of(files_.begin(), files_.end(),
                           [last = '/' + plain](const auto &file) { return file.ends_with(last); });
    const std::regex pattern((inAnyFolder ? "(.*/)?" : "") + Expression(plain));
    return std::any_of(files_.begin(), files_.end(),
                       [&](const std::string &file) { return std::regex_match(file, pattern); });
}

bool TTree::Installs(const std::string &path) const {
    const std::string below = path.starts_with("usr/") ? path.substr(4) : path;
    return std::any_of(installed_.begin(), installed_.end(),
                       [&](const std::string &file) { return file.starts_with(below); });
}

bool TTree::HasPreset(const std::string &kind, const std::string &name) const {
    const std::string text = TextOf(top_ / "CMakePresets.json");
    const QJsonDocument presets = QJsonDocument::fromJson(QByteArray::fromStdString(text));
    for (const QJsonValue preset : presets[QString::fromStdString(kind)].toArray())
        if (preset["name"].toString().toStdString() == name && !preset["hidden"].toBool())
            return true;
    return false;
}

bool TTree::Stands(const std::string &word, const std::string &file) const {
    return StandsIn(word, TextOf(top_ / file));
}

bool TTree::StandsAnywhere(const std::string &word) const {
    return StandsIn(word, sources_);
}

const TTree &Project() {
    static const TTree tree{std::filesystem::path(FERROLYN_SOURCE_DIR)};
    return tree;
}
