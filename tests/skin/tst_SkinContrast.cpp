#include "Contrast.h"
#include "SkinSchema.h"

#include <QApplication>
#include <QFile>
#include <QFontMetrics>
#include <QImage>
#include <QTest>

#include <cstdio>

namespace {

constexpr double kLegible = 4.5;
constexpr int kFirstCaption = 4;
constexpr int kFirstSwitchButton = 24;

const char* const kTrackKinds[] = {"KeyTrack",    "TransKeyTrack", "LinkKeyTrack", "VisemeKeyTrack",
                                   "SwitchTrack", "ClipTrack",     "WaveTrack"};

QImage Picture(int number)
{
    const QImage image(
        QStringLiteral(KESTOVA_SOURCE_DIR "/timeline/skin/images/%1.png").arg(number));
    return image.convertToFormat(QImage::Format_ARGB32);
}

/// The lowest contrast that @p text has against any pixel of @p area of @p ground.
double LowestContrast(const QColor& text, const QImage& ground, const QRect& area)
{
    const QRect pixels = area & ground.rect();
    double lowest = 21;
    for (int y = pixels.top(); y <= pixels.bottom(); ++y)
        for (int x = pixels.left(); x <= pixels.right(); ++x)
            lowest = qMin(lowest, ContrastRatio(text, ground.pixelColor(x, y)));
    return pixels.isEmpty() ? 0 : lowest;
}

QByteArray RowName(const QString& text)
{
    return text.toUtf8();
}

} // namespace

/// Text of a skin keeps a contrast of at least 4.5 to 1 against every ground it is
/// painted on.
class tst_SkinContrast : public QObject
{
    Q_OBJECT
    KestovaTest::SkinMap m_skin;
    QString m_path;

public:
    explicit tst_SkinContrast(const QString& path) : m_path(path) {}

private:
    /// The rows of the ruler on which its numbers stand.
    QRect LabelRows() const
    {
        QFont font(m_skin.Text("TickTrack", "TxtFace"));
        font.setPixelSize(m_skin.Number("TickTrack", "TxtMinSize"));
        const QFontMetrics metrics(font);
        const int height = Picture(3).height();
        const int offset = m_skin.Number("TickTrack", "TxtOffset");
        const int baseline =
            static_cast<int>(float(height - offset) - float(height - metrics.height()) * 0.5F);
        const QRect digits = metrics.tightBoundingRect(QStringLiteral("0123456789"));
        return QRect(0, baseline + digits.top(), 1, digits.height());
    }

private slots:
    void initTestCase()
    {
        QFile file(m_path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        m_skin = KestovaTest::SkinMap(file.readAll());
    }

    void readsCaptions_data()
    {
        QTest::addColumn<QString>("track");
        for (const char* kind : kTrackKinds)
            for (const QString& style : m_skin.StylesOf(QString::fromLatin1(kind)))
                QTest::newRow(RowName(style)) << style;
    }
    void readsCaptions()
    {
        QFETCH(QString, track);
        const QString caption = m_skin.Text(track, "Caption");
        const QColor text = m_skin.Colour(caption, "TxtColor");
        const QColor focused = m_skin.Colour(caption, "TxtColorFocus");
        const QList<int> box = m_skin.Numbers(caption, "TxtPos");
        QVERIFY2(text.isValid() && focused.isValid() && box.size() == 2, qPrintable(caption));

        const QImage plain = Picture(kFirstCaption + m_skin.Number(caption, "BitmapID"));
        const QImage active = Picture(kFirstCaption + m_skin.Number(caption, "BitmapFocusID"));
        const QRect area(QPoint(box[0], 0), QPoint(box[1] - 1, plain.height() - 1));
        QVERIFY(LowestContrast(text, plain, area) >= kLegible);
        // An active row whose root is not active keeps the plain colour.
        QVERIFY(LowestContrast(text, active, area) >= kLegible);
        QVERIFY(LowestContrast(focused, active, area) >= kLegible);
    }

    void readsTheNameOfAWaveRow_data()
    {
        QTest::addColumn<QString>("track");
        const QStringList styles = m_skin.StylesOf("WaveTrack");
        QVERIFY(styles.size() >= 2);
        for (const QString& style : styles)
            QTest::newRow(RowName(style)) << style;
    }
    void readsTheNameOfAWaveRow()
    {
        QFETCH(QString, track);
        const QString look = m_skin.Text(track, "TrackKey");
        const QString caption = m_skin.Text(track, "Caption");
        const QColor ground = m_skin.Colour(look, "CaptionFill");
        QVERIFY(ground.isValid());
        QVERIFY(ContrastRatio(m_skin.Colour(caption, "TxtColor"), ground) >= kLegible);
        QVERIFY(ContrastRatio(m_skin.Colour(caption, "TxtColorFocus"), ground) >= kLegible);
    }

    void readsRulerNumbers_data()
    {
        QTest::addColumn<int>("ground");
        QTest::newRow("frames") << 60;
        QTest::newRow("beyond the last frame") << 61;
        QTest::newRow("shaded cell") << 62;
    }
    void readsRulerNumbers()
    {
        QFETCH(int, ground);
        const QColor text = m_skin.Colour("TickTrack", "TxtColor");
        QVERIFY(LowestContrast(text, Picture(ground), LabelRows()) >= kLegible);
    }

    void readsRulerNumbersUnderTheCurrentFrame_data() { readsRulerNumbers_data(); }
    void readsRulerNumbersUnderTheCurrentFrame()
    {
        QFETCH(int, ground);
        const QColor text = m_skin.Colour("TickTrack", "TxtColor");
        const QImage under = Picture(ground), outer = Picture(68), inner = Picture(69);
        const QRect rows = LabelRows();
        for (int y = rows.top(); y <= rows.bottom(); ++y) {
            const auto covered = [&](const QColor& colour) {
                return LaidOver(inner.pixelColor(0, y), LaidOver(outer.pixelColor(0, y), colour));
            };
            const double contrast = ContrastRatio(covered(text), covered(under.pixelColor(0, y)));
            QVERIFY2(contrast >= kLegible,
                     qPrintable(QStringLiteral("row %1: %2").arg(y).arg(contrast)));
        }
    }

    void leavesRulerNumbersUncutByMarks_data()
    {
        QTest::addColumn<int>("mark");
        QTest::newRow("minor tick") << 63;
        QTest::newRow("major tick") << 65;
        QTest::newRow("middle of the current frame") << 70;
    }
    void leavesRulerNumbersUncutByMarks()
    {
        QFETCH(int, mark);
        const QImage strip = Picture(mark);
        const QRect rows = LabelRows();
        for (int y = rows.top(); y <= rows.bottom(); ++y)
            QCOMPARE(strip.pixelColor(0, y).alpha(), 0);
    }

    void readsSwitchButtons_data()
    {
        QTest::addColumn<QString>("track");
        for (const QString& style : m_skin.StylesOf("SwitchTrack"))
            QTest::newRow(RowName(style)) << style;
    }
    void readsSwitchButtons()
    {
        QFETCH(QString, track);
        constexpr int kStates = 4;
        constexpr int kLampRight = 10; // text stands right of the lamp
        const QString look = m_skin.Text(track, "TrackKey");
        const QColor off = m_skin.Colour(look, "TxtColor");
        const QColor on = m_skin.Colour(look, "TxtColorOn");
        QVERIFY(off.isValid() && on.isValid());
        const int first = kFirstSwitchButton + kStates * m_skin.Number(look, "BtnBmpType");
        for (int state = 0; state < kStates; ++state) {
            const QImage button = Picture(first + state);
            const QRect face = button.rect().adjusted(kLampRight, 1, -1, -1);
            const double contrast = LowestContrast(state < 2 ? off : on, button, face);
            QVERIFY2(contrast >= kLegible,
                     qPrintable(QStringLiteral("state %1: %2").arg(state).arg(contrast)));
        }
    }

    void readsClipNames_data()
    {
        QTest::addColumn<QString>("track");
        QTest::addColumn<QString>("lookKey");
        QTest::addColumn<QString>("selected");
        QTest::addColumn<QString>("trial");
        for (const QString& style : m_skin.StylesOf("ClipTrack"))
            for (const char* look : {"TrackKey", "TrackKey1", "3DTrackKey"})
                for (const char* selected : {"", "Sel"})
                    for (const char* trial : {"", "Trial"})
                        QTest::newRow(RowName(style + QLatin1Char(' ') + look + selected + trial))
                            << style << look << selected << trial;
    }
    void readsClipNames()
    {
        QFETCH(QString, track);
        QFETCH(QString, lookKey);
        QFETCH(QString, selected);
        QFETCH(QString, trial);
        // Names take their colour from the first look, whatever look the clip has.
        const QString names = m_skin.Text(track, "TrackKey");
        const QString look = m_skin.Text(track, lookKey);
        const QColor text = m_skin.Colour(names, "TxtColor" + selected + trial);
        const QColor up = m_skin.Colour(look, "GradientUp" + selected);
        QColor between = m_skin.Colour(look, "GradientDown" + selected);
        QVERIFY(text.isValid() && up.isValid() && between.isValid());
        constexpr int kSteps = 16;
        const QColor down = between;
        for (int step = 0; step <= kSteps; ++step) {
            QColor veil = up;
            veil.setAlphaF(double(step) / kSteps);
            between = LaidOver(veil, down);
            QVERIFY2(ContrastRatio(text, between) >= kLegible,
                     qPrintable(QStringLiteral("%1 on %2: %3")
                                    .arg(text.name(), between.name())
                                    .arg(ContrastRatio(text, between))));
        }
    }

    void tellsClipLooksApartInGreyAlone_data()
    {
        QTest::addColumn<QString>("track");
        for (const QString& style : m_skin.StylesOf("ClipTrack"))
            QTest::newRow(RowName(style)) << style;
    }
    void tellsClipLooksApartInGreyAlone()
    {
        QFETCH(QString, track);
        constexpr double kVisible = 1.25;
        const auto ground = [&](const char* look, const char* stop) {
            return m_skin.Colour(m_skin.Text(track, look), stop);
        };
        for (const char* stop : {"GradientUp", "GradientDown"}) {
            const QColor normal = ground("TrackKey", stop);
            const QColor locked = ground("TrackKey1", stop);
            const QColor alternate = ground("3DTrackKey", stop);
            QVERIFY(ContrastRatio(normal, locked) >= kVisible);
            QVERIFY(ContrastRatio(normal, alternate) >= kVisible);
            QVERIFY(ContrastRatio(locked, alternate) >= kVisible);
            for (const char* look : {"TrackKey", "3DTrackKey"})
                QVERIFY(ContrastRatio(ground(look, stop),
                                      ground(look, (QByteArray(stop) + "Sel").constData())) >= 3);
        }
    }
};

/// Every skin that comes with the library is held to it.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    int failures = 0;
    for (const char* const skin : {"default.ini", "contrast.ini"}) {
        const QByteArray path = QByteArray(KESTOVA_SOURCE_DIR "/skins/") + skin;
        std::printf("%s\n", path.constData());
        tst_SkinContrast test(QString::fromUtf8(path));
        failures += QTest::qExec(&test, argc, argv);
    }
    return failures;
}

#include "tst_SkinContrast.moc"
