#pragma once

#include "storage/SceneDocument.h"

#include <QRandomGenerator>

#include <algorithm>
#include <cstring>

/// Makes documents that hold everything a document can hold, of random values.
class RandomScene
{
public:
    explicit RandomScene(quint32 seed) : m_random(seed) {}

    host::SceneDocument Document()
    {
        m_scene = host::Scene();
        m_scene.frameRate = 1 + Below(1000);
        m_scene.frameCount = 1 + Below(500);
        for (int i = Below(4); i > 0; --i)
            m_scene.AddGroup(Text());
        for (int i = Below(8); i > 0; --i)
            AddTrack();
        AddButtons();
        for (int i = Below(4); i > 0; --i)
            m_scene.relations.append({static_cast<host::RelationKind>(Below(3)), SomeTracks()});
        m_scene.timeMark = {Below(m_scene.frameCount), Below(m_scene.frameCount)};
        if (Flag())
            m_scene.motion = SomeMotion();
        if (Flag())
            m_scene.line = SomeLine();
        m_scene.lastId += Below(3);
        host::SceneDocument document;
        document.scene = m_scene;
        document.view.left = Fraction() / 2;
        document.view.right = document.view.left + Fraction() / 2;
        document.view.frame = Below(m_scene.frameCount);
        document.recoveryOf = Flag() ? Text() : QString();
        return document;
    }

    int Below(int count) { return m_random.bounded(count); }
    bool Flag() { return Below(2) == 1; }

private:
    QString Text()
    {
        static const QVector<ushort> unusual{0,      1,      '\n',   '"',    '\\',   '/',
                                             0x7f,   0xe9,   0x2028, 0xd83d, 0xde00, 0xd800,
                                             0xdfff, 0xfeff, 0xfffe, 0xffff};
        QString text;
        for (int i = Below(8); i > 0; --i)
            text.append(QChar(Flag() ? unusual[Below(unusual.size())]
                                     : static_cast<ushort>('a' + Below(26))));
        return text;
    }
    float Fraction() { return static_cast<float>(m_random.generateDouble()); }
    /// Any finite float, of any size.
    float Float()
    {
        for (;;) {
            const quint32 bits = m_random.generate();
            float value = 0;
            std::memcpy(&value, &bits, sizeof value);
            if (qIsFinite(value))
                return value;
        }
    }
    double Double()
    {
        for (;;) {
            const quint64 bits = m_random.generate64();
            double value = 0;
            std::memcpy(&value, &bits, sizeof value);
            if (qIsFinite(value))
                return value;
        }
    }

    host::SceneKey Key(int depth)
    {
        host::SceneKey key;
        key.frame = Below(m_scene.frameCount);
        key.name = Text();
        key.priority = Flag() ? key.priority : Below(2000) - 1000;
        key.locked = Flag();
        key.alternate = Flag();
        if (!m_scene.groups.isEmpty() && Flag())
            key.group = m_scene.groups[Below(m_scene.groups.size())].id;
        key.mouthShape = Below(17);
        key.startsLink = Flag();
        key.sound = Flag() ? Text() : QString();
        if (Flag())
            key.transition =
                host::Transition{static_cast<host::BlendDirection>(Below(2)), Below(50)};
        if (Flag())
            key.clip = host::ClipSpan{1 + Below(90), 1 + Below(5),   Below(9),
                                      1 + Below(5),  1 + Below(500), Below(2) * Below(90)};
        if (depth == 0 && Flag())
            key.subKeys = Keys(depth + 1);
        return key;
    }
    QVector<host::SceneKey> Keys(int depth)
    {
        QVector<host::SceneKey> keys;
        for (int i = Below(6); i > 0; --i)
            keys.append(Key(depth));
        std::stable_sort(
            keys.begin(), keys.end(),
            [](const host::SceneKey& a, const host::SceneKey& b) { return a.frame < b.frame; });
        return keys;
    }
    void AddTrack()
    {
        host::SceneTrack track;
        track.kind = static_cast<host::TrackKind>(Below(6));
        track.name = Text();
        track.caption = Text();
        track.styleNumber = Below(9);
        const QVector<host::TrackId> roots = m_scene.ChildrenOf(host::kNoTrack);
        if (!roots.isEmpty() && Flag())
            track.parent = roots[Below(roots.size())];
        for (int mode = 0; mode < 15; ++mode) {
            if (Flag())
                track.editModes.append(static_cast<host::EditMode>(mode));
        }
        track.muted = Flag();
        track.soloed = Flag();
        track.locked = Flag();
        track.keys = Keys(0);
        m_scene.AddTrack(track);
    }
    QVector<host::TrackId> SomeTracks()
    {
        QVector<host::TrackId> ids;
        for (const host::SceneTrack& track : m_scene.tracks) {
            if (Flag())
                ids.append(track.id);
        }
        return ids;
    }
    void AddButtons()
    {
        for (host::SceneTrack& track : m_scene.tracks) {
            for (int i = Below(3); i > 0; --i) {
                const bool isOn = Flag();
                track.buttons.append({Text(), isOn, {}});
            }
        }
        for (int i = 0; i < m_scene.tracks.size(); ++i) {
            for (int j = 0; j < m_scene.tracks[i].buttons.size(); ++j) {
                const QVector<host::TrackId> tracks = SomeTracks();
                m_scene.tracks[i].buttons[j].tracks = tracks;
            }
        }
    }
    host::Motion SomeMotion()
    {
        host::Motion motion;
        motion.name = Text();
        motion.sampleTime = qAbs(Double());
        for (int i = 0; i < 1 + Below(4); ++i) {
            host::Joint joint;
            joint.name = Text();
            joint.parent = Below(i + 1) - 1;
            joint.offset = QVector3D(Float(), Float(), Float());
            joint.firstChannel = motion.channelCount;
            for (int channel = Below(7); channel > 0; --channel)
                joint.channels.append(static_cast<host::Channel>(Below(6)));
            motion.channelCount += joint.channels.size();
            motion.joints.append(joint);
        }
        motion.sampleCount = motion.channelCount > 0 ? Below(20) : 0;
        for (int i = 0; i < motion.sampleCount * motion.channelCount; ++i)
            motion.samples.append(Float());
        return motion;
    }
    host::SpokenLine SomeLine()
    {
        host::SpokenLine line;
        line.name = Text();
        line.duration = Double();
        for (int i = Below(9); i > 0; --i)
            line.cues.append({Double(), Double(), Below(17)});
        return line;
    }

    QRandomGenerator m_random;
    host::Scene m_scene;
};
