#include "support/FakeDialogs.h"

#include <gtest/gtest.h>

namespace {
template <class Item>
Item Take(std::deque<Item> &queue, const QString &what, Item otherwise) {
    if (queue.empty()) {
        ADD_FAILURE() << "no answer scripted for: " << what.toStdString();
        return otherwise;
    }
    Item item = queue.front();
    queue.pop_front();
    return item;
}
} // namespace

TFakeDialogs::TFakeDialogs() {
    SetDialogs(this);
}

TFakeDialogs::~TFakeDialogs() {
    SetDialogs(nullptr);
}

void TFakeDialogs::ShowMessage(const QString &text) {
    messages << text;
    if (duringMessage)
        duringMessage();
}

TAnswer TFakeDialogs::AskYesNo(const QString &text) {
    return NextAnswer(text, TAnswer::No);
}

TAnswer TFakeDialogs::AskAboutEdits(const QString &text) {
    insisting << text;
    return NextAnswer(text, TAnswer::No);
}

TAnswer TFakeDialogs::AskYesNoCancel(const QString &text) {
    return NextAnswer(text, TAnswer::Cancel);
}

TAnswer TFakeDialogs::NextAnswer(const QString &text, TAnswer otherwise) {
    questions << text;
    return Take(answers, text, otherwise);
}

QString TFakeDialogs::InputBox(const QString &caption, const QString &prompt, const QString &text) {
    inputBoxes << caption + "|" + prompt + "|" + text;
    const QString answer = Take(inputs, prompt, QString());
    return answer.isNull() ? text : answer;
}

QString TFakeDialogs::OpenFile(const QString &filter, const QString &initialDir) {
    openDialogs << filter + "|" + initialDir;
    return Take(opens, filter, QString());
}

bool TFakeDialogs::RunSaveDialog(TSaveDialog &dialog) {
    saveDialogs << dialog.title + "|" + dialog.filter + "|" + dialog.defaultExt + "|" +
                       dialog.OfferedName();
    const QString name = Take(saves, dialog.title, QString());
    if (name.isEmpty())
        return false;
    dialog.fileName = name;
    return true;
}

void TFakeDialogs::TakeSteps(const QString &text, int count, const std::function<void()> &take) {
    steps << text + "|" + QString::number(count);
    for (int taken = 0; taken < std::min(count, stepsBeforeCancel); ++taken) {
        if (duringStep)
            duringStep();
        take();
    }
}
