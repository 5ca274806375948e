#pragma once

#include "KeyEdits.h"

namespace host {

/// What an edit is applied to.
struct EditedItems
{
    int keys = 0;
    int clips = 0;
    int mouthShapes = 0;
};

/// What of the selection may be edited, which locked keys may not.
EditedItems ItemsOf(const Scene& scene, const QVector<KeySelection>& selection);

/// The items counted: "3 keys and 1 clip".
QString ItemsText(const EditedItems& items);

// What edits are called in the status bar and the menus: "Move 12 keys by 3 frames".

QString MoveName(const EditedItems& items, int frames);
QString CopyName(const EditedItems& items, int frame); ///< dragged there with Ctrl
QString PasteName(const EditedItems& items, int frame);
QString CutName(const EditedItems& items);
QString DeleteName(const EditedItems& items);
QString InsertName(int frame);
QString InsertShapeName(int frame);
QString ChangeShapesName(const EditedItems& items, int shape); ///< a variant, see MouthShapes.h
QString BreakName(int frame);
QString LoopName(int passes);                    ///< @p passes that there are now
QString SpeedName(int lengthBefore, int length); ///< lengths of one pass
QString TrimName(int frames);                    ///< that were cut off; below 0: given back
QString BlendName(int frames);                   ///< that it is longer by; below 0: shorter
QString RowsName(const QString& rows, bool shown);
QString MarkerName(bool isStart, int frame);

} // namespace host
