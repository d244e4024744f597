// Fuzz target: ferrolyn-cli, run inside this process. The input is lines of arguments, a line "--",
// and the text of a file that stands beside a small image as T.CSV, T.PATCH and T.SPC. Whatever is
// asked for, the program ends with one of its exit codes, says why where it refuses, and leaves the
// files alone that it was given. Then the text is imported as a table: where that is done, what is
// exported from the result gives the same bytes again.
#include "FuzzInput.h"
#include "cli/RunCli.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <map>
#include <sstream>

namespace {
using TBytes = std::vector<std::uint8_t>;
using TWords = std::vector<std::string>;
namespace fs = std::filesystem;

constexpr const char *image = "I.BIN";
constexpr const char *spec = "S.SPC";
constexpr std::size_t mostWords = 16;

/// Four engine speeds, three loads; 0 loads for a linear map.
void PutMap(TBytes &bytes, std::size_t at, bool linear) {
    const TBytes axes = linear ? TBytes{0x4A, 4, 30, 40, 50, 66}
                               : TBytes{0x4A, 4, 30, 40, 50, 66, 0x4C, 3, 100, 100, 0};
    std::copy(axes.begin(), axes.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
    for (std::size_t i = 0; i < (linear ? 4U : 12U); ++i)
        bytes[at + axes.size() + i] = static_cast<std::uint8_t>(110 + 3 * i);
}

TBytes SmallImage() {
    TBytes bytes(0x400, 0xFF);
    for (std::size_t set = 0; set < 2; ++set)
        for (std::size_t map = 0; map < 3; ++map)
            PutMap(bytes, 0x100 + set * 0x100 + map * 0x40, map > 0);
    bytes[0x20] = 170;
    return bytes;
}

constexpr const char *specText = "; Small\n[Main]\ntiming_divider=0.65\ntiming_subtractor=12.7\n"
                                 "[Fuel Maps]\npt_offset=$100\nidle_offset=$140\nwot_offset=$180\n"
                                 "[Timing Maps]\npt_offset=$200\nidle_offset=$240\n"
                                 "wot_offset=$280\n[Other Maps]\nrevlimit_offset=$20\n";

/// The folder in which the program works, and what belongs there.
class TDesk {
public:
    TDesk() { fs::current_path(folder_.Path()); }

    /// Only these files, as they are given.
    void Lay(const std::string &text) {
        const TBytes bytes(text.begin(), text.end());
        const std::string placing = specText;
        files_ = {{image, SmallImage()},
                  {spec, TBytes(placing.begin(), placing.end())},
                  {"T.CSV", bytes},
                  {"T.PATCH", bytes},
                  {"T.SPC", bytes}};
        for (const fs::directory_entry &entry : fs::directory_iterator("."))
            if (!files_.contains(entry.path().filename().string()))
                fs::remove_all(entry.path());
        for (const auto &[name, contents] : files_)
            PutFile(name, contents);
    }
    void DemandUntouched() const {
        for (const auto &[name, contents] : files_)
            Demand(GetFile(name) == contents, name + " has changed");
    }

private:
    TTemporaryFolder folder_;
    std::map<std::string, TBytes> files_;
};

struct TOutcome {
    TExit exit;
    std::string out;
    std::string err;
};

TOutcome RunWords(const TWords &words) {
    std::ostringstream out;
    std::ostringstream err;
    TConsole console{out, err};
    const TExit exit = RunCli(words, console);
    // Of many images, a broken one is told among the answers.
    const bool told = err.str().ends_with('\n') || out.str().find("error") != std::string::npos;
    Demand(exit != TExit::Wrong || told, "refused without a word");
    return {exit, out.str(), err.str()};
}

/// The first lines, as arguments; the rest of the input stays.
TWords TakeWords(TFuzzInput &input) {
    TWords words;
    std::string word;
    while (!input.Empty()) {
        const char next = static_cast<char>(input.Byte());
        if (next != '\n') {
            word += next;
            continue;
        }
        if (word == "--")
            break;
        words.push_back(std::exchange(word, {}));
    }
    return words;
}

/// Whether the words stay in the folder, and are no more than a line has.
bool Harmless(const TWords &words) {
    return words.size() <= mostWords && std::all_of(words.begin(), words.end(), [](auto &word) {
               return word.find('/') == std::string::npos && word.find('\0') == std::string::npos &&
                      word.find("..") == std::string::npos;
           });
}

void RunFree(TDesk &desk, const TWords &words) {
    RunWords(words);
    const auto begins = [](const std::string &word) { return word.starts_with("--in"); };
    if (std::none_of(words.begin(), words.end(), begins))
        desk.DemandUntouched();
}

TOutcome Import(const std::string &table, const std::string &output) {
    return RunWords({"import", image, "--spec", spec, "fuel-pt", table, "-o", output});
}

void ImportAndExport(TDesk &desk) {
    if (Import("T.CSV", "1.BIN").exit != TExit::Done) {
        Demand(!fs::exists("1.BIN"), "refused, but written");
        return desk.DemandUntouched();
    }
    Demand(RunWords({"export", "1.BIN", "--spec", spec, "fuel-pt", "-o", "E.CSV"}).err.empty(),
           "what was imported is not exported");
    const TOutcome again = Import("E.CSV", "2.BIN");
    Demand(again.exit == TExit::Done && again.err.empty(), "what was exported is not imported");
    Demand(GetFile("1.BIN") == GetFile("2.BIN"), "exported and imported");
    desk.DemandUntouched();
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static TDesk desk;
    TFuzzInput input(data, size);
    const TWords words = TakeWords(input);
    if (!Harmless(words))
        return 0;
    const std::string text = input.Rest();
    desk.Lay(text);
    RunFree(desk, words);
    desk.Lay(text);
    ImportAndExport(desk);
    return 0;
}
