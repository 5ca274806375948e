// The Debian packages: what each holds and needs, and that the library in them can be built with.
#include "InstalledTree.h"
#include "Shell.h"
#include "support/PictureCheck.h"

#include <QtTest>

using namespace KestovaTest;

class tst_Packages : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void areNamedAfterTheVersion();
    void holdTheirPart_data();
    void holdTheirPart();
    void needEachOther();
    void tellTheLinkerOfTheLibrary();
    void areStripped();
    void canBeBuiltWith();
    void runTheHost();

private:
    /// The file of a package.
    QString File(const QString& package) const;
    QString Field(const QString& package, const QString& name) const
    {
        return Run("dpkg-deb", {"--field", File(package), name}).output.trimmed();
    }
    QString Extracted(const QString& name) const { return m_tree.In("root/usr/" + name); }

    InstalledTree m_tree;
    QString m_architecture;
};

constexpr const char* kRuntime = "libkestovatimelinequ" KESTOVA_PROJECT_MAJOR;
constexpr const char* kDevelopment = "libkestovatimelinequ-dev";
constexpr const char* kHost = "kestova-host";

QString tst_Packages::File(const QString& package) const
{
    return m_tree.In("packages/" + package + "_" KESTOVA_PROJECT_VERSION "_" + m_architecture +
                     ".deb");
}

void tst_Packages::initTestCase()
{
    QVERIFY(m_tree.IsValid());
    m_architecture = Run("dpkg", {"--print-architecture"}).output.trimmed();
    KESTOVA_RUN(KESTOVA_CPACK, {"--config", KESTOVA_BINARY_DIR "/CPackConfig.cmake", "-G", "DEB",
                                "-B", m_tree.In("packages")});
    for (const char* const package : {kRuntime, kDevelopment, kHost})
        KESTOVA_RUN("dpkg-deb", {"-x", File(package), m_tree.In("root")});
}

void tst_Packages::areNamedAfterTheVersion()
{
    QStringList names;
    for (const char* const package : {kHost, kDevelopment, kRuntime}) {
        names << QFileInfo(File(package)).fileName();
        QCOMPARE(Field(package, "Version"), QString(KESTOVA_PROJECT_VERSION));
    }
    QCOMPARE(QDir(m_tree.In("packages")).entryList({"*.deb"}, QDir::Files, QDir::Name), names);
}

void tst_Packages::holdTheirPart_data()
{
    QTest::addColumn<QString>("package");
    QTest::addColumn<QString>("part");
    QTest::newRow("the library") << kRuntime << "Runtime";
    QTest::newRow("development") << kDevelopment << "Development";
    QTest::newRow("the host") << kHost << "Host";
}

void tst_Packages::holdTheirPart()
{
    QFETCH(const QString, package);
    QFETCH(const QString, part);
    const QString folder = m_tree.In("part-" + part);
    KESTOVA_RUN("dpkg-deb", {"-x", File(package), folder});
    QCOMPARE(DifferenceFromPart(FilesBelow(folder + "/usr"), part), QString());
    QCOMPARE(FilesBelow(folder).size(), FilesOfPart(part).size()); // and nothing elsewhere
}

void tst_Packages::needEachOther()
{
    const QString library = kRuntime;
    const QStringList development = Field(kDevelopment, "Depends").split(", ");
    QVERIFY(development.contains(library + " (= " KESTOVA_PROJECT_VERSION ")"));
    QVERIFY(development.contains("qtbase5-dev (>= 5.15)"));
    QVERIFY(Field(kHost, "Depends").contains(library + " (>= " KESTOVA_PROJECT_VERSION ")"));
    for (const char* const package : {kRuntime, kHost}) {
        const QString needed = Field(package, "Depends"); // read from the programs
        QVERIFY2(needed.contains("libqt5widgets5 (>= "), qPrintable(needed));
        QVERIFY2(needed.contains("libc6 (>= "), qPrintable(needed));
    }
}

void tst_Packages::tellTheLinkerOfTheLibrary()
{
    const QString control = m_tree.In("control");
    KESTOVA_RUN("dpkg-deb", {"-e", File(kRuntime), control});
    QCOMPARE(QString(TextOf(control + "/shlibs")).trimmed(),
             QString("libKestovaTimelineQU " KESTOVA_PROJECT_MAJOR " ") + kRuntime +
                 " (>= " KESTOVA_PROJECT_VERSION ")");
    QVERIFY(TextOf(control + "/postinst").contains("ldconfig\n"));
    QVERIFY(TextOf(control + "/postrm").contains("ldconfig\n"));
}

void tst_Packages::areStripped()
{
    for (const QString& file : {QString(KESTOVA_LIBDIR "/libKestovaTimelineQU.so"),
                                QString("bin/kestova-host"), QString("bin/kestova-skin-check")}) {
        const Outcome sections = Run("readelf", {"-S", "-W", Extracted(file)});
        QVERIFY2(sections.output.contains(".dynsym"), qPrintable(sections.output));
        QVERIFY2(!sections.output.contains(".symtab"), qPrintable(file));
    }
}

void tst_Packages::canBeBuiltWith()
{
    QVERIFY(m_tree.BuildMinimal("found", {"-DCMAKE_PREFIX_PATH=" + m_tree.In("root/usr")}));
    const QByteArray cache = TextOf(m_tree.In("found/CMakeCache.txt"));
    QVERIFY(cache.contains("KestovaTimelineQU_DIR:PATH=" + m_tree.In("root/usr/").toUtf8()));
    KESTOVA_COMPARE_PICTURE(m_tree.PictureOf(m_tree.In("found/minimal")), "minimal/window");
}

void tst_Packages::runTheHost()
{
    const QImage picture = PictureOfTheHost(Extracted("bin/kestova-host"));
    QVERIFY(!picture.isNull());
    QVERIFY(picture == PictureOfTheHost(KESTOVA_HOST_PROGRAM));
}

QTEST_APPLESS_MAIN(tst_Packages)
#include "tst_Packages.moc"
