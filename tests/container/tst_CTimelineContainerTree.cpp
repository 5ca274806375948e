#include "TestTracks.h"
#include "container/CTimelineContainer.h"
#include "container/CTimelineContainerInterface.h"
#include "model/TimelineKeyValues.h"
#include "support/HostFixture.h"
#include "support/PaintCounter.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackTick.h"

using namespace KestovaTest;

namespace {

constexpr unsigned int kLast = 0xFFFFu;
constexpr int kFixedHeight = 44; // ruler and scroll bar
constexpr int kRowHeight = 20;

/// An owner that gives every message the same answer.
class AnsweringOwner : public CTimelineContainerInterface
{
public:
    explicit AnsweringOwner(int answer) : m_answer(answer) {}

    int OnContainerMessage(unsigned int, CTimelineTrackBase*, HANDLE, QVariant, QVariant,
                           QVariant) override
    {
        return m_answer;
    }
    int OnContainerTrackEdit(TLEditType, const VZ::CArrayList<CTimelineTrackBase*>&, QVariant,
                             QVariant) override
    {
        return -1;
    }
    bool OnContainerDrop(TLDropFileType, QString) override { return false; }

private:
    int m_answer;
};

/// Writes down which tracks get another parent, in order.
class ParentWatch : public QObject
{
public:
    explicit ParentWatch(std::initializer_list<CTimelineTrackBase*> tracks)
    {
        for (CTimelineTrackBase* const track : tracks)
            track->installEventFilter(this);
    }

    QStringList moved;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::ParentChange)
            moved << static_cast<CTimelineTrackBase*>(watched)->GetCaption();
        return false;
    }
};

/// Writes down which widgets get the keyboard focus for no reason of the user's.
class FocusWatch : public QObject
{
public:
    FocusWatch() { qApp->installEventFilter(this); }

    QVector<QObject*> focused;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn &&
            static_cast<QFocusEvent*>(event)->reason() == Qt::OtherFocusReason &&
            watched->isWidgetType())
            focused << watched;
        return false;
    }
};

} // namespace

/// The tree as the container keeps it, in a host's dock: what its operations do to the tracks, to
/// the layout and to the window.
class tst_CTimelineContainerTree : public QObject
{
    Q_OBJECT

    std::unique_ptr<HostFixture> m_fixture;

    CTimelineContainer& Container() const { return *m_fixture->Container(); }
    QStringList WindowCalls() const { return m_fixture->Window().calls; }
    QStringList HostCalls() const { return m_fixture->host.calls; }

    CTimelineTrackBase* Track(const QString& name, TL_TRACK_TYPE type = TL_TRACK_KEY)
    {
        return m_fixture->manager->CreateTrack(type, name, 1);
    }

    CTimelineTrackBase* Root(const QString& name, TL_TRACK_TYPE type = TL_TRACK_KEY)
    {
        return m_fixture->Root(type, name);
    }

    CTimelineTrackBase* Child(CTimelineTrackBase* root, const QString& name,
                              TL_TRACK_TYPE type = TL_TRACK_KEY)
    {
        return m_fixture->Child(root, type, name);
    }

    void Select(CTimelineTrackBase* track)
    {
        if (track->Keys().GetSize() == 0)
            m_fixture->AddKeys(track, {3, 5});
        track->Keys().SetSelectionByIndex(0, 0, true, TL_KEY_ANY_KIND);
    }

    static bool HasSelection(CTimelineTrackBase* track) { return track->Keys().SelGetSize() > 0; }

    QString Shown() const
    {
        QStringList names;
        for (const CTimelineTrackBase* track : Container().Tree().AllTracks())
            names << track->GetCaption();
        return names.join(QLatin1Char(' '));
    }

    /// A layout tells the window, each of them, and nothing else of what is tested here does.
    bool WasLaidOut() const { return WindowCalls().contains("refreshed"); }
    bool WasNotified() const { return WindowCalls().contains("track list"); }

    void VerifyDetached(CTimelineTrackBase* track) const
    {
        QVERIFY(CTimelineTrackBase::IsAlive(track));
        QVERIFY(!track->isVisible());
        QVERIFY(!track->IsAttached());
        QCOMPARE(track->parentWidget(), m_fixture->manager->GetParentWidget());
        QVERIFY(!track->GetOwner());
        QVERIFY(!track->GetParentTrack());
        QVERIFY(!track->IsActive());
    }

    void VerifyAttached(CTimelineTrackBase* track, CTimelineTrackBase* parent) const
    {
        QVERIFY(track->isVisible());
        QVERIFY(track->testAttribute(Qt::WA_WState_Visible));
        QVERIFY(track->IsAttached());
        QCOMPARE(track->parentWidget(), &Container());
        QVERIFY(track->GetOwner());
        QCOMPARE(track->GetParentTrack(), parent);
        QVERIFY(!track->IsActive());
    }

private slots:
    void init() { m_fixture = std::make_unique<HostFixture>(); }
    void cleanup()
    {
        // They refer to variables of the test that is over.
        m_fixture->host.reaction = nullptr;
        if (m_fixture->factory.window)
            m_fixture->factory.window->reaction = nullptr;
        m_fixture.reset();
    }

    // ---- Showing ----

    void showingARootAttachesItInactive()
    {
        CTimelineTrackBase* const root = Track("a");
        root->SetActive(true);
        QVERIFY(Container().ShowRootTrack(root, kLast, true));
        VerifyAttached(root, root);
        QVERIFY(root->IsRootTrack());
        QCOMPARE(root->GetOwner(), Root("b")->GetOwner());
        QCOMPARE(Shown(), QString("a b"));
    }

    void showingARootLaysOutAndThenNotifiesIfAsked_data()
    {
        QTest::addColumn<bool>("notify");
        QTest::newRow("asked") << true;
        QTest::newRow("not asked") << false;
    }
    void showingARootLaysOutAndThenNotifiesIfAsked()
    {
        QFETCH(bool, notify);
        CTimelineTrackBase* const root = Track("a");
        m_fixture->ForgetCalls();
        Container().ShowRootTrack(root, kLast, notify);
        QVERIFY(WasLaidOut());
        QCOMPARE(WindowCalls().count("track list"), notify ? 1 : 0);
        QCOMPARE(WindowCalls().last(), QString(notify ? "track list" : "refreshed"));
        QCOMPARE(root->height(), 20);
    }

    void aRootIsInsertedAtItsIndexOrAppended_data()
    {
        QTest::addColumn<unsigned int>("index");
        QTest::addColumn<QString>("shown");
        QTest::newRow("first") << 0u << "x a b";
        QTest::newRow("equal to the count") << 2u << "a b x";
        QTest::newRow("larger than the count") << 3u << "a b x";
        QTest::newRow("the largest") << 0xFFFFFFFFu << "a b x";
    }
    void aRootIsInsertedAtItsIndexOrAppended()
    {
        QFETCH(unsigned int, index);
        Root("a");
        Root("b");
        Container().ShowRootTrack(Track("x"), index, true);
        QTEST(Shown(), "shown");
    }

    void showingARootThatIsShownChangesNothingAndDoesNotNotify()
    {
        CTimelineTrackBase* const a = Root("a");
        Root("b");
        Container().SetActiveRootTrack(a);
        m_fixture->ForgetCalls();
        QVERIFY(Container().ShowRootTrack(a, 9, true));
        QCOMPARE(Shown(), QString("a b"));
        QVERIFY(a->IsActive());
        QCOMPARE(WindowCalls(), QStringList());
    }

    void aTrackThatStandsAnywhereIsShownNowhereElse()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        CTimelineTrackBase* const b = Root("b");
        Container().SetActiveRootTrack(a);
        m_fixture->ForgetCalls();
        QVERIFY(Container().ShowRootTrack(a1, 0, true));
        QVERIFY(Container().ShowChildTrack(b, a1, 0, true));
        QVERIFY(Container().ShowChildTrack(a, a1, 0, true));
        QVERIFY(Container().ShowChildTrack(a, b, 0, true));
        QVERIFY(Container().ShowChildTrack(a, a, 0, true));
        QCOMPARE(Shown(), QString("a a1 b"));
        QCOMPARE(a1->GetParentTrack(), a);
        QVERIFY(a1->IsActive());
        QCOMPARE(WindowCalls(), QStringList());
    }

    void showingAChildAttachesItInactiveUnderItsRoot()
    {
        CTimelineTrackBase* const root = Root("a");
        CTimelineTrackBase* const child = Track("a1");
        child->SetActive(true);
        QVERIFY(Container().ShowChildTrack(root, child, kLast, true));
        VerifyAttached(child, root);
        QVERIFY(!child->IsRootTrack());
        QCOMPARE(Shown(), QString("a a1"));
    }

    void showingAChildLaysOutAndThenNotifiesIfAsked_data()
    {
        showingARootLaysOutAndThenNotifiesIfAsked_data();
    }
    void showingAChildLaysOutAndThenNotifiesIfAsked()
    {
        QFETCH(bool, notify);
        CTimelineTrackBase* const root = Root("a");
        CTimelineTrackBase* const child = Track("a1");
        m_fixture->ForgetCalls();
        Container().ShowChildTrack(root, child, kLast, notify);
        QVERIFY(WasLaidOut());
        QCOMPARE(WindowCalls().count("track list"), notify ? 1 : 0);
        QCOMPARE(WindowCalls().last(), QString(notify ? "track list" : "refreshed"));
    }

    void aChildIsInsertedAtItsIndexOrAppended_data()
    {
        QTest::addColumn<unsigned int>("index");
        QTest::addColumn<QString>("shown");
        QTest::newRow("first") << 0u << "r x a b";
        QTest::newRow("equal to the count") << 2u << "r a b x";
        QTest::newRow("larger than the count") << 3u << "r a b x";
    }
    void aChildIsInsertedAtItsIndexOrAppended()
    {
        QFETCH(unsigned int, index);
        CTimelineTrackBase* const root = Root("r");
        Child(root, "a");
        Child(root, "b");
        Container().ShowChildTrack(root, Track("x"), index, true);
        QTEST(Shown(), "shown");
    }

    void aChildIsRefusedUnderATrackThatIsNoShownRoot()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        CTimelineTrackBase* const hidden = Track("hidden");
        CTimelineTrackBase* const child = Track("child");
        m_fixture->ForgetCalls();
        QVERIFY(!Container().ShowChildTrack(a1, child, 0, true));
        QVERIFY(!Container().ShowChildTrack(hidden, child, 0, true));
        QCOMPARE(Shown(), QString("a a1"));
        QVERIFY(!child->IsAttached());
        QVERIFY(!child->GetParentTrack());
        QCOMPARE(WindowCalls(), QStringList());
    }

    // ---- Hiding ----

    void hidingARootDetachesItsChildrenThenItselfAndDeletesNone()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        CTimelineTrackBase* const a2 = Child(a, "a2");
        Root("b");
        Container().SetActiveChildTrack(a2);
        QWidget* const parking = m_fixture->manager->GetParentWidget();
        QVERIFY(Container().HideRootTrack(a, parking, true, true));
        QCOMPARE(Shown(), QString("b"));
        for (CTimelineTrackBase* track : {a, a1, a2})
            VerifyDetached(track);
    }

    void aHiddenRootAndItsChildrenCanBeShownAgain()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        Container().HideRootTrack(a, m_fixture->manager->GetParentWidget(), true, true);
        QVERIFY(Container().ShowRootTrack(a1, kLast, true));
        QVERIFY(Container().ShowRootTrack(a, kLast, true));
        QCOMPARE(Shown(), QString("a1 a"));
        VerifyAttached(a, a);
        VerifyAttached(a1, a1);
    }

    void hidingARootLaysOutAndNotifiesAsAsked_data()
    {
        QTest::addColumn<bool>("relayout");
        QTest::addColumn<bool>("notify");
        QTest::newRow("both") << true << true;
        QTest::newRow("layout alone") << true << false;
        QTest::newRow("notice alone") << false << true;
        QTest::newRow("neither") << false << false;
    }
    void hidingARootLaysOutAndNotifiesAsAsked()
    {
        QFETCH(bool, relayout);
        QFETCH(bool, notify);
        CTimelineTrackBase* const a = Root("a");
        Root("b");
        const int before = Container().height();
        m_fixture->ForgetCalls();
        Container().HideRootTrack(a, nullptr, relayout, notify);
        const std::unique_ptr<CTimelineTrackBase> orphan(a);
        QCOMPARE(WasLaidOut(), relayout);
        QCOMPARE(WindowCalls().count("track list"), notify ? 1 : 0);
        if (notify)
            QCOMPARE(WindowCalls().last(), QString("track list"));
        QCOMPARE(Container().height(), relayout ? before - 20 : before);
    }

    void hidingAChildNotifiesBeforeItLaysOut()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        Child(a, "a2");
        m_fixture->ForgetCalls();
        QVERIFY(Container().HideChildTrack(a1, m_fixture->manager->GetParentWidget(), true, true));
        QCOMPARE(Shown(), QString("a a2"));
        VerifyDetached(a1);
        QCOMPARE(WindowCalls().first(), QString("track list"));
        QCOMPARE(WindowCalls().count("track list"), 1);
        QVERIFY(WasLaidOut());
    }

    void hidingAChildFitsTheRowsToTheContainerAndRecomputesTheMinimumHeight()
    {
        CTimelineTrackBase* const s = Root("s", TL_TRACK_SWITCH);
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        Child(a, "a2");
        QVERIFY(s->isVisible());
        const int height = Container().height();
        QCOMPARE(Container().minimumHeight(), 0);
        Container().HideChildTrack(a1, m_fixture->manager->GetParentWidget(), true, false);
        QCOMPARE(Container().minimumHeight(), 44 + 26);
        // One row of 20 is gone; the layout is cut to the rows, which need less.
        QCOMPARE(Container().height(), height - 20);
    }

    void hidingAChildKeepsTheHeightOfAContainerThatIsLowerThanItsRows()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const children[] = {Child(a, "a1"), Child(a, "a2"), Child(a, "a3")};
        const int lowHeight = 27 + kRowHeight; // the ruler and one row
        Container().resize(Container().width(), lowHeight);
        QVERIFY(!children[1]->isVisible());
        Container().HideChildTrack(children[0], m_fixture->manager->GetParentWidget(), true, true);
        QCOMPARE(Container().height(), lowHeight);
        QVERIFY(children[1]->isVisible());
        QVERIFY(!children[2]->isVisible());
    }

    void otherChangesGrowAContainerThatIsLowerThanItsRows_data()
    {
        QTest::addColumn<QString>("change");
        QTest::addColumn<int>("rows");
        QTest::newRow("hiding a root") << "hide" << 3;
        QTest::newRow("moving a root") << "root" << 4;
        QTest::newRow("moving a child") << "child" << 4;
        QTest::newRow("hiding all") << "all" << 0;
    }
    void otherChangesGrowAContainerThatIsLowerThanItsRows()
    {
        QFETCH(QString, change);
        QFETCH(int, rows);
        QWidget* const parking = m_fixture->manager->GetParentWidget();
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const b = Root("b");
        CTimelineTrackBase* const b1 = Child(b, "b1");
        Child(b, "b2");
        Root("c");
        Container().resize(Container().width(), 40);
        QCOMPARE(Container().height(), 40);
        if (change == "hide")
            Container().HideRootTrack(a, parking, true, false);
        else if (change == "root")
            Container().SetRootTrackSortIndex(a, 1, true, false);
        else if (change == "child")
            Container().SetChildTrackSortIndex(b1, 1, true, false);
        else
            Container().DeleteAllTrack(parking);
        QCOMPARE(Container().height(), kFixedHeight + rows * kRowHeight + 1);
    }

    void hidingARootDetachesItsChildrenFromLastToFirstAndThenTheRoot()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        CTimelineTrackBase* const a2 = Child(a, "a2");
        const ParentWatch watch({a, a1, a2});
        Container().HideRootTrack(a, m_fixture->manager->GetParentWidget(), true, true);
        QCOMPARE(watch.moved, (QStringList{"a2", "a1", "a"}));
    }

    void hidingAllDetachesTheRootsFromLastToFirst()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        CTimelineTrackBase* const b = Root("b");
        CTimelineTrackBase* const c = Root("c");
        const ParentWatch watch({a, a1, b, c});
        Container().DeleteAllTrack(m_fixture->manager->GetParentWidget());
        QCOMPARE(watch.moved, (QStringList{"c", "b", "a1", "a"}));
    }

    void hidingAChildWithoutLayoutMovesNothing()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        CTimelineTrackBase* const a2 = Child(a, "a2");
        const QRect before = a2->geometry();
        m_fixture->ForgetCalls();
        Container().HideChildTrack(a1, m_fixture->manager->GetParentWidget(), false, false);
        QCOMPARE(a2->geometry(), before);
        QCOMPARE(WindowCalls(), QStringList());
        VerifyDetached(a1);
    }

    void hidingWhatIsNotShownAnswersTrueAndChangesNothing()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        CTimelineTrackBase* const stranger = Track("x");
        QWidget* const parking = m_fixture->manager->GetParentWidget();
        m_fixture->ForgetCalls();
        QVERIFY(Container().HideRootTrack(stranger, parking, true, true));
        QVERIFY(Container().HideRootTrack(a1, parking, true, true));
        QVERIFY(Container().HideChildTrack(stranger, parking, true, true));
        QVERIFY(Container().HideChildTrack(a, parking, true, true));
        QCOMPARE(Shown(), QString("a a1"));
        QCOMPARE(WindowCalls(), QStringList());
    }

    void deletingAllTracksDetachesThemAllAndNotifiesOnce()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        CTimelineTrackBase* const b = Root("b");
        m_fixture->ForgetCalls();
        QVERIFY(Container().DeleteAllTrack(m_fixture->manager->GetParentWidget()));
        QCOMPARE(Shown(), QString());
        for (CTimelineTrackBase* track : {a, a1, b})
            VerifyDetached(track);
        QVERIFY(WasLaidOut());
        QCOMPARE(WindowCalls().count("track list"), 1);
        QCOMPARE(WindowCalls().last(), QString("track list"));
    }

    // ---- Order ----

    void movesARoot_data()
    {
        QTest::addColumn<int>("moved");
        QTest::addColumn<unsigned int>("index");
        QTest::addColumn<QString>("shown");
        QTest::newRow("index 0 moves the track to the top") << 2 << 0u << "c a b";
        QTest::newRow("an index beyond the end moves it to the bottom") << 0 << 7u << "b c a";
        QTest::newRow("the shortened count moves it to the bottom") << 0 << 2u << "b c a";
        QTest::newRow("between") << 0 << 1u << "b a c";
    }
    void movesARoot()
    {
        QFETCH(int, moved);
        QFETCH(unsigned int, index);
        CTimelineTrackBase* const roots[] = {Root("a"), Root("b"), Root("c")};
        QVERIFY(Container().SetRootTrackSortIndex(roots[moved], index, true, true));
        QTEST(Shown(), "shown");
        // The rows on screen follow.
        int y = 27;
        for (CTimelineTrackBase* row : Container().Tree().Rows()) {
            QCOMPARE(row->y(), y);
            y += 20;
        }
    }

    void movesAChild_data()
    {
        QTest::addColumn<int>("moved");
        QTest::addColumn<unsigned int>("index");
        QTest::addColumn<QString>("shown");
        QTest::newRow("to the top") << 2 << 0u << "r c a b";
        QTest::newRow("beyond the end") << 0 << 7u << "r b c a";
        QTest::newRow("between") << 2 << 1u << "r a c b";
    }
    void movesAChild()
    {
        QFETCH(int, moved);
        QFETCH(unsigned int, index);
        CTimelineTrackBase* const root = Root("r");
        CTimelineTrackBase* const children[] = {Child(root, "a"), Child(root, "b"),
                                                Child(root, "c")};
        QVERIFY(Container().SetChildTrackSortIndex(children[moved], index, true, true));
        QTEST(Shown(), "shown");
    }

    void movingLaysOutIfAskedAndNotifiesIfAskedWithOrWithoutLayout_data()
    {
        hidingARootLaysOutAndNotifiesAsAsked_data();
    }
    void movingLaysOutIfAskedAndNotifiesIfAskedWithOrWithoutLayout()
    {
        QFETCH(bool, relayout);
        QFETCH(bool, notify);
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        Child(a, "a2");
        Root("b");
        for (const bool isRoot : {true, false}) {
            m_fixture->ForgetCalls();
            if (isRoot)
                Container().SetRootTrackSortIndex(a, 9, relayout, notify);
            else
                Container().SetChildTrackSortIndex(a1, 9, relayout, notify);
            QCOMPARE(WasLaidOut(), relayout);
            QCOMPARE(WasNotified(), notify);
            if (notify)
                QCOMPARE(WindowCalls().last(), QString("track list"));
        }
        QCOMPARE(Shown(), QString("b a a2 a1"));
    }

    void movingAnUnknownTrackAnswersTrueAndChangesNothing()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        CTimelineTrackBase* const stranger = Track("x");
        m_fixture->ForgetCalls();
        QVERIFY(Container().SetRootTrackSortIndex(stranger, 0, true, true));
        QVERIFY(Container().SetRootTrackSortIndex(a1, 0, true, true));
        QVERIFY(Container().SetChildTrackSortIndex(stranger, 0, true, true));
        QVERIFY(Container().SetChildTrackSortIndex(a, 0, true, true));
        QCOMPARE(Shown(), QString("a a1"));
        QCOMPARE(WindowCalls(), QStringList());
    }

    // ---- Clearing selections ----

    void clearingSelectionsSparesOneTrackAndTellsWindowThenHost()
    {
        CTimelineTrackBase* const root = Root("r");
        CTimelineTrackBase* const a = Child(root, "a");
        CTimelineTrackBase* const b = Child(root, "b");
        CTimelineTrackBase* const c = Child(root, "c");
        for (CTimelineTrackBase* track : {root, a, b, c})
            Select(track);
        m_fixture->ForgetCalls();
        QStringList order;
        m_fixture->Window().reaction = [&order](const QString& call) { order << call; };
        m_fixture->host.reaction = [&order](const QString& call) { order << call; };
        Container().ClearKeySelectionExcept(b);
        QVERIFY(!HasSelection(a));
        QVERIFY(HasSelection(b));
        QVERIFY(!HasSelection(c));
        QVERIFY(HasSelection(root)); // roots are never looked at
        QCOMPARE(order, (QStringList{"refreshed", "cleared"}));
    }

    void clearingSelectionsTellsTheHostThoughNothingWasSelected()
    {
        Child(Root("r"), "a");
        m_fixture->ForgetCalls();
        Container().ClearKeySelectionExcept(nullptr);
        QCOMPARE(HostCalls(), QStringList{"cleared"});
    }

    // ---- The active root ----

    void activatingARootActivatesItAndItsFirstChild()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        CTimelineTrackBase* const a2 = Child(a, "a2");
        m_fixture->ForgetCalls();
        QVERIFY(Container().SetActiveRootTrack(a));
        QVERIFY(a->IsActive());
        QVERIFY(a1->IsActive());
        QVERIFY(!a2->IsActive());
        QCOMPARE(HostCalls(), QStringList{"cleared"});
        QCOMPARE(WindowCalls().last(), QString("refreshed"));
    }

    void activatingAnotherRootDeactivatesTheOldRecordAndClearsSelections()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        CTimelineTrackBase* const a2 = Child(a, "a2");
        CTimelineTrackBase* const b = Root("b");
        Container().SetActiveRootTrack(a);
        a2->SetActive(true);
        Select(a1);
        Container().SetActiveRootTrack(b);
        QVERIFY(!a->IsActive());
        QVERIFY(!a1->IsActive());
        QVERIFY(!a2->IsActive());
        QVERIFY(b->IsActive());
        QVERIFY(!HasSelection(a1));
        QCOMPARE(Container().Tree().ActiveRoot(), b);
    }

    void activatingTheActiveRootKeepsSelectionsAndSendsNothing()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        Container().SetActiveRootTrack(a);
        Select(a1);
        m_fixture->ForgetCalls();
        QVERIFY(Container().SetActiveRootTrack(a));
        QVERIFY(HasSelection(a1));
        QCOMPARE(HostCalls(), QStringList());
        QCOMPARE(WindowCalls(), QStringList{"refreshed"});
    }

    void activatingNoRootDeactivatesTheOldOne()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        Container().SetActiveRootTrack(a);
        QVERIFY(Container().SetActiveRootTrack(nullptr));
        QVERIFY(!a->IsActive());
        QVERIFY(!a1->IsActive());
        m_fixture->ForgetCalls();
        // And once more: no root is the one that is active.
        Container().SetActiveRootTrack(nullptr);
        QCOMPARE(HostCalls(), QStringList());
        QCOMPARE(WindowCalls(), QStringList{"refreshed"});
    }

    void activatingATrackThatIsNoRootOnlyDeactivatesTheOldOne()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const b = Root("b");
        CTimelineTrackBase* const b1 = Child(b, "b1");
        Container().SetActiveRootTrack(a);
        QVERIFY(Container().SetActiveRootTrack(b1));
        QVERIFY(!a->IsActive());
        QVERIFY(!b->IsActive());
        QVERIFY(!b1->IsActive());
    }

    // ---- The active child ----

    void activatingAChildActivatesItsRootToo()
    {
        CTimelineTrackBase* const a = Root("a");
        Child(a, "a1");
        CTimelineTrackBase* const a2 = Child(a, "a2");
        QVERIFY(Container().SetActiveChildTrack(a2));
        QVERIFY(a->IsActive());
        QVERIFY(a2->IsActive());
        QCOMPARE(Container().Tree().ActiveChild(), a2);
    }

    void activatingAChildOfAnotherRootDeactivatesTheOldOnesAndClearsSelections()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        CTimelineTrackBase* const b = Root("b");
        CTimelineTrackBase* const b1 = Child(b, "b1");
        Container().SetActiveChildTrack(a1);
        Select(a1);
        m_fixture->ForgetCalls();
        Container().SetActiveChildTrack(b1);
        QVERIFY(!a->IsActive());
        QVERIFY(!a1->IsActive());
        QVERIFY(b->IsActive());
        QVERIFY(b1->IsActive());
        QVERIFY(!HasSelection(a1));
        QCOMPARE(HostCalls(), QStringList{"cleared"});
        QCOMPARE(WindowCalls().last(), QString("refreshed"));
    }

    void activatingASiblingKeepsSelectionsAndSendsNothing()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        CTimelineTrackBase* const a2 = Child(a, "a2");
        Container().SetActiveChildTrack(a1);
        Select(a1);
        m_fixture->ForgetCalls();
        Container().SetActiveChildTrack(a2);
        QVERIFY(a->IsActive());
        QVERIFY(!a1->IsActive());
        QVERIFY(a2->IsActive());
        QVERIFY(HasSelection(a1));
        QCOMPARE(HostCalls(), QStringList());
        QCOMPARE(WindowCalls(), QStringList{"refreshed"});
    }

    void activatingTheActiveChildSendsNothingAndKeepsSelections()
    {
        CTimelineTrackBase* const a1 = Child(Root("a"), "a1");
        Container().SetActiveChildTrack(a1);
        Select(a1);
        m_fixture->ForgetCalls();
        QVERIFY(Container().SetActiveChildTrack(a1));
        QVERIFY(HasSelection(a1));
        QCOMPARE(HostCalls(), QStringList());
        QCOMPARE(WindowCalls(), QStringList{"refreshed"});
    }

    void withNoActiveChildTheOldRootStaysActiveToo()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const b = Root("b");
        CTimelineTrackBase* const b1 = Child(b, "b1");
        Container().SetActiveRootTrack(a); // has no child
        Container().SetActiveChildTrack(b1);
        QVERIFY(a->IsActive());
        QVERIFY(b->IsActive());
        QCOMPARE(Container().Tree().ActiveRoot(), a);
        QCOMPARE(Container().Tree().ActiveChild(), b1);
    }

    void movingFromAClipTrackToTheLipsTrackClearsAllSelectionsSilently()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const clip = Child(a, "clip", TL_TRACK_CLIP);
        CTimelineTrackBase* const lips = Child(a, "lips", TL_TRACK_VISEME_KEY);
        CTimelineTrackBase* const other = Child(a, "other");
        Container().SetActiveChildTrack(clip);
        for (CTimelineTrackBase* track : {clip, lips, other})
            Select(track);
        m_fixture->ForgetCalls();
        Container().SetActiveChildTrack(lips);
        for (CTimelineTrackBase* track : {clip, lips, other})
            QVERIFY(!HasSelection(track));
        QCOMPARE(HostCalls(), QStringList());
    }

    void otherMovesWithinARootClearNothing_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::newRow("lips to clip") << int(TL_TRACK_VISEME_KEY) << int(TL_TRACK_CLIP);
        QTest::newRow("key to lips") << int(TL_TRACK_KEY) << int(TL_TRACK_VISEME_KEY);
        QTest::newRow("clip to key") << int(TL_TRACK_CLIP) << int(TL_TRACK_KEY);
    }
    void otherMovesWithinARootClearNothing()
    {
        QFETCH(int, from);
        QFETCH(int, to);
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const first = Child(a, "first", TL_TRACK_TYPE(from));
        CTimelineTrackBase* const second = Child(a, "second", TL_TRACK_TYPE(to));
        Container().SetActiveChildTrack(first);
        Select(first);
        Container().SetActiveChildTrack(second);
        QVERIFY(HasSelection(first));
    }

    void activatingNoChildDeactivatesTheOldOneAndItsRoot()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        Container().SetActiveChildTrack(a1);
        Select(a1);
        m_fixture->ForgetCalls();
        QVERIFY(Container().SetActiveChildTrack(nullptr));
        QVERIFY(!a->IsActive());
        QVERIFY(!a1->IsActive());
        QVERIFY(HasSelection(a1));
        QCOMPARE(HostCalls(), QStringList());
        QCOMPARE(WindowCalls(), QStringList{"refreshed"});
        // And once more: no child is the one that is active.
        QVERIFY(Container().SetActiveChildTrack(nullptr));
        QCOMPARE(HostCalls(), QStringList());
    }

    // ---- Repaints ----

    void everyChangeOfWhatIsActiveOrSelectedRepaintsLater_data()
    {
        QTest::addColumn<QString>("change");
        for (const char* change : {"the root that is active", "another root",
                                   "the child that is active", "a sibling", "the selections"})
            QTest::newRow(change) << change;
    }
    void everyChangeOfWhatIsActiveOrSelectedRepaintsLater()
    {
        QFETCH(QString, change);
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        CTimelineTrackBase* const a2 = Child(a, "a2");
        CTimelineTrackBase* const b = Root("b");
        Container().SetActiveChildTrack(a1);
        m_fixture->Settle();
        PaintCounter counter(Container());
        if (change == "the root that is active")
            Container().SetActiveRootTrack(a);
        else if (change == "another root")
            Container().SetActiveRootTrack(b);
        else if (change == "the child that is active")
            Container().SetActiveChildTrack(a1);
        else if (change == "a sibling")
            Container().SetActiveChildTrack(a2);
        else
            Container().ClearKeySelectionExcept(nullptr);
        QCOMPARE(counter.paints, 0);
        m_fixture->Settle();
        QCOMPARE(counter.paints, 1);
    }

    // ---- Activation by the user ----

    void activatingAnotherTrackTellsTheHostOfTheChange()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        Root("b");
        m_fixture->ForgetCalls();
        Container().ActivateTrack(a1);
        QCOMPARE(HostCalls(), (QStringList{"cleared", "active a a1"}));
        m_fixture->ForgetCalls();
        Container().ActivateTrack(a1);
        QCOMPARE(HostCalls(), QStringList{"same a a1"});
    }

    void activatingARootTellsTheHostOfTheChange()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const b = Root("b");
        Container().ActivateTrack(a);
        QCOMPARE(HostCalls().last(), QString("active a -"));
        m_fixture->ForgetCalls();
        Container().ActivateTrack(b);
        QCOMPARE(HostCalls(), (QStringList{"cleared", "active b -"}));
        m_fixture->ForgetCalls();
        Container().ActivateTrack(b);
        QCOMPARE(HostCalls(), QStringList{"same b -"});
    }

    void activationAnswersWhetherTheMessageWasNotHandled()
    {
        CTimelineTrackBase* const a = Root("a");
        QVERIFY(!Container().ActivateTrack(a)); // the host's side answers 0
        Container().SetOwnerInterface(nullptr);
        m_fixture->ForgetCalls();
        QVERIFY(Container().ActivateTrack(a));
        QCOMPARE(HostCalls(), QStringList());
    }

    void activationAnswersTrueWhenTheOwnerAnswersAnythingButZero()
    {
        CTimelineTrackBase* const a = Root("a");
        const auto answer = [&](int ofTheOwner) {
            AnsweringOwner owner(ofTheOwner);
            Container().SetOwnerInterface(&owner);
            const bool result = Container().ActivateTrack(a);
            Container().SetOwnerInterface(nullptr);
            return result;
        };
        QVERIFY(answer(1));
        QVERIFY(answer(-1));
        QVERIFY(!answer(0));
    }

    void activationFocusesTheWindowsWidgetAndThenTheContainer()
    {
        CTimelineTrackBase* const a = Root("a");
        m_fixture->mainWindow.setFocus(Qt::MouseFocusReason);
        const FocusWatch watch;
        Container().ActivateTrack(a);
        QCOMPARE(watch.focused, (QVector<QObject*>{m_fixture->Window().GetWidget(), &Container()}));
    }

    void activationGivesTheContainerTheKeyboardFocus()
    {
        CTimelineTrackBase* const a = Root("a");
        m_fixture->mainWindow.setFocus();
        QVERIFY(!Container().hasFocus());
        Container().ActivateTrack(a);
        QVERIFY(Container().hasFocus());
    }

    void activatingTheRulerOrTheScrollBarDoesNothing()
    {
        CTimelineTrackBase* const a = Root("a");
        Container().ActivateTrack(a);
        m_fixture->mainWindow.setFocus();
        m_fixture->ForgetCalls();
        QVERIFY(Container().ActivateTrack(Container().TickTrack()));
        QVERIFY(Container().ActivateTrack(Container().ScrollTrack()));
        QVERIFY(a->IsActive());
        QVERIFY(!Container().hasFocus());
        QCOMPARE(HostCalls(), QStringList());
        QCOMPARE(WindowCalls(), QStringList());
    }

    void aHostMayHideTheTrackThatIsBeingActivated()
    {
        CTimelineTrackBase* const a = Root("a");
        CTimelineTrackBase* const a1 = Child(a, "a1");
        CTimelineTrackBase* const b = Root("b");
        CTimelineTrackBase* const b1 = Child(b, "b1");
        Container().SetActiveChildTrack(a1);
        m_fixture->ForgetCalls();
        m_fixture->host.reaction = [&](const QString& call) {
            if (call == "cleared")
                m_fixture->manager->DeleteTrack(b1);
        };
        Container().ActivateTrack(b1);
        QVERIFY(!m_fixture->manager->IsTrackExist(b1));
        QCOMPARE(HostCalls(), (QStringList{"cleared", "active - -"}));
        QVERIFY(!b->IsActive());
    }

    void aHostMayReleaseTheWindowFromAnActivation()
    {
        CTimelineTrackBase* const a = Root("a");
        m_fixture->host.reaction = [&](const QString& call) {
            if (call == "cleared")
                m_fixture->manager->ReleaseTimelineWnd();
        };
        Container().ActivateTrack(a);
        QVERIFY(!m_fixture->Container());
        QVERIFY(!a->IsActive());
        m_fixture->Settle();
        QVERIFY(m_fixture->manager->IsTrackExist(a));
    }
};

QTEST_MAIN(tst_CTimelineContainerTree)
#include "tst_CTimelineContainerTree.moc"
