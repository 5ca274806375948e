#include "DarkTheme.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyleFactory>

#include <array>

namespace host {

namespace {

struct RoleColour
{
    QPalette::ColorRole role;
    QRgb colour;
};

constexpr std::array<RoleColour, 13> kColours{{{QPalette::Window, qRgb(36, 40, 46)},
                                               {QPalette::WindowText, qRgb(222, 227, 233)},
                                               {QPalette::Base, qRgb(28, 31, 36)},
                                               {QPalette::AlternateBase, qRgb(32, 36, 41)},
                                               {QPalette::Text, qRgb(222, 227, 233)},
                                               {QPalette::Button, qRgb(50, 55, 63)},
                                               {QPalette::ButtonText, qRgb(222, 227, 233)},
                                               {QPalette::BrightText, qRgb(250, 206, 110)},
                                               {QPalette::Highlight, qRgb(88, 216, 192)},
                                               {QPalette::HighlightedText, qRgb(20, 24, 28)},
                                               {QPalette::ToolTipBase, qRgb(50, 55, 63)},
                                               {QPalette::ToolTipText, qRgb(222, 227, 233)},
                                               {QPalette::Dark, qRgb(20, 22, 26)}}};
constexpr QRgb kDisabledText = qRgb(120, 128, 138);
constexpr int kFontPixels = 12; ///< in pixels, so that no desktop's resolution changes the layout

QPalette DarkPalette()
{
    QPalette palette;
    for (const RoleColour& each : kColours)
        palette.setColor(each.role,
                         QColor(each.colour)); // the active and the inactive window alike
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(kDisabledText));
    return palette;
}

} // namespace

void ApplyDarkTheme(QApplication& application)
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(DarkPalette());
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(kFontPixels);
    application.setFont(font);
}

} // namespace host
