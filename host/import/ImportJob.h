#pragma once

#include "Material.h"

#include <QObject>

#include <atomic>
#include <memory>

class QThread;

namespace host {

/// Reads files in a thread of its own, so that the editor stays alive meanwhile. For one reading.
class ImportJob : public QObject
{
    Q_OBJECT
public:
    /// @param frameRate of the scene that the files are read for.
    ImportJob(const QStringList& files, int frameRate, QObject* parent = nullptr);
    /// Gives up what is not finished, and waits until it has ended.
    ~ImportJob() override;

    /// Begins to read; once.
    void Start();
    /// Asks the reading to end without a result, which it says by Finished.
    void Cancel();

    const QStringList& Files() const { return m_files; }
    /// What was read; nothing before Finished, and when the reading failed or was given up.
    const std::optional<Material>& Result() const { return m_result; }
    /// Why there is no result.
    const ImportError& Error() const { return m_error; }

signals:
    /// That many thousandths of the work are done.
    void Advanced(int thousandths);
    void Finished();

private:
    void Read();

    QStringList m_files;
    int m_frameRate;
    std::atomic<bool> m_isCancelled{false};
    // Written by the reading thread, read once it has ended:
    std::optional<Material> m_result;
    ImportError m_error;
    std::unique_ptr<QThread> m_thread;
};

} // namespace host
