// Finding one's way on the page "File Contents": to an offset, from mark to mark. Which mark is
// next is NextMark.h's; the overview strip beside the grid is Overview.h's.
#pragma once

#include "filedisplay/NextMark.h"

#include <QCoreApplication>

class TfrmFileContents;

class TFileWalk {
    Q_DECLARE_TR_FUNCTIONS(TFileWalk)
public:
    /// Of `page`, which outlives this and shows an image whenever one of these is called.
    explicit TFileWalk(TfrmFileContents &page) : page_(page) {}

    /// Asks for an offset and goes there; what is none is said below. An empty answer ends it.
    void GoToOffset();
    /// Goes to the next mark of the current cell's kind, from an unmarked cell to one of any kind.
    void GoToMark(TWay way);

private:
    TfrmFileContents &page_;
};
