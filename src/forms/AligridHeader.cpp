#include "forms/AligridHeader.h"

#include "forms/AligridTypes.h"

#include <algorithm>

#include <QPainter>
#include <QStyleOptionHeaderV2>

TAligridHeader::TAligridHeader(Qt::Orientation orientation, QWidget *parent)
    : QHeaderView(orientation, parent) {
    setSectionResizeMode(Fixed);
    setMinimumSectionSize(1);
    setHighlightSections(false);
    setSectionsClickable(false);
}

void TAligridHeader::paintSection(QPainter *painter, const QRect &rect, int section) const {
    if (!rect.isValid())
        return;
    QStyleOptionHeaderV2 option;
    initStyleOption(&option);
    option.rect = rect;
    initStyleOptionForIndex(&option, section);
    option.text.clear();
    painter->save(); // the style leaves its clipping behind
    style()->drawControl(QStyle::CE_Header, &option, painter, this);
    painter->restore();
    // The cells' margin instead of the style's, as far as the text leaves room for one.
    const QString text = model()->headerData(section, orientation()).toString();
    const int room = rect.width() - 1 - option.fontMetrics.horizontalAdvance(text);
    const int margin = std::clamp(room / 2, 0, cellTextMargin);
    style()->drawItemText(painter, rect.adjusted(margin, 0, -margin - 1, 0),
                          static_cast<int>(option.textAlignment) | Qt::TextForceLeftToRight,
                          option.palette, isEnabled(), text, QPalette::ButtonText);
}
