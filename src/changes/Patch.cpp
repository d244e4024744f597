#include "changes/Patch.h"

#include "changes/ByteRuns.h"
#include "model/Numbers.h"
#include "system/Texts.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace {
constexpr std::string_view head = "Ferrolyn patch 1";
constexpr std::string_view arrow = " -> ";
constexpr std::string_view hexDigits = "0123456789abcdef";
constexpr std::size_t digestLength = 64;

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < ' ';
}

std::string HexBytes(std::span<const std::uint8_t> bytes) {
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text += text.empty() ? "" : " ";
        text += {hexDigits[byte >> 4], hexDigits[byte & 0xF]};
    }
    return text;
}

[[noreturn]] void Refuse(std::size_t line, const std::string &reason) {
    throw EPatchError(
        Filled(Translated("Patch", "Line %1 of the patch: %2"), {std::to_string(line), reason}));
}

/// Reads a patch from its first line to its last.
class TPatchReader {
public:
    explicit TPatchReader(std::string_view text) : rest_(text) {}

    TPatch Read() {
        if (Line() != head)
            Refuse(line_, Filled(Translated("Patch", "'%1' is expected"), {std::string(head)}));
        TPatch patch;
        patch.name = Value("name ");
        if (std::any_of(patch.name.begin(), patch.name.end(), IsControl))
            Refuse(line_, Translated("Patch", "the name has a control character"));
        patch.size = Number(Value("size "));
        patch.sha256 = Value("sha256 ");
        if (patch.sha256.size() != digestLength ||
            patch.sha256.find_first_not_of(hexDigits) != std::string::npos)
            Refuse(line_, Translated("Patch", "64 digits from 0 to f are expected"));
        ReadRuns(patch);
        if (!rest_.empty())
            Refuse(line_ + 1, Translated("Patch", "nothing may stand behind the end"));
        return patch;
    }

private:
    std::string_view Line() {
        ++line_;
        const std::size_t end = rest_.find('\n');
        if (end == std::string_view::npos)
            Refuse(line_, Translated("Patch", "the patch ends here, before its last line"));
        std::string_view line = rest_.substr(0, end);
        rest_.remove_prefix(end + 1);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        return line;
    }

    std::string Value(std::string_view key) {
        const std::string_view line = Line();
        if (!line.starts_with(key))
            Refuse(line_, Filled(Translated("Patch", "'%1' is expected"), {std::string(key)}));
        return std::string(line.substr(key.size()));
    }

    std::uint32_t Number(std::string_view text, int base = 10) {
        std::uint32_t number = 0;
        const auto [end, error] =
            std::from_chars(text.data(), text.data() + text.size(), number, base);
        if (error != std::errc() || end != text.data() + text.size() || text.empty())
            Refuse(line_, Filled(Translated("Patch", "'%1' is no number"), {std::string(text)}));
        return number;
    }

    std::vector<std::uint8_t> Bytes(std::string_view text) {
        std::vector<std::uint8_t> bytes;
        for (std::size_t at = 0; at <= text.size(); at += 3) {
            const std::string_view byte = text.substr(at, 2);
            const bool ends = at + 2 == text.size();
            if (byte.size() != 2 || (!ends && (at + 2 > text.size() || text[at + 2] != ' ')))
                Refuse(line_, Translated("Patch", "bytes are two digits each, one blank between"));
            bytes.push_back(static_cast<std::uint8_t>(Number(byte, 16)));
            if (ends)
                break;
        }
        return bytes;
    }

    TPatchRun Run(std::string_view line) {
        const std::size_t behind = line.find(' ');
        const std::size_t middle = line.find(arrow);
        if (!line.starts_with('$') || behind == std::string_view::npos ||
            middle == std::string_view::npos || middle <= behind)
            Refuse(line_, Translated("Patch", "'$1A2B 01 -> 02' or 'end' is expected"));
        TPatchRun run{Number(line.substr(1, behind - 1), 16),
                      Bytes(line.substr(behind + 1, middle - behind - 1)),
                      Bytes(line.substr(middle + arrow.size()))};
        if (run.before.size() != run.after.size())
            Refuse(line_, Translated("Patch", "as many bytes are expected behind the arrow"));
        return run;
    }

    void ReadRuns(TPatch &patch) {
        std::uint64_t end = 0; // of the bytes so far
        for (std::size_t count = 0;; ++count) {
            const std::string_view line = Line();
            if (line.starts_with("end ")) {
                if (Number(line.substr(4)) != count)
                    Refuse(line_, Translated("Patch", "lines are missing in front of the end"));
                return;
            }
            TPatchRun run = Run(line);
            if (run.offset < end || run.offset + run.before.size() > patch.size)
                Refuse(line_, Translated("Patch", "the bytes lie behind the image's end, or not "
                                                  "behind those of the line before"));
            const bool goesOn = !patch.runs.empty() && run.offset == end;
            end = run.offset + run.before.size();
            if (goesOn)
                Join(patch.runs.back(), run);
            else
                patch.runs.push_back(std::move(run));
        }
    }

    static void Join(TPatchRun &run, const TPatchRun &next) {
        run.before.insert(run.before.end(), next.before.begin(), next.before.end());
        run.after.insert(run.after.end(), next.after.begin(), next.after.end());
    }

    std::string_view rest_;
    std::size_t line_ = 0;
};
} // namespace

TPatch MakePatch(std::string name, std::string sha256, std::span<const std::uint8_t> before,
                 std::span<const std::uint8_t> after) {
    TPatch patch{std::move(name), static_cast<std::uint32_t>(before.size()), std::move(sha256), {}};
    for (const auto &[offset, length] : DifferingRuns(before, after)) {
        const auto from = before.subspan(offset, length);
        const auto to = after.subspan(offset, length);
        patch.runs.push_back({offset, {from.begin(), from.end()}, {to.begin(), to.end()}});
    }
    return patch;
}

std::string PatchText(const TPatch &patch) {
    std::string name = patch.name;
    std::replace_if(name.begin(), name.end(), IsControl, ' ');
    std::string text(head);
    text += "\nname " + name + "\nsize " + std::to_string(patch.size) + "\nsha256 " + patch.sha256;
    std::size_t lines = 0;
    for (const TPatchRun &run : patch.runs)
        for (std::size_t at = 0; at < run.before.size(); at += bytesOfALine, ++lines) {
            const std::size_t count = std::min(bytesOfALine, run.before.size() - at);
            const auto offset = static_cast<std::int32_t>(run.offset + at);
            text += "\n" + FormatOffset(offset) + " " +
                    HexBytes(std::span(run.before).subspan(at, count)) + std::string(arrow) +
                    HexBytes(std::span(run.after).subspan(at, count));
        }
    return text + "\nend " + std::to_string(lines) + "\n";
}

TPatch ParsePatch(std::string_view text) {
    return TPatchReader(text).Read();
}

void ApplyPatch(const TPatch &patch, std::span<std::uint8_t> image) {
    if (image.size() != patch.size)
        throw EPatchError(
            Filled(Translated("Patch", "The patch is for an image of %1 bytes; this one has %2"),
                   {std::to_string(patch.size), std::to_string(image.size())}));
    for (const TPatchRun &run : patch.runs)
        for (std::size_t i = 0; i < run.before.size(); ++i)
            if (const std::uint8_t byte = image[run.offset + i]; byte != run.before[i])
                throw EPatchError(
                    Filled(Translated("Patch", "At %1 the image has %2 where the patch expects %3"),
                           {FormatOffset(static_cast<std::int32_t>(run.offset + i)),
                            std::to_string(byte), std::to_string(run.before[i])}));
    for (const TPatchRun &run : patch.runs)
        std::copy(run.after.begin(), run.after.end(), image.begin() + run.offset);
}

TPatch Reversed(TPatch patch) {
    for (TPatchRun &run : patch.runs)
        std::swap(run.before, run.after);
    return patch;
}
