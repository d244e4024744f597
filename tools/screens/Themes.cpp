#include "screens/Themes.h"

namespace {
struct TThemeColors {
    QRgb window;
    QRgb base;
    QRgb alternate;
    QRgb button;
    QRgb text;
    QRgb disabled;
    QRgb highlight;
    QRgb highlighted;
    QRgb link;
};

QPalette PaletteOf(const TThemeColors &colors) {
    // From two colours the toolkit makes the shades of bevels and frames.
    QPalette palette(QColor(colors.button), QColor(colors.window));
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor text(group == QPalette::Disabled ? colors.disabled : colors.text);
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            palette.setColor(group, role, text);
        palette.setColor(group, QPalette::Base, QColor(colors.base));
        palette.setColor(group, QPalette::AlternateBase, QColor(colors.alternate));
        palette.setColor(group, QPalette::ToolTipBase, QColor(colors.base));
        palette.setColor(group, QPalette::ToolTipText, QColor(colors.text));
        palette.setColor(group, QPalette::PlaceholderText, QColor(colors.disabled));
        palette.setColor(group, QPalette::Highlight, QColor(colors.highlight));
        palette.setColor(group, QPalette::HighlightedText, QColor(colors.highlighted));
        palette.setColor(group, QPalette::Link, QColor(colors.link));
    }
    return palette;
}
} // namespace

const std::vector<TTheme> &Themes() {
    static const std::vector<TTheme> themes{
        {"light", PaletteOf({0xfff0f0f0, 0xffffffff, 0xfff7f7f7, 0xffe6e6e6, 0xff000000, 0xff8c8c8c,
                             0xff1f6fa8, 0xffffffff, 0xff0000ff})},
        {"dark", PaletteOf({0xff2a2d31, 0xff1b1e20, 0xff232629, 0xff33373b, 0xfffcfcfc, 0xff8a8f94,
                            0xff3d6a99, 0xffffffff, 0xff6cb2f0})},
        {"contrast", PaletteOf({0xff000000, 0xff000000, 0xff000000, 0xff000000, 0xffffffff,
                                0xff3ff23f, 0xff1aebff, 0xff000000, 0xffffff00})},
    };
    return themes;
}
