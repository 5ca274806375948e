#include "tracks/CTimelineTrackClip.h"

#include "ClipBuilder.h"
#include "support/PictureCheck.h"
#include "support/TimelineFixture.h"
#include "tracks/CTimelineTrackBaseInterface.h"

#include <QLinearGradient>
#include <QtTest>

#include <random>

using KestovaTest::DrawRow;
using KestovaTest::MakeClip;
using KestovaTest::ResetAxis;

namespace {

constexpr int kRowHeight = 27; // of the clip rows' caption picture
constexpr int kBarTop = 2;     // bars are 20 pixels high: (26 - 20 + 1) / 2 = 3, less a half
constexpr int kBarBottom = 22;
constexpr int kMiddle = 12;
const QColor kGround(Qt::magenta);

/// An owner that answers every message with @p answer and counts them.
class AnsweringOwner : public CTimelineTrackBaseInterface
{
public:
    explicit AnsweringOwner(int answer) : m_answer(answer) {}

    int OnTrackMessage(int code, CTimelineTrackBase* track, int number, QVariant value1,
                       QVariant value2, QVariant value3) override
    {
        codes << code;
        tracks << track;
        empty = empty && number == 0 && value1 == QVariant(0) && value2 == QVariant(0) &&
                value3 == QVariant(0);
        return m_answer;
    }
    bool OnTrackDrop(QDropEvent*, CTimelineTrackBase*) override { return false; }
    bool OnTrackDragCheck(QDropEvent*, CTimelineTrackBase*, int) override { return false; }

    QVector<int> codes;
    QVector<CTimelineTrackBase*> tracks;
    bool empty = true;

private:
    int m_answer;
};

/// Only the clips, as DrawTrack has them painted: on a plain ground, with the gradients starting at
/// the row's top.
QImage DrawClips(CTimelineTrackClip& track, QSize size, const QRect& clip = QRect())
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(kGround);
    QPainter painter(&image);
    painter.setBrushOrigin(0, 0);
    if (clip.isValid())
        painter.setClipRect(clip);
    track.DrawKeys(&painter, image.rect());
    return image;
}

/// The clips painted step by step: every clip of the track, every pass, every shortening of its
/// name, without leaving out what is out of sight.
class PlainClipPainter
{
public:
    PlainClipPainter(QPainter& painter, QRect row, const ClipTrackStyle& style,
                     const FrameAxis& axis)
        : m_painter(painter), m_row(row), m_style(style), m_axis(axis)
    {
        painter.setFont(style.font);
    }

    void Draw(const CTimelineKeyArray& keys)
    {
        for (const auto& key : keys.Keys()) {
            if (key->clipLength >= 1)
                DrawClip(*key);
        }
    }

private:
    void DrawClip(const CTimelineKey& clip)
    {
        const long long end = clip.frame + clip.displayLength + 1LL;
        const int width = m_row.width();
        const int last = m_axis.FrameToPixel(m_axis.frameCount);
        if (clip.frame >= m_axis.frameCount)
            return;
        const int x0 = m_axis.FrameToPixel(clip.frame);
        int x1 = std::min({m_axis.FrameToPixel(end), width, last});
        if (x0 == x1)
            x1 = x0 + 1;
        if (x1 < 0 || x0 > last || clip.frame > m_axis.PixelToFrame(width) ||
            end < m_axis.PixelToFrame(0))
            return;

        const bool locked = clip.lockState == 1;
        const auto& unlockedSet = clip.alternateStyle ? m_style.alternate : m_style.normal;
        const auto& set = locked ? m_style.locked : unlockedSet;
        const auto& gradientSet = locked && clip.selected ? unlockedSet : set;
        const int k = (m_row.bottom() - m_style.height - m_row.top() + 1) / 2;
        const int top = m_row.top() + int(k - 0.5);
        const int bottom = top + m_style.height;
        const int left = m_row.left() + x0;
        QLinearGradient gradient(0, 0, 0, m_style.height + 1);
        const QColor up = gradientSet.gradientUp[clip.selected].ToColor();
        const QColor down = gradientSet.gradientDown[clip.selected].ToColor();
        gradient.setStops({{0.0, up}, {0.3, up}, {0.7, down}, {1.0, down}});
        m_painter.setPen(set.border[clip.selected]);
        m_painter.setBrush(gradient);
        m_painter.drawRect(QRect(QPoint(left, top), QPoint(m_row.left() + x1, bottom)));

        if (clip.selected) {
            const int xt = m_row.left() + m_axis.FrameToPixel(clip.frame - clip.transitionFrames);
            m_painter.drawLine(xt, top, xt, bottom);
            m_painter.drawLine(xt, top, left, top);
            m_painter.drawLine(xt, bottom + 1, left, bottom + 1);
        }
        for (int i = 1; i < clip.loopCount; ++i) {
            const int xi = m_axis.FrameToPixel(clip.frame + i * clip.clipLength + 1);
            if (xi >= x1)
                break;
            m_painter.drawLine(m_row.left() + xi, top, m_row.left() + xi, bottom);
        }
        DrawName(clip, x0, x1);
    }

    void DrawName(const CTimelineKey& clip, int x0, int x1)
    {
        const int width = x1 - (x0 + 5) + 1;
        const QString text = Shortened(clip.name, width);
        if (clip.name.isEmpty() || text.isEmpty())
            return;
        const bool trial = clip.kindMask & 8;
        const auto& colours = trial ? m_style.normal.textColourTrial : m_style.normal.textColour;
        m_painter.setPen(colours[clip.selected].ToColor());
        const int size = m_style.font.pointSize();
        const int baseline = m_row.top() + int((m_row.bottom() - m_row.top() - size) * 0.5) + size;
        m_painter.drawText(m_row.left() + x0 + 5, baseline, text);
    }

    QString Shortened(const QString& name, int width) const
    {
        QStringList tries(name);
        for (int n = name.length(); n >= 0; --n)
            tries << name.left(n) + "...";
        tries << ".."
              << ".";
        for (const QString& text : tries) {
            if (m_painter.fontMetrics().size(Qt::TextSingleLine, text).width() <= width)
                return text;
        }
        return QString();
    }

    QPainter& m_painter;
    QRect m_row;
    const ClipTrackStyle& m_style;
    const FrameAxis& m_axis;
};

bool HasColour(const QImage& image, const QColor& colour)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == colour)
                return true;
        }
    }
    return false;
}

/// The largest difference of a colour component between two pictures of one size.
int LargestDifference(const QImage& a, const QImage& b)
{
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            largest = std::max({largest, std::abs(qRed(p) - qRed(q)),
                                std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
        }
    }
    return largest;
}

/// The columns of row @p y that have @p colour.
QVector<int> ColumnsOf(const QImage& image, int y, const QColor& colour)
{
    QVector<int> columns;
    for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y) == colour)
            columns << x;
    }
    return columns;
}

QVector<int> Range(int first, int last)
{
    QVector<int> numbers;
    for (int i = first; i <= last; ++i)
        numbers << i;
    return numbers;
}

} // namespace

class tst_CTimelineTrackClip : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY(KestovaTest::PrepareTimeline()); }

    void init()
    {
        ResetAxis(100, 5.0);
        m_track.reset(new CTimelineTrackClip);
        QVERIFY(m_track->Init(nullptr));
        QVERIFY(m_track->LoadStyle(1));
        m_track->SetRowHeight(kRowHeight);
        Style().font.setStyleStrategy(QFont::NoAntialias); // letters then have their plain colour
        QCOMPARE(Style().height, 20);
    }

    // --- the track ------------------------------------------------------------------------------

    void startsAsAClipRowWithoutAnEdgeDrag()
    {
        CTimelineTrackClip track;
        QCOMPARE(track.accessibleName(), QString("CTimelineTrackClip"));
        QCOMPARE(track.GetTrackType(), int(TL_TRACK_NONE));
        QWidget parent;
        QVERIFY(track.Init(&parent));
        QCOMPARE(track.GetTrackType(), int(TL_TRACK_CLIP));
        QCOMPARE(track.parentWidget(), &parent);
        QCOMPARE(track.size(), QSize(20, 20));
        QCOMPARE(track.sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
        QCOMPARE(track.sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
        QCOMPARE(track.GetEdgeDrag().Edge().clip, -1);
        QCOMPARE(track.GetEdgeDrag().Edge().kind, -1);
        QVERIFY(!track.GetEdgeDrag().HasMoved());
        track.setParent(nullptr);
    }

    void itsCursorsArePicturesHeldAtTheirCentre()
    {
        for (const QCursor* cursor : {&m_track->LoopCursor(), &m_track->SpeedCursor()}) {
            QCOMPARE(cursor->shape(), Qt::BitmapCursor);
            QCOMPARE(cursor->pixmap().size(), QSize(24, 24));
            QCOMPARE(cursor->hotSpot(), QPoint(12, 12));
        }
        QCOMPARE(m_track->LoopCursor().pixmap().toImage(), QPixmap(":/Bitmap/loop.png").toImage());
        QCOMPARE(m_track->SpeedCursor().pixmap().toImage(),
                 QPixmap(":/Bitmap/speed.png").toImage());
    }

    void loopEdgesShowTheLoopCursorSpeedAndTrimEdgesTheSpeedCursor()
    {
        QCOMPARE(m_track->CursorFor(TL_EDIT_CLIP_LOOP), &m_track->LoopCursor());
        QCOMPARE(m_track->CursorFor(TL_EDIT_CLIP_SPEED), &m_track->SpeedCursor());
        QCOMPARE(m_track->CursorFor(TL_EDIT_CLIP_TRIM), &m_track->SpeedCursor());
        QVERIFY(!m_track->CursorFor(-1));
    }

    void drawingGivesTheWidgetTheRowsSize()
    {
        DrawClips(*m_track, QSize(321, kRowHeight));
        QCOMPARE(m_track->size(), QSize(321, kRowHeight));
    }

    void aTrackWithoutAStyleDrawsNoClips()
    {
        CTimelineTrackClip track;
        track.Init(nullptr);
        track.Keys().Add(MakeClip(10, 10), false);
        const QImage image = DrawClips(track, QSize(200, kRowHeight));
        QCOMPARE(ColumnsOf(image, kMiddle, kGround).size(), 200);
        QCOMPARE(track.size(), QSize(200, kRowHeight));
    }

    void drawingSetsTheStylesFont()
    {
        QImage image(50, kRowHeight, QImage::Format_RGB32);
        QPainter painter(&image);
        m_track->DrawKeys(&painter, image.rect());
        QCOMPARE(painter.font().pointSize(), 8);
        QCOMPARE(painter.font().family(), QString("DejaVu Sans"));
    }

    // --- bars -----------------------------------------------------------------------------------

    void aBarReachesFromItsFrameToTheFrameAfterItsEnd()
    {
        Add(MakeClip(10, 10));
        const QImage image = Draw();
        // Column 50 is frame 10, column 105 the end of frame 20; the outline adds one.
        QCOMPARE(PaintedColumns(image), Range(50, 106));
        QCOMPARE(ColumnsOf(image, kMiddle, Border(Style().normal)), QVector<int>({50, 106}));
        for (const int y : {kBarTop, kBarBottom + 1})
            QCOMPARE(ColumnsOf(image, y, Border(Style().normal)), Range(50, 106));
        for (const int y : {kBarTop - 1, kBarBottom + 2})
            QCOMPARE(ColumnsOf(image, y, kGround).size(), image.width());
    }

    void aBarFadesFromTheUpperToTheLowerColour()
    {
        Add(MakeClip(10, 10));
        const QImage image = Draw();
        const auto& look = Style().normal;
        // The gradient spans rows 0 to 21: flat for the first 30 % and the last 30 %.
        for (const int y : {3, 5})
            QCOMPARE(image.pixelColor(70, y), look.gradientUp[0].ToColor());
        for (const int y : {15, 22})
            QCOMPARE(image.pixelColor(70, y), look.gradientDown[0].ToColor());
        const QColor between = image.pixelColor(70, 10);
        QVERIFY(between.green() < look.gradientUp[0].ToColor().green());
        QVERIFY(between.green() > look.gradientDown[0].ToColor().green());
    }

    void theColoursTellTheStates_data()
    {
        QTest::addColumn<int>("lock");
        QTest::addColumn<bool>("alternate");
        QTest::addColumn<bool>("selected");
        QTest::addColumn<int>("border"); // 0 normal, 1 locked, 2 alternate
        QTest::addColumn<int>("fill");
        QTest::newRow("normal") << 0 << false << false << 0 << 0;
        QTest::newRow("selected") << 0 << false << true << 0 << 0;
        QTest::newRow("locked") << 1 << false << false << 1 << 1;
        QTest::newRow("locked and selected") << 1 << false << true << 1 << 0;
        QTest::newRow("alternate") << 0 << true << false << 2 << 2;
        QTest::newRow("alternate, selected") << 0 << true << true << 2 << 2;
        QTest::newRow("locked, alternate") << 1 << true << false << 1 << 1;
        QTest::newRow("locked, alternate, selected") << 1 << true << true << 1 << 2;
        QTest::newRow("another lock state is no lock") << 2 << false << true << 0 << 0;
    }
    void theColoursTellTheStates()
    {
        QFETCH(int, lock);
        QFETCH(bool, alternate);
        QFETCH(bool, selected);
        QFETCH(int, border);
        QFETCH(int, fill);
        auto clip = MakeClip(10, 10);
        clip->lockState = lock;
        clip->alternateStyle = alternate;
        clip->selected = selected;
        Add(clip);
        ClipTrackStyle::Look* const looks[] = {&Style().normal, &Style().locked,
                                               &Style().alternate};
        for (int i = 0; i < 3; ++i) { // colours that cannot be taken for each other
            for (int s : {0, 1}) {
                const float part = static_cast<float>(i + 1) / 8.0f;
                looks[i]->border.entries[s].pen.setColor(QColor(200, 20 * i, 200 * s));
                looks[i]->gradientUp[s] = {part, static_cast<float>(s), 0, 1};
                looks[i]->gradientDown[s] = {part, static_cast<float>(s), 1, 1};
            }
        }
        const QImage image = Draw();
        QCOMPARE(image.pixelColor(50, kMiddle), looks[border]->border[selected].color());
        QCOMPARE(image.pixelColor(70, 4), looks[fill]->gradientUp[selected].ToColor());
        QCOMPARE(image.pixelColor(70, 20), looks[fill]->gradientDown[selected].ToColor());
    }

    void aClipNarrowerThanOnePixelIsDrawnOnePixelWide()
    {
        ResetAxis(4000, 0.05); // 21 frames a pixel
        Add(MakeClip(210, 3)); // frames 210 to 213: all in column 10
        // One pixel wide, and the outline's right edge beside it.
        QCOMPARE(PaintedColumns(Draw()), Range(10, 12));
    }

    void aClipWithANegativeDisplayLengthIsDrawnFromItsEndToItsStart()
    {
        auto clip = MakeClip(20, 5);
        Add(clip);
        clip->displayLength = -10; // ends at frame 11
        m_track->InvalidateCaches();
        // The outline of a rectangle from 100 back to 55 runs one pixel right of its end.
        QCOMPARE(PaintedColumns(Draw()), Range(56, 100));
        clip->displayLength = -30; // ends left of the view
        m_track->InvalidateCaches();
        QVERIFY(PaintedColumns(Draw()).isEmpty());
    }

    void aClipIsCutAtTheLastFrame()
    {
        ResetAxis(15, 5.0);
        Add(MakeClip(10, 10));
        QCOMPARE(PaintedColumns(Draw()), Range(50, 76));
    }

    void aClipIsCutAtTheRowsRightEdge()
    {
        Add(MakeClip(10, 80));
        auto named = MakeClip(91, 5, 1, "never drawn");
        Add(named);
        const QImage image = Draw(QSize(103, kRowHeight));
        QCOMPARE(PaintedColumns(image), Range(50, 102));
    }

    void aClipThatStartsAtTheLastFrameOrBeyondIsNotDrawn()
    {
        ResetAxis(10, 5.0);
        Add(MakeClip(10, 10));
        Add(MakeClip(40, 5));
        QVERIFY(PaintedColumns(Draw()).isEmpty());
    }

    void aKeyWithoutLengthIsNoClip()
    {
        Add(MakeClip(10, 0, 3, "key"));
        QVERIFY(PaintedColumns(Draw()).isEmpty());
    }

    void aClipEndsBeforeTheNextKey()
    {
        Add(MakeClip(10, 40));
        Add(MakeClip(20, 0));
        QCOMPARE(PaintedColumns(Draw()), Range(50, 101));
    }

    void aClipThatBeginsLeftOfTheViewIsDrawnFromItsStart()
    {
        ResetAxis(100, 5.0, 80); // the clip's first 6 frames are scrolled out
        Add(MakeClip(2, 3));
        Add(MakeClip(10, 10));
        QCOMPARE(PaintedColumns(Draw()), Range(0, 26));
    }

    void aClipThatEndsInTheLastFrameOutOfViewShowsItsRightEdge()
    {
        ResetAxis(100, 5.0, 105); // frame 21 is the first in view, right where the clip ends
        Add(MakeClip(10, 10));
        QCOMPARE(PaintedColumns(Draw()), QVector<int>({0, 1}));
        ResetAxis(100, 5.0, 110);
        QVERIFY(PaintedColumns(Draw()).isEmpty());
    }

    // --- lead-in, dividers, names ---------------------------------------------------------------

    void aSelectedClipShowsItsLeadIn()
    {
        auto clip = MakeClip(10, 10);
        clip->transitionFrames = 4;
        clip->selected = true;
        Add(clip);
        const QImage image = Draw();
        const QColor border = Style().normal.border[1].color();
        QCOMPARE(ColumnsOf(image, kMiddle, border), QVector<int>({30, 50, 106}));
        QCOMPARE(ColumnsOf(image, kBarTop, border), Range(30, 106));
        QCOMPARE(ColumnsOf(image, kBarBottom, border), QVector<int>({30, 50, 106}));
        QCOMPARE(ColumnsOf(image, kBarBottom + 1, border), Range(30, 106));
        QCOMPARE(ColumnsOf(image, kMiddle, kGround),
                 Range(0, 29) + Range(31, 49) + Range(107, 399));
    }

    void anUnselectedClipShowsNoLeadIn()
    {
        auto clip = MakeClip(10, 10);
        clip->transitionFrames = 4;
        Add(clip);
        QCOMPARE(PaintedColumns(Draw()), Range(50, 106));
    }

    void theLeadInOfAClipBeyondTheViewIsNotDrawn()
    {
        auto clip = MakeClip(30, 10);
        clip->transitionFrames = 20;
        clip->selected = true;
        Add(clip);
        QVERIFY(PaintedColumns(Draw(QSize(149, kRowHeight))).isEmpty());
        QCOMPARE(PaintedColumns(Draw(QSize(151, kRowHeight))), Range(50, 150));
    }

    void aLoopedClipIsDividedAfterEachPassButTheLast()
    {
        Add(MakeClip(10, 10, 3));
        const QImage image = Draw();
        // Passes of 10 frames: dividers at frames 21 and 31, the end at frame 41.
        QCOMPARE(ColumnsOf(image, kMiddle, Border(Style().normal)),
                 QVector<int>({50, 105, 155, 206}));
        QCOMPARE(image.pixelColor(105, kBarTop - 1), kGround);
        QCOMPARE(image.pixelColor(105, kBarBottom + 2), kGround);
    }

    void dividersStopBeforeTheEndOfTheClip()
    {
        Add(MakeClip(10, 10, 3));
        Add(MakeClip(31, 1)); // cuts the looped clip at frame 31, where its second divider would be
        const QImage image = Draw();
        QCOMPARE(ColumnsOf(image, kMiddle, Border(Style().normal)).mid(0, 3),
                 QVector<int>({50, 105, 155}));
        QVERIFY(image.pixelColor(154, kMiddle) != Border(Style().normal));
    }

    void aNameThatDoesNotFitIsShortenedThenDropped_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("shown");
        QTest::newRow("whole") << "Walk"
                               << "Walk";
        QTest::newRow("cut") << "Walking home"
                             << "Walk...";
        QTest::newRow("three dots") << "Walking home"
                                    << "...";
        QTest::newRow("two dots") << "Walking home"
                                  << "..";
        QTest::newRow("one dot") << "Walking home"
                                 << ".";
        QTest::newRow("dropped") << "Walking home"
                                 << "";
    }
    void aNameThatDoesNotFitIsShortenedThenDropped()
    {
        QFETCH(QString, name);
        QFETCH(QString, shown);
        // The name has the bar's width less 4 pixels; a one-pixel axis gives every width.
        ResetAxis(500, 1.5);
        const QFontMetrics metrics(Style().font);
        const int width = shown.isEmpty() ? metrics.size(Qt::TextSingleLine, ".").width() - 1
                                          : metrics.size(Qt::TextSingleLine, shown).width();
        Add(MakeClip(10, width + 4 - 1, 1, name));
        const QImage named = Draw();
        m_track->Keys().RemoveAll();
        Add(MakeClip(10, width + 4 - 1));
        QImage expected = Draw();
        QPainter painter(&expected);
        painter.setFont(Style().font);
        painter.setPen(Style().normal.textColour[0].ToColor());
        // The row's 26 pixels less the 8 points, halved, and the 8 points again.
        painter.drawText(10 + 5, 17, shown);
        painter.end();
        QCOMPARE(named, expected);
    }

    void aNameHasTheNormalLooksColours_data()
    {
        QTest::addColumn<int>("lock");
        QTest::addColumn<bool>("alternate");
        QTest::addColumn<bool>("selected");
        QTest::addColumn<int>("mask");
        for (const int lock : {0, 1}) {
            for (const bool alternate : {false, true}) {
                for (const bool selected : {false, true}) {
                    for (const int mask : {1, 9}) {
                        QTest::addRow("lock %d, alternate %d, selected %d, mask %d", lock,
                                      alternate, selected, mask)
                            << lock << alternate << selected << mask;
                    }
                }
            }
        }
    }
    void aNameHasTheNormalLooksColours()
    {
        QFETCH(int, lock);
        QFETCH(bool, alternate);
        QFETCH(bool, selected);
        QFETCH(int, mask);
        auto clip = MakeClip(10, 40, 1, "Walking");
        clip->lockState = lock;
        clip->alternateStyle = alternate;
        clip->selected = selected;
        clip->kindMask = mask;
        Add(clip);
        const StyleColour plain[] = {{0, 1, 1, 1}, {1, 1, 0, 1}};
        const StyleColour trial[] = {{0, 1, 0, 1}, {0, 0, 1, 1}};
        for (int s : {0, 1}) {
            Style().normal.textColour[s] = plain[s];
            Style().normal.textColourTrial[s] = trial[s];
        }
        const QImage image = Draw();
        for (int s : {0, 1}) {
            QCOMPARE(HasColour(image, plain[s].ToColor()), mask == 1 && s == int(selected));
            QCOMPARE(HasColour(image, trial[s].ToColor()), mask == 9 && s == int(selected));
        }
    }

    // --- all of it, against the plain painter ---------------------------------------------------

    void paintsWhatPaintingEveryClipStepByStepPaints()
    {
        std::mt19937 random(44);
        for (int round = 0; round < 60; ++round) {
            FillAtRandom(random);
            const QSize size(1 + Below(random, 400), 18 + Below(random, 20));
            QImage plain(size, QImage::Format_RGB32);
            plain.fill(kGround);
            QPainter painter(&plain);
            PlainClipPainter(painter, plain.rect(), Style(), TimelineLibrary::Instance().axis)
                .Draw(m_track->Keys());
            painter.end();
            QCOMPARE(Draw(size), plain);
        }
    }

    void aRepaintOfSomeColumnsPaintsExactlyTheirPixels()
    {
        std::mt19937 random(45);
        for (int round = 0; round < 60; ++round) {
            FillAtRandom(random);
            const QSize size(300, kRowHeight);
            const QImage whole = Draw(size);
            const QRect columns(Below(random, 300), 0, 1 + Below(random, 20), kRowHeight);
            const QImage part = DrawClips(*m_track, size, columns);
            const QRect shown = columns & part.rect();
            QCOMPARE(part.copy(shown), whole.copy(shown));
            QImage rest = part;
            QPainter(&rest).fillRect(columns, kGround);
            QImage untouched(size, QImage::Format_RGB32);
            untouched.fill(kGround);
            QCOMPARE(rest, untouched);
        }
    }

    void hugeNumbersDrawWithoutHarm()
    {
        FrameAxis& axis = ResetAxis(INT_MAX, 10.0, INT_MAX - 500);
        auto clip = MakeClip(0, INT_MAX, INT_MAX, "everything");
        clip->transitionFrames = INT_MAX;
        clip->selected = true;
        Add(clip);
        QVERIFY(!PaintedColumns(Draw()).isEmpty());
        axis.scrollX = 0;
        Style().height = INT_MAX;
        Draw();
        Style().height = INT_MIN;
        Draw();
    }

    // --- what it looks like ---------------------------------------------------------------------

    void pictures_data()
    {
        QTest::addColumn<int>("lock");
        QTest::addColumn<bool>("alternate");
        QTest::addColumn<bool>("selected");
        QTest::addColumn<int>("mask");
        const auto row = [](const char* name, int lock, bool alternate, bool selected, int mask) {
            QTest::newRow(name) << lock << alternate << selected << mask;
        };
        row("normal", 0, false, false, 1);
        row("selected", 0, false, true, 1);
        row("locked", 1, false, false, 1);
        row("locked-selected", 1, false, true, 1);
        row("alternate", 0, true, false, 1);
        row("alternate-selected", 0, true, true, 1);
        row("locked-alternate", 1, true, false, 1);
        row("locked-alternate-selected", 1, true, true, 1);
        row("trial", 0, false, false, 9);
        row("trial-selected", 0, false, true, 9);
        row("trial-locked", 1, false, false, 9);
        row("trial-alternate", 0, true, false, 9);
    }
    void pictures()
    {
        QFETCH(int, lock);
        QFETCH(bool, alternate);
        QFETCH(bool, selected);
        QFETCH(int, mask);
        auto clip = MakeClip(8, 30, 1, "Walk cycle");
        clip->lockState = lock;
        clip->alternateStyle = alternate;
        clip->selected = selected;
        clip->kindMask = mask;
        clip->transitionFrames = 4;
        Add(clip);
        ComparePicture(QTest::currentDataTag());
    }

    void aSelectedClipWithALeadInPicture()
    {
        auto clip = MakeClip(16, 20, 1, "Walk cycle");
        clip->transitionFrames = 10;
        clip->selected = true;
        Add(clip);
        ComparePicture("lead-in");
    }

    void aLoopedClipPicture()
    {
        Add(MakeClip(4, 10, 4, "Step"));
        ComparePicture("loops");
    }

    void clipsAtTheLastFramePicture()
    {
        ResetAxis(40, 5.0);
        Add(MakeClip(4, 10, 1, "Inside"));
        Add(MakeClip(20, 30, 2, "Cut"));
        ComparePicture("clipped-at-the-last-frame");
    }

    void clipsBeyondTheEndPicture()
    {
        ResetAxis(20, 5.0);
        Add(MakeClip(4, 6, 1, "Inside"));
        Add(MakeClip(20, 10, 1, "Outside"));
        Add(MakeClip(40, 10, 1, "Outside"));
        ComparePicture("beyond-the-end");
    }

    void shortenedNamesPicture()
    {
        ResetAxis(300, 1.5);
        int frame = 4;
        for (const int width : {66, 50, 30, 16, 13, 10, 7, 5, 2}) {
            Add(MakeClip(frame, width, 1, "Walk cycle"));
            frame += width + 5;
        }
        ComparePicture("shortened-names");
    }

    void framesPerPixelPicture()
    {
        ResetAxis(2000, 0.16); // 7 frames a pixel
        QCOMPARE(TimelineLibrary::Instance().axis.info.framesPerPixel, 7);
        Add(MakeClip(20, 3, 1, "narrow"));
        Add(MakeClip(60, 200, 1, "Walk"));
        Add(MakeClip(400, 40, 10, "Loops"));
        Add(MakeClip(900, 2, 200, "Dense"));
        auto selected = MakeClip(1500, 300, 1, "Selected");
        selected->selected = true;
        selected->transitionFrames = 70;
        Add(selected);
        ComparePicture("frames-per-pixel");
    }

    void narrowClipsPicture()
    {
        ResetAxis(6000, 0.05);
        for (int i = 0; i < 20; ++i) {
            auto clip = MakeClip(100 + i * 280, 3, 1, "narrow");
            clip->selected = i % 4 == 1;
            clip->alternateStyle = i % 4 == 2;
            clip->lockState = i % 4 == 3;
            Add(clip);
        }
        ComparePicture("narrow");
    }

    void aScrolledRowPicture()
    {
        ResetAxis(200, 5.0, 95);
        Add(MakeClip(4, 30, 3, "Begins left of the view"));
        Add(MakeClip(60, 60, 1, "Ends right of the view"));
        ComparePicture("scrolled");
    }

    void aSlimLookPicture()
    {
        QVERIFY(m_track->LoadStyle(3));
        Add(MakeClip(4, 20, 1, "Slim"));
        auto selected = MakeClip(30, 20, 1, "Slim, selected");
        selected->selected = true;
        Add(selected);
        ComparePicture("slim");
    }

    void aRowLowerInThePictureLooksTheSame()
    {
        auto clip = MakeClip(8, 30, 2, "Walk cycle");
        clip->selected = true;
        Add(clip);
        const QSize size(300, kRowHeight);
        const QImage alone = DrawRow(*m_track, size);
        QImage below(400, 200, QImage::Format_RGB32);
        QPainter painter(&below);
        const QRect row(QPoint(31, 77), size);
        m_track->DrawTrack(&painter, row);
        painter.end();
        // A gradient may round to the neighbouring shade at another height; a gradient that starts
        // at another place would differ by far more.
        QVERIFY(LargestDifference(below.copy(row), alone) <= 1);
    }

    // --- the wave row ---------------------------------------------------------------------------

    void theWaveRowHasAWaveStyleAndItsClipsAreOutlines()
    {
        CTimelineTrackClip wave;
        QVERIFY(wave.Init(nullptr));
        wave.MakeWave();
        QCOMPARE(wave.GetTrackType(), int(TL_TRACK_WAVE));
        QVERIFY(wave.LoadStyle(1));
        const auto* style = wave.StyleAs<WaveTrackStyle>();
        QVERIFY(style);
        QVERIFY(!wave.StyleAs<ClipTrackStyle>());
        auto clip = MakeClip(10, 10, 2, "sound");
        clip->hostSwitch = true;
        wave.Keys().Add(clip, false);
        const QImage image = DrawClips(wave, QSize(400, 54));
        // Frames 10 to 30, divided after frame 20; the bar is the row's height less one.
        QCOMPARE(ColumnsOf(image, 20, style->clipBorder[0].color()), QVector<int>({50, 105, 154}));
        QCOMPARE(image.pixelColor(60, 20), kGround);
        QCOMPARE(image.pixelColor(60, 0), style->clipBorder[0].color());
        QCOMPARE(image.pixelColor(60, 52), style->clipBorder[0].color());
        QCOMPARE(image.pixelColor(60, 53), kGround);
    }

    void theWaveRowPicture()
    {
        CTimelineTrackClip wave;
        wave.Init(nullptr);
        wave.MakeWave();
        QVERIFY(wave.LoadStyle(1));
        ResetAxis(50, 5.0);
        for (const bool selected : {false, true}) {
            auto clip = MakeClip(selected ? 30 : 4, 5, 3, "sound");
            clip->hostSwitch = true;
            clip->selected = selected;
            wave.Keys().Add(clip, false);
        }
        wave.SetRange(10, 20);
        KESTOVA_COMPARE_PICTURE(DrawRow(wave, QSize(300, 54)), "clip/wave");
    }

    // --- the edges, through the track -----------------------------------------------------------

    void whenLoopAndSpeedAreBothAllowedTheOwnersAnswerDecides_data()
    {
        QTest::addColumn<int>("answer");
        QTest::newRow("loop") << int(TL_EDIT_CLIP_LOOP);
        QTest::newRow("speed") << int(TL_EDIT_CLIP_SPEED);
        QTest::newRow("none") << -1;
    }
    void whenLoopAndSpeedAreBothAllowedTheOwnersAnswerDecides()
    {
        QFETCH(int, answer);
        Add(MakeClip(10, 10));
        AnsweringOwner owner(answer);
        m_track->SetOwner(&owner);
        m_track->MarkAsOwnTrack();
        SetModes({TL_EDIT_CLIP_LOOP, TL_EDIT_CLIP_SPEED});
        QCOMPARE(m_track->HitTestEdge(QPoint(105, kMiddle)).kind, answer);
        QCOMPARE(owner.codes, QVector<int>({1212}));
        QCOMPARE(owner.tracks, QVector<CTimelineTrackBase*>({m_track.get()}));
        QVERIFY(owner.empty);
    }

    void theOwnerIsNotAskedWhenOneOfThemIsAllowed()
    {
        Add(MakeClip(10, 10));
        AnsweringOwner owner(TL_EDIT_CLIP_SPEED);
        m_track->SetOwner(&owner);
        SetModes({TL_EDIT_CLIP_LOOP, TL_EDIT_CLIP_TRIM});
        QCOMPARE(m_track->HitTestEdge(QPoint(105, kMiddle)).kind, int(TL_EDIT_CLIP_LOOP));
        SetModes({TL_EDIT_CLIP_SPEED});
        QCOMPARE(m_track->HitTestEdge(QPoint(105, kMiddle)).kind, int(TL_EDIT_CLIP_SPEED));
        SetModes({TL_EDIT_MOVE_KEYS, TL_EDIT_TIME_RANGE});
        QVERIFY(!m_track->HitTestEdge(QPoint(105, kMiddle)).IsEdge());
        QVERIFY(owner.codes.isEmpty());
    }

    void edgesAreFoundAtTheBarsHeightInTheRow()
    {
        Add(MakeClip(10, 10));
        SetModes({TL_EDIT_CLIP_LOOP});
        // (27 - 20) / 2 = 3 rows above the bar.
        QVERIFY(!m_track->HitTestEdge(QPoint(105, 2)).IsEdge());
        QVERIFY(m_track->HitTestEdge(QPoint(105, 3)).IsEdge());
        QVERIFY(m_track->HitTestEdge(QPoint(105, 22)).IsEdge());
        QVERIFY(!m_track->HitTestEdge(QPoint(105, 23)).IsEdge());
    }

    void withoutAnOwnerNobodyChoosesAnEdge()
    {
        Add(MakeClip(10, 10));
        SetModes({TL_EDIT_CLIP_LOOP, TL_EDIT_CLIP_SPEED});
        QVERIFY(!m_track->HitTestEdge(QPoint(105, kMiddle)).IsEdge());
    }

private:
    ClipTrackStyle& Style() { return *m_track->StyleAs<ClipTrackStyle>(); }
    static QColor Border(const ClipTrackStyle::Look& look) { return look.border[0].color(); }

    void Add(const VZ::CPointer<CTimelineKey>& clip) { m_track->Keys().Add(clip, false); }

    QImage Draw(QSize size = QSize(400, kRowHeight)) { return DrawClips(*m_track, size); }

    /// Compares the whole row as it is seen with the picture of @p name.
    void ComparePicture(const char* name)
    {
        Style().font.setStyleStrategy(QFont::PreferDefault);
        KESTOVA_COMPARE_PICTURE(DrawRow(*m_track, QSize(300, kRowHeight)),
                                QString("clip/%1").arg(name));
    }

    void SetModes(std::initializer_list<TLEditType> types)
    {
        CTimelineTrackBase::EditModes modes;
        for (const TLEditType type : types)
            modes.Add(type);
        m_track->SetEditModes(modes);
    }

    /// The columns in which anything was painted.
    static QVector<int> PaintedColumns(const QImage& image)
    {
        QVector<int> columns;
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                if (image.pixelColor(x, y) != kGround) {
                    columns << x;
                    break;
                }
            }
        }
        return columns;
    }

    static int Below(std::mt19937& random, int n)
    {
        return static_cast<int>(random() % static_cast<unsigned>(n));
    }

    void FillAtRandom(std::mt19937& random)
    {
        const double scales[] = {10.0, 5.0, 2.0, 1.5, 0.6, 0.2, 0.02};
        const double scale = scales[Below(random, 7)];
        ResetAxis(Below(random, 700), scale, Below(random, 3) == 0 ? 0 : Below(random, 300));
        const char* names[] = {"", "", "Walk", "Turning round slowly", "A", "Über", "jump.2"};
        m_track->Keys().RemoveAll();
        for (int i = Below(random, 40); i > 0; --i) {
            auto clip = MakeClip(Below(random, 500), Below(random, 12) == 0 ? 0 : Below(random, 60),
                                 1 + Below(random, 5), names[Below(random, 7)]);
            clip->selected = Below(random, 3) == 0;
            clip->lockState = Below(random, 3) == 0 ? 1 : 0;
            clip->alternateStyle = Below(random, 3) == 0;
            clip->kindMask = Below(random, 2) ? 9 : 1;
            clip->transitionFrames = Below(random, 40) - 5;
            Add(clip);
        }
        // A host may write frames without keeping their order.
        const int count = static_cast<int>(m_track->Keys().GetSize());
        for (int i = Below(random, 4) == 0 ? count / 4 : 0; i > 0; --i)
            m_track->Keys().GetAt(Below(random, count))->frame = Below(random, 500);
        // Nor need it leave the lengths that are drawn alone.
        for (int i = Below(random, 3) == 0 ? count / 3 : 0; i > 0; --i)
            m_track->Keys().GetAt(Below(random, count))->displayLength = -5 - Below(random, 26);
        m_track->InvalidateCaches();
    }

    std::unique_ptr<CTimelineTrackClip> m_track;
};

QTEST_MAIN(tst_CTimelineTrackClip)
#include "tst_CTimelineTrackClip.moc"
