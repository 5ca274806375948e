#include "container/CTimelineContainer.h"
#include "library/TimelineLibrary.h"
#include "skin/SkinFiles.h"
#include "skin/SkinSchema.h"
#include "support/HostFixture.h"
#include "support/TimelineFixture.h"

#include <QtTest>

#include <climits>

using namespace KestovaTest;

namespace {

constexpr TL_TRACK_TYPE kHostTypes[] = {TL_TRACK_SWITCH,         TL_TRACK_KEY,
                                        TL_TRACK_TRANSITION_KEY, TL_TRACK_LINK_KEY,
                                        TL_TRACK_VISEME_KEY,     TL_TRACK_CLIP};
constexpr int kHostTypeCount = sizeof(kHostTypes) / sizeof(kHostTypes[0]);

QByteArray DefaultSkin()
{
    QFile file(QStringLiteral(KESTOVA_SOURCE_DIR "/skins/default.ini"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read the default skin");
    return file.readAll();
}

/// The key that a line of a skin holds; empty for another line.
QByteArray KeyOf(const QByteArray& line)
{
    const int equals = line.indexOf('=');
    return equals < 0 || line.startsWith(';') ? QByteArray() : line.left(equals).trimmed();
}

/// @p skin without any line of the key @p gone.
QByteArray WithoutKey(const QByteArray& skin, const QByteArray& gone)
{
    QByteArray text;
    for (const QByteArray& line : skin.split('\n')) {
        if (KeyOf(line) != gone)
            text += line + '\n';
    }
    return text;
}

/// @p skin with another value for the key @p changed, wherever it stands.
QByteArray WithValue(const QByteArray& skin, const QByteArray& changed, const QByteArray& value)
{
    QByteArray text;
    for (const QByteArray& line : skin.split('\n'))
        text += (KeyOf(line) == changed ? changed + " = " + value : line) + '\n';
    return text;
}

int CaptionHeight(int picture)
{
    return TimelineLibrary::Instance().images.Picture(kCaptionPictures, picture).height();
}

} // namespace

/// What a host meets whose skin is bad: refusals that leave nothing behind, and rows without
/// pictures.
class tst_BadSkinsInTheManager : public QObject
{
    Q_OBJECT

private slots:
    void noTrackIsMadeFromASkinThatCannotBeRead_data() { AddBadSkins(); }
    void noTrackIsMadeFromASkinThatCannotBeRead();
    void noMainWidgetIsMadeFromASkinThatCannotBeRead_data() { AddBadSkins(); }
    void noMainWidgetIsMadeFromASkinThatCannotBeRead();
    void aTruncatedSkinMakesTheTracksThatItHoldsWhole();

    void numbersBeyondThePicturesShowARowWithoutThem_data();
    void numbersBeyondThePicturesShowARowWithoutThem();
    void rowsAreAsHighAsTheirCaptionPictureOrHaveNoHeight_data();
    void rowsAreAsHighAsTheirCaptionPictureOrHaveNoHeight();

private:
    void AddBadSkins();
    /// What the timeline shows of one row of every kind, the last one active.
    QImage Shown(const QByteArray& skin);

    SkinDirectory m_files;
    const QByteArray m_skin = DefaultSkin();
};

void tst_BadSkinsInTheManager::AddBadSkins()
{
    QTest::addColumn<QString>("path");
    const auto row = [](const char* name, const std::wstring& path) {
        QTest::newRow(name) << QString::fromStdWString(path);
    };
    const QByteArray bare = WithoutKey(WithoutKey(m_skin, "TrackKey"), "MarkLine");
    row("missing file", m_files.Path("missing.ini"));
    row("directory", QDir::tempPath().toStdWString());
    row("bad UTF-8", m_files.Write("bad.ini", m_skin + "; \xC0\xAF\n"));
    row("missing keys", m_files.Write("missing-keys.ini", bare));
    row("truncated file", m_files.Write("cut.ini", m_skin.left(m_skin.indexOf("TxtMinSize"))));
    row("empty file", m_files.Write("empty.ini", ""));
}

void tst_BadSkinsInTheManager::noTrackIsMadeFromASkinThatCannotBeRead()
{
    QFETCH(QString, path);
    HostFixture fixture;
    const int children = fixture.Container()->children().size();
    QVERIFY(fixture.manager->CreateTimelineManager(&fixture.host, path.toStdWString()));
    for (const TL_TRACK_TYPE type : kHostTypes) {
        QVERIFY(!fixture.manager->CreateTrack(type, "Name", 1));
        QCOMPARE(fixture.Container()->children().size(), children);
    }
    // The timeline still works with what it has.
    fixture.Settle();
    QVERIFY(!fixture.Container()->grab().isNull());
}

void tst_BadSkinsInTheManager::noMainWidgetIsMadeFromASkinThatCannotBeRead()
{
    QFETCH(QString, path);
    HostFixture fixture;
    QVERIFY(fixture.manager->CreateTimelineManager(&fixture.host, path.toStdWString()));
    QVERIFY(!fixture.manager->CreateTimelineMainWidget(fixture.dock));
    QVERIFY(!fixture.manager->GetTimelineWnd());
    QCOMPARE(fixture.factory.released, fixture.factory.made);
    QVERIFY(!fixture.manager->CreateTrack(TL_TRACK_KEY, "Name", 1));
}

void tst_BadSkinsInTheManager::aTruncatedSkinMakesTheTracksThatItHoldsWhole()
{
    constexpr int kCuts = 24;
    HostFixture fixture;
    int made = 0;
    int refused = 0;
    for (int cut = 0; cut <= kCuts; ++cut) {
        const QByteArray text = m_skin.left(m_skin.size() / kCuts * cut);
        const SkinMap map(text);
        fixture.manager->CreateTimelineManager(&fixture.host, m_files.Write("cut.ini", text));
        for (const TL_TRACK_TYPE type : kHostTypes) {
            CTimelineTrackBase* const track = fixture.manager->CreateTrack(type, "Name", 1);
            QCOMPARE(track != nullptr, map.IsComplete(type, 1));
            ++(track ? made : refused);
            QCOMPARE(fixture.manager->DeleteTrack(track), track != nullptr);
        }
    }
    QVERIFY(made > 0 && refused > 0); // both answers were met
}

QImage tst_BadSkinsInTheManager::Shown(const QByteArray& skin)
{
    HostFixture fixture;
    fixture.manager->CreateTimelineManager(&fixture.host, m_files.Write("skin.ini", skin));
    for (const TL_TRACK_TYPE type : kHostTypes) {
        CTimelineTrackBase* const row = fixture.Root(type, QStringLiteral("Name"));
        if (!row)
            qFatal("a track was refused");
        fixture.AddKeys(row, {3, 20});
    }
    fixture.Settle();
    return fixture.Container()->grab().toImage();
}

void tst_BadSkinsInTheManager::numbersBeyondThePicturesShowARowWithoutThem_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<int>("number");
    for (const char* key : {"BitmapID", "BitmapFocusID", "BtnBmpID", "TrackBgID", "BtnBmpType",
                            "ScrollBmpType", "KeyBmpType", "RelKeyBmpType"}) {
        for (const int number : {INT_MIN, -1, INT_MAX})
            QTest::addRow("%s %d", key, number) << QByteArray(key) << number;
    }
}

void tst_BadSkinsInTheManager::numbersBeyondThePicturesShowARowWithoutThem()
{
    constexpr int kBeyondEveryTable = 1000;
    QFETCH(QByteArray, key);
    QFETCH(int, number);
    const QImage shown = Shown(WithValue(m_skin, key, QByteArray::number(number)));
    QVERIFY(!shown.isNull());
    // The number before the first is the end of what lies before, for captions and glyphs.
    if (number != -1)
        QCOMPARE(shown, Shown(WithValue(m_skin, key, QByteArray::number(kBeyondEveryTable))));
}

void tst_BadSkinsInTheManager::rowsAreAsHighAsTheirCaptionPictureOrHaveNoHeight_data()
{
    constexpr int kRulerCaption = 3;
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("rowHeight");
    HostFixture loadsThePictures;
    QTest::newRow("smallest int") << INT_MIN << 0;
    QTest::newRow("before the first") << -1 << CaptionHeight(kRulerCaption);
    QTest::newRow("largest int") << INT_MAX << 0;
}

void tst_BadSkinsInTheManager::rowsAreAsHighAsTheirCaptionPictureOrHaveNoHeight()
{
    QFETCH(int, number);
    QFETCH(int, rowHeight);
    HostFixture fixture;
    const int before = fixture.Window().GetWndNeedHeight();
    const QByteArray skin = WithValue(m_skin, "BitmapID", QByteArray::number(number));
    fixture.manager->CreateTimelineManager(&fixture.host, m_files.Write("skin.ini", skin));
    for (const TL_TRACK_TYPE type : kHostTypes)
        QVERIFY(fixture.Root(type, QStringLiteral("Name")));
    QCOMPARE(fixture.Window().GetWndNeedHeight(), before + kHostTypeCount * rowHeight);
}

QTEST_MAIN(tst_BadSkinsInTheManager)
#include "tst_BadSkinsInTheManager.moc"
