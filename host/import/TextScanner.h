#pragma once

#include <QByteArray>

namespace host {

/// Cuts a text into words, and knows on which line each stands. Words are separated by spaces,
/// tabs and line ends; the braces are words of their own. Lines may end in LF, CR LF or CR; a byte
/// order mark at the start is skipped, as are NUL and Ctrl-Z at the end.
class TextScanner
{
public:
    explicit TextScanner(QByteArray text);

    /// The next word without taking it; empty at the end of the text.
    QByteArray Peek();
    /// Takes the next word; empty at the end of the text.
    QByteArray Take();
    /// Takes @p expected, whatever its case, if it comes next, even with more text right behind it.
    bool TakeIfNext(const char* expected);
    /// True, and the word is taken, when the next word is @p expected, whatever its case.
    bool TakeWord(const char* expected);

    bool AtEnd();
    /// True when no further word stands on the line of the last word taken.
    bool AtLineEnd();

    /// The line of the next word, from 1; at the end of the text that of the last word.
    int Line();
    /// The line of the last word taken.
    int LastLine() const { return m_lastLine; }
    /// The part of the text, 0 to 1, that has been taken.
    double ShareTaken() const { return m_text.isEmpty() ? 1 : double(m_position) / m_text.size(); }

private:
    void SkipSpace();
    int WordEnd() const;
    void Advance(int end);

    QByteArray m_text;
    int m_position = 0;
    int m_line = 1;
    int m_lastLine = 1;
};

} // namespace host
