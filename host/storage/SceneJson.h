#pragma once

#include "SceneDocument.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace host {

/// The version that is written. Files of any version up to it can be read.
constexpr int kSceneFormatVersion = 1;

/// The document as JSON text. Members that have their usual values are left out; what is read from
/// the text equals @p document exactly, unless it has texts of more than a thousand characters,
/// which are cut, or its numbers come near the end of numbers: it is then numbered anew.
QByteArray WriteSceneJson(const SceneDocument& document);

/// The document that the text holds. Nothing is returned, and @p error says in one line what is
/// wrong, for a text that is not JSON or names a member twice ("line 12: expected …"), is of a
/// newer version, or holds anything that no scene can be ("tracks[3].keys[7].frame: expected a
/// whole number").
std::optional<SceneDocument> ReadSceneJson(const QByteArray& text, QString& error);

} // namespace host
