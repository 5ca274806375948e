#include "CTimelineKeyArray.h"
#include "container/DropFileRules.h"

#include <QtTest>

class tst_DropFileRules : public QObject
{
    Q_OBJECT

    static DropFileRules Rules(bool fifth, bool sixth)
    {
        DropFileRules rules;
        rules.SetFilters({false, false, false, false, fifth, sixth});
        return rules;
    }

private slots:
    void theExtensionIsTheTextAfterTheLastDotInLowerCase_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("extension");
        QTest::newRow("plain") << "/scenes/walk.clp"
                               << "clp";
        QTest::newRow("capitals") << "Voice.WAV"
                                  << "wav";
        QTest::newRow("several dots") << "take.final.kxs"
                                      << "kxs";
        QTest::newRow("the last dot counts") << "archive.kxs.bak"
                                             << "bak";
        QTest::newRow("no dot gives the whole path") << "Motions/Walk"
                                                     << "motions/walk";
        QTest::newRow("a dot in a folder alone") << "take.1/walk"
                                                 << "1/walk";
        QTest::newRow("a dot at the end") << "walk."
                                          << "";
    }
    void theExtensionIsTheTextAfterTheLastDotInLowerCase()
    {
        QFETCH(QString, path);
        QTEST(DropFileRules::ExtensionOf(path), "extension");
    }

    void aDropIsClassifiedByItsExtension_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("type");
        QTest::newRow("animation") << "a.kxanim" << 1;
        QTest::newRow("motion") << "a.kxmotion" << 2;
        QTest::newRow("motion in space") << "a.kx3dmotion" << 3;
        QTest::newRow("perform") << "a.kxperform" << 4;
        QTest::newRow("idle") << "a.kx7idle" << 6;
        QTest::newRow("the other idle") << "a.kxs2idle" << 6;
        QTest::newRow("facial") << "a.kxfcs" << 7;
        QTest::newRow("take.final.kxs") << "take.final.kxs" << 8;
        QTest::newRow("clip") << "a.CLP" << 9;
        QTest::newRow("automatic motion") << "a.kx7automotion" << 10;
        QTest::newRow("archive.kxs.bak is unrecognised") << "archive.kxs.bak" << 0;
        QTest::newRow("sound without filters") << "a.wav" << 0;
        QTest::newRow("another") << "a.png" << 0;
        QTest::newRow("a name without a dot that is an extension") << "kxs" << 8;
        QTest::newRow("nothing") << "" << 0;
    }
    void aDropIsClassifiedByItsExtension()
    {
        QFETCH(QString, path);
        QTEST(int(DropFileRules().Classify(path)), "type");
    }

    void aSoundsKindFollowsFromTheLastTwoFilters_data()
    {
        QTest::addColumn<bool>("fifth");
        QTest::addColumn<bool>("sixth");
        QTest::addColumn<int>("type");
        QTest::newRow("the fifth") << true << false << 12;
        QTest::newRow("both") << true << true << 12;
        QTest::newRow("the sixth alone") << false << true << 13;
        QTest::newRow("neither") << false << false << 0;
    }
    void aSoundsKindFollowsFromTheLastTwoFilters()
    {
        QFETCH(bool, fifth);
        QFETCH(bool, sixth);
        QFETCH(int, type);
        QCOMPARE(int(Rules(fifth, sixth).Classify("Voice.WAV")), type);
        QCOMPARE(int(Rules(fifth, sixth).Classify("voice.mp3")), type);
    }

    void whatMayBeHeldOverATrack_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("known");
        for (const char* name : {"a.kx7idle", "a.kxmotion", "a.kxanim", "a.kxfcs", "a.kxperform",
                                 "a.kx3dmotion", "a.kxs2idle", "a.kxs", "a.clp", "a.Wav", "a.mp3"})
            QTest::newRow(name) << name << true;
        QTest::newRow("an automatic motion may not") << "a.kx7automotion" << false;
        QTest::newRow("another") << "a.txt" << false;
        QTest::newRow("archive.kxs.bak") << "archive.kxs.bak" << false;
    }
    void whatMayBeHeldOverATrack()
    {
        QFETCH(QString, path);
        QTEST(DropFileRules::IsKnownWhileDragging(path), "known");
    }

    void anyOfTheSixFiltersCounts()
    {
        DropFileRules rules;
        QVERIFY(!rules.IsAnyFilterOn());
        for (std::size_t i = 0; i < 6; ++i) {
            DropFileRules::Filters filters{};
            filters[i] = true;
            rules.SetFilters(filters);
            QVERIFY(rules.IsAnyFilterOn());
        }
        rules.SetFilters({});
        QVERIFY(!rules.IsAnyFilterOn());
    }

    void aClipCoversItsFirstToItsLastFrameBothIncluded_data()
    {
        QTest::addColumn<int>("frame");
        QTest::addColumn<bool>("any");
        QTest::addColumn<bool>("locked");
        // A locked clip from 10 to 19, an open one from 40 to 44.
        QTest::newRow("before") << 9 << false << false;
        QTest::newRow("its first frame") << 10 << true << true;
        QTest::newRow("the last frame of a locked clip") << 19 << true << true;
        QTest::newRow("one frame later") << 20 << false << false;
        QTest::newRow("an open clip") << 42 << true << false;
        QTest::newRow("after all") << 45 << false << false;
    }
    void aClipCoversItsFirstToItsLastFrameBothIncluded()
    {
        QFETCH(int, frame);
        VZ::CPointer<CTimelineKeyArray> keys(new CTimelineKeyArray);
        for (const int first : {10, 40}) {
            VZ::CPointer<CTimelineKey> clip(new CTimelineKey);
            clip->frame = first;
            clip->clipLength = first == 10 ? 9 : 4;
            clip->lockState = first == 10 ? 1 : 0;
            keys->Add(clip, false);
        }
        QTEST(DropFileRules::CoversFrame(*keys, frame, false), "any");
        QTEST(DropFileRules::CoversFrame(*keys, frame, true), "locked");
    }

    void aTrackWithoutKeysCoversNothing()
    {
        VZ::CPointer<CTimelineKeyArray> keys(new CTimelineKeyArray);
        QVERIFY(!DropFileRules::CoversFrame(*keys, 0, false));
        QVERIFY(!DropFileRules::CoversFrame(*keys, 0, true));
    }
};

QTEST_GUILESS_MAIN(tst_DropFileRules)
#include "tst_DropFileRules.moc"
