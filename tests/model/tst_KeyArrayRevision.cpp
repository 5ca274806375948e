#include "model/KeyArrayRevision.h"

#include "CTimelineKeyArray.h"
#include "TimelineKeyValues.h"

#include <QtTest>

#include <functional>

namespace {

using Act = std::function<void(CTimelineKeyArray&)>;

VZ::CPointer<CTimelineKey> KeyOf(int frame)
{
    VZ::CPointer<CTimelineKey> key(new CTimelineKey);
    key->frame = frame;
    return key;
}

} // namespace

Q_DECLARE_METATYPE(Act)

/// Whoever shows key arrays learns that one of them may look different.
class tst_KeyArrayRevision : public QObject
{
    Q_OBJECT

    VZ::CPointer<CTimelineKeyArray> m_keys;

private slots:
    /// Three keys, the second one selected, and a related key.
    void init()
    {
        m_keys = new CTimelineKeyArray;
        for (const int frame : {10, 20, 30})
            m_keys->Add(KeyOf(frame), false);
        m_keys->SetSelectionByIndex(1, 1, true, TL_KEY_ANY_KIND);
        CTimelineKey related;
        related.frame = 15;
        m_keys->RelatedAdd(&related, false);
    }

    void countsWhatChangesTheKeys_data();
    void countsWhatChangesTheKeys();
    void countsNothingElse_data();
    void countsNothingElse();
};

void tst_KeyArrayRevision::countsWhatChangesTheKeys_data()
{
    QTest::addColumn<Act>("act");
    const auto row = [](const char* name, Act act) { QTest::newRow(name) << std::move(act); };
    using Keys = CTimelineKeyArray;
    row("Add", [](Keys& keys) { keys.Add(KeyOf(12), false); });
    row("Add in place of another", [](Keys& keys) { keys.Add(KeyOf(20), true); });
    row("AddKeys", [](Keys& keys) { keys.AddKeys({KeyOf(12), KeyOf(13)}, false); });
    row("AddSelected", [](Keys& keys) { keys.AddSelected({KeyOf(12), KeyOf(13)}); });
    row("RemoveAt an index", [](Keys& keys) { keys.RemoveAt(0); });
    row("RemoveAt a key", [](Keys& keys) { keys.RemoveAt(keys.GetAt(2).Get()); });
    row("RemoveKeys", [](Keys& keys) { keys.RemoveKeys({keys.GetAt(0), keys.GetAt(2)}); });
    row("RemoveAll", [](Keys& keys) { keys.RemoveAll(); });
    row("SetSelection", [](Keys& keys) { keys.SetSelection(0, 10, true, TL_KEY_ANY_KIND); });
    row("SetSelection off", [](Keys& keys) { keys.SetSelection(0, 99, false, TL_KEY_ANY_KIND); });
    row("SelectFramesOf", [](Keys& keys) { keys.SelectFramesOf({KeyOf(30)}, Keys::Kinds::Any); });
    row("SetSelectionByIndex",
        [](Keys& keys) { keys.SetSelectionByIndex(2, 2, true, TL_KEY_ANY_KIND); });
    row("SetSelectionOfKeys", [](Keys& keys) { keys.SetSelectionOfKeys({{0, true}}); });
    row("ClearAllSelection", [](Keys& keys) { keys.ClearAllSelection(); });
    row("SelectOnly", [](Keys& keys) { keys.SelectOnly(2); });
    row("SelAdd", [](Keys& keys) { keys.SelAdd(2); });
    row("MoveKeys", [](Keys& keys) { keys.MoveKeys(2, false); });
    row("RelatedAdd", [](Keys& keys) {
        CTimelineKey key;
        keys.RelatedAdd(&key, false);
    });
    row("RelatedRemoveAt", [](Keys& keys) { keys.RelatedRemoveAt(0); });
    row("RelatedRemoveAll", [](Keys& keys) { keys.RelatedRemoveAll(); });
    row("UpdateClipDisplayLength", [](Keys& keys) {
        keys.GetAt(0)->clipLength = 5;
        keys.UpdateClipDisplayLength(0);
    });
    row("an assignment", [](Keys& keys) {
        // An assignment takes the reference count over too: the other one is held once as well.
        const VZ::CPointer<CTimelineKeyArray> other(new CTimelineKeyArray);
        keys = *other.Get();
    });
}

void tst_KeyArrayRevision::countsWhatChangesTheKeys()
{
    QFETCH(Act, act);
    const auto before = KeyArrayRevision();
    act(*m_keys);
    QVERIFY(KeyArrayRevision() > before);
}

void tst_KeyArrayRevision::countsNothingElse_data()
{
    QTest::addColumn<Act>("act");
    const auto row = [](const char* name, Act act) { QTest::newRow(name) << std::move(act); };
    using Keys = CTimelineKeyArray;
    row("reading", [](Keys& keys) {
        keys.HitKey(20, true);
        keys.HitClipRange(20, true, false);
        keys.SelHitKey(1);
        keys.CopySelected();
        Keys::KeyVector shown;
        keys.CollectDisplayKeys(shown);
    });
    row("the move set", [](Keys& keys) {
        keys.SetSelToMove();
        keys.ClearAllMove();
    });
    row("selecting what is selected", [](Keys& keys) {
        keys.SetSelectionByIndex(1, 1, true, TL_KEY_ANY_KIND);
        keys.SetSelection(20, 20, true, TL_KEY_ANY_KIND);
        keys.SetSelectionOfKeys({{1, true}});
        keys.SelAdd(1);
    });
    row("deselecting what is not selected",
        [](Keys& keys) { keys.SetSelectionByIndex(0, 0, false, TL_KEY_ANY_KIND); });
    row("adding nothing", [](Keys& keys) {
        keys.Add(nullptr, false);
        keys.AddKeys({}, false);
        keys.AddSelected({});
        keys.RelatedAdd(nullptr, false);
    });
    row("removing what is not there", [](Keys& keys) {
        const VZ::CPointer<CTimelineKey> other = KeyOf(20);
        keys.RemoveAt(other.Get());
    });
    row("a key written in place", [](Keys& keys) { keys.GetAt(0)->frame = 3; });
}

void tst_KeyArrayRevision::countsNothingElse()
{
    QFETCH(Act, act);
    const auto before = KeyArrayRevision();
    act(*m_keys);
    QCOMPARE(KeyArrayRevision(), before);
}

QTEST_MAIN(tst_KeyArrayRevision)
#include "tst_KeyArrayRevision.moc"
