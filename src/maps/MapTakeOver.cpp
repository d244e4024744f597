#include "maps/MapTakeOver.h"

#include "forms/Dialogs.h"
#include "maps/Maps.h"

#include <QCoreApplication>

namespace {
QString Step() {
    return QCoreApplication::translate("MapTakeOver", "Take Over");
}

std::vector<TCellText> Texts(TfrmMaps &page, TMapKind kind, const std::vector<TStoredCell> &cells) {
    const TMap &map = page.Map(kind);
    std::vector<TCellText> texts;
    for (const auto &[rpmPoint, loadPoint, byte] : cells) {
        const TVal *value = map.data->values->GetItem(rpmPoint, loadPoint);
        const std::string text =
            value ? EntryFor(*value, map.GetCellFormat(), byte) : std::string();
        if (!text.empty())
            texts.push_back({rpmPoint + 1, loadPoint + 1, QString::fromStdString(text)});
    }
    return texts;
}
} // namespace

void TakeOverCells(TfrmMaps &page, TMapKind kind, const std::vector<TStoredCell> &cells) {
    const std::vector<TCellText> texts = Texts(page, kind, cells);
    page.EnterTexts(kind, texts, Step());
    if (texts.size() < cells.size())
        Dialogs().ShowMessage(QCoreApplication::translate(
            "MapTakeOver", "Degrees cannot be entered while the timing divider is 0"));
}

void TakeOverMap(TfrmMaps &page, TMapKind kind, const TMap &map,
                 const std::vector<TStoredCell> &cells) {
    page.history.Run(Step(), [&] {
        if (page.Paste(&map, kind, Step()))
            page.EnterTexts(kind, Texts(page, kind, cells), Step()); // to mark them
    });
}
