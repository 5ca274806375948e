#include "tracks/NameShortener.h"

#include <QFont>
#include <QtTest>

#include <random>

namespace {

QFont FontOf(const QString& family, int pointSize)
{
    QFont font(family);
    font.setPointSize(pointSize);
    return font;
}

/// The shortening spelled out: every count of characters, from all of them down to none.
QString FittedPlainly(const QFontMetrics& metrics, const QString& name, int width)
{
    const auto fits = [&](const QString& text) {
        return metrics.size(Qt::TextSingleLine, text).width() <= width;
    };
    if (fits(name))
        return name;
    for (int count = name.length(); count >= 0; --count) {
        if (fits(name.left(count) + "..."))
            return name.left(count) + "...";
    }
    for (const QString& rest : {QStringLiteral(".."), QStringLiteral(".")}) {
        if (fits(rest))
            return rest;
    }
    return QString();
}

} // namespace

NameShortener Names(const QFontMetrics& metrics)
{
    return NameShortener(
        [metrics](const QString& text) { return metrics.size(Qt::TextSingleLine, text).width(); });
}

class tst_NameShortener : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_metrics.reset(new QFontMetrics(FontOf("DejaVu Sans", 9)));
        m_dot = WidthOf(".");
        QVERIFY(m_dot > 0);
    }

    void keepsANameThatFits()
    {
        const NameShortener names = Names(*m_metrics);
        QCOMPARE(names.Fitted("Walk", WidthOf("Walk")), QString("Walk"));
        QCOMPARE(names.Fitted("Walk", 1000), QString("Walk"));
    }

    void cutsANameThatDoesNotFitAndAddsThreeDots()
    {
        const NameShortener names = Names(*m_metrics);
        QCOMPARE(names.Fitted("Walking home", WidthOf("Walk...")), QString("Walk..."));
        QCOMPARE(names.Fitted("Walking home", WidthOf("Walk...") - 1), QString("Wal..."));
        QCOMPARE(names.Fitted("Walking home", WidthOf("W...")), QString("W..."));
    }

    void aNameThatDoesNotFitIsShortenedToThreeThenTwoThenOneDotThenDropped()
    {
        const NameShortener names = Names(*m_metrics);
        QCOMPARE(names.Fitted("Walk", WidthOf("...")), QString("..."));
        QCOMPARE(names.Fitted("Walk", WidthOf("...") - 1), QString(".."));
        QCOMPARE(names.Fitted("Walk", WidthOf("..")), QString(".."));
        QCOMPARE(names.Fitted("Walk", WidthOf("..") - 1), QString("."));
        QCOMPARE(names.Fitted("Walk", m_dot), QString("."));
        QCOMPARE(names.Fitted("Walk", m_dot - 1), QString());
        QCOMPARE(names.Fitted("Walk", -10), QString());
    }

    void measuresLineBreaksAsSpaces()
    {
        const NameShortener names = Names(*m_metrics);
        QCOMPARE(names.Fitted("Walk\nhome", WidthOf("Walk home")), QString("Walk\nhome"));
    }

    void findsTheSameCutAsTryingEveryOne_data()
    {
        QTest::addColumn<QString>("family");
        QTest::addColumn<QString>("alphabet");
        const QString latin = QStringLiteral("ilWMTVAAr.' fjLYo_-0178Kk,");
        const QString mixed = QString::fromUtf8("aΩжЖéÅ中日あカTi.");
        const QString marks =
            QString::fromUtf8("ae\u0301\u0308\u200D\U0001F600\u0644\u0627\u0634\t");
        for (const char* family : {"DejaVu Sans", "DejaVu Serif", "DejaVu Sans Mono"}) {
            QTest::newRow(qPrintable(QString("latin, %1").arg(family))) << family << latin;
            QTest::newRow(qPrintable(QString("mixed, %1").arg(family))) << family << mixed;
            QTest::newRow(qPrintable(QString("marks, %1").arg(family))) << family << marks;
        }
    }
    void findsTheSameCutAsTryingEveryOne()
    {
        QFETCH(QString, family);
        QFETCH(QString, alphabet);
        std::mt19937 random(7);
        const auto below = [&](int n) {
            return static_cast<int>(random() % static_cast<unsigned>(n));
        };
        for (int round = 0; round < 60; ++round) {
            const QFontMetrics metrics(FontOf(family, 6 + below(12)));
            QString name;
            for (int length = 1 + below(25); length > 0; --length)
                name += alphabet[below(alphabet.length())];
            const int whole = metrics.size(Qt::TextSingleLine, name).width();
            for (int i = 0; i < 6; ++i) {
                const int width = below(whole + 5);
                QCOMPARE(Names(metrics).Fitted(name, width), FittedPlainly(metrics, name, width));
            }
        }
    }

private:
    int WidthOf(const QString& text) const
    {
        return m_metrics->size(Qt::TextSingleLine, text).width();
    }

    std::unique_ptr<QFontMetrics> m_metrics;
    int m_dot = 0;
};

QTEST_MAIN(tst_NameShortener)
#include "tst_NameShortener.moc"
