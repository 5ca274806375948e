#include "CueTextReader.h"

#include "CueOrder.h"
#include "TextScanner.h"
#include "document/MouthShapes.h"

#include <QFileInfo>

#include <algorithm>

namespace host {

namespace {

constexpr int kCuesPerStep = 256; ///< between two words about the progress

/// What stands next, for a message.
QString Found(TextScanner& scanner)
{
    return scanner.AtEnd() ? QStringLiteral("the end of the file") : Quoted(scanner.Peek());
}

/// Takes one line of the text; nothing, and @p expected says why, when it is no cue.
std::optional<MouthCue> TakeCue(TextScanner& scanner, QString& expected)
{
    const auto refuse = [&](const QString& what) {
        expected = QStringLiteral("%1, found %2").arg(what, Found(scanner));
        return std::nullopt;
    };
    bool isNumber = false;
    MouthCue cue;
    cue.start = cue.end = scanner.Peek().toDouble(&isNumber);
    if (!isNumber || !(cue.start >= 0 && cue.start <= kLongestLine)) // also what is not a number
        return refuse(QStringLiteral("a time in seconds"));
    scanner.Take();
    if (scanner.AtLineEnd()) {
        expected = QStringLiteral("a shape from A to H, or X, behind the time");
        return std::nullopt;
    }
    const auto shape = MouthShapeOfCue(QString::fromUtf8(scanner.Peek()));
    if (!shape)
        return refuse(QStringLiteral("a shape from A to H, or X"));
    scanner.Take();
    if (!scanner.AtLineEnd())
        return refuse(QStringLiteral("the end of the line behind the shape"));
    cue.shape = *shape;
    return cue;
}

/// The last cue shows how the line ends, so that a rest there is what the file means by its end.
void EndWithLastCue(SpokenLine& line)
{
    for (const MouthCue& cue : qAsConst(line.cues))
        line.duration = std::max(line.duration, cue.start);
    std::stable_sort(line.cues.begin(), line.cues.end(),
                     [](const MouthCue& a, const MouthCue& b) { return a.start < b.start; });
    for (int i = 0; i + 1 < line.cues.size(); ++i)
        line.cues[i].end = line.cues[i + 1].start;
}

} // namespace

std::optional<SpokenLine> ReadCueText(const QByteArray& text, const QString& fileName,
                                      ImportError& error, const ImportProgress& progress)
{
    SpokenLine line;
    line.name = QFileInfo(fileName).completeBaseName();
    TextScanner scanner(text);
    do {
        // A cue that lacks its shape is to blame for itself, not the line behind it.
        const int place = scanner.Line();
        QString expected;
        const auto cue = TakeCue(scanner, expected);
        if (!cue) {
            error = {fileName, place, expected};
            return std::nullopt;
        }
        line.cues.append(*cue);
        if (line.cues.size() % kCuesPerStep == 0 && !progress.Advance(scanner.ShareTaken())) {
            error = {fileName, 0, {}, true};
            return std::nullopt;
        }
    } while (!scanner.AtEnd());
    EndWithLastCue(line);
    OrderCues(line);
    return line;
}

} // namespace host
