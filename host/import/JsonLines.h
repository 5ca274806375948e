#pragma once

#include <QByteArray>

namespace host {

/// Tells on which lines the values of a JSON text stand, which a parsed document no longer knows.
/// The text must be valid JSON.
class JsonLines
{
public:
    explicit JsonLines(const QByteArray& text) : m_text(text) {}

    /// The line, from 1, on which byte @p offset stands.
    int LineAt(int offset) const;
    /// The line of the last token that ends at or before byte @p offset; for an error, which is
    /// noticed only after the space behind the token.
    int LineOfTokenBefore(int offset) const;
    /// The line of the value of @p key in the text's outermost object; that of the object's start
    /// when it has no such key.
    int LineOf(const QByteArray& key) const;
    /// The line of element @p index, from 0, of the array that is the value of @p key in the
    /// outermost object; the line of the array when it has no such element.
    int LineOfElement(const QByteArray& key, int index) const;

private:
    int FindValue(const QByteArray& key) const;
    int SkipSpace(int position) const;
    int SkipValue(int position) const;
    int SkipString(int position) const;

    const QByteArray& m_text;
};

} // namespace host
