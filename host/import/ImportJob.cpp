#include "ImportJob.h"

#include <QThread>

namespace host {

ImportJob::ImportJob(const QStringList& files, int frameRate, QObject* parent)
    : QObject(parent), m_files(files), m_frameRate(frameRate),
      m_thread(QThread::create([this] { Read(); }))
{
    connect(m_thread.get(), &QThread::finished, this, &ImportJob::Finished);
}

ImportJob::~ImportJob()
{
    Cancel();
    m_thread->wait();
}

void ImportJob::Start()
{
    m_thread->start();
}

void ImportJob::Cancel()
{
    m_isCancelled = true;
}

void ImportJob::Read()
{
    constexpr int kWhole = 1000;
    int told = -1;
    const ImportProgress progress([this, told](double share) mutable {
        const int thousandths = static_cast<int>(share * kWhole);
        if (thousandths != told)
            emit Advanced(thousandths);
        told = thousandths;
        return !m_isCancelled;
    });
    m_result = ReadMaterial(m_files, m_frameRate, m_error, progress);
}

} // namespace host
