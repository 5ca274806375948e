#include "view/AboutBox.h"
#include "view/Theme.h"

#include <QAbstractButton>
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QStyle>
#include <QtTest>

#include <cmath>

using host::Theme;

namespace {

/// How far a colour stands out, from 0 (black) to 1 (white), as the eye weighs it.
double Luminance(QRgb colour)
{
    const auto linear = [](int value) { return std::pow(value / 255.0, 2.2); };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) +
           0.0722 * linear(qBlue(colour));
}

double Contrast(QRgb a, QRgb b)
{
    const double lighter = std::max(Luminance(a), Luminance(b));
    const double darker = std::min(Luminance(a), Luminance(b));
    return (lighter + 0.05) / (darker + 0.05);
}

/// The strongest contrast of any pixel with the picture's corner: of the text with its ground.
double StrongestContrast(const QImage& picture)
{
    const QRgb ground = picture.pixel(0, 0);
    double strongest = 1;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            strongest = std::max(strongest, Contrast(picture.pixel(x, y), ground));
    }
    return strongest;
}

QImage PictureOf(const QWidget& widget, const QRect& area)
{
    return const_cast<QWidget&>(widget).grab(area).toImage().convertToFormat(QImage::Format_RGB32);
}

void AddThemes()
{
    QTest::addColumn<int>("theme");
    QTest::newRow("dark") << static_cast<int>(Theme::Dark);
    QTest::newRow("high contrast") << static_cast<int>(Theme::HighContrast);
}

void Apply()
{
    QFETCH(int, theme);
    host::ApplyTheme(*qApp, static_cast<Theme>(theme));
}

} // namespace

class tst_Theme : public QObject
{
    Q_OBJECT

private slots:
    void disabledEntriesAreDimmerThanEnabledOnes_data() { AddThemes(); }
    void disabledEntriesAreDimmerThanEnabledOnes();
    void disabledButtonsAreDimmerThanEnabledOnes_data() { AddThemes(); }
    void disabledButtonsAreDimmerThanEnabledOnes();
    void everyTextCanBeReadOnItsGround_data() { AddThemes(); }
    void everyTextCanBeReadOnItsGround();
    void theAboutBoxCanBeRead_data() { AddThemes(); }
    void theAboutBoxCanBeRead();
};

void tst_Theme::disabledEntriesAreDimmerThanEnabledOnes()
{
    Apply();
    QMenu menu;
    QAction* const enabled = menu.addAction(QStringLiteral("Delete"));
    QAction* const disabled = menu.addAction(QStringLiteral("Delete"));
    disabled->setEnabled(false);
    menu.ensurePolished();
    menu.resize(menu.sizeHint());
    const auto inside = [&menu](QAction* action) {
        return PictureOf(menu, menu.actionGeometry(action).adjusted(2, 2, -2, -2));
    };
    const double seen = StrongestContrast(inside(disabled));
    QVERIFY2(seen > 2.5, qPrintable(QString::number(seen))); // it can be read all the same
    const double clear = StrongestContrast(inside(enabled));
    QVERIFY2(seen < 0.7 * clear, qPrintable(QStringLiteral("%1 %2").arg(seen).arg(clear)));
}

void tst_Theme::disabledButtonsAreDimmerThanEnabledOnes()
{
    Apply();
    QLabel enabled(QStringLiteral("Delete"));
    QLabel disabled(QStringLiteral("Delete"));
    disabled.setEnabled(false);
    const double seen = StrongestContrast(PictureOf(disabled, disabled.rect()));
    QVERIFY(seen > 2.5);
    QVERIFY(seen < 0.7 * StrongestContrast(PictureOf(enabled, enabled.rect())));
}

void tst_Theme::everyTextCanBeReadOnItsGround()
{
    Apply();
    using Role = QPalette::ColorRole;
    const QPalette palette = QApplication::palette();
    for (const auto& [text, ground] :
         {std::pair<Role, Role>{QPalette::WindowText, QPalette::Window},
          {QPalette::Text, QPalette::Base},
          {QPalette::ButtonText, QPalette::Button},
          {QPalette::HighlightedText, QPalette::Highlight},
          {QPalette::ToolTipText, QPalette::ToolTipBase},
          {QPalette::Link, QPalette::Window},
          {QPalette::LinkVisited, QPalette::Window},
          {QPalette::PlaceholderText, QPalette::Base}}) {
        const double seen = Contrast(palette.color(text).rgb(), palette.color(ground).rgb());
        QVERIFY2(seen >= 4.5, qPrintable(QStringLiteral("%1: %2").arg(text).arg(seen)));
    }
}

void tst_Theme::theAboutBoxCanBeRead()
{
    Apply();
    QWidget window;
    host::ShowAboutBox(&window);
    auto* const box = window.findChild<QMessageBox*>();
    QVERIFY(box);
    QCOMPARE(QApplication::style()->styleHint(QStyle::SH_DialogButtonBox_ButtonsHaveIcons), 0);
    for (QAbstractButton* const button : box->buttons()) {
        // A picture of the style's own is made for light windows.
        QVERIFY(button->icon().isNull());
        QVERIFY(StrongestContrast(PictureOf(*button, button->rect().adjusted(6, 6, -6, -6))) > 4.5);
    }
}

QTEST_MAIN(tst_Theme)
#include "tst_Theme.moc"
