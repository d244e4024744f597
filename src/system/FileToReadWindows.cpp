#include "system/FileToRead.h"
#include "system/FileWindows.h"

namespace {
HANDLE AsHandle(std::intptr_t handle) {
    return reinterpret_cast<HANDLE>(handle);
}
} // namespace

// A folder cannot be opened without the flag for backups; the system says so by itself.
TFileToRead::TFileToRead(const std::filesystem::path &path)
    : handle_(Asking<TSystemFailure>([&] {
          TOpenFile file(path, {GENERIC_READ, shareAll, OPEN_EXISTING});
          return reinterpret_cast<std::intptr_t>(file.Release());
      })) {}

TFileToRead::~TFileToRead() {
    CloseHandle(AsHandle(handle_));
}

bool TFileToRead::IsRegular() const {
    return GetFileType(AsHandle(handle_)) == FILE_TYPE_DISK;
}

std::uint64_t TFileToRead::Length() const {
    return Asking<TSystemFailure>([&] { return LengthOf(AsHandle(handle_)); });
}

std::size_t TFileToRead::Read(std::span<std::uint8_t> room) const {
    return Asking<TSystemFailure>([&] { return ReadOn(AsHandle(handle_), room); });
}
