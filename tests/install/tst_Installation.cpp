// What an installation consists of, and that it is one piece: it works wherever it lies, and tells
// one version.
#include "InstalledTree.h"
#include "Shell.h"

#include <QLibrary>
#include <QRegularExpression>
#include <QtTest>

using namespace KestovaTest;

class tst_Installation : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void consistsOfItsFiles_data();
    void consistsOfItsFiles();
    void holdsWhatItsPagesShow();
    void namesNoFolderThatItWasMadeIn();
    void runsTheHostWithItsOwnSkinsAndSamples();
    void checksItsSkins();
    void tellsOneVersion();

private:
    QString InPrefix(const QString& name) const { return m_tree.Prefix() + '/' + name; }
    QString Library(const QString& end) const
    {
        return InPrefix(KESTOVA_LIBDIR "/libKestovaTimelineQU.so" + end);
    }

    InstalledTree m_tree;
};

void tst_Installation::initTestCase()
{
    QVERIFY(m_tree.IsValid());
    QVERIFY(m_tree.InstallAndMove());
}

void tst_Installation::consistsOfItsFiles_data()
{
    QTest::addColumn<QString>("part");
    for (const QString& part : kParts)
        QTest::newRow(qPrintable(part)) << part;
}

void tst_Installation::consistsOfItsFiles()
{
    QFETCH(const QString, part);
    QVERIFY(m_tree.Install(part, part));
    QCOMPARE(DifferenceFromPart(FilesBelow(m_tree.In(part)), part), QString());
}

void tst_Installation::holdsWhatItsPagesShow()
{
    const QDir docs(InPrefix("share/doc/KestovaTimelineQU"));
    const QRegularExpression picture("\\]\\(([a-z/-]+\\.png)\\)");
    int shown = 0;
    for (const QString& page : docs.entryList({"*.md"})) {
        auto found = picture.globalMatch(QString::fromUtf8(TextOf(docs.filePath(page))));
        for (; found.hasNext(); ++shown) {
            const QString file = found.next().captured(1);
            QVERIFY2(docs.exists(file), qPrintable(page + " shows " + file));
        }
    }
    QVERIFY(shown > 0);
}

void tst_Installation::namesNoFolderThatItWasMadeIn()
{
    if (QLatin1String(KESTOVA_BUILD_TYPE) == "Debug")
        QSKIP("debugging information names the sources");
    // The host knows its sources, so that it runs without being installed.
    const QStringList knowing{"bin/kestova-host"};
    for (const QString& file : FilesBelow(m_tree.Prefix())) {
        const QByteArray text = TextOf(InPrefix(file));
        QVERIFY2(!text.contains(m_tree.In("installed").toUtf8()), qPrintable(file));
        QVERIFY2(!text.contains(KESTOVA_BINARY_DIR), qPrintable(file));
        QVERIFY2(knowing.contains(file) || !text.contains(KESTOVA_SOURCE_DIR), qPrintable(file));
    }
}

void tst_Installation::runsTheHostWithItsOwnSkinsAndSamples()
{
    const QString host = InPrefix("bin/kestova-host");
    const QImage picture = PictureOfTheHost(host);
    QVERIFY(!picture.isNull());
    QVERIFY(picture == PictureOfTheHost(KESTOVA_HOST_PROGRAM));

    // Those that it was built from are whole; these are not any more.
    for (const QString& file : {QString("share/KestovaTimelineQU/skins/default.ini"),
                                QString("share/kestova-host/samples/stroll.bvh")}) {
        const QString whole = InPrefix(file);
        QVERIFY(QFile::rename(whole, whole + ".aside"));
        QFile broken(whole);
        QVERIFY(broken.open(QIODevice::WriteOnly));
        broken.write("nothing");
        broken.close();
        const Outcome outcome = Run(host, {"--screenshot", m_tree.In("host.png")});
        QVERIFY(QFile::remove(whole) && QFile::rename(whole + ".aside", whole));
        QCOMPARE(outcome.exitCode, 1);
        QVERIFY2(outcome.output.contains(whole), qPrintable(outcome.output));
    }
}

void tst_Installation::checksItsSkins()
{
    for (const QString skin : {"default.ini", "contrast.ini"})
        KESTOVA_RUN(InPrefix("bin/kestova-skin-check"),
                    {InPrefix("share/KestovaTimelineQU/skins/" + skin)});
}

void tst_Installation::tellsOneVersion()
{
    const QString version = KESTOVA_PROJECT_VERSION;
    using Query = const char* (*)();
    const auto query = reinterpret_cast<Query>(
        QLibrary::resolve(Library("." + version), "KestovaTimelineVersion"));
    QVERIFY(query);
    QCOMPARE(QString(query()), version);

    const QString header = TextOf(InPrefix("include/KestovaTimelineQU/KestovaVersion.h"));
    QVERIFY(header.contains("#define KESTOVA_VERSION \"" + version + "\"\n"));
    const QStringList numbers = version.split('.');
    QVERIFY(header.contains("#define KESTOVA_VERSION_MAJOR " + numbers[0] + '\n'));
    QVERIFY(header.contains("#define KESTOVA_VERSION_MINOR " + numbers[1] + '\n'));
    QVERIFY(header.contains("#define KESTOVA_VERSION_PATCH " + numbers[2] + '\n'));

    const QString searched = "PKG_CONFIG_PATH=" + InPrefix(KESTOVA_LIBDIR "/pkgconfig");
    QCOMPARE(Run("pkg-config", {"--modversion", "KestovaTimelineQU"}, {searched}).output,
             version + '\n');

    const QString entries = Run("readelf", {"-d", "-W", Library(QString())}).output;
    QVERIFY2(entries.contains("[libKestovaTimelineQU.so." + numbers[0] + ']'), qPrintable(entries));
    QCOMPARE(QFile::symLinkTarget(Library("." + numbers[0])), Library("." + version));

    QCOMPARE(Run(InPrefix("bin/kestova-host"), {"--version"}).output,
             "kestova-host " + version + '\n');
}

QTEST_APPLESS_MAIN(tst_Installation)
#include "tst_Installation.moc"
