#include "discovery/FoundPicture.h"

#include "forms/AligridColors.h"
#include "maps/ValueColors.h"

#include <algorithm>

QImage FoundPicture(TRomBytes image, const TMapPlace &place) {
    const TRomBytes body = image.subspan(place.Body(), place.BodySize());
    const auto [least, largest] = std::minmax_element(body.begin(), body.end());
    const int range = *largest - *least;
    QImage picture(place.rpmPoints, place.loadPoints, QImage::Format_RGB32);
    for (int x = 0; x < picture.width(); ++x)
        for (int y = 0; y < picture.height(); ++y) {
            const int value = body[static_cast<std::size_t>(x * picture.height() + y)];
            const double share = range > 0 ? static_cast<double>(value - *least) / range : 0.5;
            picture.setPixelColor(x, y, PaintedColor(ValueColor(share), {}));
        }
    return picture;
}
