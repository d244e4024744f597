#include "model/LiteralMap.h"

namespace {
constexpr int gridLimit = 32;

bool Inside(const std::vector<std::uint8_t> &image, std::int64_t place) {
    return place >= 0 && place < static_cast<std::int64_t>(image.size());
}
} // namespace

std::uint8_t ByteAt(const std::vector<std::uint8_t> &image, std::int64_t place) {
    return Inside(image, place) ? image[static_cast<std::size_t>(place)] : std::uint8_t{0};
}

void PutByte(std::vector<std::uint8_t> &image, std::int64_t place, std::int64_t value) {
    if (Inside(image, place))
        image[static_cast<std::size_t>(place)] = static_cast<std::uint8_t>(value & 0xFF);
}

void TLiteralAxis::Load(const std::vector<std::uint8_t> &image, std::int64_t at) {
    offset = at;
    count = ByteAt(image, at + 1);
    points.assign(static_cast<std::size_t>(count % gridLimit), 0);
    if (Behind() > static_cast<std::int64_t>(image.size()))
        return;
    std::int32_t point = base;
    std::int64_t place = Behind();
    for (std::size_t k = points.size(); k-- > 0;) {
        point -= ByteAt(image, --place);
        points[k] = point;
    }
}

void TLiteralAxis::Write(std::vector<std::uint8_t> &image) const {
    if (offset == 0 || count >= gridLimit || Behind() > static_cast<std::int64_t>(image.size()))
        return;
    for (std::size_t k = 0; k < points.size(); ++k) {
        const std::int64_t next = k + 1 < points.size() ? points[k + 1] : base;
        PutByte(image, offset + 2 + static_cast<std::int64_t>(k), next - points[k]);
    }
}

void TLiteralMap::Load(const std::vector<std::uint8_t> &image, std::int64_t at) {
    rpm.Load(image, at);
    body = rpm.Behind();
    rows = rpm.count % gridLimit;
    columns = 1;
    if (twoAxes) {
        load.Load(image, body);
        body = load.Behind();
        columns = load.count % gridLimit;
    } else {
        load.count = 1;
        load.points = {0};
    }
    converted = false;
    cells.clear();
    for (int i = 0; i < rows * columns; ++i)
        cells.push_back(ByteAt(image, body + i));
}

void TLiteralMap::Write(std::vector<std::uint8_t> &image) const {
    rpm.Write(image);
    if (twoAxes)
        load.Write(image);
    if (CannotBeWritten(image))
        return;
    for (std::size_t i = 0; i < cells.size(); ++i)
        PutByte(image, body + static_cast<std::int64_t>(i), cells[i]);
}

bool TLiteralMap::CannotBeWritten(const std::vector<std::uint8_t> &image) const {
    return !cells.empty() && !Inside(image, body);
}

void TLiteralMap::Paste(const TLiteralMap &copied) {
    rpm.count = copied.rpm.count;
    rpm.points = copied.rpm.points;
    load.count = copied.load.count;
    load.points = copied.load.points;
    rows = copied.rows;
    columns = copied.columns;
    cells = copied.cells;
    converted = copied.converted;
}

std::int32_t *TLiteralMap::Cell(int rpmPoint, int loadPoint) {
    const bool there = rpmPoint >= 0 && rpmPoint < rows && loadPoint >= 0 && loadPoint < columns;
    return there ? &cells[static_cast<std::size_t>(rpmPoint * columns + loadPoint)] : nullptr;
}
