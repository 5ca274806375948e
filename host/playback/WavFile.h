#pragma once

#include "import/WavReader.h"

#include <QFile>
#include <QVector>

namespace host {

/// The samples of a sound file (RIFF, WAVE), read piece by piece as they are needed: whole numbers
/// of 8, 16, 24 or 32 bits, or floating-point numbers of 32 bits.
class WavFile
{
public:
    explicit WavFile(const QString& path);

    /// False when the file cannot be read, is no sound or holds another kind of samples; Error says
    /// which.
    bool IsOpen() const { return m_file.isOpen(); }
    const ImportError& Error() const { return m_error; }
    /// Samples a second.
    int Rate() const { return m_format.rate; }

    /// @p count moments from @p first on, left and right, from -1 to 1. A file of one channel has
    /// the same on both; of more than two the first two are heard. Silence before the file's start
    /// and behind its end.
    QVector<float> Read(qint64 first, int count);

private:
    QFile m_file;
    WavFormat m_format;
    ImportError m_error;
};

/// One line for the user about why the file is not heard; empty when it can be.
QString SilenceOf(const QString& path);

} // namespace host
