#include "RecoveryFile.h"

#include "DocumentFile.h"

#include <utility>

namespace host {

namespace {

constexpr int kDelay = 400; ///< milliseconds that edits are gathered for

QString NoPlace()
{
    return RecoveryFolder().path() + QStringLiteral(": expected a folder that can be written to");
}

} // namespace

RecoveryFile::RecoveryFile(QObject* parent) : QObject(parent), m_timer(this)
{
    m_writer.setMaxThreadCount(1);
    m_timer.setSingleShot(true);
    m_timer.setInterval(kDelay);
    connect(&m_timer, &QTimer::timeout, this, &RecoveryFile::WriteInBackground);
}

RecoveryFile::~RecoveryFile()
{
    Flush();
}

bool RecoveryFile::Start(const QString& documentPath, const std::optional<Leftover>& leftover)
{
    Remove();
    m_documentPath = SameFile(documentPath);
    if (leftover)
        m_place = RecoveryPlace::Take(leftover->path);
    return !leftover || m_place;
}

void RecoveryFile::Write(const SceneDocument& document)
{
    m_waiting = document;
    m_waiting->recoveryOf = m_documentPath;
    if (!m_timer.isActive())
        m_timer.start();
}

bool RecoveryFile::Flush()
{
    m_timer.stop();
    m_writer.waitForDone();
    TakeResult(m_number);
    m_timer.stop();
    if (!m_waiting)
        return !m_hasFailed;
    QString error = NoPlace();
    const auto write = [this, &error] { return WriteDocument(m_place->Path(), *m_waiting, error); };
    if ((FindPlace() && write()) || (FindOtherPlace() && write())) {
        m_waiting.reset();
        error.clear();
    }
    Finish(error);
    return error.isEmpty();
}

void RecoveryFile::Remove()
{
    m_timer.stop();
    m_writer.waitForDone();
    m_isWriting = false; // its result concerns nobody any more
    m_hasFailed = false;
    m_waiting.reset();
    for (std::unique_ptr<RecoveryPlace>* const place : {&m_place, &m_failedPlace}) {
        if (*place)
            (*place)->RemoveFile();
        place->reset();
    }
}

/// Chooses the file when there is none yet. No file that is there already is written over.
bool RecoveryFile::FindPlace()
{
    if (!m_place)
        m_place = RecoveryPlace::TakeBeside(m_documentPath);
    if (!m_place)
        m_place = RecoveryPlace::TakeInFolder();
    return m_place != nullptr;
}

/// Chooses another file after the first one could not be written.
/// That one is given up only when the other one was written.
bool RecoveryFile::FindOtherPlace()
{
    if (!m_place || m_failedPlace)
        return false;
    m_failedPlace = std::exchange(m_place, RecoveryPlace::TakeInFolder());
    return m_place != nullptr;
}

void RecoveryFile::WriteInBackground()
{
    if (!m_waiting || m_isWriting)
        return; // the one under way calls again
    if (!FindPlace()) {
        Finish(NoPlace());
        return;
    }
    m_isWriting = true;
    m_written = *std::exchange(m_waiting, std::nullopt);
    m_writeError.clear();
    m_writer.start(QRunnable::create([this, number = ++m_number, path = m_place->Path()] {
        WriteDocument(path, m_written, m_writeError);
        QMetaObject::invokeMethod(
            this, [this, number] { TakeResult(number); }, Qt::QueuedConnection);
    }));
}

/// What came of the write of that number, unless that was taken already.
void RecoveryFile::TakeResult(int number)
{
    if (!m_isWriting || number != m_number)
        return;
    m_isWriting = false;
    const bool isNewer = m_waiting.has_value();
    SceneDocument written = std::exchange(m_written, {});
    if (!m_writeError.isEmpty() && !isNewer)
        m_waiting = std::move(written); // the next edit, or the end, tries again
    const bool isElsewhere = !m_writeError.isEmpty() && FindOtherPlace();
    if (!isElsewhere)
        Finish(m_writeError);
    if (isNewer || isElsewhere)
        m_timer.start();
}

/// After the document was written, or was not.
void RecoveryFile::Finish(const QString& error)
{
    const bool hasFailed = !error.isEmpty();
    if (m_failedPlace && !hasFailed)
        m_failedPlace->RemoveFile();
    else if (m_failedPlace)
        m_place = std::move(m_failedPlace); // better older work than none
    m_failedPlace.reset();
    if (hasFailed && !std::exchange(m_hasFailed, true))
        emit Failed(error);
    m_hasFailed = hasFailed;
}

} // namespace host
