#include "TestFiles.h"

#include "import/SceneFiles.h"
#include "view/SceneTracks.h"
#include "view/TimelineWindowFactory.h"

#include <QDockWidget>
#include <QMainWindow>

using namespace host;

namespace {

/// A timeline in a dock, as small as a host can be.
struct SmallHost
{
    SmallHost() : dock(new QDockWidget(&window)), manager(&window), tracks(manager)
    {
        window.addDockWidget(Qt::BottomDockWidgetArea, dock);
        manager.SetTimelineWndFactoryBase(&factory);
        manager.CreateTimelineManager(&callbacks,
                                      std::wstring(L"" KESTOVA_SKINS_DIR "/default.ini"));
        created = manager.CreateTimelineMainWidget(dock);
    }

    QMainWindow window;
    QDockWidget* dock;
    CTimelineManagerInterface callbacks;
    TimelineWindowFactory factory;
    CTimelineManager manager;
    SceneTracks tracks;
    bool created = false;
};

Scene SampleScene()
{
    ImportError error;
    const auto scene = LoadScene(
        {SamplePath(QStringLiteral("stroll.bvh")), SamplePath(QStringLiteral("greeting.json"))},
        error);
    if (!scene)
        qFatal("%s", qPrintable(error.Message()));
    return *scene;
}

TrackId IdOf(const Scene& scene, const QString& name)
{
    for (const SceneTrack& track : scene.tracks) {
        if (track.name == name)
            return track.id;
    }
    return kNoTrack;
}

} // namespace

class tst_SceneTracks : public QObject
{
    Q_OBJECT

private slots:
    void makesATrackForEachOfTheScene();
    void placesRootsAndChildrenInTheScenesOrder();
    void fillsTheKeysOfEveryTrack();
    void carriesClipsAndTheirSubKeys();
    void carriesTransitions();
    void carriesLinks();
    void letsKeysOfOneGroupShareTheirToken();
    void allowsTheEditsOfTheScene();
    void labelsTheSwitchButtons();
    void setsUpTheRelations();
    void hidesARowAndShowsItAtItsPlace();
    void showsOnlyTheRowsWhoseButtonsAreOn();
    void showsChangedKeysAndKeepsThemSelected();
    void takesCopiesOfItsKeysAway();
    void readsWhatItHasWritten();
    void takesThePreviousSceneAway();
    void knowsWhichTrackStandsForWhichInBothDirections();
    void refusesAStyleThatTheSkinLacks();

private:
    CTimelineKeyArray* KeysOf(SmallHost& host, const Scene& scene, const char* name)
    {
        return host.manager.GetKeyDataArray(host.tracks.TrackOf(IdOf(scene, QLatin1String(name))));
    }
};

void tst_SceneTracks::makesATrackForEachOfTheScene()
{
    SmallHost host;
    QVERIFY(host.created);
    const Scene scene = SampleScene();
    QVERIFY(host.tracks.Show(scene));
    const QMap<TrackKind, TL_TRACK_TYPE> types{
        {TrackKind::Switch, TL_TRACK_SWITCH},     {TrackKind::Key, TL_TRACK_KEY},
        {TrackKind::Link, TL_TRACK_LINK_KEY},     {TrackKind::Transition, TL_TRACK_TRANSITION_KEY},
        {TrackKind::Viseme, TL_TRACK_VISEME_KEY}, {TrackKind::Clip, TL_TRACK_CLIP}};
    QSet<TL_TRACK_TYPE> seen;
    for (const SceneTrack& track : scene.tracks) {
        CTimelineTrackBase* const made = host.tracks.TrackOf(track.id);
        QCOMPARE(host.manager.GetTrackType(made), types[track.kind]);
        QCOMPARE(host.tracks.IdOf(made), track.id);
        seen.insert(types[track.kind]);
    }
    QCOMPARE(seen.size(), types.size()); // the sample shows every kind
    QVERIFY(!host.tracks.TrackOf(kNoTrack));
    QCOMPARE(host.tracks.IdOf(nullptr), kNoTrack);
}

void tst_SceneTracks::placesRootsAndChildrenInTheScenesOrder()
{
    SmallHost host;
    const Scene scene = SampleScene();
    QVERIFY(host.tracks.Show(scene));
    int place = 0;
    for (const TrackId root : scene.ChildrenOf(kNoTrack)) {
        QCOMPARE(host.manager.GetRootTrackSortIndex(host.tracks.TrackOf(root)), place++);
        int childPlace = 0;
        for (const TrackId child : scene.ChildrenOf(root))
            QCOMPARE(host.manager.GetChildTrackSortIndex(host.tracks.TrackOf(child)), childPlace++);
    }
    QVERIFY(host.manager.GetLipsTrack() ==
            host.tracks.TrackOf(IdOf(scene, QStringLiteral("Lips"))));
}

void tst_SceneTracks::fillsTheKeysOfEveryTrack()
{
    SmallHost host;
    const Scene scene = SampleScene();
    QVERIFY(host.tracks.Show(scene));
    for (const SceneTrack& track : scene.tracks) {
        CTimelineKeyArray* const keys = host.manager.GetKeyDataArray(host.tracks.TrackOf(track.id));
        QCOMPARE(static_cast<int>(keys->GetSize()), track.keys.size());
        for (int i = 0; i < track.keys.size(); ++i)
            QCOMPARE(keys->GetAt(i)->frame, track.keys[i].frame);
    }
}

void tst_SceneTracks::carriesClipsAndTheirSubKeys()
{
    SmallHost host;
    Scene scene = SampleScene();
    SceneKey& motion = scene.FindTrack(IdOf(scene, QStringLiteral("Motion")))->keys[0];
    motion.clip = ClipSpan{20, 3, 4, 5, 60, 40};
    motion.locked = true;
    motion.alternate = true;
    motion.priority = 7;
    QVERIFY(host.tracks.Show(scene));
    const auto clip = KeysOf(host, scene, "Motion")->GetAt(0);
    QCOMPARE(clip->name, QStringLiteral("stroll"));
    QCOMPARE(clip->clipLength, 20);
    QCOMPARE(clip->loopCount, 3);
    QCOMPARE(clip->transitionFrames, 4);
    QCOMPARE(clip->hostValue3, 5);
    QCOMPARE(clip->hostValue2, 60);
    QCOMPARE(clip->hostValue4, 40);
    QCOMPARE(clip->lockState, static_cast<int>(TL_KEY_LOCKED));
    QVERIFY(clip->alternateStyle);
    QCOMPARE(clip->priority, 7);
    QCOMPARE(clip->displayLength, 60);

    const auto lips = KeysOf(host, scene, "Lips")->GetAt(0);
    const SceneKey& line = scene.FindTrack(IdOf(scene, QStringLiteral("Lips")))->keys[0];
    QVERIFY(lips->hostSwitch);
    QCOMPARE(static_cast<int>(lips->subKeys->GetSize()), line.subKeys.size());
    for (int i = 0; i < line.subKeys.size(); ++i) {
        QCOMPARE(lips->subKeys->GetAt(i)->frame, line.subKeys[i].frame);
        QCOMPARE(lips->subKeys->GetAt(i)->hostValue6, line.subKeys[i].mouthShape);
    }
}

void tst_SceneTracks::carriesTransitions()
{
    SmallHost host;
    const Scene scene = SampleScene();
    QVERIFY(host.tracks.Show(scene));
    CTimelineKeyArray* const keys = KeysOf(host, scene, "MotionBlend");
    constexpr int kBothDirections = TL_KEY_TRANSITION_IN | TL_KEY_TRANSITION_OUT;
    QCOMPARE(keys->GetAt(0)->kindMask & kBothDirections, static_cast<int>(TL_KEY_TRANSITION_OUT));
    QCOMPARE(keys->GetAt(1)->kindMask & kBothDirections, static_cast<int>(TL_KEY_TRANSITION_IN));
    QCOMPARE(keys->GetAt(1)->transitionFrames, 12);
}

void tst_SceneTracks::carriesLinks()
{
    SmallHost host;
    const Scene scene = SampleScene();
    QVERIFY(host.tracks.Show(scene));
    CTimelineKeyArray* const keys = KeysOf(host, scene, "LeftFootContact");
    QVERIFY(keys->GetSize() >= 2);
    for (int i = 0; i < static_cast<int>(keys->GetSize()); ++i)
        QCOMPARE((keys->GetAt(i)->keyType & TL_KEY_LINK_START) != 0, i % 2 == 0);
}

void tst_SceneTracks::letsKeysOfOneGroupShareTheirToken()
{
    SmallHost host;
    const Scene scene = SampleScene();
    QVERIFY(host.tracks.Show(scene));
    const auto thigh = KeysOf(host, scene, "LeftUpLeg")->GetAt(0);
    const auto knee = KeysOf(host, scene, "LeftLeg")->GetAt(0);
    const auto arm = KeysOf(host, scene, "LeftArm")->GetAt(0);
    const auto otherLeg = KeysOf(host, scene, "RightUpLeg")->GetAt(1);
    QVERIFY(thigh->group);
    QVERIFY(thigh->group == knee->group);
    QVERIFY(otherLeg->group);
    QVERIFY(thigh->group != otherLeg->group);
    QVERIFY(!arm->group);
}

void tst_SceneTracks::allowsTheEditsOfTheScene()
{
    SmallHost host;
    const Scene scene = SampleScene();
    QVERIFY(host.tracks.Show(scene));
    CTimelineTrackBase* const arm = host.tracks.TrackOf(IdOf(scene, QStringLiteral("LeftArm")));
    QVERIFY(host.manager.CanDoTrackEdit(arm, TL_EDIT_SELECT_ALL));
    QVERIFY(!host.manager.CanDoTrackEdit(arm, TL_EDIT_COPY)); // nothing is selected
    CTimelineKeyArray* const keys = host.manager.GetKeyDataArray(arm);
    keys->SetSelectionByIndex(0, 0, true, 1);
    QVERIFY(host.manager.CanDoTrackEdit(arm, TL_EDIT_COPY));
    QVERIFY(!host.manager.CanDoTrackEdit(arm, TL_EDIT_CLIP_LOOP)); // not among a key row's edits
}

void tst_SceneTracks::labelsTheSwitchButtons()
{
    SmallHost host;
    Scene scene = SampleScene();
    const TrackId layers = IdOf(scene, QStringLiteral("Layers"));
    scene.FindTrack(layers)->buttons[1].on = false;
    QVERIFY(host.tracks.Show(scene));
    std::vector<_tmpTLSwitchBtnData> buttons;
    QVERIFY(host.manager.GetTrackSwitchBtnList(host.tracks.TrackOf(layers), buttons));
    QCOMPARE(buttons.size(), std::size_t(4));
    QCOMPARE(buttons[0].text, QStringLiteral("Lips"));
    QCOMPARE(buttons[0].state, 2);
    QCOMPARE(buttons[1].text, QStringLiteral("Joints"));
    QCOMPARE(buttons[1].state, 0);
}

void tst_SceneTracks::setsUpTheRelations()
{
    SmallHost host;
    const Scene scene = SampleScene();
    QVERIFY(host.tracks.Show(scene));
    std::vector<_tmpTLRelatedMap> table;
    QVERIFY(host.manager.GetTrackRelMapTable(table));
    QVector<TrackRelation> known = scene.relations;
    const auto isShownByKeys = [](const TrackRelation& relation) {
        return relation.kind == RelationKind::RelatedKeys; // not the timeline's to know
    };
    known.erase(std::remove_if(known.begin(), known.end(), isShownByKeys), known.end());
    QVERIFY(known.size() < scene.relations.size());
    QCOMPARE(static_cast<int>(table.size()), known.size());
    const QMap<RelationKind, int> kinds{{RelationKind::SharedTimeRange, 0},
                                        {RelationKind::SharedSelection, 1},
                                        {RelationKind::ClipBars, 3}};
    for (std::size_t i = 0; i < table.size(); ++i) {
        const TrackRelation& relation = known[static_cast<int>(i)];
        QCOMPARE(table[i].kind, kinds[relation.kind]);
        QVector<TrackId> tracks;
        for (CTimelineTrackBase* const track : table[i].tracks)
            tracks.append(host.tracks.IdOf(track));
        QCOMPARE(tracks, relation.tracks);
    }
}

void tst_SceneTracks::hidesARowAndShowsItAtItsPlace()
{
    SmallHost host;
    const Scene scene = SampleScene();
    QVERIFY(host.tracks.Show(scene));
    const TrackId spine = IdOf(scene, QStringLiteral("Spine"));
    const TrackId hips = IdOf(scene, QStringLiteral("Hips"));
    const auto placeOf = [&host](TrackId row) {
        return host.manager.GetChildTrackSortIndex(host.tracks.TrackOf(row));
    };
    const int place = placeOf(spine);
    host.tracks.SetRowShown(scene, spine, false);
    QCOMPARE(placeOf(spine), -1);
    host.tracks.SetRowShown(scene, hips, false);
    host.tracks.SetRowShown(scene, spine, true);
    QCOMPARE(placeOf(spine), place - 1);
    host.tracks.SetRowShown(scene, hips, true);
    QCOMPARE(placeOf(hips), place - 1);
    QCOMPARE(placeOf(spine), place);
    host.tracks.SetRowShown(scene, 999, false); // a row that is not there is passed over
}

void tst_SceneTracks::showsOnlyTheRowsWhoseButtonsAreOn()
{
    SmallHost host;
    Scene scene = SampleScene();
    scene.FindTrack(IdOf(scene, QStringLiteral("Layers")))->buttons[1].on = false;
    QVERIFY(host.tracks.Show(scene));
    const auto isShown = [&](const char* name) {
        return host.manager.GetChildTrackSortIndex(
                   host.tracks.TrackOf(IdOf(scene, QLatin1String(name)))) >= 0;
    };
    QVERIFY(!isShown("LeftArm"));
    QVERIFY(isShown("LeftFootContact"));
}

void tst_SceneTracks::showsChangedKeysAndKeepsThemSelected()
{
    SmallHost host;
    Scene scene = SampleScene();
    QVERIFY(host.tracks.Show(scene));
    CTimelineKeyArray* const keys = KeysOf(host, scene, "LeftArm");
    keys->SetSelectionByIndex(1, 1, true, TL_KEY_ANY_KIND);
    const auto moved = keys->GetAt(1);
    QVector<SceneKey>& arm = scene.FindTrack(IdOf(scene, QStringLiteral("LeftArm")))->keys;
    arm[1].frame = 17;
    arm[1].locked = true;
    arm.removeAt(0);
    const std::size_t count = keys->GetSize() - 1;
    host.tracks.ShowKeys(scene);
    QCOMPARE(keys->GetSize(), count);
    QVERIFY(keys->GetAt(0) == moved); // who holds the key goes on holding what is shown
    QCOMPARE(moved->frame, 17);
    QCOMPARE(moved->lockState, static_cast<int>(TL_KEY_LOCKED));
    QCOMPARE(keys->SelectedIndexes(), std::vector<int>{0});
}

void tst_SceneTracks::takesCopiesOfItsKeysAway()
{
    SmallHost host;
    const Scene scene = SampleScene();
    QVERIFY(host.tracks.Show(scene));
    CTimelineKeyArray* const keys = KeysOf(host, scene, "LeftArm");
    const std::size_t count = keys->GetSize();
    const VZ::CPointer<CTimelineKey> copy(new CTimelineKey(*keys->GetAt(1)));
    copy->frame += 3;
    keys->Add(copy, false);
    host.tracks.ShowKeys(scene, {IdOf(scene, QStringLiteral("LeftArm"))});
    QCOMPARE(keys->GetSize(), count);
    for (std::size_t i = 0; i < count; ++i)
        QVERIFY(keys->GetAt(static_cast<int>(i)) != copy);
    QCOMPARE(keys->GetAt(1)->frame,
             scene.FindTrack(IdOf(scene, QStringLiteral("LeftArm")))->keys[1].frame);
}

void tst_SceneTracks::readsWhatItHasWritten()
{
    SmallHost host;
    const Scene scene = SampleScene();
    QVERIFY(host.tracks.Show(scene));
    std::function<void(QVector<SceneKey>&)> forget = [&forget](QVector<SceneKey>& keys) {
        for (SceneKey& key : keys) { // a copy has neither
            key.id = kNoKey;
            key.group = kNoGroup;
            forget(key.subKeys);
        }
    };
    for (SceneTrack track : scene.tracks) {
        QVector<SceneKey> read;
        for (const auto& key : host.manager.GetKeyDataArray(host.tracks.TrackOf(track.id))->Keys())
            read.append(TimelineKeys::Read(*key));
        forget(track.keys);
        QVERIFY2(read == track.keys, qPrintable(track.name));
    }
}

void tst_SceneTracks::takesThePreviousSceneAway()
{
    SmallHost host;
    const Scene scene = SampleScene();
    QVERIFY(host.tracks.Show(scene));
    QVector<CTimelineTrackBase*> before;
    for (const SceneTrack& track : scene.tracks)
        before += host.tracks.TrackOf(track.id);
    Scene small;
    small.frameCount = 2;
    SceneTrack row;
    row.caption = QStringLiteral("Alone");
    const TrackId alone = small.AddTrack(row);
    QVERIFY(host.tracks.Show(small));
    for (const SceneTrack& track : scene.tracks)
        QVERIFY(!host.tracks.TrackOf(track.id) || track.id == alone);
    for (CTimelineTrackBase* const track : qAsConst(before)) // the new one may lie where one lay
        QVERIFY(!host.manager.IsTrackExist(track) || track == host.tracks.TrackOf(alone));
    std::vector<CTimelineTrackBase*> roots;
    host.manager.GetVisibleRootTrackList(roots);
    QCOMPARE(roots.size(), std::size_t(1));
    QVERIFY(roots.front() == host.tracks.TrackOf(alone));
    std::vector<_tmpTLRelatedMap> table;
    QVERIFY(host.manager.GetTrackRelMapTable(table));
    QVERIFY(table.empty());
}

void tst_SceneTracks::knowsWhichTrackStandsForWhichInBothDirections()
{
    SmallHost host;
    const Scene scene = SampleScene();
    QVERIFY(host.tracks.Show(scene));
    for (const SceneTrack& track : scene.tracks)
        QCOMPARE(host.tracks.IdOf(host.tracks.TrackOf(track.id)), track.id);
    QCOMPARE(host.tracks.IdOf(nullptr), kNoTrack);

    QVector<CTimelineTrackBase*> gone;
    for (const SceneTrack& track : scene.tracks)
        gone.append(host.tracks.TrackOf(track.id));
    QVERIFY(host.tracks.Show(Scene()));
    for (CTimelineTrackBase* const track : qAsConst(gone))
        QCOMPARE(host.tracks.IdOf(track), kNoTrack);
}

void tst_SceneTracks::refusesAStyleThatTheSkinLacks()
{
    SmallHost host;
    Scene scene = SampleScene();
    scene.tracks.last().styleNumber = 4711;
    QVERIFY(!host.tracks.Show(scene));
}

QTEST_MAIN(tst_SceneTracks)
#include "tst_SceneTracks.moc"
