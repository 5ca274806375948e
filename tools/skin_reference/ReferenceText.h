#pragma once

#include "skin_check/SkinLines.h"

#include <QString>

/// The reference of skins as a page of Markdown: every section and key that the library's readers
/// read, what it means, and what @p defaultSkin says.
QString ReferenceText(const SkinLines& defaultSkin);

/// The picture of a kind of track, by the base name of its sections, beside the page; empty when
/// there is none.
QString PictureName(const QString& trackKind);
