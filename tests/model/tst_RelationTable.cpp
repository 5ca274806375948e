#include "RelationTable.h"

#include <QtTest>

namespace {

using Tracks = std::vector<CTimelineTrackBase*>;

/// A track that is never looked into: the table only compares addresses.
CTimelineTrackBase* Track(int number)
{
    static char tracks[8];
    return reinterpret_cast<CTimelineTrackBase*>(&tracks[number]);
}

_tmpTLRelatedMap Row(int kind, const Tracks& tracks)
{
    _tmpTLRelatedMap row;
    row.kind = kind;
    row.tracks = tracks;
    return row;
}

} // namespace

class tst_RelationTable : public QObject
{
    Q_OBJECT

private slots:
    void isEmptyAtFirst();
    void isReplacedAsAWhole();
    void namesTheSourceOfEachListedTarget();
    void aSourceIsNoTargetOfItsOwnRow();
    void aSourceListedAgainIsItsOwnTarget();
    void looksOnlyAtRowsOfTheKind();
    void namesSourcesInTableOrder();
    void keepsAndSkipsRowsWithoutTracks();
    void keepsAndSkipsNullEntries();
    void keepsUnknownKinds();
};

void tst_RelationTable::isEmptyAtFirst()
{
    const RelationTable table;
    QVERIFY(table.Rows().empty());
    QVERIFY(table.SourcesOf(Track(1), RelationTable::kClipBars).empty());
}

void tst_RelationTable::isReplacedAsAWhole()
{
    RelationTable table;
    table.Set({Row(3, {Track(0), Track(1)}), Row(0, {Track(0), Track(1)})});
    table.Set({Row(3, {Track(2), Track(1)})});
    QCOMPARE(table.Rows().size(), std::size_t{1});
    QCOMPARE(table.SourcesOf(Track(1), 3), Tracks({Track(2)}));
}

void tst_RelationTable::namesTheSourceOfEachListedTarget()
{
    RelationTable table;
    table.Set({Row(RelationTable::kClipBars, {Track(0), Track(1), Track(2)})});
    QCOMPARE(table.SourcesOf(Track(1), RelationTable::kClipBars), Tracks({Track(0)}));
    QCOMPARE(table.SourcesOf(Track(2), RelationTable::kClipBars), Tracks({Track(0)}));
    QVERIFY(table.SourcesOf(Track(3), RelationTable::kClipBars).empty());
}

void tst_RelationTable::aSourceIsNoTargetOfItsOwnRow()
{
    RelationTable table;
    table.Set({Row(RelationTable::kClipBars, {Track(0), Track(1)})});
    QVERIFY(table.SourcesOf(Track(0), RelationTable::kClipBars).empty());
}

void tst_RelationTable::aSourceListedAgainIsItsOwnTarget()
{
    RelationTable table;
    table.Set({Row(RelationTable::kSharedTimeRange, {Track(0), Track(0)})});
    QCOMPARE(table.SourcesOf(Track(0), RelationTable::kSharedTimeRange), Tracks({Track(0)}));
}

void tst_RelationTable::looksOnlyAtRowsOfTheKind()
{
    RelationTable table;
    table.Set({Row(RelationTable::kSharedTimeRange, {Track(0), Track(1)}),
               Row(RelationTable::kSharedSelection, {Track(2), Track(1)})});
    QCOMPARE(table.SourcesOf(Track(1), RelationTable::kSharedTimeRange), Tracks({Track(0)}));
    QCOMPARE(table.SourcesOf(Track(1), RelationTable::kSharedSelection), Tracks({Track(2)}));
    QVERIFY(table.SourcesOf(Track(1), RelationTable::kClipBars).empty());
}

void tst_RelationTable::namesSourcesInTableOrder()
{
    RelationTable table;
    table.Set(
        {Row(3, {Track(5), Track(1)}), Row(3, {Track(2), Track(1)}), Row(3, {Track(4), Track(1)})});
    QCOMPARE(table.SourcesOf(Track(1), 3), Tracks({Track(5), Track(2), Track(4)}));
}

void tst_RelationTable::keepsAndSkipsRowsWithoutTracks()
{
    RelationTable table;
    table.Set({Row(3, {}), Row(3, {Track(0), Track(1)})});
    QCOMPARE(table.Rows().size(), std::size_t{2});
    QCOMPARE(table.SourcesOf(Track(1), 3), Tracks({Track(0)}));
}

void tst_RelationTable::keepsAndSkipsNullEntries()
{
    RelationTable table;
    table.Set({Row(3, {nullptr, Track(1)}), Row(3, {Track(0), nullptr, Track(1)})});
    QCOMPARE(table.Rows()[1].tracks.size(), std::size_t{3});
    QCOMPARE(table.SourcesOf(Track(1), 3), Tracks({Track(0)}));
    QVERIFY(table.SourcesOf(nullptr, 3).empty());
}

void tst_RelationTable::keepsUnknownKinds()
{
    RelationTable table;
    table.Set({Row(2, {Track(0), Track(1)})});
    QCOMPARE(table.Rows()[0].kind, 2);
}

QTEST_MAIN(tst_RelationTable)
#include "tst_RelationTable.moc"
