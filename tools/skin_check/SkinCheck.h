#pragma once

#include "SkinLines.h"

#include <QString>
#include <QVector>

/// One thing that is wrong with a skin.
struct SkinFault
{
    enum Weight
    {
        Error,  ///< a track does not load its style, or not the one that was meant
        Warning ///< nothing comes of it
    };
    Weight weight;
    int line; ///< counted from 1
    QString section;
    QString key; ///< empty: the section itself, or a line that is neither
    QString message;

    /// "FILE:120: [ClipLook] Height: expected a whole number, found "high"".
    QString Text(const QString& file) const;
};

/// Everything that is wrong with a skin: the errors, then the warnings, each in the order of the
/// lines. What the sections must hold is what the library's own readers ask for.
QVector<SkinFault> CheckSkin(const SkinLines& skin);

/// Reads a skin file. False, with a reason in words in @p trouble, when there is none, when it
/// cannot be read, or is not well-formed UTF-8.
bool ReadSkin(const QString& path, SkinLines& skin, QString& trouble);
