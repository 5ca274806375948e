#pragma once

#include "TestFiles.h"
#include "TimelineEqualsScene.h"

#include "document/KeyList.h"
#include "import/SceneFiles.h"
#include "view/MainWindow.h"

#include <QSet>
#include <QStatusBar>

#include <algorithm>
#include <initializer_list>

/// The editor itself with the sample scene, shown.
struct EditorFixture
{
    EditorFixture()
    {
        window.resize(1280, 720);
        if (!window.CreateTimeline(QStringLiteral(KESTOVA_SKINS_DIR "/default.ini")))
            qFatal("the skin cannot be read");
        if (!window.SetScene(Sample()))
            qFatal("the sample scene cannot be shown");
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("the window does not come up");
        window.GotoFrame(0);
        QCoreApplication::processEvents();
    }

    host::MainWindow window;

    static host::Scene Sample()
    {
        host::ImportError error;
        const auto scene = host::LoadScene(
            {SamplePath(QStringLiteral("stroll.bvh")), SamplePath(QStringLiteral("greeting.json"))},
            error);
        if (!scene)
            qFatal("%s", qPrintable(error.Message()));
        return Shortened(*scene);
    }

    /// The scene with fewer rows of joints, as making a row takes its time.
    static host::Scene Shortened(host::Scene scene)
    {
        QSet<host::TrackId> gone;
        for (const host::SceneTrack& track : scene.tracks) {
            const bool isJoint =
                track.parent != host::kNoTrack && track.kind == host::TrackKind::Key;
            if (isJoint && track.name != QLatin1String("LeftArm") &&
                track.name != QLatin1String("Spine"))
                gone.insert(track.id);
        }
        const auto leave = [&gone](QVector<host::TrackId>& ids) {
            ids.erase(std::remove_if(ids.begin(), ids.end(),
                                     [&gone](host::TrackId id) { return gone.contains(id); }),
                      ids.end());
        };
        for (host::TrackRelation& relation : scene.relations)
            leave(relation.tracks);
        for (host::SceneTrack& track : scene.tracks) {
            for (host::SwitchButton& button : track.buttons)
                leave(button.tracks);
        }
        const auto isGone = [&gone](const host::SceneTrack& track) {
            return gone.contains(track.id);
        };
        scene.tracks.erase(std::remove_if(scene.tracks.begin(), scene.tracks.end(), isGone),
                           scene.tracks.end());
        return scene;
    }

    const host::Scene& Scene() const { return window.CurrentScene(); }
    CTimelineManager& Timeline() { return window.Timeline(); }

    host::TrackId Id(const char* name) const
    {
        for (const host::SceneTrack& track : Scene().tracks) {
            if (track.name == QLatin1String(name))
                return track.id;
        }
        qFatal("no row %s", name);
    }
    const QVector<host::SceneKey>& KeysOf(const char* name) const
    {
        return Scene().FindTrack(Id(name))->keys;
    }
    QVector<int> FramesOf(const char* name) const
    {
        QVector<int> frames;
        for (const host::SceneKey& key : KeysOf(name))
            frames.append(key.frame);
        return frames;
    }
    CTimelineTrackBase* Row(const char* name) { return window.Tracks().TrackOf(Id(name)); }
    CTimelineKeyArray& Shown(const char* name) { return *window.Tracks().KeysOf(Id(name)); }

    /// Makes the row active and selects its keys at these indexes, and no others anywhere.
    void Select(const char* name, std::initializer_list<int> indexes)
    {
        for (const host::SceneTrack& track : Scene().tracks)
            window.Tracks().KeysOf(track.id)->ClearAllSelection();
        Timeline().SetActiveChildTrack(Row(name));
        SelectToo(name, indexes);
    }
    void SelectToo(const char* name, std::initializer_list<int> indexes)
    {
        for (const int index : indexes)
            Shown(name).SetSelectionByIndex(index, index, true, TL_KEY_ANY_KIND);
    }
    /// The frames of the selected keys.
    QVector<int> SelectedFrames(const char* name)
    {
        QVector<int> frames;
        for (const int index : Shown(name).SelectedIndexes())
            frames.append(Shown(name).GetAt(index)->frame);
        return frames;
    }

    QString StatusText() { return window.statusBar()->currentMessage(); }
    /// Empty when the timeline shows just the scene.
    QString Difference() { return TimelineDifference(window.Timeline(), window.Tracks(), Scene()); }
};

#define VERIFY_TIMELINE_EQUALS_SCENE(editor)                                                       \
    do {                                                                                           \
        const QString difference = (editor).Difference();                                          \
        QVERIFY2(difference.isEmpty(), qPrintable(difference));                                    \
    } while (false)
