#pragma once

#include <QByteArray>

namespace host {

/// A member of a JSON object that bears the name of another one before it.
struct DoubleMember
{
    int offset = -1; ///< of its name, in bytes; -1 when there is no such member
    QByteArray name;
};

/// Looks for one in a text that is known to be JSON: parsers keep one of the two without a word.
DoubleMember FindDoubleMember(const QByteArray& text);

} // namespace host
