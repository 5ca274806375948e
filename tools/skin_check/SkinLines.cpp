#include "SkinLines.h"

namespace {

bool IsNewLine(QChar c)
{
    return c == '\n' || c == '\r';
}

bool IsSpace(QChar c)
{
    return c == ' ' || c == '\t' || IsNewLine(c);
}

QString WithoutTrailingSpaces(QString text)
{
    while (!text.isEmpty() && IsSpace(text.back()))
        text.chop(1);
    return text;
}

/// What a value is without one pair of double quotes around it.
QString Unquoted(const QString& value)
{
    const bool quoted = value.size() >= 2 && value.startsWith('"') && value.endsWith('"');
    return quoted ? value.mid(1, value.size() - 2) : value;
}

} // namespace

QString FoldedName(const QString& name)
{
    QString folded = name;
    for (QChar& c : folded) {
        if (c >= 'A' && c <= 'Z')
            c = QChar(c.unicode() - 'A' + 'a');
    }
    return folded;
}

/// Goes through a text letter by letter and counts the lines. A zero ends the text.
class SkinLines::Scanner
{
public:
    Scanner(const QString& text, int& line) : m_text(text), m_line(line) {}

    bool AtEnd() const { return m_at >= m_text.size() || m_text[m_at].isNull(); }
    QChar Current() const { return m_text[m_at]; }
    bool AtEndOfLine() const { return AtEnd() || IsNewLine(Current()); }

    void Step()
    {
        const bool isNewLine = IsNewLine(Current());
        const bool isPair =
            Current() == '\r' && m_at + 1 < m_text.size() && m_text[m_at + 1] == '\n';
        m_at += isPair ? 2 : 1;
        m_line += isNewLine ? 1 : 0;
    }
    void SkipSpaces()
    {
        while (!AtEnd() && IsSpace(Current()))
            Step();
    }
    void SkipSpacesOfLine()
    {
        while (!AtEndOfLine() && IsSpace(Current()))
            Step();
    }
    /// Takes what comes before @p end or before the end of the line.
    QString TakeUntil(QChar end)
    {
        const int from = m_at;
        while (!AtEndOfLine() && Current() != end)
            Step();
        return m_text.mid(from, m_at - from);
    }
    QString TakeLine() { return TakeUntil(QChar()); }

private:
    const QString& m_text;
    int& m_line;
    int m_at = 0;
};

SkinLines::SkinLines(const QString& text)
{
    Scanner scanner(text, m_line);
    for (scanner.SkipSpaces(); !scanner.AtEnd(); scanner.SkipSpaces()) {
        const int line = m_line;
        if (scanner.Current() == ';' || scanner.Current() == '#') {
            scanner.TakeLine();
        } else if (scanner.Current() == '[') {
            scanner.Step();
            scanner.SkipSpaces();
            const QString name = scanner.TakeUntil(']');
            if (scanner.AtEndOfLine()) {
                // The reader gives the keys below it to a section that nobody can ask for.
                m_strayLines << StrayLine{line, '[' + name};
                m_isLost = true;
                continue;
            }
            scanner.TakeLine();
            OpenSection(WithoutTrailingSpaces(name), line);
        } else {
            const QString key = scanner.TakeUntil('=');
            const bool hasValue = !scanner.AtEndOfLine();
            if (!hasValue || key.isEmpty()) {
                m_strayLines << StrayLine{line, key + scanner.TakeLine()};
                continue;
            }
            scanner.Step();
            scanner.SkipSpacesOfLine();
            AddEntry(WithoutTrailingSpaces(key),
                     Unquoted(WithoutTrailingSpaces(scanner.TakeLine())), line);
        }
    }
}

void SkinLines::OpenSection(const QString& name, int line)
{
    m_isLost = false;
    m_current = FoldedName(name);
    const auto found = m_sections.find(m_current);
    if (found == m_sections.end())
        m_sections.insert(m_current, {name, line, {}, {}});
    else
        found->openedAgainAt << line;
}

void SkinLines::AddEntry(const QString& key, const QString& value, int line)
{
    if (m_isLost)
        return;
    QMap<QString, Entry>& entries = m_sections[m_current].entries;
    const auto earlier = entries.constFind(FoldedName(key));
    const int repeatedAt = earlier == entries.constEnd() ? 0 : earlier->line;
    entries.insert(FoldedName(key), {key, value, line, repeatedAt});
}

const SkinLines::Section* SkinLines::FindSection(const QString& name) const
{
    const auto found = m_sections.constFind(FoldedName(name));
    return found == m_sections.constEnd() ? nullptr : &*found;
}

const SkinLines::Entry* SkinLines::FindEntry(const QString& section, const QString& key) const
{
    const Section* const owner = FindSection(section);
    if (!owner)
        return nullptr;
    const auto found = owner->entries.constFind(FoldedName(key));
    return found == owner->entries.constEnd() ? nullptr : &*found;
}
