#include "model/ImageInForce.h"

#include <utility>

TImageInForce::TImageInForce(TROMContents &contents)
    : contents_(contents), hook_(SetMessageHook({})) {
    Exchange();
}

TImageInForce::~TImageInForce() {
    Exchange();
    SetMessageHook(std::move(hook_));
}

void TImageInForce::Exchange() {
    contents_.image = ExchangeROMImage(std::move(contents_.image));
    std::swap(contents_.timing, TimingConstants());
}
