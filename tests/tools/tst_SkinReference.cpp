#include <QDir>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString kDocs = QStringLiteral(KESTOVA_SOURCE_DIR "/docs/");
const QString kPage = QStringLiteral("skin-reference.md");

QString TextOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll());
}

/// The pictures that the page shows, by their paths beside it.
QStringList PicturesOf(const QString& page)
{
    const QRegularExpression shown(QStringLiteral("!\\[[^\\]]*\\]\\(([^)]+)\\)"));
    QStringList pictures;
    for (auto match = shown.globalMatch(page); match.hasNext();)
        pictures << match.next().captured(1);
    return pictures;
}

} // namespace

/// The committed reference of skins is what the program writes; scripts/skin-reference.sh renews
/// it.
class tst_SkinReference : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void thePageIsUpToDate();
    void thePicturesAreUpToDate();
    void aSkinThatCannotBeReadIsToldOf();

private:
    QTemporaryDir m_written;
};

void tst_SkinReference::initTestCase()
{
    const int exitCode =
        QProcess::execute(QStringLiteral(KESTOVA_SKIN_REFERENCE),
                          {KESTOVA_SOURCE_DIR "/skins/default.ini", m_written.path()});
    QCOMPARE(exitCode, 0);
}

void tst_SkinReference::thePageIsUpToDate()
{
    const QStringList written = TextOf(m_written.filePath(kPage)).split('\n');
    const QStringList committed = TextOf(kDocs + kPage).split('\n');
    QVERIFY(written.size() > 100);
    for (int line = 0; line < qMin(written.size(), committed.size()); ++line)
        QCOMPARE(committed[line], written[line]);
    QCOMPARE(committed.size(), written.size());
}

void tst_SkinReference::thePicturesAreUpToDate()
{
#ifdef Q_OS_WIN
    QSKIP("the pictures are made on Linux, where another font engine draws their texts");
#endif
    const QStringList pictures = PicturesOf(TextOf(kDocs + kPage));
    QCOMPARE(pictures.size(), 6); // of every kind that a host can make
    for (const QString& picture : pictures) {
        const QImage written(m_written.filePath(picture));
        const QImage committed(kDocs + picture);
        QVERIFY2(!written.isNull(), qPrintable(picture));
        QVERIFY2(committed.convertToFormat(written.format()) == written, qPrintable(picture));
    }
}

void tst_SkinReference::aSkinThatCannotBeReadIsToldOf()
{
    QProcess program;
    program.start(QStringLiteral(KESTOVA_SKIN_REFERENCE), {"/missing.ini", m_written.path()});
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.exitCode(), 1);
    QVERIFY(program.readAllStandardError().contains("/missing.ini: there is no such file"));
}

QTEST_MAIN(tst_SkinReference)
#include "tst_SkinReference.moc"
