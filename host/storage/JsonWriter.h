#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

namespace host {

/// Writes a JSON text piece by piece. What is written inside an object or array stands on lines of
/// its own or all on one line, so that a person finds a key in the file and a comparison of two
/// files shows what changed. Numbers are written so that reading gives just the same ones.
class JsonWriter
{
public:
    enum class Layout
    {
        Lines, ///< every member on a line of its own
        Inline ///< all on one line
    };

    void BeginObject(Layout layout);
    void EndObject() { End('}'); }
    void BeginArray(Layout layout);
    void EndArray() { End(']'); }
    /// The name of the member whose value is written next. @p name needs no escapes.
    void Name(const char* name);

    void Value(int value);
    void Value(bool value);
    void Value(float value);  ///< finite
    void Value(double value); ///< finite
    void Value(const char* text) { Value(QString::fromLatin1(text)); }
    void Value(const QString& text);

    template <class T>
    void Member(const char* name, const T& value)
    {
        Name(name);
        Value(value);
    }

    const QByteArray& Text() const { return m_text; }

private:
    struct Level
    {
        Layout layout;
        bool isEmpty;
    };

    void Begin(char bracket, Layout layout);
    void End(char bracket);
    void BeforeValue();
    void BreakLine();
    void Write(const QByteArray& token);

    QByteArray m_text;
    QVector<Level> m_levels;
    bool m_isNamed = false; ///< a name was written whose value follows
};

} // namespace host
