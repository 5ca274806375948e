#include "CTimelineClipboard.h"
#include "KeyMakers.h"

#include <QtTest>

#include <type_traits>

namespace {

/// Declares every operation of a clipboard again: a call through the base would end up here if the
/// operation were virtual.
class RedeclaredClipboard : public CTimelineClipboard
{
public:
    mutable int calls = 0;

    bool HasData() const { return ++calls; }
    void Reset() { ++calls; }
    void Fill(const KeyVector&, int) { ++calls; }
    const KeyVector& GetKeys() const { return ++calls, CTimelineClipboard::GetKeys(); }
    int GetSourceValue() const { return ++calls; }
};

} // namespace

class tst_CTimelineClipboard : public QObject
{
    Q_OBJECT

private slots:
    void isEmptyAtFirst();
    void hasDataOnceFilled();
    void sharesTheGivenKeysInTheirOrder();
    void fillingReplacesTheContents();
    void fillingWithoutKeysLeavesItEmpty();
    void resetReleasesTheKeys();
    void resettingAnEmptyClipboardChangesNothing();
    void destructionReleasesTheKeys();
    void onlyItsDestructorIsVirtual();
};

void tst_CTimelineClipboard::isEmptyAtFirst()
{
    const CTimelineClipboard clipboard;
    QVERIFY(!clipboard.HasData());
    QCOMPARE(clipboard.GetSourceValue(), 0);
    QVERIFY(clipboard.GetKeys().empty());
}

void tst_CTimelineClipboard::hasDataOnceFilled()
{
    CTimelineClipboard clipboard;
    clipboard.Fill({MakeKey(12)}, 12);
    QVERIFY(clipboard.HasData());
    QCOMPARE(clipboard.GetSourceValue(), 12);
}

void tst_CTimelineClipboard::sharesTheGivenKeysInTheirOrder()
{
    const auto first = MakeKey(12);
    const auto second = MakeKey(7);
    CTimelineClipboard clipboard;
    clipboard.Fill({first, second}, 12);
    QCOMPARE(clipboard.GetKeys().size(), std::size_t{2});
    QVERIFY(clipboard.GetKeys()[0] == first);
    QVERIFY(clipboard.GetKeys()[1] == second);
    QCOMPARE(first->GetReferences(), 2u);
}

void tst_CTimelineClipboard::fillingReplacesTheContents()
{
    int deletions = 0;
    CTimelineClipboard clipboard;
    clipboard.Fill({new WatchedKey(deletions)}, 1);
    clipboard.Fill({MakeKey(30)}, 30);
    QCOMPARE(deletions, 1);
    QCOMPARE(FramesOf(clipboard.GetKeys()), QVector<int>({30}));
    QCOMPARE(clipboard.GetSourceValue(), 30);
}

void tst_CTimelineClipboard::fillingWithoutKeysLeavesItEmpty()
{
    CTimelineClipboard clipboard;
    clipboard.Fill({MakeKey(30)}, 30);
    clipboard.Fill({}, 8);
    QVERIFY(!clipboard.HasData());
    QCOMPARE(clipboard.GetSourceValue(), 0);
}

void tst_CTimelineClipboard::resetReleasesTheKeys()
{
    int deletions = 0;
    CTimelineClipboard clipboard;
    clipboard.Fill({new WatchedKey(deletions), new WatchedKey(deletions)}, 5);
    clipboard.Reset();
    QCOMPARE(deletions, 2);
    QVERIFY(!clipboard.HasData());
    QCOMPARE(clipboard.GetSourceValue(), 0);
}

void tst_CTimelineClipboard::resettingAnEmptyClipboardChangesNothing()
{
    CTimelineClipboard clipboard;
    clipboard.Reset();
    QVERIFY(!clipboard.HasData());
    QCOMPARE(clipboard.GetSourceValue(), 0);
}

void tst_CTimelineClipboard::destructionReleasesTheKeys()
{
    int deletions = 0;
    {
        CTimelineClipboard clipboard;
        clipboard.Fill({new WatchedKey(deletions)}, 5);
    }
    QCOMPARE(deletions, 1);
}

void tst_CTimelineClipboard::onlyItsDestructorIsVirtual()
{
    QVERIFY(std::has_virtual_destructor<CTimelineClipboard>::value);
    RedeclaredClipboard redeclared;
    CTimelineClipboard& clipboard = redeclared;
    clipboard.Fill({MakeKey(5)}, 5);
    QVERIFY(clipboard.HasData());
    QCOMPARE(clipboard.GetKeys().size(), std::size_t{1});
    QCOMPARE(clipboard.GetSourceValue(), 5);
    clipboard.Reset();
    QCOMPARE(redeclared.calls, 0);
}

QTEST_MAIN(tst_CTimelineClipboard)
#include "tst_CTimelineClipboard.moc"
