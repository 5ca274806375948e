#include "document/Scene.h"

#include <QtTest>

using namespace host;

namespace {

/// A scene with something in every member.
Scene FullScene()
{
    Scene scene;
    scene.frameCount = 90;
    SceneTrack root;
    root.caption = QStringLiteral("Face");
    const TrackId face = scene.AddTrack(root);
    SceneTrack lips;
    lips.kind = TrackKind::Viseme;
    lips.parent = face;
    lips.editModes = {EditMode::EditSubKeys};
    SceneKey clip;
    clip.clip = ClipSpan();
    clip.subKeys = {SceneKey(), SceneKey()};
    lips.keys = {clip};
    const TrackId lipsId = scene.AddTrack(lips);
    SceneTrack buttons;
    buttons.kind = TrackKind::Switch;
    buttons.buttons = {{QStringLiteral("Lips"), true, {lipsId}}};
    scene.AddTrack(buttons);
    scene.AddGroup(QStringLiteral("Step"));
    scene.relations = {{RelationKind::ClipBars, {lipsId}}};
    scene.timeMark = {3, 9};
    scene.motion.joints = {Joint()};
    scene.line.cues = {{0, 1, 2}};
    return scene;
}

using Change = std::function<void(Scene&)>;

} // namespace
Q_DECLARE_METATYPE(Change)

class tst_Scene : public QObject
{
    Q_OBJECT

private slots:
    void givesEveryTrackAndGroupANumberOfItsOwn();
    void neverGivesTheNumberOfARemovedTrackAgain();
    void findsTracksByTheirNumber();
    void listsRootsAndChildrenInDisplayOrder();
    void comparesEqualToItsCopy();
    void comparesDifferentAfterAnyChange_data();
    void comparesDifferentAfterAnyChange();
    void keepsASnapshotApartFromLaterEdits();
};

void tst_Scene::givesEveryTrackAndGroupANumberOfItsOwn()
{
    Scene scene;
    const TrackId first = scene.AddTrack(SceneTrack());
    const GroupId group = scene.AddGroup(QStringLiteral("Step"));
    const TrackId second = scene.AddTrack(SceneTrack());
    QVERIFY(first != kNoTrack);
    QVERIFY(group != kNoGroup);
    QVERIFY(first != second);
    QVERIFY(second != group);
    QCOMPARE(scene.groups.first().name, QStringLiteral("Step"));
}

void tst_Scene::neverGivesTheNumberOfARemovedTrackAgain()
{
    Scene scene;
    const TrackId removed = scene.AddTrack(SceneTrack());
    scene.tracks.clear();
    QVERIFY(scene.AddTrack(SceneTrack()) != removed);
}

void tst_Scene::findsTracksByTheirNumber()
{
    Scene scene = FullScene();
    const TrackId lips = scene.tracks[1].id;
    QCOMPARE(scene.FindTrack(lips)->kind, TrackKind::Viseme);
    QVERIFY(!scene.FindTrack(kNoTrack));
    QVERIFY(!qAsConst(scene).FindTrack(999));
}

void tst_Scene::listsRootsAndChildrenInDisplayOrder()
{
    const Scene scene = FullScene();
    const QVector<TrackId> roots{scene.tracks[0].id, scene.tracks[2].id};
    QCOMPARE(scene.ChildrenOf(kNoTrack), roots);
    QCOMPARE(scene.ChildrenOf(scene.tracks[0].id), QVector<TrackId>{scene.tracks[1].id});
    QVERIFY(scene.ChildrenOf(scene.tracks[1].id).isEmpty());
}

void tst_Scene::comparesEqualToItsCopy()
{
    const Scene scene = FullScene();
    const Scene copy = scene;
    QVERIFY(scene == copy);
    QVERIFY(scene == FullScene());
}

void tst_Scene::comparesDifferentAfterAnyChange_data()
{
    QTest::addColumn<Change>("change");
    const auto row = [](const char* name, const Change& change) { QTest::newRow(name) << change; };
    row("frame rate", [](Scene& s) { s.frameRate = 24; });
    row("frame count", [](Scene& s) { ++s.frameCount; });
    row("time mark start", [](Scene& s) { ++s.timeMark.start; });
    row("time mark end", [](Scene& s) { ++s.timeMark.end; });
    row("motion", [](Scene& s) { s.motion.joints[0].name = QStringLiteral("Hips"); });
    row("line", [](Scene& s) { s.line.cues[0].end = 2; });
    row("a group's name", [](Scene& s) { s.groups[0].name.clear(); });
    row("a relation's kind", [](Scene& s) { s.relations[0].kind = RelationKind::SharedSelection; });
    row("a relation's tracks", [](Scene& s) { s.relations[0].tracks.clear(); });
    row("a track more", [](Scene& s) { s.AddTrack(SceneTrack()); });
    row("track kind", [](Scene& s) { s.tracks[0].kind = TrackKind::Link; });
    row("track name", [](Scene& s) { s.tracks[0].name = QStringLiteral("x"); });
    row("caption", [](Scene& s) { s.tracks[0].caption = QStringLiteral("x"); });
    row("style", [](Scene& s) { s.tracks[0].styleNumber = 2; });
    row("parent", [](Scene& s) { s.tracks[1].parent = kNoTrack; });
    row("edit modes", [](Scene& s) { s.tracks[1].editModes.clear(); });
    row("button text", [](Scene& s) { s.tracks[2].buttons[0].text.clear(); });
    row("button state", [](Scene& s) { s.tracks[2].buttons[0].on = false; });
    row("button rows", [](Scene& s) { s.tracks[2].buttons[0].tracks.clear(); });
    const auto key = [&row](const char* name, const std::function<void(SceneKey&)>& change) {
        row(name, [change](Scene& s) { change(s.tracks[1].keys[0]); });
    };
    key("key number", [](SceneKey& k) { ++k.id; });
    key("frame", [](SceneKey& k) { ++k.frame; });
    key("key name", [](SceneKey& k) { k.name = QStringLiteral("x"); });
    key("priority", [](SceneKey& k) { ++k.priority; });
    key("lock", [](SceneKey& k) { k.locked = true; });
    key("alternate", [](SceneKey& k) { k.alternate = true; });
    key("group", [](SceneKey& k) { k.group = 1; });
    key("mouth shape", [](SceneKey& k) { k.mouthShape = 1; });
    key("link", [](SceneKey& k) { k.startsLink = true; });
    key("transition", [](SceneKey& k) { k.transition = Transition(); });
    key("no clip", [](SceneKey& k) { k.clip.reset(); });
    key("clip length", [](SceneKey& k) { k.clip->length = 2; });
    key("loops", [](SceneKey& k) { k.clip->loops = 2; });
    key("lead-in", [](SceneKey& k) { k.clip->leadIn = 2; });
    key("shortest", [](SceneKey& k) { k.clip->shortest = 2; });
    key("longest", [](SceneKey& k) { k.clip->longest = 2; });
    key("sub-key", [](SceneKey& k) { k.subKeys[1].frame = 2; });
}

void tst_Scene::comparesDifferentAfterAnyChange()
{
    QFETCH(Change, change);
    Scene scene = FullScene();
    change(scene);
    QVERIFY(scene != FullScene());
}

void tst_Scene::keepsASnapshotApartFromLaterEdits()
{
    Scene scene = FullScene();
    const Scene snapshot = scene;
    scene.tracks[1].keys[0].subKeys[0].mouthShape = 5;
    QVERIFY(snapshot == FullScene());
    scene = snapshot;
    QVERIFY(scene == FullScene());
}

QTEST_MAIN(tst_Scene)
#include "tst_Scene.moc"
