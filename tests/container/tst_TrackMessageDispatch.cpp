#include "TestTracks.h"
#include "container/CTimelineContainer.h"
#include "container/CTimelineContainerInterface.h"
#include "container/TrackMessageDispatch.h"
#include "library/TimelineLibrary.h"
#include "model/TimelineKeyValues.h"
#include "support/HostFixture.h"
#include "support/PaintCounter.h"

#include <functional>

using namespace KestovaTest;

namespace {

QString Text(const QVariant& value)
{
    return value.toString();
}

/// Writes down what the container sends, values and handle included.
class RecordingOwner : public CTimelineContainerInterface
{
public:
    QStringList sent;
    int editAnswer = 7;
    std::function<void()> reaction; ///< called after a message was written down

    int OnContainerMessage(unsigned int code, CTimelineTrackBase* track, HANDLE handle,
                           QVariant value1, QVariant value2, QVariant value3) override
    {
        sent << QStringLiteral("%1 %2 #%3 (%4,%5,%6)")
                    .arg(code)
                    .arg(track ? track->GetCaption() : "-")
                    .arg(reinterpret_cast<qintptr>(handle))
                    .arg(Text(value1), Text(value2), Text(value3));
        if (reaction)
            reaction();
        return 0;
    }

    int OnContainerTrackEdit(TLEditType type, const VZ::CArrayList<CTimelineTrackBase*>& tracks,
                             QVariant value1, QVariant value2) override
    {
        QStringList names;
        for (const CTimelineTrackBase* track : tracks)
            names << track->GetCaption();
        sent << QStringLiteral("edit %1 [%2] (%3,%4)")
                    .arg(int(type))
                    .arg(names.join(','), Text(value1), Text(value2));
        return editAnswer;
    }

    bool OnContainerDrop(TLDropFileType, QString) override { return false; }
};

/// When the container is painted because of a message.
enum class Repaint
{
    None,
    Later,
    AtOnce
};

} // namespace

Q_DECLARE_METATYPE(Repaint)

class tst_TrackMessageDispatch : public QObject
{
    Q_OBJECT

    std::unique_ptr<HostFixture> m_fixture;
    RecordingOwner m_owner;
    CTimelineTrackBase* m_root = nullptr;
    CTimelineTrackBase* m_track = nullptr;

    CTimelineContainer& Container() const { return *m_fixture->Container(); }

    int Send(int code) { return Send(code, m_track); }
    int Send(int code, CTimelineTrackBase* track)
    {
        return DispatchTrackMessage(
            Container(), {code, track, 5, QVariant("one"), QVariant("two"), QVariant("three")});
    }

    CTimelineTrackBase* Child(const QString& name)
    {
        return m_fixture->Child(m_root, TL_TRACK_KEY, name);
    }

private slots:
    void init()
    {
        m_fixture = std::make_unique<HostFixture>();
        m_root = m_fixture->Root(TL_TRACK_KEY, "root");
        m_track = Child("a");
        m_owner.sent.clear();
        m_owner.reaction = nullptr;
        Container().SetOwnerInterface(&m_owner);
        Container().SetCurrentFrame(42);
        m_fixture->ForgetCalls();
    }
    void cleanup()
    {
        // They refer to variables of the test that is over.
        m_owner.reaction = nullptr;
        m_fixture->Window().reaction = nullptr;
        m_fixture.reset();
    }

    void aCodeIsTranslated_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<int>("result");
        QTest::addColumn<QStringList>("sent");
        QTest::addColumn<Repaint>("repaint");
        const QString values = " a #5 (one,two,three)";
        const QString framed = " a #5 (42,two,three)";
        const QString nothing = " [a] (0,0)";
        const QString edited = " [a] (two,three)";
        QTest::newRow("1101") << 1101 << 0 << QStringList{} << Repaint::Later;
        QTest::newRow("1102") << 1102 << 0 << QStringList{"1313" + values} << Repaint::Later;
        QTest::newRow("1103") << 1103 << 0 << QStringList{"1312 - #0 (0,0,0)"} << Repaint::Later;
        QTest::newRow("1104 replaces the first value by the current frame")
            << 1104 << 0 << QStringList{"1301" + framed} << Repaint::AtOnce;
        QTest::newRow("1105 likewise")
            << 1105 << 0 << QStringList{"1302" + framed} << Repaint::AtOnce;
        QTest::newRow("1106") << 1106 << 0 << QStringList{"1303" + values} << Repaint::Later;
        QTest::newRow("1107") << 1107 << 0 << QStringList{"1304" + values} << Repaint::Later;
        QTest::newRow("1115") << 1115 << 0 << QStringList{"1307" + values} << Repaint::None;
        QTest::newRow("1117") << 1117 << 0 << QStringList{"1311" + values} << Repaint::None;
        QTest::newRow("1201") << 1201 << 0 << QStringList{} << Repaint::Later;
        QTest::newRow("1202") << 1202 << 0 << QStringList{} << Repaint::Later;
        for (const int code : {1203, 1206, 1209})
            QTest::addRow("%d answers what the host answers", code)
                << code << 7 << QStringList{"edit 0" + nothing} << Repaint::None;
        QTest::newRow("1204") << 1204 << 0 << QStringList{"edit 3" + edited} << Repaint::None;
        QTest::newRow("1205 makes exactly two edits")
            << 1205 << 0 << QStringList{"edit 7" + edited, "edit 1" + nothing} << Repaint::None;
        QTest::newRow("1207") << 1207 << 0 << QStringList{"edit 4" + edited} << Repaint::None;
        QTest::newRow("1208") << 1208 << 0 << QStringList{"edit 8" + edited, "edit 1" + nothing}
                              << Repaint::None;
        QTest::newRow("1210") << 1210 << 0 << QStringList{"edit 5" + edited} << Repaint::None;
        QTest::newRow("1211") << 1211 << 0 << QStringList{"edit 9" + edited, "edit 1" + nothing}
                              << Repaint::None;
        QTest::newRow("1212 answers loop") << 1212 << 3 << QStringList{} << Repaint::None;
        QTest::newRow("1213") << 1213 << 0 << QStringList{"1308" + values} << Repaint::None;
        QTest::newRow("1214") << 1214 << 0 << QStringList{} << Repaint::Later;
        for (const int code : {0, -1, 1100, 1118, 1150, 1200, 1215, 1301, 9999})
            QTest::addRow("%d is none", code) << code << -1 << QStringList{} << Repaint::None;
    }
    void aCodeIsTranslated()
    {
        QFETCH(int, code);
        QFETCH(QStringList, sent);
        QFETCH(Repaint, repaint);
        Container().SetCurrentFrame(41);
        m_fixture->Settle();
        // As a track writes it before it reports: on screen is still the frame before.
        TimelineLibrary::Instance().axis.currentFrame = 42;
        PaintCounter counter(Container());
        QTEST(Send(code), "result");
        QCOMPARE(m_owner.sent, sent);
        QCOMPARE(counter.paints, repaint == Repaint::AtOnce ? 1 : 0);
        m_fixture->Settle();
        QCOMPARE(counter.paints > 0, repaint != Repaint::None);
    }

    void movedRowsAreRepaintedThoughThereAreNone()
    {
        Container().DeleteAllTrack(m_fixture->manager->GetParentWidget());
        m_fixture->Settle();
        PaintCounter counter(Container());
        QCOMPARE(Send(1202), 0);
        QCOMPARE(counter.paints, 0);
        m_fixture->Settle();
        QCOMPARE(counter.paints, 1);
    }

    void movedRowsArePlacedAnew()
    {
        const QPoint place = m_track->pos();
        m_track->move(3, 5);
        QCOMPARE(Send(1202), 0);
        QCOMPARE(m_track->pos(), place);
    }

    void withoutRulerAndScrollBarRowsAreNotMoved()
    {
        CTimelineContainer container(nullptr);
        container.SetOwnerInterface(&m_owner);
        const std::unique_ptr<CTimelineTrackBase> row(MakeTrack(TL_TRACK_KEY, "row"));
        container.ShowRootTrack(row.get(), 0, false);
        row->setGeometry(3, 5, 70, 90);
        QCOMPARE(DispatchTrackMessage(container, {1202, row.get(), 0, 0, 0, 0}), 0);
        QCOMPARE(row->geometry(), QRect(3, 5, 70, 90));
        container.HideRootTrack(row.get(), nullptr, false, false);
    }

    void everyCodeBesideTheTableIsNone()
    {
        for (int code = 1000; code < 1400; ++code) {
            if (code >= 1101 && code <= 1117)
                continue;
            if (code >= 1201 && code <= 1214)
                continue;
            QCOMPARE(Send(code), -1);
        }
        QCOMPARE(m_owner.sent, QStringList());
    }

    void withoutAnOwnerEveryCodeIsRefusedAndChangesNothing()
    {
        Container().SetOwnerInterface(nullptr);
        m_track->Keys().Add(VZ::CPointer<CTimelineKey>(new CTimelineKey), false);
        m_track->Keys().SetSelectionByIndex(0, 0, true, TL_KEY_ANY_KIND);
        const QPoint misplaced(3, 5);
        m_track->move(misplaced);
        m_fixture->Settle();
        PaintCounter counter(Container());
        for (int code = 1101; code <= 1214; ++code)
            QCOMPARE(Send(code, m_root), -1);
        m_fixture->Settle();
        QCOMPARE(counter.paints, 0);
        QCOMPARE(m_track->pos(), misplaced);
        QCOMPARE(m_track->Keys().SelGetSize(), std::size_t(1));
        QCOMPARE(m_track->Keys().GetSize(), std::size_t(1));
        QVERIFY(!m_root->IsActive());
        QCOMPARE(m_fixture->Window().calls, QStringList());
    }

    void theSpeedStateAnswersSpeed()
    {
        Container().SetLoopSpeedState(true);
        QCOMPARE(Send(1212), 4);
        Container().SetLoopSpeedState(false);
        QCOMPARE(Send(1212), 3);
    }

    void theMenusListGoesOnAsHandle()
    {
        int list = 0;
        const QVariant address = QVariant::fromValue<void*>(&list);
        DispatchTrackMessage(Container(), {1116, m_track, 5, address, QVariant(0), QVariant(0)});
        QCOMPARE(m_owner.sent.size(), 1);
        QVERIFY(m_owner.sent.front().startsWith(
            QStringLiteral("1310 a #%1 ").arg(reinterpret_cast<qintptr>(&list))));
    }

    void aPressedTrackIsActivated()
    {
        QCOMPARE(Send(1108), 0);
        QVERIFY(m_track->IsActive());
        QVERIFY(m_root->IsActive());
        const auto child = reinterpret_cast<qintptr>(static_cast<void*>(m_track));
        QCOMPARE(m_owner.sent.last(), QStringLiteral("1305 root #%1 (0,0,0)").arg(child));
        // And once more, when it is active already.
        m_owner.sent.clear();
        QCOMPARE(Send(1108), 0);
        QCOMPARE(m_owner.sent, QStringList{QStringLiteral("1306 root #%1 (0,0,0)").arg(child)});
    }

    void theHostHearsOfAMovedTimeMarkBeforeTheContainerIsUpdated_data()
    {
        QTest::addColumn<int>("code");
        QTest::newRow("moved") << 1106;
        QTest::newRow("set") << 1107;
    }
    void theHostHearsOfAMovedTimeMarkBeforeTheContainerIsUpdated()
    {
        QFETCH(int, code);
        m_fixture->Settle();
        PaintCounter counter(Container());
        int paintsBeforeTheUpdate = -1;
        m_owner.reaction = [&] {
            m_fixture->Settle();
            paintsBeforeTheUpdate = counter.paints;
        };
        Send(code);
        QCOMPARE(paintsBeforeTheUpdate, 0);
        m_fixture->Settle();
        QCOMPARE(counter.paints, 1);
    }

    void aClearedSelectionSparesTheSender()
    {
        CTimelineTrackBase* const b = Child("b");
        for (CTimelineTrackBase* track : {m_track, b}) {
            AddKeysTo(*track, {4});
            track->Keys().SetSelectionByIndex(0, 0, true, TL_KEY_ANY_KIND);
        }
        Send(1103);
        QCOMPARE(m_track->Keys().SelGetSize(), std::size_t(1));
        QCOMPARE(b->Keys().SelGetSize(), std::size_t(0));
    }

    void aChangedSelectionTellsTheWindowBeforeTheHost()
    {
        QStringList order;
        m_fixture->Window().reaction = [&](const QString& call) { order << call; };
        m_owner.reaction = [&] { order << m_owner.sent.last().section(' ', 0, 0); };
        Send(1102);
        QCOMPARE(order, (QStringList{"refreshed", "1313"}));
    }
};

QTEST_MAIN(tst_TrackMessageDispatch)
#include "tst_TrackMessageDispatch.moc"
