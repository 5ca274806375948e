#include "DefaultSkin.h"
#include "support/ProgramText.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Run
{
    int exitCode = -1; ///< -1 when the program crashed or did not end
    QString output;
    QString errors;
};

Run Check(const QStringList& arguments)
{
    QProcess program;
    program.start(QStringLiteral(KESTOVA_SKIN_CHECK), arguments);
    Run run;
    if (program.waitForFinished() && program.exitStatus() == QProcess::NormalExit)
        run.exitCode = program.exitCode();
    run.output = ReadText(program.readAllStandardOutput());
    run.errors = ReadText(program.readAllStandardError());
    return run;
}

} // namespace

/// The program itself, from its start to its exit code.
class tst_SkinCheckProgram : public QObject
{
    Q_OBJECT

private slots:
    void endsWellForEverySkinOfTheProject();
    void endsWithOneForErrorsAndTellsThemByLine();
    void endsWellForWarningsAlone();
    void endsWithTwoWhenTheFileCannotBeRead_data();
    void endsWithTwoWhenTheFileCannotBeRead();
    void saysWhichLineIsNotUtf8();
    void tellsHowItIsUsed();

private:
    QString Write(const QByteArray& bytes) const
    {
        QFile file(m_directory.filePath("skin.ini"));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write a skin");
        return file.fileName();
    }

    QTemporaryDir m_directory;
};

void tst_SkinCheckProgram::endsWellForEverySkinOfTheProject()
{
    const QDir skins(QStringLiteral(KESTOVA_SOURCE_DIR "/skins"));
    const QStringList names = skins.entryList({"*.ini"});
    QVERIFY(names.contains("default.ini"));
    for (const QString& name : names) {
        const Run run = Check({skins.filePath(name)});
        QCOMPARE(run.output, skins.filePath(name) + ": 0 errors, 0 warnings\n");
        QCOMPARE(run.exitCode, 0);
    }
}

void tst_SkinCheckProgram::endsWithOneForErrorsAndTellsThemByLine()
{
    const QString path = Write(DefaultSkin().replace("MarkLine = (", "MarkLine = no (").toUtf8());
    const Run run = Check({path});
    QCOMPARE(run.exitCode, 1);
    const QStringList lines = run.output.split('\n');
    QVERIFY2(lines[0].startsWith(path + ":41: [TickTrack] MarkLine: expected a colour"),
             qPrintable(lines[0]));
    QCOMPARE(lines[1], path + ": 1 error, 0 warnings");
}

void tst_SkinCheckProgram::endsWellForWarningsAlone()
{
    const QString path = Write(DefaultSkin().toUtf8() + "[Spare]\n");
    const Run run = Check({path});
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.output.contains(": warning: [Spare]: not used"));
    QVERIFY(run.output.endsWith(": 0 errors, 1 warning\n"));
}

void tst_SkinCheckProgram::endsWithTwoWhenTheFileCannotBeRead_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("missing") << m_directory.filePath("missing.ini");
    QTest::newRow("a directory") << m_directory.path();
    QTest::newRow("no path") << QString();
}

void tst_SkinCheckProgram::endsWithTwoWhenTheFileCannotBeRead()
{
    QFETCH(QString, path);
    const Run run = Check({path});
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QString());
    QVERIFY(run.errors.startsWith(path + ": "));
    QCOMPARE(run.errors.count('\n'), 1);
}

void tst_SkinCheckProgram::saysWhichLineIsNotUtf8()
{
    const QString path = Write("; one\n[Two]\nThree = \xE9\n");
    const Run run = Check({path});
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.errors, path + ": line 3 is not well-formed UTF-8\n");
}

void tst_SkinCheckProgram::tellsHowItIsUsed()
{
    QCOMPARE(Check({"--help"}).exitCode, 0);
    QVERIFY(Check({"--help"}).output.startsWith("Usage: kestova-skin-check FILE"));
    for (const QStringList& arguments : {QStringList(), {"a", "b"}, {"--unknown"}}) {
        const Run run = Check(arguments);
        QCOMPARE(run.exitCode, 2);
        QVERIFY(run.errors.startsWith("Usage:"));
    }
}

QTEST_MAIN(tst_SkinCheckProgram)
#include "tst_SkinCheckProgram.moc"
