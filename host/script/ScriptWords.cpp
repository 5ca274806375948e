#include "ScriptWords.h"

namespace host {

namespace {

constexpr QChar kQuote = u'"';
constexpr QChar kComment = u'#';

/// Takes the word that begins at @p position. False when a quote in it is not closed.
bool TakeWord(const QString& line, int& position, QString& word)
{
    bool isQuoted = false;
    for (; position < line.size(); ++position) {
        const QChar c = line[position];
        if (c != kQuote) {
            if (!isQuoted && c.isSpace())
                return true;
            word += c;
            continue;
        }
        const bool isDoubled =
            isQuoted && position + 1 < line.size() && line[position + 1] == kQuote;
        if (isDoubled) {
            word += kQuote;
            ++position;
        } else {
            isQuoted = !isQuoted;
        }
    }
    return !isQuoted;
}

} // namespace

std::optional<QStringList> WordsOfLine(const QString& line)
{
    QStringList words;
    int position = 0;
    while (position < line.size()) {
        if (line[position].isSpace()) {
            ++position;
            continue;
        }
        if (line[position] == kComment)
            break;
        QString word;
        if (!TakeWord(line, position, word))
            return std::nullopt;
        words.append(word);
    }
    return words;
}

} // namespace host
