// A chart as a picture of the form SVG: what the window paints, in plain text.
#pragma once

#include "maps/ChartLayout.h"

#include <string>

/// Black on white. The reader's DejaVu Sans, or what stands for it, is taken for the texts; how
/// wide they are is estimated.
std::string ChartSvg(const TChartContents &contents, int width, int height);
