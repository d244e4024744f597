#include "system/FileLinux.h"
#include "system/FileToRead.h"

namespace {
TStatus StatusOf(std::intptr_t handle) {
    return Asking<TSystemFailure>([&] {
        TStatus status{};
        Sure([&] { return fstat(static_cast<int>(handle), &status); });
        return status;
    });
}
} // namespace

TFileToRead::TFileToRead(const std::filesystem::path &path)
    : handle_(Asking<TSystemFailure>([&] {
          // Without waiting, so that opening a pipe cannot hang.
          TOpenFile file(path, O_RDONLY | O_NONBLOCK);
          if (S_ISDIR(file.Status().st_mode))
              Fail(EISDIR);
          return file.Release();
      })) {}

TFileToRead::~TFileToRead() {
    close(static_cast<int>(handle_));
}

bool TFileToRead::IsRegular() const {
    return S_ISREG(StatusOf(handle_).st_mode);
}

std::uint64_t TFileToRead::Length() const {
    return static_cast<std::uint64_t>(StatusOf(handle_).st_size);
}

std::size_t TFileToRead::Read(std::span<std::uint8_t> room) const {
    return Asking<TSystemFailure>([&] { return ReadOn(static_cast<int>(handle_), room); });
}
