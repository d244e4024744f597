// A second image: all typed views work on the one in force, so it takes its place for a while.
#pragma once

#include "model/Messages.h"
#include "model/ROMImage.h"
#include "model/Values.h"

#include <memory>

/// An image and the constants of its timing values.
struct TROMContents {
    std::unique_ptr<TROMImage> image = std::make_unique<TROMImage>();
    TTimingConstants timing{};
};

/// While it lives, `contents` is what every view reads and writes, and the messages of the model
/// reach nobody; then the one before is in force again. `contents` holds nothing meanwhile.
class TImageInForce {
public:
    explicit TImageInForce(TROMContents &contents);
    TImageInForce(const TImageInForce &) = delete;
    TImageInForce &operator=(const TImageInForce &) = delete;
    ~TImageInForce();

private:
    void Exchange();

    TROMContents &contents_;
    TMessageHook hook_;
};
