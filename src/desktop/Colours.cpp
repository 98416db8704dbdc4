#include "desktop/Colours.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
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

void useStyle(const QString& name)
{
    if (QApplication::style()->name() == name)
        return; // every window would be laid out anew
    if (QStyle* style = QStyleFactory::create(name))
        QApplication::setStyle(style);
}

} // namespace

bool areColoursDark()
{
    constexpr int kMiddleGrey = 128;
    return QApplication::palette().color(QPalette::Window).lightness() < kMiddleGrey;
}

void useOwnColours(bool dark)
{
    // Other styles do not draw everything in the colours that they are given.
    useStyle(QStringLiteral("fusion"));
    QApplication::setPalette(paletteOf(dark ? kDark : kLight));
}

void useColoursOfDesktop(const QString& style)
{
    useStyle(style);
    QApplication::setPalette(QPalette());
}

} // namespace lumeroom
