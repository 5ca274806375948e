// Cut and copy fill the clipboards of the tracks when the host agrees.

#include "TimelineKeyValues.h"
#include "support/HostFixture.h"

#include <QtTest>

using namespace KestovaTest;

class tst_ClipboardFilling : public QObject
{
    Q_OBJECT

    std::unique_ptr<HostFixture> m_fixture;
    CTimelineTrackBase* m_arm = nullptr;
    CTimelineTrackBase* m_leg = nullptr;
    VZ::CArrayList<CTimelineTrackBase*> m_tracks;

    CTimelineManager& Manager() const { return *m_fixture->manager; }

    int Edit(TLEditType type, int answer)
    {
        m_fixture->host.editAnswer = answer;
        return Manager().ReceiveTrackEdit(type, m_tracks, 0, 0);
    }

    CTimelineTrackBase* Track(const QString& name, std::initializer_list<int> frames)
    {
        CTimelineTrackBase* const track = m_fixture->Root(TL_TRACK_KEY, name);
        m_fixture->AddKeys(track, frames);
        m_tracks.Add(track);
        return track;
    }

    void Select(CTimelineTrackBase* track, int first, int last) const
    {
        Manager().GetKeyDataArray(track)->SetSelection(first, last, true, TL_KEY_ANY_KIND);
    }

    /// The frames of a track's clipboard and its source value.
    QString Clipboard(CTimelineTrackBase* track) const
    {
        std::vector<VZ::CPointer<CTimelineKey>> keys;
        int source = 0;
        if (!Manager().GetClipboardKeys(track, keys, source))
            return QStringLiteral("empty");
        QStringList frames;
        for (const auto& key : keys)
            frames << QString::number(key->frame);
        return frames.join(' ') + " from " + QString::number(source);
    }

private slots:
    void init()
    {
        m_fixture = std::make_unique<HostFixture>();
        m_tracks.RemoveAll();
        m_arm = Track("arm", {10, 20, 30});
        m_leg = Track("leg", {15, 40});
        Select(m_arm, 20, 30);
        Select(m_leg, 15, 15);
    }
    void cleanup()
    {
        m_fixture->host.reaction = nullptr;
        m_fixture.reset();
    }

    void anEditFillsThemWhenTheHostAgrees_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("fills");
        QTest::newRow("a cut") << 12 << 0 << true;
        QTest::newRow("a copy") << 13 << 5 << true;
        QTest::newRow("a cut that is refused") << 12 << -1 << false;
        QTest::newRow("a copy that is refused") << 13 << -7 << false;
        QTest::newRow("a paste") << 14 << 0 << false;
        QTest::newRow("a delete") << 15 << 0 << false;
        QTest::newRow("a move") << 2 << 0 << false;
    }
    void anEditFillsThemWhenTheHostAgrees()
    {
        QFETCH(int, type);
        QFETCH(int, answer);
        QFETCH(bool, fills);
        QCOMPARE(Edit(static_cast<TLEditType>(type), answer), answer);
        QCOMPARE(Clipboard(m_arm), fills ? QStringLiteral("20 30 from 20") : "empty");
        QCOMPARE(Clipboard(m_leg), fills ? QStringLiteral("15 from 15") : "empty");
    }

    void theKeysAreThoseOfBeforeTheCallAndCopies()
    {
        m_fixture->host.reaction = [this](const QString&) {
            const auto key = Manager().GetKeyDataArray(m_arm)->GetAt(1);
            Manager().GetKeyDataArray(m_arm)->RemoveAll();
            key->frame = 77;
        };
        Edit(TL_EDIT_CUT, 0);
        QCOMPARE(Clipboard(m_arm), QStringLiteral("20 30 from 20"));
    }

    void aTrackWithoutSelectedKeysKeepsItsClipboard()
    {
        Edit(TL_EDIT_COPY, 0);
        Manager().GetKeyDataArray(m_arm)->ClearAllSelection();
        Manager().GetKeyDataArray(m_leg)->ClearAllSelection();
        Select(m_leg, 40, 40);
        Edit(TL_EDIT_COPY, 0);
        QCOMPARE(Clipboard(m_arm), QStringLiteral("20 30 from 20"));
        QCOMPARE(Clipboard(m_leg), QStringLiteral("40 from 40"));
    }

    void aTrackThatIsNotListedKeepsItsClipboard()
    {
        m_tracks.RemoveAll();
        m_tracks.Add(m_leg);
        Edit(TL_EDIT_COPY, 0);
        QCOMPARE(Clipboard(m_arm), QStringLiteral("empty"));
    }

    void tracksMayBeDeletedMeanwhile()
    {
        m_fixture->host.reaction = [this](const QString&) { Manager().DeleteTrack(m_arm); };
        QCOMPARE(Edit(TL_EDIT_CUT, 0), 0);
        QCOMPARE(Clipboard(m_leg), QStringLiteral("15 from 15"));
        // A list that names it still is harmless, too.
        m_fixture->host.reaction = nullptr;
        m_fixture->Settle();
        struct Deaf : CTimelineManagerInterface
        {
            int OnEditingKeys(TLEditType, const VZ::CArrayList<CTimelineTrackBase*>&, int,
                              int) override
            {
                return 0;
            }
        } deaf;
        CTimelineManager other(nullptr);
        other.CreateTimelineManager(&deaf, std::wstring());
        QCOMPARE(other.ReceiveTrackEdit(TL_EDIT_COPY, m_tracks, 0, 0), 0);
    }

    void theManagerMayBeDeletedMeanwhile()
    {
        CTimelineManager* const manager = m_fixture->manager.get();
        m_fixture->host.reaction = [this](const QString&) { m_fixture->manager.reset(); };
        m_fixture->host.editAnswer = 3;
        QCOMPARE(manager->ReceiveTrackEdit(TL_EDIT_COPY, m_tracks, 0, 0), 3);
    }
};

QTEST_MAIN(tst_ClipboardFilling)
#include "tst_ClipboardFilling.moc"
