#include "Theme.h"

#include <QApplication>
#include <QFileInfo>
#include <QFont>
#include <QPalette>
#include <QProxyStyle>

#include <array>

namespace host {

namespace {

struct RoleColour
{
    QPalette::ColorRole role;
    QRgb colour;
};

constexpr int kRoleCount = 20;

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
                          {QPalette::Light, qRgb(66, 72, 82)},
                          {QPalette::Midlight, qRgb(58, 64, 73)},
                          {QPalette::Mid, qRgb(28, 31, 36)},
                          {QPalette::Dark, qRgb(20, 22, 26)},
                          {QPalette::Shadow, qRgb(10, 11, 13)},
                          {QPalette::Link, qRgb(88, 216, 192)},
                          {QPalette::LinkVisited, qRgb(150, 190, 216)},
                          {QPalette::PlaceholderText, qRgb(140, 148, 158)}}},
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
                                  {QPalette::Light, qRgb(96, 96, 96)},
                                  {QPalette::Midlight, qRgb(72, 72, 72)},
                                  {QPalette::Mid, qRgb(128, 128, 128)},
                                  {QPalette::Dark, qRgb(255, 255, 255)},
                                  {QPalette::Shadow, qRgb(0, 0, 0)},
                                  {QPalette::Link, qRgb(0, 255, 255)},
                                  {QPalette::LinkVisited, qRgb(255, 160, 255)},
                                  {QPalette::PlaceholderText, qRgb(190, 190, 190)}}},
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
    // The style paints disabled texts a second time, a pixel off, in this colour: not to be seen.
    palette.setColor(QPalette::Disabled, QPalette::Light, palette.color(QPalette::Window));
    return palette;
}

/// The style of the program. Its own pictures for the buttons of dialogs are dark, made for light
/// windows: the buttons go without.
class HostStyle : public QProxyStyle
{
public:
    HostStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override
    {
        return hint == SH_DialogButtonBox_ButtonsHaveIcons
                   ? 0
                   : QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

} // namespace

Theme ThemeOfSkin(const QString& skinPath)
{
    const bool isContrast = QFileInfo(skinPath).fileName() == QLatin1String("contrast.ini");
    return isContrast ? Theme::HighContrast : Theme::Dark;
}

void ApplyTheme(QApplication& application, Theme theme)
{
    QApplication::setStyle(new HostStyle);
    QApplication::setPalette(PaletteOf(theme == Theme::HighContrast ? kHighContrast : kDark));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(kFontPixels);
    application.setFont(font);
}

} // namespace host
