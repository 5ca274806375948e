#include "CTimelineKeyArray.h"
#include "container/DropFileRules.h"

#include <QtTest>

#include <utility>

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
        const std::pair<const char*, int> rows[] = {
            {"kxanim", 1},  {"kxmotion", 2},      {"kx3dmotion", 3}, {"kxperform", 4},
            {"kx7idle", 6}, {"kxs2idle", 6},      {"kxfcs", 7},      {"kxs", 8},
            {"clp", 9},     {"kx7automotion", 10}};
        for (const auto& [extension, type] : rows) {
            const QString name = QLatin1String(extension);
            QTest::addRow("%s", extension) << "/a." + name << type;
            QTest::addRow("%s in capitals", extension) << "/A." + name.toUpper() << type;
            QTest::addRow("%s after more dots", extension) << "/take.final." + name << type;
            QTest::addRow("%s before another", extension) << "/a." + name + ".bak" << 0;
            QTest::addRow("%s and more letters", extension) << "/a." + name + "x" << 0;
            QTest::addRow("%s without a dot", extension) << "/" + name << 0;
        }
        QTest::newRow("take.final.kxs") << "take.final.kxs" << 8;
        QTest::newRow("archive.kxs.bak is unrecognised") << "archive.kxs.bak" << 0;
        QTest::newRow("another") << "a.png" << 0;
        QTest::newRow("a dot at the end") << "a.kxs." << 0;
        QTest::newRow("nothing") << "" << 0;
    }
    void aDropIsClassifiedByItsExtension()
    {
        QFETCH(QString, path);
        QTEST(int(DropFileRules().Classify(path)), "type");
    }

    void theValuesFiveAndElevenAreNotProduced()
    {
        for (const char* const name :
             {"kxanim", "kxmotion", "kx3dmotion", "kxperform", "kx7idle", "kxs2idle", "kxfcs",
              "kxs", "clp", "kx7automotion", "wav", "mp3"}) {
            for (const bool filter : {false, true}) {
                const int type =
                    Rules(filter, filter).Classify(QStringLiteral("a.") + QLatin1String(name));
                QVERIFY(type != 5 && type != 11);
            }
        }
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
        for (const char* const path : {"/Voice.WAV", "/voice.wav", "/voice.mp3", "/a.b.Mp3"}) {
            for (const bool others : {false, true}) {
                DropFileRules rules;
                rules.SetFilters({others, others, others, others, fifth, sixth});
                QCOMPARE(int(rules.Classify(QLatin1String(path))), type);
            }
        }
    }

    void whatMayBeHeldOverATrack_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("known");
        for (const char* const extension : {"kx7idle", "kxmotion", "kxanim", "kxfcs", "kxperform",
                                            "kx3dmotion", "kxs2idle", "kxs", "clp", "wav", "mp3"}) {
            const QString name = QLatin1String(extension);
            QTest::addRow("%s", extension) << "/a." + name << true;
            QTest::addRow("%s in capitals", extension) << "/A." + name.toUpper() << true;
            QTest::addRow("%s after more dots", extension) << "/take.final." + name << true;
            QTest::addRow("%s before another", extension) << "/a." + name + ".bak" << false;
            QTest::addRow("%s without a dot", extension) << "/" + name << false;
        }
        QTest::newRow("an automatic motion may not") << "/a.kx7automotion" << false;
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

QTEST_MAIN(tst_DropFileRules)
#include "tst_DropFileRules.moc"
