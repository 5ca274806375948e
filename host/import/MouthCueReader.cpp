#include "MouthCueReader.h"

#include "CueOrder.h"
#include "JsonLines.h"
#include "document/MouthShapes.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>

namespace host {

namespace {

constexpr double kParsingShare = 0.5; ///< of the time that the text takes before its cues are read
constexpr int kCuesPerStep = 256;     ///< between two words about the progress

struct JsonExpectation
{
    QJsonParseError::ParseError error;
    const char* expected;
};

/// What the parser would have had in place of what it refused.
constexpr std::array<JsonExpectation, 12> kJsonExpectations{{
    {QJsonParseError::UnterminatedObject, "a comma or } in an object"},
    {QJsonParseError::MissingNameSeparator, "a colon after a name"},
    {QJsonParseError::UnterminatedArray, "a comma or ] in a list"},
    {QJsonParseError::MissingValueSeparator, "a comma between two values"},
    {QJsonParseError::IllegalValue, "a value"},
    {QJsonParseError::TerminationByNumber, "more after the number"},
    {QJsonParseError::IllegalNumber, "a number"},
    {QJsonParseError::IllegalEscapeSequence, "a valid escape in a text"},
    {QJsonParseError::IllegalUTF8String, "text in UTF-8"},
    {QJsonParseError::UnterminatedString, "a closing quotation mark"},
    {QJsonParseError::MissingObject, "an object"},
    {QJsonParseError::GarbageAtEnd, "the end of the file"},
}};

QString ExpectedInsteadOf(QJsonParseError::ParseError error)
{
    for (const JsonExpectation& each : kJsonExpectations) {
        if (each.error == error)
            return QString::fromLatin1(each.expected);
    }
    return QStringLiteral("a smaller JSON text");
}

/// One reading of one text. Each step returns false once the error has been filled.
class MouthCueParser
{
public:
    MouthCueParser(const QByteArray& text, const QString& fileName, ImportError& error,
                   const ImportProgress& progress)
        : m_text(text), m_fileName(fileName), m_error(error), m_progress(progress), m_lines(m_text)
    {
    }

    std::optional<SpokenLine> Parse()
    {
        m_line.name = QFileInfo(m_fileName).completeBaseName();
        QJsonObject root;
        if (!ParseDocument(root) || !ParseDuration(root) || !ParseCues(root))
            return std::nullopt;
        OrderCues(m_line);
        return m_line;
    }

private:
    bool ParseDocument(QJsonObject& root);
    bool ParseDuration(const QJsonObject& root);
    bool ParseCues(const QJsonObject& root);
    bool ParseCue(const QJsonObject& object, int index);
    bool TellProgress(int cue, int count);

    bool Fail(int line, const QString& expected)
    {
        m_error = {m_fileName, line, expected};
        return false;
    }

    const QByteArray& m_text;
    QString m_fileName;
    ImportError& m_error;
    const ImportProgress& m_progress;
    JsonLines m_lines;
    SpokenLine m_line;
};

bool MouthCueParser::ParseDocument(QJsonObject& root)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(m_text, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        return Fail(m_lines.LineOfTokenBefore(parseError.offset),
                    ExpectedInsteadOf(parseError.error));
    }
    if (!document.isObject())
        return Fail(1, QStringLiteral("an object with metadata and mouthCues"));
    root = document.object();
    return true;
}

/// Seconds from 0 to the longest line; anything else is negative.
double Seconds(const QJsonValue& value)
{
    const double seconds = value.toDouble(-1);
    return seconds <= kLongestLine ? seconds : -1;
}

bool MouthCueParser::ParseDuration(const QJsonObject& root)
{
    const QJsonValue duration =
        root[QLatin1String("metadata")].toObject()[QLatin1String("duration")];
    m_line.duration = Seconds(duration);
    if (m_line.duration <= 0) {
        return Fail(m_lines.LineOf("metadata"),
                    QStringLiteral("metadata with a duration in seconds, above 0"));
    }
    return true;
}

bool MouthCueParser::ParseCues(const QJsonObject& root)
{
    const QJsonValue cues = root[QLatin1String("mouthCues")];
    if (!cues.isArray() || cues.toArray().isEmpty())
        return Fail(m_lines.LineOf("mouthCues"), QStringLiteral("mouthCues, a list of cues"));
    const QJsonArray list = cues.toArray();
    m_line.cues.reserve(list.size());
    for (int i = 0; i < list.size(); ++i) {
        if (!ParseCue(list[i].toObject(), i) || !TellProgress(i, list.size()))
            return false;
    }
    return true;
}

bool MouthCueParser::TellProgress(int cue, int count)
{
    const double share = kParsingShare + (1 - kParsingShare) * cue / count;
    if (cue % kCuesPerStep != 0 || m_progress.Advance(share))
        return true;
    m_error = {m_fileName, 0, {}, true};
    return false;
}

bool MouthCueParser::ParseCue(const QJsonObject& object, int index)
{
    MouthCue cue;
    cue.start = Seconds(object[QLatin1String("start")]);
    cue.end = Seconds(object[QLatin1String("end")]);
    const auto fail = [&](const QString& expected) {
        return Fail(m_lines.LineOfElement("mouthCues", index), expected);
    };
    if (cue.start < 0 || cue.end < 0)
        return fail(QStringLiteral("a cue with start and end in seconds"));
    if (cue.end < cue.start)
        return fail(QStringLiteral("a cue that ends after its start"));
    const auto shape = MouthShapeOfCue(object[QLatin1String("value")].toString());
    if (!shape)
        return fail(QStringLiteral("a cue with a value from A to H, or X"));
    cue.shape = *shape;
    m_line.cues.append(cue);
    return true;
}

} // namespace

std::optional<SpokenLine> ReadMouthCues(const QByteArray& text, const QString& fileName,
                                        ImportError& error, const ImportProgress& progress)
{
    return MouthCueParser(text, fileName, error, progress).Parse();
}

} // namespace host
