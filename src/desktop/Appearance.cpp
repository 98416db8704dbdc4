#include "desktop/Appearance.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>

namespace lumeroom {

namespace {

struct Shades {
    QColor window;
    QColor base;
    QColor button;
    QColor text;
    QColor faintText;
    QColor highlight;
};

const Shades kLight{{246, 246, 247}, {255, 255, 255}, {240, 240, 241}, {28, 28, 30},
    {140, 140, 145}, {10, 105, 218}};
const Shades kDark{
    {30, 30, 32}, {42, 42, 45}, {58, 58, 62}, {236, 236, 240}, {140, 140, 146}, {64, 140, 255}};

QPalette paletteOf(const Shades& shades)
{
    QPalette palette(shades.button, shades.window);
    for (const auto role :
        {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, shades.text);
        palette.setColor(QPalette::Disabled, role, shades.faintText);
    }
    palette.setColor(QPalette::Base, shades.base);
    palette.setColor(QPalette::AlternateBase, shades.window);
    palette.setColor(QPalette::ToolTipBase, shades.base);
    palette.setColor(QPalette::PlaceholderText, shades.faintText);
    palette.setColor(QPalette::Highlight, shades.highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

} // namespace

void applyAppearance(CommandLine::Appearance appearance)
{
    if (appearance == CommandLine::Appearance::Desktop)
        return;
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(
        paletteOf(appearance == CommandLine::Appearance::Dark ? kDark : kLight));
}

} // namespace lumeroom
