#include "Journal.h"
#include "TestTracks.h"
#include "container/CTimelineContainer.h"
#include "library/TimelineLibrary.h"
#include "tracks/CTimelineTrackHScroll.h"
#include "tracks/CTimelineTrackTick.h"

#include <QAction>
#include <QKeySequence>
#include <QMetaMethod>
#include <QWindow>

using namespace KestovaTest;

namespace {

struct Row
{
    const char* name; ///< of the action
    const char* key;
    Qt::Key qtKey;
    Qt::KeyboardModifiers modifiers;
    const char* slot;
};

const Row kRows[] = {
    {"SelectNext", "Tab", Qt::Key_Tab, Qt::NoModifier, "OnHKTab"},
    {"SelectPrev", "Shift+Tab", Qt::Key_Backtab, Qt::ShiftModifier, "OnHKShiftTab"},
    {"ZeroFrame", "Home", Qt::Key_Home, Qt::NoModifier, "OnHKHome"},
    {"EndFrame", "End", Qt::Key_End, Qt::NoModifier, "OnHKEnd"},
    {"EndFrame2", ".", Qt::Key_Period, Qt::NoModifier, "OnHKEnd"},
    {"ZoominFrame", "+", Qt::Key_Plus, Qt::NoModifier, "OnHKPlus"},
    {"ZoominFrame2", "=", Qt::Key_Equal, Qt::NoModifier, "OnHKPlus"},
    {"ZoomoutFrame", "-", Qt::Key_Minus, Qt::NoModifier, "OnHKMinus"},
    {"ZoomAllFrame", "*", Qt::Key_Asterisk, Qt::NoModifier, "OnHKAsterisk"},
    {"UnZoomFrame", "/", Qt::Key_Slash, Qt::NoModifier, "OnHKSlash"},
};

const char* const kSlotsInOrder[] = {"OnHKShiftTab", "OnHKTab",  "OnHKRight", "OnHKLeft",
                                     "OnHKEnd",      "OnHKHome", "OnHKPlus",  "OnHKMinus",
                                     "OnHKAsterisk", "OnHKSlash"};

struct Zoom
{
    Qt::Key key;
    void (*run)(CTimelineContainer& container); ///< the command that the key stands for
};

const Zoom kZooms[] = {{Qt::Key_Plus, [](CTimelineContainer& c) { c.DoZoomIn(); }},
                       {Qt::Key_Equal, [](CTimelineContainer& c) { c.DoZoomIn(); }},
                       {Qt::Key_Minus, [](CTimelineContainer& c) { c.DoZoomOut(); }},
                       {Qt::Key_Asterisk, [](CTimelineContainer& c) { c.DoZoomAll(); }},
                       {Qt::Key_Slash, [](CTimelineContainer& c) { c.DoUnZoom(); }}};

/// What is in view: the thumb's edges, the scale and the scroll offset.
struct View
{
    float left = 0.0F;
    float right = 0.0F;
    int pixelsPerFrame = 0;
    int framesPerPixel = 0;
    int scrollX = 0;

    bool operator==(const View& other) const
    {
        return left == other.left && right == other.right &&
               pixelsPerFrame == other.pixelsPerFrame && framesPerPixel == other.framesPerPixel &&
               scrollX == other.scrollX;
    }
};

View CurrentView(const CTimelineContainer& container)
{
    View view;
    container.GetScrollInfo(view.left, view.right);
    const FrameAxis& axis = TimelineLibrary::Instance().axis;
    view.pixelsPerFrame = axis.info.pixelsPerFrame;
    view.framesPerPixel = axis.info.framesPerPixel;
    view.scrollX = axis.scrollX;
    return view;
}

} // namespace

class tst_Hotkeys : public QObject
{
    Q_OBJECT

    std::unique_ptr<HostFixture> m_fixture;
    CTimelineTrackBase* m_body = nullptr;
    CTimelineTrackBase* m_arm = nullptr;
    QWidget* m_outside = nullptr;

    CTimelineContainer& Container() const { return *m_fixture->Container(); }

    /// Types the key where the windowing system would: at the window.
    void Type(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(m_fixture->mainWindow.windowHandle(), key, modifiers);
    }

    /// Half zoomed in, so that every zoom has something to do; the current frame in the middle.
    void ZoomHalfIn() const
    {
        m_fixture->manager->SetFrameCount(5000);
        m_fixture->manager->SetCurrentFrame(2500);
        Container().DoZoomAll();
        Container().DoZoomIn();
        Container().DoZoomIn();
    }

private slots:
    void init();
    void cleanup();

    void everyRowOfTheTableIsAnActionOfTheContainer_data();
    void everyRowOfTheTableIsAnActionOfTheContainer();
    void thereAreTenActionsAndNoMore();
    void theSlotsStandInTheOrderOfTheMetaObject();

    void tabSelectsTheNextKey();
    void shiftTabSelectsThePreviousKey();
    void tabWithoutAnActiveTrackDoesNothing();
    void homeGoesToFrameZero();
    void endAndPeriodGoToTheLastFrame_data();
    void endAndPeriodGoToTheLastFrame();
    void endGoesToFrameZeroWithoutFrames();
    void aKeyZoomsAsItsCommandDoesAndTellsTheWindow_data();
    void aKeyZoomsAsItsCommandDoesAndTellsTheWindow();
    void theCurrentFrameStaysInViewExceptWhenAllAreShown();
    void theWindowIsToldThoughNothingCouldBeZoomed_data();
    void theWindowIsToldThoughNothingCouldBeZoomed();
    void theNumericKeypadCountsToo_data();
    void theNumericKeypadCountsToo();

    void keysWorkWithTheFocusAnywhereInTheContainer_data();
    void keysWorkWithTheFocusAnywhereInTheContainer();
    void keysWithAnotherModifierAreTheHosts_data();
    void keysWithAnotherModifierAreTheHosts();

    void aHostMayConnectLeftAndRight();
    void leftAndRightStayInTheFrames();

    void survivesAHostThat_data();
    void survivesAHostThat();
    void selectsNothingOfATrackThatTheHostDeletedMeanwhile();
};

void tst_Hotkeys::init()
{
    m_fixture = std::make_unique<HostFixture>();
    m_outside = new QWidget(&m_fixture->mainWindow);
    m_outside->setFocusPolicy(Qt::StrongFocus);
    m_fixture->mainWindow.setCentralWidget(m_outside);
    m_body = m_fixture->Root(TL_TRACK_KEY, "Body");
    m_arm = m_fixture->Child(m_body, TL_TRACK_KEY, "Arm");
    m_fixture->AddKeys(m_arm, {10, 20, 30});
    m_fixture->manager->SetActiveChildTrack(m_arm);
    m_fixture->manager->SetCurrentFrame(15);
    m_fixture->Settle();
    Container().setFocus();
    m_fixture->ForgetCalls();
}

void tst_Hotkeys::cleanup()
{
    m_fixture.reset();
}

// ---- The table ----

void tst_Hotkeys::everyRowOfTheTableIsAnActionOfTheContainer_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("key");
    for (const Row& row : kRows)
        QTest::newRow(row.name) << QString(row.name) << QString(row.key);
}

void tst_Hotkeys::everyRowOfTheTableIsAnActionOfTheContainer()
{
    QFETCH(QString, name);
    QFETCH(QString, key);
    auto* const action = Container().findChild<QAction*>(name, Qt::FindDirectChildrenOnly);
    QVERIFY(action);
    QCOMPARE(action->shortcuts(), QList<QKeySequence>{QKeySequence(key)});
    QCOMPARE(action->shortcutContext(), Qt::WidgetWithChildrenShortcut);
    QVERIFY(Container().actions().contains(action));
}

void tst_Hotkeys::thereAreTenActionsAndNoMore()
{
    const CTimelineContainer alone(nullptr); // they are made with the container, not with a window
    QCOMPARE(alone.actions().size(), 10);
    QCOMPARE(alone.findChildren<QAction*>().size(), 10);
}

void tst_Hotkeys::theSlotsStandInTheOrderOfTheMetaObject()
{
    const QMetaObject& meta = CTimelineContainer::staticMetaObject;
    QStringList slots_;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
        slots_ << meta.method(i).methodSignature();
    }
    QStringList wanted;
    for (const char* const name : kSlotsInOrder)
        wanted << QString(name) + "()";
    QCOMPARE(slots_, wanted);
}

// ---- What each does ----

void tst_Hotkeys::tabSelectsTheNextKey()
{
    Journal journal(*m_fixture);
    Type(Qt::Key_Tab);
    QCOMPARE(journal.Take(),
             (QStringList{"window refreshed", "window frame 20", "frame 20 false", "frame 20 true",
                          "window refreshed", "cleared", "window refreshed", "changed"}));
    QVERIFY(m_arm->Keys().GetAt(1)->selected);
}

void tst_Hotkeys::shiftTabSelectsThePreviousKey()
{
    Journal journal(*m_fixture);
    Type(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(journal.Take(), (QStringList{"window refreshed", "cleared", "window refreshed",
                                          "changed", "window refreshed", "window frame 10",
                                          "frame 10 false", "frame 10 true"}));
    QVERIFY(m_arm->Keys().GetAt(0)->selected);
}

void tst_Hotkeys::tabWithoutAnActiveTrackDoesNothing()
{
    Container().SetActiveRootTrack(nullptr);
    Journal journal(*m_fixture);
    Type(Qt::Key_Tab);
    Type(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(journal.Take(), QStringList());
    QVERIFY(Container().hasFocus()); // it is no way out of the timeline either
}

void tst_Hotkeys::homeGoesToFrameZero()
{
    Journal journal(*m_fixture);
    Type(Qt::Key_Home);
    QCOMPARE(journal.Take(),
             (QStringList{"window refreshed", "window frame 0", "frame 0 false", "frame 0 true"}));
    QCOMPARE(Container().GetCurrentFrame(), 0);
}

void tst_Hotkeys::endAndPeriodGoToTheLastFrame_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("End") << int(Qt::Key_End);
    QTest::newRow(".") << int(Qt::Key_Period);
}

void tst_Hotkeys::endAndPeriodGoToTheLastFrame()
{
    QFETCH(int, key);
    Journal journal(*m_fixture);
    Type(static_cast<Qt::Key>(key));
    QCOMPARE(journal.Take(), (QStringList{"window refreshed", "window frame 99", "frame 99 false",
                                          "frame 99 true"}));
}

void tst_Hotkeys::endGoesToFrameZeroWithoutFrames()
{
    Container().SetFrameCount(0);
    Type(Qt::Key_End);
    QCOMPARE(Container().GetCurrentFrame(), 0);
}

void tst_Hotkeys::aKeyZoomsAsItsCommandDoesAndTellsTheWindow_data()
{
    QTest::addColumn<int>("zoom");
    int index = 0;
    for (const Zoom& zoom : kZooms)
        QTest::newRow(qPrintable(QKeySequence(zoom.key).toString())) << index++;
}

void tst_Hotkeys::aKeyZoomsAsItsCommandDoesAndTellsTheWindow()
{
    QFETCH(int, zoom);
    ZoomHalfIn();
    const View before = CurrentView(Container());
    kZooms[zoom].run(Container());
    const View wanted = CurrentView(Container());
    QVERIFY(!(wanted == before));

    ZoomHalfIn();
    QVERIFY(CurrentView(Container()) == before);
    Journal journal(*m_fixture);
    Type(kZooms[zoom].key);
    QVERIFY(CurrentView(Container()) == wanted);
    QCOMPARE(journal.Take(), QStringList{"window refreshed"});
}

void tst_Hotkeys::theCurrentFrameStaysInViewExceptWhenAllAreShown()
{
    ZoomHalfIn();
    m_fixture->manager->SetCurrentFrame(4900); // right of the view
    const FrameAxis& axis = TimelineLibrary::Instance().axis;
    const int width = Container().ScrollTrack()->width();
    const auto isInView = [&] {
        return axis.PixelToFrame(0) <= 4900 && axis.PixelToFrame(width) >= 4900;
    };
    QVERIFY(!isInView());
    for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_Slash, Qt::Key_Minus}) {
        Container().SetScrollInfo(0.1F, 0.3F);
        QVERIFY(!isInView());
        Type(key);
        QVERIFY(isInView());
    }
    Type(Qt::Key_Asterisk);
    QCOMPARE(axis.scrollX, 0);
}

void tst_Hotkeys::theWindowIsToldThoughNothingCouldBeZoomed_data()
{
    QTest::addColumn<int>("key");
    for (const Qt::Key key :
         {Qt::Key_Plus, Qt::Key_Equal, Qt::Key_Minus, Qt::Key_Asterisk, Qt::Key_Slash})
        QTest::newRow(qPrintable(QKeySequence(key).toString())) << int(key);
}

void tst_Hotkeys::theWindowIsToldThoughNothingCouldBeZoomed()
{
    QFETCH(int, key);
    Container().SetFrameCount(0); // without frames no zoom can be done
    QVERIFY(!Container().CanDoZoomIn() && !Container().CanDoZoomOut() &&
            !Container().CanDoZoomAll() && !Container().CanDoUnZoom());
    const View before = CurrentView(Container());
    Journal journal(*m_fixture);
    Type(static_cast<Qt::Key>(key));
    QVERIFY(CurrentView(Container()) == before);
    QCOMPARE(journal.Take(), QStringList{"window refreshed"});
}

void tst_Hotkeys::theNumericKeypadCountsToo_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QStringList>("wanted");
    for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Asterisk, Qt::Key_Slash})
        QTest::newRow(qPrintable(QKeySequence(key).toString()))
            << int(key) << QStringList{"window refreshed"};
    QTest::newRow("Home") << int(Qt::Key_Home)
                          << QStringList{"window refreshed", "window frame 0", "frame 0 false",
                                         "frame 0 true"};
}

void tst_Hotkeys::theNumericKeypadCountsToo()
{
    QFETCH(int, key);
    QFETCH(QStringList, wanted);
    Journal journal(*m_fixture);
    Type(static_cast<Qt::Key>(key), Qt::KeypadModifier);
    QCOMPARE(journal.Take(), wanted);
}

// ---- Where they work ----

void tst_Hotkeys::keysWorkWithTheFocusAnywhereInTheContainer_data()
{
    QTest::addColumn<QString>("where");
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("works");
    const struct
    {
        const char* where;
        bool works;
    } places[] = {{"the container", true},       {"a row", true},
                  {"the ruler", true},           {"the scroll bar", true},
                  {"a widget beside it", false}, {"the window that it stands in", false}};
    for (const auto& place : places) {
        int index = 0;
        for (const Row& row : kRows)
            QTest::addRow("%s in %s", row.name, place.where)
                << QString(place.where) << index++ << place.works;
    }
}

void tst_Hotkeys::keysWorkWithTheFocusAnywhereInTheContainer()
{
    QFETCH(QString, where);
    QFETCH(int, row);
    QFETCH(bool, works);
    const QMap<QString, QWidget*> places{
        {"the container", &Container()},
        {"a row", m_arm},
        {"the ruler", Container().TickTrack()},
        {"the scroll bar", Container().ScrollTrack()},
        {"a widget beside it", m_outside},
        {"the window that it stands in", m_fixture->Window().GetWidget()}};
    QWidget* const focus = places.value(where);
    focus->setFocus();
    QVERIFY(focus->hasFocus());
    Journal journal(*m_fixture);
    Type(kRows[row].qtKey, kRows[row].modifiers);
    QCOMPARE(!journal.Take().isEmpty(), works);
}

void tst_Hotkeys::keysWithAnotherModifierAreTheHosts_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    for (const Row& row : kRows) {
        if (row.modifiers != Qt::NoModifier)
            continue;
        QTest::addRow("Ctrl+%s", row.key) << int(row.qtKey) << int(Qt::ControlModifier);
        QTest::addRow("Alt+%s", row.key) << int(row.qtKey) << int(Qt::AltModifier);
    }
    QTest::newRow("Left") << int(Qt::Key_Left) << 0;
    QTest::newRow("Right") << int(Qt::Key_Right) << 0;
}

void tst_Hotkeys::keysWithAnotherModifierAreTheHosts()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    Journal journal(*m_fixture);
    Type(static_cast<Qt::Key>(key), static_cast<Qt::KeyboardModifiers>(modifiers));
    QCOMPARE(journal.Take(), QStringList());
}

// ---- Left and right ----

void tst_Hotkeys::aHostMayConnectLeftAndRight()
{
    QAction left;
    QAction right;
    QVERIFY(connect(&left, SIGNAL(triggered()), &Container(), SLOT(OnHKLeft())));
    QVERIFY(connect(&right, SIGNAL(triggered()), &Container(), SLOT(OnHKRight())));
    Journal journal(*m_fixture);
    left.trigger();
    QCOMPARE(journal.Take(), (QStringList{"window refreshed", "window frame 14", "frame 14 false",
                                          "frame 14 true"}));
    right.trigger();
    right.trigger();
    QCOMPARE(Container().GetCurrentFrame(), 16);
}

void tst_Hotkeys::leftAndRightStayInTheFrames()
{
    Container().GotoFrame(0);
    Container().OnHKLeft();
    QCOMPARE(Container().GetCurrentFrame(), 0);
    Container().GotoFrame(99);
    Container().OnHKRight();
    QCOMPARE(Container().GetCurrentFrame(), 99);
}

// ---- A host that acts from its callbacks ----

void tst_Hotkeys::survivesAHostThat_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("deed");
    QTest::addColumn<int>("line");
    const struct
    {
        int row;
        int lines; ///< that are heard of it
    } keys[] = {{0, 8}, {1, 8}, {2, 4}, {5, 1}};
    for (const auto& key : keys) {
        for (int deed = 0; deed < HostDeedCount; ++deed) {
            for (int line = 0; line < key.lines; ++line)
                QTest::addRow("%s: %s at line %d", kRows[key.row].name, kHostDeedNames[deed], line)
                    << key.row << deed << line;
        }
    }
}

void tst_Hotkeys::survivesAHostThat()
{
    QFETCH(int, row);
    QFETCH(int, deed);
    QFETCH(int, line);
    bool done = false;
    {
        Journal journal(*m_fixture);
        int heard = 0;
        journal.reaction = [&](const QString&) {
            if (heard++ != line)
                return;
            done = true;
            Do(static_cast<HostDeed>(deed), *m_fixture, m_arm, {m_body});
        };
        Type(kRows[row].qtKey, kRows[row].modifiers);
    }
    QVERIFY(done);
    QVERIFY(WorksAgain(*m_fixture));
}

void tst_Hotkeys::selectsNothingOfATrackThatTheHostDeletedMeanwhile()
{
    Journal journal(*m_fixture);
    journal.reaction = [&](const QString& line) {
        if (line == "frame 20 true")
            m_fixture->manager->DeleteTrack(m_arm);
    };
    Type(Qt::Key_Tab);
    const QStringList heard = journal.Take();
    QVERIFY(heard.contains("frame 20 true"));
    QVERIFY(!heard.contains("cleared"));
    QVERIFY(!heard.contains("changed"));
}

QTEST_MAIN(tst_Hotkeys)
#include "tst_Hotkeys.moc"
