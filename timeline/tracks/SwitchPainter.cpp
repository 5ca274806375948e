#include "tracks/SwitchPainter.h"

#include "library/TimelineLibrary.h"
#include "tracks/RowView.h"
#include "tracks/ShapedTexts.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPixmap>

#include <algorithm>

namespace {

/// The picture of a state of a button or arrow; empty for a state that it does not have, which
/// would be another's picture.
const QPixmap& PictureOfState(PictureGroup group, int set, PictureSetSize states, int state)
{
    constexpr int kNoPicture = -1;
    const bool exists = state >= 0 && state < states;
    return TimelineLibrary::Instance().images.Picture(
        group, exists ? IndexInSets(set, states, state) : kNoPicture);
}

void DrawButton(QPainter& painter, const RowView& view, const QRect& box, const QPixmap& picture,
                const _tmpTLSwitchBtnData& button, const SwitchTrackStyle& style,
                ShapedTexts& texts)
{
    const QFontMetrics& metrics = texts.Metrics();
    const int textWidth = metrics.horizontalAdvance(button.text);
    const int x = box.x() + static_cast<int>((box.width() - textWidth) / 2.0 + 0.5);
    // A text wider than its button hangs over both ends, and letters may overhang their place.
    const long long overhang = std::max(box.x() - x, 0) + 1LL + metrics.height();
    const long long left = static_cast<long long>(box.x()) - view.row.left();
    if (!view.Shows(left - overhang, left + box.width() + overhang))
        return;

    painter.drawPixmap(box, picture);
    // The gap between the buttons also lowers their text.
    const double space =
        static_cast<double>(view.row.height()) - metrics.height() - style.buttonGap;
    const int baseline = static_cast<int>(box.y() + box.height() - space * 0.5);
    const bool on = IsSwitchOn(button.state);
    painter.setPen((on ? style.textColourOn : style.textColour).ToColor());
    texts.Draw(painter, QPoint(x, baseline), button.text);
}

} // namespace

const QPixmap& SwitchPictures::Button(int state) const
{
    return PictureOfState(kSwitchButtonPictures, m_style.buttonBmpType, kSwitchButtonStates, state);
}

const QPixmap& SwitchPictures::Arrow(int image) const
{
    return PictureOfState(kScrollArrowPictures, m_style.scrollBmpType, kScrollArrowStates, image);
}

SwitchLayout SwitchPictures::Layout(QSize row, int count) const
{
    return SwitchLayout(row, Button(kSwitchOff).size(), Arrow(SwitchArrowImages::kNormal).size(),
                        m_style.buttonGap, count);
}

void DrawSwitchRow(QPainter& painter, const RowView& view, const SwitchTrackStyle& style,
                   const SwitchRow& row)
{
    const QRect& rect = view.row;
    const SwitchPictures pictures(style);
    const SwitchLayout layout = pictures.Layout(rect.size(), static_cast<int>(row.buttons.size()));

    ShapedTexts& texts = ShapedTexts::For(painter);
    for (std::size_t i = 0; i < row.buttons.size(); ++i) {
        const int index = static_cast<int>(i);
        if (layout.AreButtonsBeyondEndFrom(index, row.scrollOffset))
            break;
        if (!layout.IsButtonVisible(index, row.scrollOffset))
            continue;
        const QRect box = layout.ButtonRect(index, row.scrollOffset).translated(rect.topLeft());
        DrawButton(painter, view, box, pictures.Button(row.buttons[i].state), row.buttons[i], style,
                   texts);
    }
    if (!row.arrowsShown)
        return;

    const QPixmap& left = pictures.Arrow(row.arrows.left);
    const QPixmap& right = pictures.Arrow(row.arrows.right);
    const int y = rect.top() + layout.ArrowTop();
    painter.drawPixmap(rect.left(), y, left);
    // The right arrow stands left of the row, where the caption that is painted after the row
    // covers it.
    painter.drawPixmap(rect.left() - pictures.Arrow(SwitchArrowImages::kNormal).width(), y, right);
}
