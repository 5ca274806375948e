#include "BvhText.h"

#include <cmath>

namespace host {

namespace {

constexpr double kGreatest = 1e9; ///< of any number; keeps products of them finite

} // namespace

bool BvhText::FailAt(int line, const QString& expected, const QString& found)
{
    m_error = {m_fileName, line, QStringLiteral("%1, found %2").arg(expected, found)};
    return false;
}

QString BvhText::Found()
{
    return m_scanner.AtEnd() ? QStringLiteral("the end of the file") : Quoted(m_scanner.Peek());
}

bool BvhText::TakeNumber(double& number, const QString& what)
{
    bool isNumber = false;
    number = m_scanner.Peek().toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number) || std::abs(number) > kGreatest)
        return Fail(what);
    m_scanner.Take();
    return true;
}

bool BvhText::TakeInteger(int& number, int least, int most, const QString& what)
{
    bool isNumber = false;
    number = m_scanner.Peek().toInt(&isNumber);
    if (!isNumber || number < least || number > most)
        return Fail(what);
    m_scanner.Take();
    return true;
}

bool BvhText::TakeLabel(const char* word)
{
    if (m_scanner.TakeIfNext((QByteArray(word) + ':').constData()))
        return true;
    return m_scanner.TakeWord(word) && m_scanner.TakeIfNext(":");
}

} // namespace host
