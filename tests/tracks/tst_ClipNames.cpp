#include "tracks/ClipNames.h"

#include "tracks/NameShortener.h"

#include <QImage>
#include <QPainter>
#include <QtTest>

namespace {

constexpr int kBaseline = 20;

QFont FontOf(const QString& family, int pointSize)
{
    QFont font(family);
    font.setPointSize(pointSize);
    return font;
}

using Paint = std::function<void(QPainter&)>;

QImage PictureOf(const QFont& font, const Paint& paint)
{
    QImage image(260, 32, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(QColor(20, 60, 120));
    paint(painter);
    painter.end();
    return image;
}

QImage Remembered(ClipNames& names, const QFont& font, const QString& name, int width)
{
    return PictureOf(
        font, [&](QPainter& painter) { names.Draw(painter, QPoint(7, kBaseline), name, width); });
}

QImage SetAnew(const QFont& font, const QString& name, int width)
{
    return PictureOf(font, [&](QPainter& painter) {
        const QString text = NameShortener(painter.fontMetrics()).Fitted(name, width);
        painter.drawText(7, kBaseline, text);
    });
}

} // namespace

class tst_ClipNames : public QObject
{
    Q_OBJECT
private slots:
    void drawsThePixelsOfDrawTextEveryTime_data()
    {
        QTest::addColumn<QString>("family");
        QTest::addColumn<int>("size");
        QTest::addColumn<QString>("name");
        const char* families[] = {"DejaVu Sans", "DejaVu Serif", "DejaVu Sans Mono"};
        const char* names[] = {"Walk cycle",
                               "Überraschung, Té AV.",
                               "Ωжé 中日ア x",
                               "e\u0301a\u0308 \U0001F600 marks",
                               "\u0634\u0644\u0627 joining",
                               " "};
        for (const char* family : families) {
            for (const int size : {8, 11}) {
                for (const char* name : names) {
                    QTest::addRow("%s, %d, %s", family, size, name)
                        << family << size << QString::fromUtf8(name);
                }
            }
        }
    }
    void drawsThePixelsOfDrawTextEveryTime()
    {
        QFETCH(QString, family);
        QFETCH(int, size);
        QFETCH(QString, name);
        ClipNames names;
        const QFont font = FontOf(family, size);
        for (const int width : {250, 250, 40, 40, 12, 250, 5, 1, -1, 60})
            QCOMPARE(Remembered(names, font, name, width), SetAnew(font, name, width));
    }

    void followsAChangeOfTheFont()
    {
        ClipNames names;
        for (const int size : {8, 12, 8}) {
            const QFont font = FontOf("DejaVu Sans", size);
            QCOMPARE(Remembered(names, font, "Walk cycle", 50), SetAnew(font, "Walk cycle", 50));
        }
    }

    void drawsTheSameAfterForgetting()
    {
        ClipNames names;
        const QFont font = FontOf("DejaVu Sans", 8);
        const QImage before = Remembered(names, font, "Walk cycle", 50);
        names.Clear();
        QCOMPARE(Remembered(names, font, "Walk cycle", 50), before);
    }

    void drawsMoreNamesThanItRemembers()
    {
        ClipNames names;
        const QFont font = FontOf("DejaVu Sans", 8);
        PictureOf(font, [&](QPainter& painter) {
            for (int i = 0; i < 5000; ++i)
                names.Draw(painter, QPoint(7, kBaseline), QString::number(i), 100);
        });
        for (const int i : {0, 4095, 4096, 4999}) {
            const QString name = QString::number(i);
            QCOMPARE(Remembered(names, font, name, 100), SetAnew(font, name, 100));
        }
    }

    void aScaledPainterSetsTheNameForItsScale()
    {
        ClipNames names;
        const QFont font = FontOf("DejaVu Sans", 8);
        const QImage scaled = PictureOf(font, [&](QPainter& painter) {
            painter.scale(1.5, 1.5);
            names.Draw(painter, QPoint(7, kBaseline), "Walk cycle", 200);
        });
        const QImage expected = PictureOf(font, [&](QPainter& painter) {
            painter.scale(1.5, 1.5);
            painter.drawText(7, kBaseline, "Walk cycle");
        });
        QCOMPARE(scaled, expected);
    }
};

QTEST_MAIN(tst_ClipNames)
#include "tst_ClipNames.moc"
