#include "filedisplay/FileWalk.h"

#include "filedisplay/ContentsTexts.h"
#include "filedisplay/FileDisplay.h"
#include "forms/Dialogs.h"
#include "model/Numbers.h"

void TFileWalk::GoToOffset() {
    const QString answer =
        Dialogs().InputBox(tr("Go to Offset"), tr("Offset, decimal or hexadecimal behind a $"), "");
    if (answer.isEmpty())
        return;
    const std::string text = answer.toStdString();
    const std::optional<std::int32_t> offset = TryParseInteger(text);
    if (!offset)
        page_.Say(NoOffset(text));
    else if (*offset < 0 || static_cast<std::size_t>(*offset) >= page_.session.Size())
        page_.Say(OutsideTheImage(text, page_.session.Size()));
    else
        page_.GoTo(static_cast<std::size_t>(*offset));
}

void TFileWalk::GoToMark(TWay way) {
    const std::optional<TMarkPlace> mark = NextMark(page_.SeenMarks(), page_.CurrentOffset(), way);
    if (!mark) {
        page_.Say(NoCellIsMarked());
        return;
    }
    page_.GoTo(mark->offset);
    if (mark->wentRound)
        page_.Say(WentRound(way, page_.CellTold(mark->offset)));
}
