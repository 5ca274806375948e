#include "ImportError.h"

#include <algorithm>

namespace host {

namespace {

constexpr int kLongestQuotation = 24;

QString OneLine(QString text)
{
    std::replace_if(
        text.begin(), text.end(), [](QChar c) { return !c.isPrint(); }, QChar(u' '));
    return text;
}

} // namespace

QString ImportError::Message() const
{
    const QString place = line > 0 ? QStringLiteral("%1:%2").arg(file).arg(line) : file;
    return OneLine(place + QStringLiteral(": expected ") + expected);
}

QString Quoted(const QByteArray& found)
{
    QByteArray shown = found.left(kLongestQuotation);
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
    if (found.size() > kLongestQuotation)
        shown += "...";
    return u'"' + QString::fromLatin1(shown) + u'"';
}

} // namespace host
