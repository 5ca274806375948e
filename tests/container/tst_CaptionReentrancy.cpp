#include "CaptionScene.h"

using namespace KestovaTest;

namespace {

/// A gesture on the captions, and which of the lines that are heard of it the host acts from.
struct Story
{
    const char* name;
    void (*run)(CaptionScene& scene, QPoint caption, QPoint button);
    int firstLine;
    int endLine;
};

void ClickButton(CaptionScene& scene, QPoint, QPoint button)
{
    scene.pointer.Click(&scene.Container(), button);
}

void ClickCaption(CaptionScene& scene, QPoint caption, QPoint)
{
    scene.pointer.Click(&scene.Container(), caption);
}

void DoubleClickCaption(CaptionScene& scene, QPoint caption, QPoint)
{
    scene.pointer.DoubleClick(&scene.Container(), caption);
}

void LoseTheButton(CaptionScene& scene, QPoint caption, QPoint button)
{
    scene.pointer.Press(&scene.Container(), button);
    scene.pointer.LoseButtons();
    scene.pointer.MoveTo(&scene.Container(), caption);
}

const Story kStories[] = {{"click on a button", ClickButton, 0, 2},
                          {"click on a caption", ClickCaption, 0, 5},
                          // What its first press brings is the click's.
                          {"double click on a caption", DoubleClickCaption, 5, 15},
                          {"press that loses its button", LoseTheButton, 0, 1}};

} // namespace

/// A host that does its worst while the mouse is over the captions.
class tst_CaptionReentrancy : public QObject
{
    Q_OBJECT

private slots:
    void survivesAHostThat_data();
    void survivesAHostThat();
    void nothingFollowsForARowThatTheHostTookAwayMeanwhile();
    void noClickFollowsFromARowThatTheHostDeletesInTheClick();
};

void tst_CaptionReentrancy::survivesAHostThat_data()
{
    QTest::addColumn<int>("story");
    QTest::addColumn<int>("deed");
    QTest::addColumn<int>("line");
    int index = 0;
    for (const Story& story : kStories) {
        for (int deed = 0; deed < HostDeedCount; ++deed) {
            for (int line = story.firstLine; line < story.endLine; ++line)
                QTest::addRow("%s: %s at line %d", story.name, kHostDeedNames[deed], line)
                    << index << deed << line;
        }
        ++index;
    }
}

void tst_CaptionReentrancy::survivesAHostThat()
{
    QFETCH(int, story);
    QFETCH(int, deed);
    QFETCH(int, line);
    CaptionScene scene;
    scene.fixture.SetEditModes(scene.arm, {TL_EDIT_MOVE_KEYS, TL_EDIT_COPY});
    scene.fixture.ForgetCalls();
    bool done = false;
    {
        Journal journal(scene.fixture);
        int heard = 0;
        journal.reaction = [&](const QString&) {
            if (heard++ != line)
                return;
            done = true;
            Do(static_cast<HostDeed>(deed), scene.fixture, scene.arm,
               {scene.leg, scene.body, scene.clips, scene.lips, scene.face});
        };
        kStories[story].run(scene, scene.CaptionOf(scene.arm), scene.ButtonOf(scene.arm, kLockId));
    }
    QVERIFY(done);
    QVERIFY(WorksAgain(scene.fixture));
}

void tst_CaptionReentrancy::nothingFollowsForARowThatTheHostTookAwayMeanwhile()
{
    CaptionScene scene;
    scene.fixture.SetEditModes(scene.arm, {TL_EDIT_MOVE_KEYS, TL_EDIT_COPY});
    const QPoint caption = scene.CaptionOf(scene.arm);
    scene.pointer.Click(&scene.Container(), caption);
    Journal journal(scene.fixture);
    int presses = 0;
    journal.reaction = [&](const QString& line) {
        if (line == "same Body Arm" && ++presses == 2) // that of the double click
            scene.fixture.manager->HideChildTrack(scene.arm, false);
    };
    scene.pointer.DoubleClick(&scene.Container(), caption);
    const QStringList heard = journal.Take();
    QCOMPARE(presses, 2);
    QVERIFY(!heard.contains("cleared"));
    QVERIFY(!heard.contains("changed"));
    QCOMPARE(scene.Selected(scene.arm), 0);
}

void tst_CaptionReentrancy::noClickFollowsFromARowThatTheHostDeletesInTheClick()
{
    CaptionScene scene;
    const QPoint button = scene.ButtonOf(scene.arm, kLockId);
    const QString clicked = scene.Clicked(scene.arm, kLockId);
    Journal journal(scene.fixture);
    journal.reaction = [&](const QString& line) {
        if (line == clicked)
            scene.fixture.manager->DeleteTrack(scene.arm);
    };
    // The second press and release of the double click meet the row that has moved up.
    scene.pointer.DoubleClick(&scene.Container(), button);
    const QStringList heard = journal.Take();
    QCOMPARE(heard.count(clicked), 1);
    QVERIFY(heard.contains(scene.Clicked(scene.leg, kLockId)));
    QCOMPARE(heard.filter("Arm"), QStringList{clicked});
}

QTEST_MAIN(tst_CaptionReentrancy)
#include "tst_CaptionReentrancy.moc"
