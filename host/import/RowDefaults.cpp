#include "RowDefaults.h"

namespace host {

namespace {

/// What rows of clips allow as well as rows of keys.
const QVector<EditMode> kRowModes{
    EditMode::MoveKeys,       EditMode::SelectTimeRange, EditMode::Cut,
    EditMode::Copy,           EditMode::Paste,           EditMode::Delete,
    EditMode::SelectPrevious, EditMode::SelectNext,      EditMode::SelectAll};
const QVector<EditMode> kKeyModes = kRowModes + QVector<EditMode>{EditMode::InsertKey};

QVector<EditMode> EditModesOf(TrackKind kind)
{
    switch (kind) {
    case TrackKind::Switch:
        return {};
    case TrackKind::Clip:
        return kRowModes + QVector<EditMode>{EditMode::LoopClip, EditMode::ChangeClipSpeed,
                                             EditMode::TrimClip, EditMode::BreakClip};
    case TrackKind::Viseme:
        return {EditMode::EditSubKeys, EditMode::MoveKeys,       EditMode::SelectTimeRange,
                EditMode::Delete,      EditMode::SelectPrevious, EditMode::SelectNext,
                EditMode::SelectAll};
    case TrackKind::Transition:
        return kKeyModes + QVector<EditMode>{EditMode::TrimClip};
    case TrackKind::Key:
    case TrackKind::Link:
        break;
    }
    return kKeyModes;
}

/// A word starts at a capital that follows a small letter, and at the last of several capitals.
bool StartsWord(const QString& name, int i)
{
    if (i == 0 || !name[i].isUpper())
        return false;
    return name[i - 1].isLower() || name[i - 1].isDigit() ||
           (name[i - 1].isUpper() && i + 1 < name.size() && name[i + 1].isLower());
}

} // namespace

SceneTrack MakeRow(TrackKind kind, const QString& name, const QString& caption, TrackId parent)
{
    SceneTrack row;
    row.kind = kind;
    row.name = name;
    row.caption = caption;
    row.parent = parent;
    row.editModes = EditModesOf(kind);
    return row;
}

QString CaptionOfJoint(const QString& name)
{
    const QString bare = name.mid(name.lastIndexOf(u':') + 1);
    QString caption;
    for (int i = 0; i < bare.size(); ++i) {
        if (StartsWord(bare, i))
            caption += u' ';
        caption += bare[i] == u'_' ? QChar(u' ') : bare[i];
    }
    caption = caption.simplified();
    return caption.isEmpty() ? name : caption;
}

} // namespace host
