// The search commands of the page "File Contents": their questions, and how their outcome is shown.
#include "filedisplay/FileDisplay.h"
#include "forms/Dialogs.h"
#include "forms/Hourglass.h"
#include "forms/KelvaneNotebook.h"
#include "model/Numbers.h"

#include <QStatusBar>

namespace {
std::optional<std::int32_t> NumberIn(const QString &text) {
    return TryParseInteger(text.toStdString());
}
} // namespace

void TfrmFileContents::ShowOutcome(const std::string &text) {
    { const TGridUpdate colored(*grdFile_); } // its end announces the new colours
    Say(text);
}

void TfrmFileContents::Say(const std::string &text) {
    if (const TfrmKelvaneNotebook *host = Notebook())
        host->StatusBar1->showMessage(QString::fromStdString(text));
}

void TfrmFileContents::EnterParamClick(std::int32_t TSearchParameters::*parameter,
                                       const QString &prompt) {
    std::int32_t &value = session.parameters.*parameter;
    const QString current = value == -1 ? QString("") : QString::number(value);
    const QString answer = Dialogs().InputBox(tr("Search Parameters"), prompt, current);
    value = NumberIn(answer).value_or(-1);
}

void TfrmFileContents::FindConsecutivePossFuelValsClick() {
    const THourglass hourglass;
    ShowOutcome(session.MarkPossibleFuelValues());
}

void TfrmFileContents::FindConsecutivePossTimeValsClick() {
    const THourglass hourglass;
    ShowOutcome(session.MarkPossibleTimingValues());
}

void TfrmFileContents::HighlightAValue1Click() {
    for (;;) {
        const QString answer =
            Dialogs().InputBox(tr("Find Value"), tr("Enter a value to search for"), "");
        if (answer.isEmpty())
            return;
        const std::optional<std::int32_t> value = NumberIn(answer);
        if (!value || *value < 0)
            continue; // asks again
        const THourglass hourglass;
        ShowOutcome(session.MarkValue(*value));
        return;
    }
}

void TfrmFileContents::FindMapPointers1Click() {
    const QString caption = tr("Indirect Ref Lookup");
    const QString answer = Dialogs().InputBox(caption, tr("Enter Address To Find"), "");
    // The mask is asked for and kept even when there is no address; this is intended.
    std::uint8_t &mask = session.parameters.pointerMask;
    const QString bits = Dialogs().InputBox(caption, tr("Mask Bits"), QString::number(mask));
    mask = static_cast<std::uint8_t>(NumberIn(bits).value_or(0));
    const std::optional<std::int32_t> number = NumberIn(answer);
    if (!number)
        return;
    const std::optional<TPointerAddress> address = SplitAddress(*number);
    if (!address) {
        Dialogs().ShowMessage(tr("Address out of range"));
        return;
    }
    const THourglass hourglass;
    ShowOutcome(session.MarkPointers(*address));
}

void TfrmFileContents::ClearAllMarkers1Click() {
    const THourglass hourglass;
    ShowOutcome(session.ClearAllMarkers());
}

void TfrmFileContents::HighlightFromSelected(TMapShape shape, TMapContents contents) {
    const THourglass hourglass;
    ShowOutcome(session.HighlightFromRecorded(shape, contents));
}

void TfrmFileContents::HighlightAll(TMapShape shape, TMapContents contents) {
    const THourglass hourglass;
    ShowOutcome(session.HighlightAllMaps(shape, contents));
}
