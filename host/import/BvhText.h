#pragma once

#include "ImportError.h"
#include "TextScanner.h"

namespace host {

/// The text of a motion capture as its readers take it. What does not fit is refused with a line
/// and a reason: the operations that can refuse return false then, once the error has been filled.
class BvhText
{
public:
    /// @param error is kept and outlives this object.
    BvhText(const QByteArray& text, const QString& fileName, ImportError& error)
        : m_scanner(text), m_fileName(fileName), m_error(error)
    {
    }

    TextScanner& Scanner() { return m_scanner; }
    const QString& FileName() const { return m_fileName; }
    ImportError& Error() { return m_error; }

    /// Blames the next word, or the end of the text.
    bool Fail(const QString& expected) { return FailAt(m_scanner.Line(), expected, Found()); }
    bool FailAt(int line, const QString& expected, const QString& found);
    /// The next word, or that there is none, for a message.
    QString Found();

    bool TakeNumber(double& number, const QString& what);
    bool TakeInteger(int& number, int least, int most, const QString& what);
    /// A word and the colon behind it, with or without space between.
    bool TakeLabel(const char* word);

private:
    TextScanner m_scanner;
    QString m_fileName;
    ImportError& m_error;
};

} // namespace host
