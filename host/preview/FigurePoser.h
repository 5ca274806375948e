#pragma once

#include "FigurePose.h"
#include "Skeleton.h"
#include "document/Scene.h"

namespace host {

/// Poses the figure of one scene at many frames: what does not depend on the frame is found once.
/// Knows the scene as it was given; another one takes another poser.
class FigurePoser
{
public:
    FigurePoser() = default;
    explicit FigurePoser(const Scene& scene);

    /// As FigureAt has it.
    FigurePose At(int frame) const;

private:
    int Start(int index) const { return m_clips[index].frame; }
    Places PlacesAt(int frame) const;
    Places Material(int index, int frame) const;
    Places Neighbour(int index, int frame, const Places& beside) const;
    void LeadIn(Places& places, int index, int frame) const;
    void LeadOut(Places& places, int index, int frame) const;

    Motion m_motion; ///< shares its samples with the scene's
    int m_frameRate = kSceneFrameRate;
    QVector<SceneKey> m_clips; ///< of the Motion row
    QVector<SceneKey> m_blends;
    Places m_rest;
    QVector<bool> m_isResting; ///< for each joint; empty without a Motion row
};

} // namespace host
