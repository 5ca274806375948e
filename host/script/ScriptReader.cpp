#include "ScriptReader.h"

#include "ScriptGrammar.h"
#include "ScriptWords.h"

#include <QFile>
#include <QFileInfo>
#include <QTextCodec>

#include <algorithm>

namespace host {

namespace {

/// The text of a line; nothing when it is not UTF-8.
std::optional<QString> TextOf(const QByteArray& line)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QString text =
        QTextCodec::codecForName("UTF-8")->toUnicode(line.constData(), line.size(), &state);
    if (state.invalidChars > 0 || state.remainingChars > 0)
        return std::nullopt;
    return text;
}

/// The words of a line; nothing, and @p error says why, when it cannot be cut into words.
std::optional<QStringList> WordsOf(const QByteArray& line, QString& error)
{
    const std::optional<QString> text = TextOf(line);
    if (!text) {
        error = QStringLiteral("expected text in UTF-8");
        return std::nullopt;
    }
    const std::optional<QStringList> words = WordsOfLine(*text);
    if (!words)
        error = QStringLiteral("expected a closing quote");
    return words;
}

} // namespace

QString ScriptMessage(const QString& path, int line, const QString& what)
{
    QString message = QStringLiteral("%1:%2: ").arg(path).arg(line) + what;
    std::replace_if(
        message.begin(), message.end(), [](QChar c) { return !c.isPrint(); }, QChar(u' '));
    return message;
}

std::optional<Script> ReadScript(const QString& path, const QByteArray& text, QString& error)
{
    Script script;
    script.path = path;
    const bool hasMark = text.startsWith("\xEF\xBB\xBF");
    const QList<QByteArray> lines = text.mid(hasMark ? 3 : 0).split('\n');
    for (int i = 0; i < lines.size(); ++i) {
        const auto words = WordsOf(lines[i], error);
        if (words && words->isEmpty())
            continue;
        auto command = words ? ReadCommand(*words, error) : std::nullopt;
        if (!command) {
            error = ScriptMessage(path, i + 1, error);
            return std::nullopt;
        }
        command->line = i + 1;
        script.commands.append(*command);
    }
    return script;
}

std::optional<Script> ReadScript(const QString& path, QString& error)
{
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly)) {
        error = path + QStringLiteral(": expected a script file");
        return std::nullopt;
    }
    return ReadScript(path, file.readAll(), error);
}

} // namespace host
