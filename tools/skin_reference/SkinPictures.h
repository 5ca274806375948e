#pragma once

#include "skin_check/RecordedReads.h"

#include <QImage>
#include <QString>
#include <QVector>

/// The timeline with one row for each of @p styles, all of one kind, filled with keys that show
/// what the skin at @p skinPath decides. Null when the timeline cannot be made. Needs a
/// QApplication.
QImage PictureOfStyles(const QString& skinPath, const QVector<SkinStyle>& styles);
