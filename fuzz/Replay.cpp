// Runs a fuzz target once on each file of a corpus, so that every build can do it, with any
// compiler. Ends with 1 when there is no file at all; the target itself ends the process when it
// finds something.
//   fuzz_replay_NAME FILE-OR-FOLDER...
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
/// Only some targets have these; the fuzzer itself does not call the second.
extern "C" [[gnu::weak]] int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" [[gnu::weak]] void FuzzTargetEnd();

namespace {
namespace fs = std::filesystem;

void Replay(const fs::path &file) {
    std::printf("%s\n", file.string().c_str());
    std::fflush(stdout); // a finding must not take the file's name with it
    std::ifstream stream(file, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
    // A copy of its own of exactly that size, so that the sanitizers see a step over its end.
    const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(input.data(), input.size());
}
} // namespace

int main(int argc, char **argv) {
    if (LLVMFuzzerInitialize)
        LLVMFuzzerInitialize(&argc, &argv);
    int files = 0;
    for (int i = 1; i < argc; ++i) {
        if (!fs::is_directory(argv[i])) {
            Replay(argv[i]);
            ++files;
            continue;
        }
        for (const fs::directory_entry &entry : fs::directory_iterator(argv[i])) {
            Replay(entry.path());
            ++files;
        }
    }
    if (FuzzTargetEnd)
        FuzzTargetEnd();
    std::printf("%d inputs\n", files);
    return files > 0 ? 0 : 1;
}
