// Linux alone: differences of files as another program tells them.
#include "changes/ByteRuns.h"
#include "changes/RandomPairs.h"
#include "support/TemporaryFolder.h"

#include <cstdio>

#include <gmock/gmock.h>

namespace {
using TBytes = std::vector<std::uint8_t>;

/// What "cmp -l" lists: the number of a byte from 1, and both values in octal.
std::vector<TByteChange> ListedByCmp(const TTemporaryFolder &folder) {
    const std::string command = "cmp -l '" + (folder / "before").string() + "' '" +
                                (folder / "after").string() + "' 2>/dev/null";
    std::FILE *output = popen(command.c_str(), "r");
    std::vector<TByteChange> changes;
    unsigned number = 0;
    unsigned before = 0;
    unsigned after = 0;
    while (std::fscanf(output, "%u %o %o", &number, &before, &after) == 3)
        changes.push_back(
            {number - 1, static_cast<std::uint8_t>(before), static_cast<std::uint8_t>(after)});
    pclose(output);
    return changes;
}

std::vector<TByteChange> Changes(const TBytes &before, const TBytes &after) {
    std::vector<TByteChange> changes;
    for (const TByteRun &run : DifferingRuns(before, after))
        for (std::uint32_t i = run.offset; i < run.offset + run.length; ++i)
            changes.push_back({i, before[i], after[i]});
    return changes;
}

TEST(ComparedFiles, DifferWhereCmpSaysSo) {
    constexpr int files = 200;
    const TTemporaryFolder folder;
    TRandomPairs pairs;
    for (int file = 0; file < files; ++file) {
        auto [before, after] = Joined(pairs, TRandomPairs::count / files);
        if (file % 4 == 0) // the other file is longer
            (file % 8 == 0 ? before : after).resize(before.size() + 1 + pairs.Below(5000));
        PutFile(folder / "before", before);
        PutFile(folder / "after", after);
        ASSERT_EQ(Changes(before, after), ListedByCmp(folder)) << file;
    }
}
} // namespace
