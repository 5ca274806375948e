#pragma once

#include "support/PictureCheck.h"
#include "tracks/RowFixture.h"

#include <QtTest>

namespace KestovaTest {

/// One state of a row worth a picture. The axis stands at 40 frames of 10 pixels, unscrolled, the
/// current frame out of sight, when a scene is arranged.
struct RowScene
{
    const char* name;
    void (*arrange)(CTimelineTrackBase& row);
};

/// What a key of the row's kind usually carries: a link bar, a transition, a mouth shape.
inline Change Typical(const CTimelineTrackBase& row, const Change& more = {})
{
    const int type = row.GetTrackType();
    return [type, more](CTimelineKey& key) {
        if (type == TL_TRACK_LINK_KEY)
            key.keyType = TL_KEY_LINK_START;
        if (type == TL_TRACK_TRANSITION_KEY) {
            key.kindMask = TL_KEY_TRANSITION_OUT;
            key.transitionFrames = 4;
        }
        if (type == TL_TRACK_VISEME_KEY)
            key.hostValue6 = key.frame % 17;
        if (more)
            more(key);
    };
}

inline FrameAxis& SceneAxis()
{
    return TimelineLibrary::Instance().axis;
}

inline void SetAlign(CTimelineTrackBase& row, int align)
{
    row.StyleAs<KeyTrackStyle>()->keyAlign = align;
}

inline void AddThree(CTimelineTrackBase& row, const Change& change = {})
{
    for (const int frame : {3, 10, 20})
        AddKey(row, frame, Typical(row, change));
}

inline void AddSegments(CTimelineKey& key)
{
    key.kindMask |= TL_KEY_SEGMENTS;
    key.segments.push_back({1.0f, 0.2f, 0.2f, 1.0f, {{0, 0, 2, 2}, {6, 6, 8, 8}}});
    key.segments.push_back({0.2f, 1.0f, 0.2f, 0.5f, {{-6, 2, -2, 4}}});
}

constexpr RowScene kKeyRowScenes[] = {
    {"normal", [](CTimelineTrackBase& row) { AddThree(row); }},
    {"selected", [](CTimelineTrackBase& row) { AddThree(row, Select); }},
    {"selected-over-unselected",
     [](CTimelineTrackBase& row) {
         AddKey(row, 10, Typical(row, Select));
         AddKey(row, 10, Typical(row));
     }},
    {"locked", [](CTimelineTrackBase& row) { AddThree(row, Lock); }},
    {"alternate",
     [](CTimelineTrackBase& row) {
         AddThree(row, [](CTimelineKey& key) { key.alternateStyle = true; });
         AddKey(row, 28, Typical(row, [](CTimelineKey& key) {
                    key.alternateStyle = true;
                    key.selected = true;
                }));
     }},
    {"related-copies",
     [](CTimelineTrackBase& row) {
         AddKey(row, 3, Typical(row));
         AddRelated(row, 10, Typical(row));
         AddRelated(row, 20, Typical(row, Select));
         AddKey(row, 28, Typical(row));
     }},
    {"group",
     [](CTimelineTrackBase& row) {
         AddThree(row, Join);
         AddKey(row, 28, Typical(row, [](CTimelineKey& key) {
                    Join(key);
                    Select(key);
                }));
     }},
    {"marked",
     [](CTimelineTrackBase& row) {
         AddThree(row, [](CTimelineKey& key) { key.kindMask |= TL_KEY_MARKED_LINK; });
         AddKey(row, 28, Typical(row, [](CTimelineKey& key) {
                    key.kindMask |= TL_KEY_MARKED_LINK;
                    key.selected = true;
                }));
     }},
    {"segments", [](CTimelineTrackBase& row) { AddThree(row, AddSegments); }},
    {"aligned-top",
     [](CTimelineTrackBase& row) {
         SetAlign(row, 1);
         AddThree(row);
     }},
    {"aligned-bottom",
     [](CTimelineTrackBase& row) {
         SetAlign(row, 2);
         AddThree(row);
     }},
    {"bars",
     [](CTimelineTrackBase& row) {
         AddKey(row, 3, Typical(row, Bar(6)));
         AddKey(row, 14, Typical(row, [](CTimelineKey& key) {
                    Bar(6)(key);
                    key.selected = true;
                }));
         AddKey(row, 25, Typical(row, [](CTimelineKey& key) {
                    Bar(6)(key);
                    key.hostSwitch = false;
                }));
     }},
    {"loop-dividers", [](CTimelineTrackBase& row) { AddKey(row, 3, Typical(row, Bar(5, 4))); }},
    {"narrow-bar",
     [](CTimelineTrackBase& row) {
         SceneAxis().info = CFrameInfo(0.3);
         AddKey(row, 20, Typical(row, Bar(1)));
     }},
    {"clipped-at-last-frame",
     [](CTimelineTrackBase& row) {
         SceneAxis().frameCount = 24;
         AddKey(row, 18, Typical(row, Bar(12)));
     }},
    {"beyond-the-end",
     [](CTimelineTrackBase& row) {
         SceneAxis().frameCount = 18;
         AddThree(row);
         AddKey(row, 26, Typical(row, Bar(6)));
     }},
    {"empty-beyond-the-end", [](CTimelineTrackBase&) { SceneAxis().scrollX = 500; }},
    {"scrolled",
     [](CTimelineTrackBase& row) {
         SceneAxis().scrollX = 37;
         AddThree(row);
     }},
    {"frames-per-pixel",
     [](CTimelineTrackBase& row) {
         SceneAxis().frameCount = 1400;
         SceneAxis().info = CFrameInfo(0.3);
         for (const int frame : {40, 400, 404, 900, 1398})
             AddKey(row, frame,
                    Typical(row, [](CTimelineKey& key) { key.transitionFrames *= 30; }));
         AddKey(row, 1100, Typical(row, Bar(60, 3)));
     }},
    {"range",
     [](CTimelineTrackBase& row) {
         row.SetRange(17, 8);
         AddThree(row);
     }},
    {"range-with-markers",
     [](CTimelineTrackBase& row) {
         SetModes(row, {TL_EDIT_TIME_RANGE});
         row.SetRange(8, 17);
         AddThree(row);
     }},
    {"half-range-has-no-markers",
     [](CTimelineTrackBase& row) {
         SetModes(row, {TL_EDIT_TIME_RANGE});
         row.SetRange(-1, 17);
         AddThree(row);
     }},
    {"no-range",
     [](CTimelineTrackBase& row) {
         SetModes(row, {TL_EDIT_TIME_RANGE});
         AddThree(row);
     }},
    {"current-frame",
     [](CTimelineTrackBase& row) {
         SceneAxis().currentFrame = 10;
         AddThree(row);
     }},
    {"current-frame-at-the-frame-count",
     [](CTimelineTrackBase& row) {
         SceneAxis().frameCount = 30;
         SceneAxis().currentFrame = 30;
         AddThree(row);
     }},
    {"current-frame-beyond-the-end",
     [](CTimelineTrackBase& row) {
         SceneAxis().frameCount = 30;
         SceneAxis().currentFrame = 31;
         AddThree(row);
     }},
    {"current-frame-in-frames-per-pixel",
     [](CTimelineTrackBase& row) {
         SceneAxis().frameCount = 1400;
         SceneAxis().info = CFrameInfo(0.3);
         SceneAxis().currentFrame = 402;
         AddKey(row, 500, Typical(row));
     }},
};

/// Paints a scene of a row of @p type at 400 x 27 pixels.
inline QImage PaintScene(int type, const RowScene& scene, int styleNumber = 1)
{
    ResetAxis(40, 10.0);
    UnrelateTracks();
    const auto row = MakeTrack(type, styleNumber);
    scene.arrange(*row);
    row->InvalidateCaches();
    return ShowRow(*row, QSize(400, 27));
}

/// One row of test data per scene.
inline void AddScenes()
{
    QTest::addColumn<int>("scene");
    int index = 0;
    for (const RowScene& scene : kKeyRowScenes)
        QTest::newRow(scene.name) << index++;
}

/// Compares the scene of the test's data row with its picture in tests/pictures/tracks/<folder>.
inline void CompareScene(int type, const char* folder)
{
    QFETCH(int, scene);
    const RowScene& shown = kKeyRowScenes[scene];
    KESTOVA_COMPARE_PICTURE(
        PaintScene(type, shown),
        QStringLiteral("tracks/%1/%2").arg(QLatin1String(folder), QLatin1String(shown.name)));
}

} // namespace KestovaTest
