// The ways of getting the library into a build, with the smallest host.
#include "InstalledTree.h"
#include "Shell.h"
#include "support/PictureCheck.h"

#include <QtTest>

using namespace KestovaTest;

class tst_Embedding : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void isFoundByCMake();
    void isFoundByPkgConfig();
    void isBuiltAsAPartOfABuild();
    void looksTheSameEveryWay();
    void isAskedForByVersionAndComponents_data();
    void isAskedForByVersionAndComponents();
    void saysThatTheSkinsAreNotInstalled();

private:
    Outcome Ask(const QString& version, const QString& components, const QString& optional) const;
    void Keep(const QString& way, const QString& program)
    {
        m_pictures[way] = m_tree.PictureOf(m_tree.In(program));
    }

    InstalledTree m_tree;
    QMap<QString, QImage> m_pictures; // of the smallest host, by the way that it was built in
};

void tst_Embedding::initTestCase()
{
    QVERIFY(m_tree.IsValid());
    QVERIFY(m_tree.InstallAndMove());
}

void tst_Embedding::isFoundByCMake()
{
    QVERIFY(m_tree.BuildMinimal("found", {"-DCMAKE_PREFIX_PATH=" + m_tree.Prefix()}));
    const QByteArray cache = TextOf(m_tree.In("found/CMakeCache.txt"));
    QVERIFY(cache.contains("KestovaTimelineQU_DIR:PATH=" + m_tree.Prefix().toUtf8() + '/'));
    Keep("find_package", "found/minimal");
}

void tst_Embedding::isFoundByPkgConfig()
{
    // Outside the sources, as in a host's own folder.
    QVERIFY(QDir().mkdir(m_tree.In("made")));
    for (const QString file : {"main.cpp", "Makefile"})
        QVERIFY(
            QFile::copy(KESTOVA_SOURCE_DIR "/examples/minimal/" + file, m_tree.In("made/" + file)));
    KESTOVA_RUN("make", {"-C", m_tree.In("made"), "CXX=" KESTOVA_CXX},
                {"PKG_CONFIG_PATH=" + m_tree.Prefix() + "/" KESTOVA_LIBDIR "/pkgconfig"});
    Keep("pkg-config", "made/minimal");
}

void tst_Embedding::isBuiltAsAPartOfABuild()
{
    // All sources in one go, which takes seconds instead of minutes. No two of them may give a name
    // of their own to different things then: hosts that build everything so need that as well.
    QVERIFY(m_tree.BuildMinimal("part",
                                {"-DTIMELINE_SOURCES=" KESTOVA_SOURCE_DIR, "-DCMAKE_UNITY_BUILD=ON",
                                 "-DCMAKE_UNITY_BUILD_BATCH_SIZE=0"}));
    Keep("add_subdirectory", "part/minimal");

    // It is the library alone, which adds nothing to what the other build installs and tests.
    QVERIFY(!QFile::exists(m_tree.In("part/KestovaTimelineQU/host")));
    QVERIFY(!QFile::exists(m_tree.In("part/KestovaTimelineQU/tools")));
    QVERIFY(!QFile::exists(m_tree.In("part/CPackConfig.cmake")));
    QVERIFY(!QFile::exists(m_tree.In("part/KestovaTimelineQU/CTestTestfile.cmake")));
    KESTOVA_RUN(KESTOVA_CMAKE, {"--install", m_tree.In("part"), "--prefix", m_tree.In("nothing")});
    QCOMPARE(FilesBelow(m_tree.In("nothing")), QStringList());
}

void tst_Embedding::looksTheSameEveryWay()
{
    QCOMPARE(m_pictures.size(), 3);
    KESTOVA_COMPARE_PICTURE(m_pictures.first(), "minimal/window");
    for (auto picture = m_pictures.cbegin(); picture != m_pictures.cend(); ++picture) {
        QVERIFY2(picture.value() == m_pictures.first(), qPrintable(picture.key()));
    }
}

/// Has CMake look for the installed library.
Outcome tst_Embedding::Ask(const QString& version, const QString& components,
                           const QString& optional) const
{
    return Run(KESTOVA_CMAKE,
               {"-S", KESTOVA_SOURCE_DIR "/tests/install/asking", "-B", m_tree.In("asking"), "-G",
                KESTOVA_GENERATOR, "-DCMAKE_CXX_COMPILER=" KESTOVA_CXX,
                "-DCMAKE_PREFIX_PATH=" + m_tree.Prefix(), "-DVERSION=" + version,
                "-DCOMPONENTS=" + components, "-DOPTIONAL=" + optional});
}

void tst_Embedding::isAskedForByVersionAndComponents_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("components");
    QTest::addColumn<QString>("optional");
    QTest::addColumn<QString>("refusal"); // none: it is found
    const QString none;
    const QString major = KESTOVA_PROJECT_MAJOR;
    const QString notThisOne("compatible with requested version \"%1\"");
    const QString next = QString::number(major.toInt() + 1);
    const QString before = QString::number(major.toInt() - 1) + ".9";
    QTest::newRow("any") << none << none << none << none;
    QTest::newRow("this major version") << major << none << none << none;
    QTest::newRow("this version") << KESTOVA_PROJECT_VERSION << none << none << none;
    QTest::newRow("the next major version") << next << none << none << notThisOne.arg(next);
    QTest::newRow("the major version before") << before << none << none << notThisOne.arg(before);
    QTest::newRow("a later minor version")
        << major + ".99" << none << none << notThisOne.arg(major + ".99");
    QTest::newRow("all components") << major << "Library;Skins" << none << none;
    QTest::newRow("an unknown component")
        << major << "Library;Sounds" << none << "there is no component Sounds";
    QTest::newRow("an unknown component that may lack") << major << "Library"
                                                        << "Sounds" << none;
}

void tst_Embedding::isAskedForByVersionAndComponents()
{
    QFETCH(const QString, version);
    QFETCH(const QString, components);
    QFETCH(const QString, optional);
    QFETCH(const QString, refusal);
    const Outcome outcome = Ask(version, components, optional);
    const QString text = outcome.output.simplified();
    QVERIFY2((outcome.exitCode == 0) == refusal.isEmpty(), qPrintable(outcome.output));
    if (!refusal.isEmpty()) {
        QVERIFY2(text.contains(refusal), qPrintable(outcome.output));
        return;
    }
    QVERIFY2(text.contains("version " KESTOVA_PROJECT_VERSION " "), qPrintable(text));
    const QString skins = m_tree.Prefix() + "/share/KestovaTimelineQU/skins";
    QVERIFY2(text.contains("skins " + skins + ' '), qPrintable(text));
    QVERIFY(QFile::exists(skins + "/default.ini"));
}

void tst_Embedding::saysThatTheSkinsAreNotInstalled()
{
    const QString skins = m_tree.Prefix() + "/share/KestovaTimelineQU/skins";
    QVERIFY(QDir().rename(skins, m_tree.In("skins")));
    const Outcome without = Ask(KESTOVA_PROJECT_MAJOR, "Library", "Skins");
    const Outcome with = Ask(KESTOVA_PROJECT_MAJOR, "Skins", QString());
    QVERIFY(QDir().rename(m_tree.In("skins"), skins));
    QVERIFY2(without.exitCode == 0, qPrintable(without.output));
    QVERIFY(with.exitCode != 0);
    QVERIFY2(with.output.simplified().contains("the component Skins is not installed"),
             qPrintable(with.output));
}

QTEST_APPLESS_MAIN(tst_Embedding)
#include "tst_Embedding.moc"
