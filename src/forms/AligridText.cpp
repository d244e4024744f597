#include "forms/AligridText.h"

QString HeadedText(const TStringAlignGrid &grid, const TGridRect &rect, QChar separator) {
    const auto line = [&](int row) {
        return grid.Cell(0, row) + separator +
               grid.RectangleText({rect.left, row, rect.right, row}, separator);
    };
    QString text = line(0);
    for (int row = rect.top; row <= rect.bottom; ++row)
        text += line(row);
    return text;
}
