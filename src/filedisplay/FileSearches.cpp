#include "filedisplay/FileSearches.h"

#include "filedisplay/FileDisplay.h"
#include "forms/Dialogs.h"
#include "forms/Hourglass.h"
#include "model/Numbers.h"

namespace {
std::optional<std::int32_t> NumberIn(const QString &text) {
    return TryParseInteger(text.toStdString());
}
} // namespace

void TFileSearches::EnterParamClick(std::int32_t TSearchParameters::*parameter,
                                    const QString &prompt) {
    std::int32_t &value = page_.session.parameters.*parameter;
    const QString current = value == -1 ? QString("") : QString::number(value);
    const QString answer = Dialogs().InputBox(tr("Search Parameters"), prompt, current);
    value = NumberIn(answer).value_or(-1);
}

void TFileSearches::HighlightAValue1Click() {
    for (;;) {
        const QString answer =
            Dialogs().InputBox(tr("Find Value"), tr("Enter a value to search for"), "");
        const std::optional<std::int32_t> value = NumberIn(answer);
        if (value && *value >= 0)
            Run([=](TContentsSession &own) { return own.MarkValue(*value); });
        if (answer.isEmpty() || (value && *value >= 0))
            return; // otherwise asks again
    }
}

void TFileSearches::FindMapPointers1Click() {
    const QString caption = tr("Indirect Ref Lookup");
    const QString answer = Dialogs().InputBox(caption, tr("Enter Address To Find"), "");
    // The mask is asked for and kept even when there is no address; see docs/peculiarities.md.
    std::uint8_t &mask = page_.session.parameters.pointerMask;
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
    Run([=](TContentsSession &own) { return own.MarkPointers(*address); });
}

void TFileSearches::Run(const std::function<std::string(TContentsSession &)> &operation) {
    const THourglass hourglass;
    page_.ShowOutcome(operation(page_.session));
}
