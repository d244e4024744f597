#include "maps/ChartWalls.h"

#include <algorithm>

namespace {
/// What one point has of its wall: from half-way to the point before to half-way to the next.
struct TPiece {
    double left, middle, right; ///< along the bottom; the middle is the point's own place
    double leftHeight, height, rightHeight;
    TColor color;
};

/// One wall in its slot.
struct TSlab {
    std::vector<TPiece> pieces; ///< from left to right
    bool stairs;
    double nearZ;
    double farZ;
};

TPiece Mirrored(const TPiece &piece) {
    return {1 - piece.right, 1 - piece.middle, 1 - piece.left, piece.rightHeight,
            piece.height,    piece.leftHeight, piece.color};
}

std::vector<TPiece> PiecesOf(const TWall &wall, int places, const TWallLayout &layout) {
    const int count = static_cast<int>(wall.points.size());
    std::vector<double> heights;
    for (const TChartValue &point : wall.points)
        heights.push_back(IsReadable(point) ? layout.scale.Height(point.value) : 0);
    // Half the way to a neighbour; a wall of one point is a step of its own.
    const double half = 0.5 / std::max(places - 1, 1);
    std::vector<TPiece> pieces;
    for (int i = 0; i < count; ++i) {
        const auto height = [&](int index) {
            return heights[static_cast<std::size_t>(std::clamp(index, 0, count - 1))];
        };
        const double middle = PlaceOf(i, places, false);
        const bool alone = count == 1;
        TPiece piece{i > 0 || places == 1 ? middle - half : middle,
                     middle,
                     i < count - 1 || alone ? middle + half : middle,
                     (height(i - 1) + height(i)) / 2,
                     height(i),
                     (height(i + 1) + height(i)) / 2,
                     wall.points[static_cast<std::size_t>(i)].color};
        if (wall.stairs || alone)
            piece.leftHeight = piece.rightHeight = piece.height;
        pieces.push_back(layout.firstAtRight ? Mirrored(piece) : piece);
    }
    if (layout.firstAtRight)
        std::reverse(pieces.begin(), pieces.end());
    return pieces;
}

/// Turns slabs into faces, one after the other from the far to the near one.
class TFaceBuilder {
public:
    TFaceBuilder(const TChartProjection &projection, std::vector<TChartFace> &faces)
        : projection_(projection), away_(projection.Away()), faces_(faces) {}

    void Add(const TSlab &slab) {
        const std::size_t count = slab.pieces.size();
        sideBySide_ = false;
        for (std::size_t step = 0; step < count; ++step)
            AddInside(slab, away_.x > 0 ? count - 1 - step : step);
        if (away_.z != 0)
            for (std::size_t i = 0; i < count; ++i)
                AddFront(slab, i);
        if (away_.y > 0)
            AddFloor(slab);
    }

private:
    static constexpr unsigned leftAcross = 1, backRim = 2, rightAcross = 4, frontRim = 8;

    /// What lies behind the side along the wall and over the floor.
    void AddInside(const TSlab &slab, std::size_t index) {
        AddTops(slab, slab.pieces[index]);
        if (away_.x != 0)
            AddEnd(slab, index);
    }

    struct TPlace {
        double x;
        double y;
    };

    /// The upper sides, with a line across where the point stands, or round a step.
    void AddTops(const TSlab &slab, const TPiece &piece) {
        const TPlace left{piece.left, piece.leftHeight};
        const TPlace right{piece.right, piece.rightHeight};
        if (slab.stairs || piece.left == piece.middle || piece.middle == piece.right) {
            AddIfSeen(Top(slab, piece, left, right,
                          slab.stairs ? leftAcross | rightAcross
                                      : (piece.left == piece.middle ? leftAcross : rightAcross)));
            return;
        }
        const TPlace point{piece.middle, piece.height};
        TChartFace first = Top(slab, piece, left, point, rightAcross);
        TChartFace second = Top(slab, piece, point, right, leftAcross);
        if (away_.x > 0)
            std::swap(first, second);
        if (IsSeen(second)) // has the line across once
            first.ridges &= backRim | frontRim;
        AddIfSeen(first);
        AddIfSeen(second);
    }

    TChartFace Top(const TSlab &slab, const TPiece &piece, TPlace left, TPlace right,
                   unsigned ridges) const {
        // The near rim belongs to the side along the wall, where that is seen.
        const bool nearIsFront = slab.nearZ < slab.farZ;
        ridges |= nearIsFront ? backRim : frontRim;
        if (away_.z == 0)
            ridges |= backRim | frontRim;
        const double front = std::min(slab.nearZ, slab.farZ);
        const double back = std::max(slab.nearZ, slab.farZ);
        return Face({{left.x, left.y, front},
                     {left.x, left.y, back},
                     {right.x, right.y, back},
                     {right.x, right.y, front}},
                    piece.color, ridges);
    }

    void AddIfSeen(TChartFace face) {
        // Upper sides that are all seen lie side by side; behind a hidden one there is a slope that
        // the next one may cover.
        const bool seen = IsSeen(face);
        face.covers = !sideBySide_;
        sideBySide_ = seen;
        if (seen)
            faces_.push_back(face);
    }

    /// The lower side, which is the nearest one to a viewer below.
    void AddFloor(const TSlab &slab) {
        bool first = true;
        for (const TPiece &piece : slab.pieces) {
            TChartFace face = Face({{piece.left, 0, slab.nearZ},
                                    {piece.left, 0, slab.farZ},
                                    {piece.right, 0, slab.farZ},
                                    {piece.right, 0, slab.nearZ}},
                                   piece.color, backRim | frontRim);
            face.covers = first;
            first = false;
            faces_.push_back(face);
        }
    }

    /// The near end of a piece, as far as it rises over the next one.
    void AddEnd(const TSlab &slab, std::size_t index) {
        const bool atRight = away_.x < 0;
        const TPiece &piece = slab.pieces[index];
        const double top = atRight ? piece.rightHeight : piece.leftHeight;
        const double foot = HeightBeside(slab, index, atRight);
        sideBySide_ = sideBySide_ && top == foot;
        if (top <= foot)
            return;
        const double x = atRight ? piece.right : piece.left;
        TChartFace face =
            Face({{x, foot, slab.nearZ},
                  {x, top, slab.nearZ},
                  {x, top, slab.farZ},
                  {x, foot, slab.farZ}},
                 piece.color, away_.z == 0 ? 7 : 6); // the side along the wall has the near edge
        face.end = true;
        faces_.push_back(face);
    }

    /// Height of the neighbour at the common edge; 0 where there is none.
    static double HeightBeside(const TSlab &slab, std::size_t index, bool atRight) {
        if (atRight)
            return index + 1 < slab.pieces.size() ? slab.pieces[index + 1].leftHeight : 0;
        return index > 0 ? slab.pieces[index - 1].rightHeight : 0;
    }

    void AddFront(const TSlab &slab, std::size_t index) {
        const TPiece &piece = slab.pieces[index];
        const double z = slab.nearZ;
        TChartFace face{{}, 0, piece.color, 0};
        unsigned ridges = 0;
        const auto add = [&](double x, double y, bool ridge) {
            ridges |= (ridge ? 1U : 0U) << face.count;
            face.corners[face.count++] = projection_.Map({x, y, z});
        };
        const auto step = [&](bool atRight) {
            return HeightBeside(slab, index, atRight) !=
                   (atRight ? piece.rightHeight : piece.leftHeight);
        };
        add(piece.left, 0, step(false));
        add(piece.left, piece.leftHeight, true);
        if (!slab.stairs && piece.left < piece.middle && piece.middle < piece.right)
            add(piece.middle, piece.height, true);
        add(piece.right, piece.rightHeight, step(true));
        add(piece.right, 0, false);
        face.ridges = static_cast<std::uint8_t>(ridges);
        face.covers = index == 0;
        faces_.push_back(face);
    }

    TChartFace Face(const TBoxPoint (&corners)[4], TColor color, unsigned ridges) const {
        TChartFace face{{}, 4, color, static_cast<std::uint8_t>(ridges)};
        for (std::size_t i = 0; i < face.count; ++i)
            face.corners[i] = projection_.Map(corners[i]);
        return face;
    }

    /// Whether the face turns its upper side to the viewer: its corners then run clockwise.
    static bool IsSeen(const TChartFace &face) {
        const auto &[a, b, c, d, unused] = face.corners;
        return (c.x - a.x) * (d.y - b.y) - (c.y - a.y) * (d.x - b.x) > 0;
    }

    const TChartProjection &projection_;
    const TBoxPoint away_;
    std::vector<TChartFace> &faces_;
    bool sideBySide_ = false; ///< the last upper side of the slab was seen, no step after it
};
} // namespace

int PlaceCount(const std::vector<TWall> &walls) {
    std::size_t count = 0;
    for (const TWall &wall : walls)
        count = std::max(count, wall.points.size());
    return static_cast<int>(count);
}

double PlaceOf(int index, int count, bool firstAtRight) {
    if (count < 2)
        return 0.5;
    const double place = static_cast<double>(index) / (count - 1);
    return firstAtRight ? 1 - place : place;
}

double SlotOf(int index, int count) {
    return 1 - (index + 0.5) / std::max(count, 1);
}

std::vector<TChartFace> FacesOf(const std::vector<TWall> &walls, const TWallLayout &layout,
                                const TChartProjection &projection) {
    std::vector<TChartFace> faces;
    TFaceBuilder builder(projection, faces);
    const int count = static_cast<int>(walls.size());
    const int places = PlaceCount(walls);
    const bool fromBehind = projection.Away().z < 0;
    const double half = 0.5 / std::max(count, 1);
    for (int step = 0; step < count; ++step) {
        const int index = fromBehind ? count - 1 - step : step;
        const TWall &wall = walls[static_cast<std::size_t>(index)];
        const double middle = SlotOf(index, count);
        builder.Add({PiecesOf(wall, places, layout), wall.stairs,
                     fromBehind ? middle + half : middle - half,
                     fromBehind ? middle - half : middle + half});
    }
    return faces;
}
