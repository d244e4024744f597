// Base of the tests of what is kept and offered: starts of the program that work on one image and
// one folder of state, without a window.
#pragma once

#include "changes/Recovery.h"
#include "support/ModelFixture.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <optional>
#include <vector>

/// A program with its image, up to its end or until it is killed: what counts is in the folders.
class TRecoveryTest : public TModelTest {
protected:
    /// One start of the program.
    struct TProgram {
        TWorkspace workspace;
        TRecovery recovery;
        explicit TProgram(const std::optional<std::filesystem::path> &state)
            : recovery(workspace, state) {}

        void Load(const std::filesystem::path &file) {
            workspace.romFileName = file;
            ROMImage()->LoadFromFile(file);
            recovery.ImageRead();
            Look();
        }
        void Look() {
            recovery.Look();
            recovery.Finish();
            recovery.Look(); // what came late
        }
        void Commit(std::int32_t offset, std::uint8_t byte) {
            ROMImage()->Poke(offset, byte);
            Look();
        }
        void Save(const std::filesystem::path &target) {
            recovery.KeepReplaced(target, "20261122");
            ROMImage()->SaveToFile(target);
            workspace.romFileName = target;
            recovery.ImageSaved();
            Look();
        }
        void BringBack() {
            recovery.BringBack();
            Look();
        }
        /// The image as each offer would make it of its file.
        std::vector<TBytes> Offered() const {
            std::vector<TBytes> images;
            for (const TKeptPatch &offer : recovery.Offers()) {
                const auto file = ROMImage()->FileBytes();
                images.emplace_back(file.begin(), file.end());
                ApplyPatch(offer.patch, images.back());
            }
            return images;
        }
    };

    void SetUp() override { PutFile(image, original); }
    TBytes Now() { return Get(0, Image().size); }
    std::vector<std::filesystem::path> Kept() const {
        std::vector<std::filesystem::path> files;
        if (std::filesystem::exists(state))
            for (const std::filesystem::directory_entry &entry :
                 std::filesystem::directory_iterator(state))
                files.push_back(entry.path());
        return files;
    }
    /// What another start of the program is offered for the image.
    std::vector<TBytes> OfferedNext() const {
        const TFreshModel fresh;
        TProgram next(state);
        next.Load(image);
        return next.Offered();
    }
    TBytes With(std::int32_t offset, std::uint8_t byte) const {
        return With(original, offset, byte);
    }
    static TBytes With(TBytes bytes, std::int32_t offset, std::uint8_t byte) {
        bytes.at(static_cast<std::size_t>(offset)) = byte;
        return bytes;
    }

    TTemporaryFolder folder;
    std::filesystem::path state = folder / "state";
    std::filesystem::path image = folder / "A.BIN";
    TBytes original = TBytes(0x1000, 5);
};

using TRecoveryProblems = TRecoveryTest;
