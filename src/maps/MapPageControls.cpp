#include "maps/MapPageControls.h"

#include "forms/Hint.h"
#include "forms/PlainScroll.h"

#include <initializer_list>

#include <QScrollArea>
#include <QVBoxLayout>

TMapPageControls::TMapPageControls(TEmbeddedForm &page)
    : interpret(*new QCheckBox(tr("Interpret Byte Values"), &page)),
      bottomLine(*new TFoldingLine(&page)),
      maps(*new TMapRows(&page)),
      recalculate(*new QPushButton(tr("Recalculate"), &page)),
      close(*page.MakeCloseButton()) {
    interpret.setObjectName("chkInterpret");
    recalculate.setObjectName("btnRecalculate");
    SetHint(&interpret, tr("Show lambda trims or degrees in place of the stored bytes"));
    SetHint(&recalculate, tr("Show or hide the tool that changes many cells at once"));
    SetHint(&close, tr("Take the page away until the program is started again"));
    for (QWidget *control : std::initializer_list<QWidget *>{&interpret, &recalculate, &close})
        bottomLine.End().addWidget(control);
    auto *layout = new QVBoxLayout(&page);
    layout->addWidget(MakePlainScroll(&maps, &page), 1);
    layout->addWidget(&bottomLine);
}
