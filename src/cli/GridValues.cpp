#include "cli/GridValues.h"

#include "cli/CellNames.h"
#include "system/PlainText.h"

const TVal *ValueAt(const TMap &map, int column, int row) {
    if (row == 0)
        return map.axes->rpmAxis->values->GetItem(column - 1, 0);
    if (column == 0)
        return map.axes->throttleAxis->values->GetItem(row - 1, 0);
    return map.data->values->GetItem(column - 1, row - 1);
}

std::string PictureAt(const TMap &map, int column, int row) {
    constexpr const char *loadPicture = "####0.#"; // 0.4 % to a count
    if (column == 0)
        return loadPicture;
    return row == 0 ? axisPicture : map.GetCellFormat();
}

std::string WithoutPercent(const std::string &text) {
    std::string_view number = Trim(text);
    if (number.ends_with('%'))
        number.remove_suffix(1);
    return std::string(Trim(number));
}
