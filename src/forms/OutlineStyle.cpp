#include "forms/OutlineStyle.h"

#include "forms/AligridColors.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <QStyleOptionComplex>

namespace {
constexpr int usualDarkening = 140; // percent; how much the toolkit's frames are darker
constexpr double leastVisible = 1.1;

void DrawOutline(QPainter &painter, const QStyleOption &option, const QRect &rect,
                 bool round = false) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, round);
    painter.setPen(option.palette.color(QPalette::WindowText));
    painter.setBrush(Qt::NoBrush);
    if (round)
        painter.drawEllipse(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5));
    else
        painter.drawRect(rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

bool HasOutline(QStyle::PrimitiveElement element) {
    switch (element) {
    case QStyle::PE_FrameLineEdit:
    case QStyle::PE_IndicatorCheckBox:
    case QStyle::PE_IndicatorRadioButton:
    case QStyle::PE_PanelButtonCommand:
    case QStyle::PE_PanelButtonTool:
    case QStyle::PE_FrameTabWidget:
    case QStyle::PE_PanelMenu:
        return true;
    default:
        return false;
    }
}

/// The toolkit frames the control that has the keys, and the default button, in the colour of the
/// selection; that stays.
bool IsMarked(const QStyleOption &option) {
    if (option.type == QStyleOption::SO_Button) {
        const auto &button = static_cast<const QStyleOptionButton &>(option);
        if (button.features.testFlag(QStyleOptionButton::DefaultButton))
            return true;
    }
    return option.state.testFlag(QStyle::State_HasFocus);
}

bool IsIndicator(QStyle::PrimitiveElement element) {
    return element == QStyle::PE_IndicatorCheckBox || element == QStyle::PE_IndicatorRadioButton;
}
} // namespace

bool TOutlineStyle::IsNeededFor(const QPalette &palette) {
    const QColor window = palette.color(QPalette::Window);
    return Contrast(window.darker(usualDarkening), window) < leastVisible;
}

void TOutlineStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                  QPainter *painter, const QWidget *widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (!HasOutline(element) || !IsNeededFor(option->palette))
        return;
    if (IsIndicator(element) || !IsMarked(*option))
        DrawOutline(*painter, *option, option->rect, element == PE_IndicatorRadioButton);
}

void TOutlineStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                       QPainter *painter, const QWidget *widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (!IsNeededFor(option->palette))
        return;
    if (control == CC_ScrollBar)
        DrawOutline(*painter, *option,
                    subControlRect(CC_ScrollBar, option, SC_ScrollBarSlider, widget));
    else if ((control == CC_SpinBox || control == CC_ComboBox) && !IsMarked(*option))
        DrawOutline(*painter, *option, option->rect);
}
