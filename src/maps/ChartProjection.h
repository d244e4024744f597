// The parallel projection of a chart's box onto the screen: turned about the vertical axis, tilted
// about the horizontal one, fitted into an area, zoomed, shifted. No drawing and no toolkit.
//
// Places in the box run from 0 to 1: x from left to right, y from the floor up, z from the near to
// the far side, all as seen straight from the front.
#pragma once

/// A place in the box.
struct TBoxPoint {
    double x;
    double y;
    double z;
};

/// A place on the screen, y downwards.
struct TScreenPoint {
    double x;
    double y;
};

/// A rectangle on the screen. Sizes below one unit count as one unit.
struct TScreenArea {
    double left;
    double top;
    double width;
    double height;
};

/// How a chart is looked at. Any numbers will do: angles are reduced modulo 360, the zoom is drawn
/// as at least 1 and at most largestZoom percent.
struct TChartView {
    int rotation = 340;         ///< degrees about the vertical axis; 360 is straight from the front
    int elevation = 351;        ///< degrees about the horizontal axis; 360 is level
    int zoom = 56;              ///< percent; 56 fills the area
    int horizontalOffset = -12; ///< thousandths of the area's width, to the right
    int verticalOffset = 7;     ///< thousandths of the area's height, downwards
};

/// One step of the view, the same for every button, key and notch of the wheel.
inline constexpr int turnStep = 1; ///< degrees, of rotation and elevation alike
inline constexpr int zoomStep = 5; ///< percent

/// Beyond this many percent nothing of a chart would be recognised.
inline constexpr int largestZoom = 5000;

/// The zoom that is drawn for `zoom`: 1 to largestZoom.
int DrawnZoom(int zoom);

/// Cosine and sine of a turn, exact at multiples of 90 degrees.
struct TTurn {
    double cosine;
    double sine;
};
/// The turn that is drawn for an angle of a view: 360 - angle, reduced modulo 360.
TTurn DrawnTurn(int angle);

class TChartProjection {
public:
    /// Projects a box whose depth is `depth` times its width. At zoom 56 the box fills `area` in
    /// the initial view and stays within it in every other; width and height are fitted each for
    /// itself, as a chart's axes have no common unit. The offsets come last.
    TChartProjection(const TChartView &view, double depth, const TScreenArea &area);

    /// Where a place of the box, or outside it, falls on the screen.
    TScreenPoint Map(const TBoxPoint &point) const;
    /// The direction of the view, away from the viewer, along the box's axes. Its signs say which
    /// sides of the box are far; they are exact, and the same at a depth of 0.
    TBoxPoint Away() const;

private:
    TTurn turn_;
    TTurn tilt_;
    double depth_;
    double scaleX_;
    double scaleY_;
    TScreenPoint centre_;
};
