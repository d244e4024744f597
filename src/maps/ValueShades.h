// Shades the cells of a map's grid by their values, from the least to the largest one that it
// shows.
#pragma once

#include "forms/Aligrid.h"
#include "maps/ValueColors.h"

#include <optional>

class TValueShades {
public:
    /// Of `grid`, which outlives this. Off.
    explicit TValueShades(TStringAlignGrid &grid);

    /// As the user has chosen.
    void Show();

    /// Whatever the user has chosen.
    void ShowAlways() { on_ = true; }

    /// One choice for all grids, remembered; off until it is made.
    static bool Chosen();
    static void Choose(bool on);

private:
    void Shade(int column, int row, std::optional<TColor> &shade);
    TValueScale Measured() const;

    TStringAlignGrid &grid_;
    bool on_ = false;
    std::optional<TValueScale> scale_; ///< none after a change, until it is needed
};
