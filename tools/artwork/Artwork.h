#pragma once

#include <QImage>
#include <QString>

#include <map>

/// The pictures of the timeline, drawn pixel by pixel without text, so that they come out the same
/// on every machine.
namespace Artwork {

/// A drawn picture by its file name without extension: "17", "Bitmap/loop".
using Gallery = std::map<QString, QImage>;

/// Draws every picture of the timeline. Opaque ones have the format RGB32, the others ARGB32.
Gallery DrawAll();

/// Writes each picture of @p gallery to @p folder as <name>.png, making folders as needed.
/// @return an empty string, or a sentence naming the file that could not be written.
QString Write(const Gallery& gallery, const QString& folder);

/// All pictures on the grounds they are used on, at their own size and four times enlarged. Those
/// missing from @p gallery are left out.
QImage DrawContactSheet(const Gallery& gallery);

// The families, one source each. Each adds its pictures to the gallery.
void AddCaptions(Gallery& gallery);
void AddCaptionButtons(Gallery& gallery);
void AddSwitchButtons(Gallery& gallery);
void AddScrollArrows(Gallery& gallery);
void AddRangeMarkers(Gallery& gallery);
void AddTextureStrips(Gallery& gallery);
void AddRulerStrips(Gallery& gallery);
void AddKeyGlyphs(Gallery& gallery);
void AddLinkGlyphs(Gallery& gallery);
void AddMouthShapes(Gallery& gallery);
void AddCursors(Gallery& gallery);
void AddSpareIcons(Gallery& gallery);

} // namespace Artwork
