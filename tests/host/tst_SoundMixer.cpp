#include "playback/SoundMixer.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cstring>

using namespace host;

namespace {

QByteArray Number(qint64 value, int bytes)
{
    QByteArray made;
    for (int i = 0; i < bytes; ++i)
        made.append(static_cast<char>((value >> (8 * i)) & 0xFF));
    return made;
}

QByteArray Wav(int kind, int channels, int rate, int bits, const QByteArray& samples,
               const QByteArray& extension = {})
{
    const int moment = channels * bits / 8;
    const QByteArray format = Number(kind, 2) + Number(channels, 2) + Number(rate, 4) +
                              Number(rate * moment, 4) + Number(moment, 2) + Number(bits, 2) +
                              extension;
    const QByteArray chunks =
        "fmt " + Number(format.size(), 4) + format + "data" + Number(samples.size(), 4) + samples;
    return "RIFF" + Number(chunks.size() + 4, 4) + "WAVE" + chunks;
}

QByteArray Shorts(const QVector<int>& values)
{
    QByteArray bytes;
    for (const int value : values)
        bytes += Number(value, 2);
    return bytes;
}

QByteArray Floats(const QVector<float>& values)
{
    QByteArray bytes;
    for (const float value : values) {
        char raw[sizeof value];
        std::memcpy(raw, &value, sizeof value); // as this machine has them: little-endian
        bytes.append(raw, sizeof value);
    }
    return bytes;
}

/// The left samples, and the right ones.
QVector<int> Every(int channel, const QVector<qint16>& samples)
{
    QVector<int> chosen;
    for (int i = channel; i < samples.size(); i += 2)
        chosen.append(samples[i]);
    return chosen;
}

} // namespace

class tst_SoundMixer : public QObject
{
    Q_OBJECT

private slots:
    void readsEveryKindOfSamples_data();
    void readsEveryKindOfSamples();
    void aSingleChannelIsHeardOnBothSides();
    void ofManyChannelsTheFirstTwoAreHeard();
    void aSoundIsHeardWhenItsTimeHasCome();
    void theLeadInIsLeftOut();
    void aSpanEndsBeforeItsFile();
    void aFileEndsBeforeItsSpan();
    void startsInTheMiddle();
    void piecesJoinWithoutASeam();
    void anotherRateIsStretched();
    void soundsAreAdded();
    void tooLoudIsCut();
    void nothingIsSilence();
    void unreadableFilesAreSilentAndNamed_data();
    void unreadableFilesAreSilentAndNamed();
    void allUnreadableFilesAreNamed();
    void aFileThatIsCutMeanwhileIsSilentFromThere();

private:
    QString File(const QByteArray& bytes);
    QVector<qint16> Mixed(const SoundPlan& plan, int rate, double seconds, int frames);

    QTemporaryDir m_directory;
    int m_files = 0;
};

QString tst_SoundMixer::File(const QByteArray& bytes)
{
    const QString path = m_directory.filePath(QStringLiteral("%1.wav").arg(++m_files));
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? path : QString();
}

QVector<qint16> tst_SoundMixer::Mixed(const SoundPlan& plan, int rate, double seconds, int frames)
{
    SoundMixer mixer(plan, rate, seconds);
    QVector<qint16> samples(frames * 2, -1);
    mixer.Mix(samples.data(), frames);
    return samples;
}

void tst_SoundMixer::readsEveryKindOfSamples_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray shorts = Shorts({16384, -16384});
    QTest::newRow("8 bits") << Wav(1, 1, 10, 8, Number(0xC0, 1) + Number(0x40, 1));
    QTest::newRow("16 bits") << Wav(1, 1, 10, 16, shorts);
    QTest::newRow("24 bits") << Wav(1, 1, 10, 24, Number(0x400000, 3) + Number(-0x400000, 3));
    QTest::newRow("32 bits") << Wav(1, 1, 10, 32, Number(0x40000000, 4) + Number(-0x40000000, 4));
    QTest::newRow("floating point") << Wav(3, 1, 10, 32, Floats({0.5F, -0.5F}));
    // The size of the extension, the bits that count, the speakers, and the kind.
    const QByteArray extension = Number(22, 2) + Number(16, 2) + Number(4, 4) + Number(1, 2) +
                                 QByteArray("\0\0\0\0\x10\0\x80\0\0\xAA\0\x38\x9B\x71", 14);
    QTest::newRow("extended") << Wav(0xFFFE, 1, 10, 16, shorts, extension);
}

void tst_SoundMixer::readsEveryKindOfSamples()
{
    QFETCH(QByteArray, bytes);
    WavFile file(File(bytes));
    QVERIFY2(file.IsOpen(), qPrintable(file.Error().Message()));
    QCOMPARE(file.Read(0, 2), (QVector<float>{0.5F, 0.5F, -0.5F, -0.5F}));
}

void tst_SoundMixer::aSingleChannelIsHeardOnBothSides()
{
    const QString path = File(Wav(1, 1, 10, 16, Shorts({100, 200, 300})));
    const auto samples = Mixed({{path, 0, 1, 0}}, 10, 0, 3);
    QCOMPARE(Every(0, samples), (QVector<int>{100, 200, 300}));
    QCOMPARE(Every(1, samples), Every(0, samples));
}

void tst_SoundMixer::ofManyChannelsTheFirstTwoAreHeard()
{
    const QString path = File(Wav(1, 3, 10, 16, Shorts({100, 200, 9, 101, 201, 9})));
    const auto samples = Mixed({{path, 0, 1, 0}}, 10, 0, 2);
    QCOMPARE(Every(0, samples), (QVector<int>{100, 101}));
    QCOMPARE(Every(1, samples), (QVector<int>{200, 201}));
}

void tst_SoundMixer::aSoundIsHeardWhenItsTimeHasCome()
{
    const QString path = File(Wav(1, 1, 10, 16, Shorts({100, 200})));
    QCOMPARE(Every(0, Mixed({{path, 0.3, 1, 0}}, 10, 0, 6)), (QVector<int>{0, 0, 0, 100, 200, 0}));
}

void tst_SoundMixer::theLeadInIsLeftOut()
{
    const QString path = File(Wav(1, 1, 10, 16, Shorts({100, 200, 300, 400})));
    QCOMPARE(Every(0, Mixed({{path, 0, 1, 0.2}}, 10, 0, 3)), (QVector<int>{300, 400, 0}));
}

void tst_SoundMixer::aSpanEndsBeforeItsFile()
{
    const QString path = File(Wav(1, 1, 10, 16, Shorts({100, 200, 300, 400})));
    QCOMPARE(Every(0, Mixed({{path, 0, 0.2, 0}}, 10, 0, 4)), (QVector<int>{100, 200, 0, 0}));
}

void tst_SoundMixer::aFileEndsBeforeItsSpan()
{
    const QString path = File(Wav(1, 1, 10, 16, Shorts({100})));
    QCOMPARE(Every(0, Mixed({{path, 0, 9, 0}}, 10, 0, 3)), (QVector<int>{100, 0, 0}));
}

void tst_SoundMixer::startsInTheMiddle()
{
    const QString path = File(Wav(1, 1, 10, 16, Shorts({100, 200, 300, 400})));
    QCOMPARE(Every(0, Mixed({{path, 1, 2, 0}}, 10, 1.2, 2)), (QVector<int>{300, 400}));
}

void tst_SoundMixer::piecesJoinWithoutASeam()
{
    QVector<int> wave;
    for (int i = 0; i < 500; ++i)
        wave.append(i * 7919 % 20000 - 10000);
    const QString path = File(Wav(1, 1, 44100, 16, Shorts(wave)));
    const SoundPlan plan{{path, 0.001, 0.01, 0.0005}};
    const QVector<qint16> whole = Mixed(plan, 48000, 0, 600);
    SoundMixer mixer(plan, 48000, 0);
    QVector<qint16> pieces(whole.size());
    for (int at = 0, size = 1; at < 600; at += size, size = std::min(size * 2 + 1, 600 - at))
        mixer.Mix(pieces.data() + at * 2, size);
    QCOMPARE(pieces, whole);
}

void tst_SoundMixer::anotherRateIsStretched()
{
    const QString path = File(Wav(1, 1, 10, 16, Shorts({0, 100, 200, 0})));
    QCOMPARE(Every(0, Mixed({{path, 0, 1, 0}}, 20, 0, 8)),
             (QVector<int>{0, 50, 100, 150, 200, 100, 0, 0}));
    QCOMPARE(Every(0, Mixed({{path, 0, 1, 0}}, 5, 0, 2)), (QVector<int>{0, 200}));
}

void tst_SoundMixer::soundsAreAdded()
{
    const QString a = File(Wav(1, 1, 10, 16, Shorts({100, 200, 300})));
    const QString b = File(Wav(1, 1, 10, 16, Shorts({1000, 2000})));
    QCOMPARE(Every(0, Mixed({{a, 0, 1, 0}, {b, 0.1, 1, 0}}, 10, 0, 3)),
             (QVector<int>{100, 1200, 2300}));
}

void tst_SoundMixer::tooLoudIsCut()
{
    const QString a = File(Wav(1, 1, 10, 16, Shorts({30000, -30000})));
    QCOMPARE(Every(0, Mixed({{a, 0, 1, 0}, {a, 0, 1, 0}}, 10, 0, 2)),
             (QVector<int>{32767, -32767}));
}

void tst_SoundMixer::nothingIsSilence()
{
    QCOMPARE(Every(0, Mixed({}, 48000, 0, 3)), (QVector<int>{0, 0, 0}));
}

void tst_SoundMixer::unreadableFilesAreSilentAndNamed_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    const QByteArray samples(100, '\1');
    const QString compressed = QStringLiteral("samples that are not compressed, to be heard");
    QTest::newRow("compressed") << Wav(0x55, 1, 10, 16, samples) << compressed;
    QTest::newRow("odd bits")
        << Wav(1, 1, 10, 12, samples)
        << QStringLiteral("whole samples of 8, 16, 24 or 32 bits or floating-point ones of 32, to "
                          "be heard, found whole ones of 12 bits");
    QTest::newRow("long floats")
        << Wav(3, 1, 10, 64, samples)
        << QStringLiteral("whole samples of 8, 16, 24 or 32 bits or floating-point ones of 32, to "
                          "be heard, found floating-point ones of 64 bits");
    QTest::newRow("no channels") << Wav(1, 1, 10, 16, samples).replace(22, 2, Number(0, 2))
                                 << QStringLiteral("1 to 64 channels, to be heard, found 0");
    const QString rate = QStringLiteral("1 to 1000000 samples a second, to be heard, found %1");
    QTest::newRow("no rate") << Wav(1, 1, 10, 16, samples).replace(24, 4, Number(0, 4))
                             << rate.arg(0);
    QTest::newRow("an absurd rate") << Wav(1, 1, 2000000, 16, samples) << rate.arg(2000000);
    QTest::newRow("no sound") << QByteArray("hello")
                              << QStringLiteral("a sound file that starts with RIFF and WAVE");
}

void tst_SoundMixer::unreadableFilesAreSilentAndNamed()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expected);
    const QString path = File(bytes);
    SoundMixer mixer({{path, 0, 1, 0}}, 10, 0);
    QCOMPARE(mixer.Problem(), path + QStringLiteral(": expected ") + expected);
    QVector<qint16> samples(6, 1);
    mixer.Mix(samples.data(), 3);
    QCOMPARE(samples, QVector<qint16>(6, 0));
}

void tst_SoundMixer::allUnreadableFilesAreNamed()
{
    const QString a = File(Wav(0x55, 1, 10, 16, QByteArray(100, '\1')));
    const QString b = File("hello");
    const SoundMixer mixer({{a, 0, 1, 0}, {b, 0, 1, 0}, {a, 2, 3, 0}}, 10, 0);
    QCOMPARE(mixer.Problem(), SilenceOf(a) + QStringLiteral("; ") + SilenceOf(b));
    QCOMPARE(mixer.Problem().count(a), 1);
}

void tst_SoundMixer::aFileThatIsCutMeanwhileIsSilentFromThere()
{
    const QByteArray bytes = Wav(1, 1, 10, 16, Shorts(QVector<int>(20000, 100)));
    const QString path = File(bytes);
    SoundMixer mixer({{path, 0, 5000, 0}}, 10, 0);
    QVERIFY(QFile::resize(path, 44 + 2 * 3));
    QVector<qint16> samples(10);
    mixer.Mix(samples.data(), 5);
    QCOMPARE(Every(0, samples), (QVector<int>{100, 100, 100, 0, 0}));
}

QTEST_MAIN(tst_SoundMixer)
#include "tst_SoundMixer.moc"
