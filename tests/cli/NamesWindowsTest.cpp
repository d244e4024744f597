// Names that only some programs can cope with, given as arguments and told in answers, and an
// output that takes nothing.
#include "support/NamesWindows.h"

#include "cli/CliFixture.h"

#include <QJsonDocument>

namespace {
namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

class TCliNamesTest : public TCliTest {
protected:
    /// Copies an image with its spec file there, by the system's own means.
    void PutSamples(const fs::path &image, const fs::path &spec) {
        CopyFileW((folder / "32K.BIN").c_str(), Reached(image).c_str(), FALSE);
        CopyFileW((folder / "32K.SPC").c_str(), Reached(spec).c_str(), FALSE);
    }

    static std::string Contents(const fs::path &file) {
        const std::vector<std::uint8_t> bytes = GetFile(Reached(file));
        return {bytes.begin(), bytes.end()};
    }

    /// Goes through the commands that read images and spec files, list folders and write files.
    void ReadChangeAndCompare(const fs::path &in, const std::u8string &name) {
        const std::string image = (in / fs::path(name + u8".BIN")).string();
        const std::string spec = (in / fs::path(name + u8".SPC")).string();
        const std::string out = (in / fs::path(name + u8".NEW")).string();
        const std::string patch = (in / fs::path(name + u8".PATCH")).string();
        PutSamples(in / fs::path(name + u8".BIN"), in / fs::path(name + u8".SPC"));
        const std::string info = Done({"info", image});
        EXPECT_THAT(info, StartsWith(image + "\n  size     32768 bytes\n"));
        EXPECT_THAT(info, HasSubstr(fs::path(name).string() + ".SPC: 6 maps"));
        EXPECT_EQ(Done({"set", image, "--spec", spec, "fuel-pt[#1,#1]=1", "-o", out}), "");
        EXPECT_THAT(Run({"diff", image, out, "--spec", spec}).out,
                    StartsWith("here: " + out + "\nthere: " + image + "\nfuel-pt: 1 cell\n"));
        EXPECT_EQ(Run({"diff", image, out, "--format", "patch", "-o", patch}).exit, 1);
        EXPECT_THAT(Contents(in / fs::path(name + u8".PATCH")),
                    HasSubstr("\nname " + fs::path(name).string() + ".BIN\n"));
        EXPECT_EQ(Done({"patch", image, patch, "--in-place"}), "");
        EXPECT_EQ(Run({"diff", image, out}).exit, 0);
        EXPECT_THAT(
            Done({"find", in.string()}),
            HasSubstr(QJsonDocument::fromVariant(QVariantList{QString::fromStdString(image)})
                          .toJson(QJsonDocument::Compact)
                          .mid(1)
                          .chopped(1)
                          .toStdString()));
    }
};

TEST_F(TCliNamesTest, MayBeForeign) {
    for (const std::u8string &name : foreignNames) {
        fs::create_directory(folder.Path() / name);
        ReadChangeAndCompare(folder.Path() / name, name);
    }
}

TEST_F(TCliNamesTest, MayBeLong) {
    const TLongFolder longFolder;
    ReadChangeAndCompare(longFolder.Path(), u8"A");
    ReadChangeAndCompare(longFolder.Path(), foreignNames.front());
}

TEST_F(TCliNamesTest, AreToldInErrorsAsTheyWereGiven) {
    for (const std::u8string &name : foreignNames) {
        const std::string file = fs::path(name).string() + ".BIN";
        ExpectRefused({"find", file}, NotThere(file));
    }
}

TEST_F(TCliNamesTest, WithALineBreakAreToldInOneLine) {
    const TCliResult result = Run({"find", "A\nB"});
    EXPECT_EQ(result.exit, 2);
    EXPECT_THAT(result.err, StartsWith("ferrolyn-cli find: Cannot read 'A B': "));
    EXPECT_EQ(result.err.find('\n'), result.err.size() - 1);
}

TEST_F(TCliNamesTest, OfOneFileMayDifferInLetterCase) {
    const std::vector<std::string> set{"set", "32k.bin", "--spec", "32k.Spc", "fuel-pt[#1,#1]=1"};
    std::vector<std::string> words = set;
    words.insert(words.end(), {"-o", "32K.BIN"});
    ExpectRefused(words, "32K.BIN: the output is the image itself; --in-place allows it");
    words.back() = "32K.spc";
    ExpectRefused(words, "32K.spc: the output is an input, and would replace it");
    words.back() = "new.bin";
    PutText("NEW.BIN", "old");
    const std::size_t files = folder.Names().size();
    Done(words);
    EXPECT_EQ(folder.Names().size(), files);
    EXPECT_EQ(Bytes("NEW.BIN").size(), 0x8000U);
}

using TCliOutputTest = TCliTest;

/// A stream that takes nothing.
struct TReadOnlyOutput {
    explicit TReadOnlyOutput(const fs::path &file) {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        output = CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, &inherited, OPEN_EXISTING,
                             FILE_ATTRIBUTE_NORMAL, nullptr);
    }
    ~TReadOnlyOutput() { CloseHandle(output); }
    HANDLE output;
};

TEST_F(TCliOutputTest, SaysSoWhenStandardOutputCannotBeWritten) {
    const TReadOnlyOutput stream(folder / "32K.BIN");
    QProcess process;
    process.setCreateProcessArgumentsModifier([&](QProcess::CreateProcessArguments *arguments) {
        arguments->startupInfo->hStdOutput = stream.output;
    });
    process.start(FERROLYN_CLI, {"--help"}, QIODevice::ReadOnly);
    process.waitForFinished(-1);
    EXPECT_EQ(process.exitCode(), 2);
    EXPECT_EQ(process.readAllStandardError(), "ferrolyn-cli: standard output cannot be written\n");
}
} // namespace
