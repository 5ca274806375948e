#include "DoubleMembers.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace host {

namespace {

/// Goes through a text once and keeps the names of the objects that are open.
class NameScanner
{
public:
    explicit NameScanner(const QByteArray& text)
        : m_text(text.constData(), static_cast<std::size_t>(text.size()))
    {
    }

    DoubleMember Scan();

private:
    struct Name
    {
        std::string_view text;
        std::size_t offset;
    };
    struct Level
    {
        bool isObject;
        std::size_t firstName; ///< of the object, in m_names
    };

    std::size_t EndOfText(std::size_t quote) const;
    void AddName(std::size_t quote, std::size_t end);
    std::string_view Decoded(std::string_view quoted);
    const Name* DoubleOf(std::size_t firstName);

    std::string_view m_text;
    std::vector<Level> m_levels;
    std::vector<Name> m_names;
    std::deque<std::string> m_decoded; ///< names that are written with escapes
};

DoubleMember NameScanner::Scan()
{
    bool isName = false; // a text here is a member's name
    for (std::size_t i = 0; i < m_text.size(); ++i) {
        switch (m_text[i]) {
        case '{':
        case '[':
            isName = m_text[i] == '{';
            m_levels.push_back({isName, m_names.size()});
            break;
        case ',':
            isName = !m_levels.empty() && m_levels.back().isObject;
            break;
        case '"': {
            const std::size_t end = EndOfText(i);
            if (isName)
                AddName(i, end);
            isName = false;
            i = end;
            break;
        }
        case '}':
        case ']':
            if (m_levels.empty())
                return {};
            if (const Name* const name = DoubleOf(m_levels.back().firstName))
                return {static_cast<int>(name->offset),
                        QByteArray(name->text.data(), static_cast<int>(name->text.size()))};
            m_names.resize(m_levels.back().firstName);
            m_levels.pop_back();
            break;
        default:
            break;
        }
    }
    return {};
}

/// The place of the quote that ends the text.
std::size_t NameScanner::EndOfText(std::size_t quote) const
{
    std::size_t i = quote + 1;
    while (i < m_text.size() && m_text[i] != '"')
        i += m_text[i] == '\\' ? 2 : 1;
    return i;
}

void NameScanner::AddName(std::size_t quote, std::size_t end)
{
    const std::string_view name = m_text.substr(quote + 1, end - quote - 1);
    const bool isPlain = name.find('\\') == std::string_view::npos;
    m_names.push_back({isPlain ? name : Decoded(m_text.substr(quote, end - quote + 1)), quote});
}

std::string_view NameScanner::Decoded(std::string_view quoted)
{
    const QByteArray array = '[' + QByteArray(quoted.data(), static_cast<int>(quoted.size())) + ']';
    const QString name = QJsonDocument::fromJson(array).array().at(0).toString();
    m_decoded.push_back(name.toStdString());
    return m_decoded.back();
}

const NameScanner::Name* NameScanner::DoubleOf(std::size_t firstName)
{
    const auto begin = m_names.begin() + static_cast<std::ptrdiff_t>(firstName);
    std::sort(begin, m_names.end(), [](const Name& a, const Name& b) {
        return a.text == b.text ? a.offset < b.offset : a.text < b.text;
    });
    const auto isSame = [](const Name& a, const Name& b) { return a.text == b.text; };
    const auto found = std::adjacent_find(begin, m_names.end(), isSame);
    return found == m_names.end() ? nullptr : &*(found + 1);
}

} // namespace

DoubleMember FindDoubleMember(const QByteArray& text)
{
    return NameScanner(text).Scan();
}

} // namespace host
