#include "Theme.h"

#include <QApplication>
#include <QFileInfo>
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

constexpr int kRoleCount = 13;

struct Colours
{
    std::array<RoleColour, kRoleCount> roles;
    QRgb disabledText;
};

constexpr Colours kDark{{{{QPalette::Window, qRgb(36, 40, 46)},
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
                          {QPalette::Dark, qRgb(20, 22, 26)}}},
                        qRgb(120, 128, 138)};

constexpr Colours kHighContrast{{{{QPalette::Window, qRgb(0, 0, 0)},
                                  {QPalette::WindowText, qRgb(255, 255, 255)},
                                  {QPalette::Base, qRgb(0, 0, 0)},
                                  {QPalette::AlternateBase, qRgb(20, 20, 20)},
                                  {QPalette::Text, qRgb(255, 255, 255)},
                                  {QPalette::Button, qRgb(56, 56, 56)},
                                  {QPalette::ButtonText, qRgb(255, 255, 255)},
                                  {QPalette::BrightText, qRgb(255, 224, 0)},
                                  {QPalette::Highlight, qRgb(255, 224, 0)},
                                  {QPalette::HighlightedText, qRgb(0, 0, 0)},
                                  {QPalette::ToolTipBase, qRgb(255, 255, 255)},
                                  {QPalette::ToolTipText, qRgb(0, 0, 0)},
                                  {QPalette::Dark, qRgb(255, 255, 255)}}},
                                qRgb(160, 160, 160)};

constexpr int kFontPixels = 12; ///< in pixels, so that no desktop's resolution changes the layout

QPalette PaletteOf(const Colours& colours)
{
    QPalette palette;
    for (const RoleColour& each : colours.roles)
        palette.setColor(each.role,
                         QColor(each.colour)); // the active and the inactive window alike
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(colours.disabledText));
    return palette;
}

} // namespace

Theme ThemeOfSkin(const QString& skinPath)
{
    const bool isContrast = QFileInfo(skinPath).fileName() == QLatin1String("contrast.ini");
    return isContrast ? Theme::HighContrast : Theme::Dark;
}

void ApplyTheme(QApplication& application, Theme theme)
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(PaletteOf(theme == Theme::HighContrast ? kHighContrast : kDark));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(kFontPixels);
    application.setFont(font);
}

} // namespace host
