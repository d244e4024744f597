#include "system/FileLinux.h"
#include "system/FileToRead.h"

namespace {
/// The result of `call`, whose failures become refusals.
template <class TCall>
auto Asking(TCall call) {
    try {
        return call();
    } catch (const TSystemFailure &failure) {
        throw TRefusal{failure.Reason()};
    }
}

TStatus StatusOf(std::intptr_t handle) {
    return Asking([&] {
        TStatus status{};
        Sure([&] { return fstat(static_cast<int>(handle), &status); });
        return status;
    });
}
} // namespace

TFileToRead::TFileToRead(const std::filesystem::path &path)
    : handle_(Asking([&] {
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
    return Asking([&] { return ReadOn(static_cast<int>(handle_), room); });
}
