#include "TestFiles.h"

#include "document/MotionSampling.h"
#include "import/BvhReader.h"

using namespace host;

namespace {

const char* const kArm =
    "HIERARCHY\n"
    "ROOT Hips\n"
    "{\n"
    "  OFFSET 0 1.5 -2\n"
    "  CHANNELS 6 Xposition Yposition Zposition Zrotation Xrotation Yrotation\n"
    "  JOINT Arm\n"
    "  {\n"
    "    OFFSET 3 0 0\n"
    "    CHANNELS 3 Yrotation Zrotation Xrotation\n"
    "    End Site\n"
    "    {\n"
    "      OFFSET 1 0 0\n"
    "    }\n"
    "  }\n"
    "}\n"
    "MOTION\n"
    "Frames: 2\n"
    "Frame Time: 0.05\n"
    "1 2 3 4 5 6 7 8 9\n"
    "10 20 30 40 50 60 70 80 90\n";

std::optional<Motion> Read(const QByteArray& text)
{
    ImportError error;
    return ReadBvh(text, QStringLiteral("arm.bvh"), error);
}

QString MessageFor(const QByteArray& text)
{
    ImportError error;
    return ReadBvh(text, QStringLiteral("arm.bvh"), error) ? QStringLiteral("read")
                                                           : error.Message();
}

QByteArray With(const char* before, const char* after)
{
    return QByteArray(kArm).replace(before, after);
}

} // namespace

class tst_BvhReader : public QObject
{
    Q_OBJECT

private slots:
    void readsTheJoints();
    void keepsWhereTheLastBonesEnd();
    void readsTheSamples();
    void namesTheMotionAfterItsFile();
    void readsEveryWayOfWriting_data();
    void readsEveryWayOfWriting();
    void readsSeveralRoots();
    void readsNumbersWithExponents();
    void placesChannelsInTheOrderOfTheFile();
    void keepsSpacesInsideAName();
    void readsDeepHierarchiesUpToTheMostJoints();
    void takesAnyOrderOfChannels();
    void takesPositionChannelsOnJoints();
    void takesOtherFrameTimes_data();
    void takesOtherFrameTimes();
    void tellsHowFarItIs();
    void stopsWhenItIsCancelled();
    void namesTheLineAndWhatWasExpected_data();
    void namesTheLineAndWhatWasExpected();
    void saysItInOneLineWhateverTheFileHolds();
    void survivesBeingCutAnywhere();
    void survivesEveryByteReplaced_data();
    void survivesEveryByteReplaced();
    void readsTheSampleWalk();
    void readsTheCapturedWalk();
};

void tst_BvhReader::readsTheJoints()
{
    const auto motion = Read(kArm);
    QVERIFY(motion);
    QCOMPARE(motion->joints.size(), 2);
    QCOMPARE(motion->joints[0].name, QStringLiteral("Hips"));
    QCOMPARE(motion->joints[0].parent, -1);
    QCOMPARE(motion->joints[0].offset, QVector3D(0, 1.5F, -2));
    QCOMPARE(motion->joints[1].name, QStringLiteral("Arm"));
    QCOMPARE(motion->joints[1].parent, 0);
    QCOMPARE(motion->joints[1].firstChannel, 6);
    const QVector<Channel> armChannels{Channel::YRotation, Channel::ZRotation, Channel::XRotation};
    QVERIFY(motion->joints[1].channels == armChannels);
}

void tst_BvhReader::keepsWhereTheLastBonesEnd()
{
    const auto motion = Read(With("    End Site\n", "    End Site\n{ OFFSET 0 2 0 }\nEnd Site\n"));
    QVERIFY(motion);
    QVERIFY(motion->joints[0].ends.isEmpty());
    QCOMPARE(motion->joints[1].ends, (QVector<QVector3D>{{0, 2, 0}, {1, 0, 0}}));
}

void tst_BvhReader::readsTheSamples()
{
    const auto motion = Read(kArm);
    QVERIFY(motion);
    QCOMPARE(motion->sampleCount, 2);
    QCOMPARE(motion->sampleTime, 0.05);
    QCOMPARE(motion->channelCount, 9);
    QCOMPARE(motion->samples.size(), 18);
    QCOMPARE(motion->At(0, 0), 1.0F);
    QCOMPARE(motion->At(0, 8), 9.0F);
    QCOMPARE(motion->At(1, 3), 40.0F);
}

void tst_BvhReader::namesTheMotionAfterItsFile()
{
    QCOMPARE(Read(kArm)->name, QStringLiteral("arm"));
}

void tst_BvhReader::readsEveryWayOfWriting_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("CR LF") << With("\n", "\r\n");
    QTest::newRow("CR alone") << With("\n", "\r");
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF") + kArm;
    QTest::newRow("no last line end") << QByteArray(kArm).chopped(1);
    QTest::newRow("upper case")
        << QByteArray(kArm).toUpper().replace("HIPS", "Hips").replace("ARM", "Arm");
    QTest::newRow("brace behind the name") << With("Hips\n{", "Hips{").replace("Arm\n  {", "Arm {");
    QTest::newRow("no space after the colons") << With(": ", ":");
    QTest::newRow("tabs") << With("  ", "\t");
    QTest::newRow("empty lines") << With("\n", "\n\n");
    QTest::newRow("double spaces and tabs between numbers") << With("4 5 6", "4  5 \t 6");
    QTest::newRow("byte order mark, CR LF and no last line end")
        << QByteArray("\xEF\xBB\xBF") + With("\n", "\r\n").chopped(2);
    QTest::newRow("space at line ends") << With("\n", " \t\n");
    QTest::newRow("a name for the End Site") << With("End Site", "End Site Fingers");
    QTest::newRow("space before the colons")
        << With("Frames:", "Frames :").replace("Time:", "Time :");
    QTest::newRow("space before the colons only") << With("Frames: ", "Frames :");
    QTest::newRow("no channels of an End Site")
        << With("OFFSET 1 0 0", "OFFSET 1 0 0\n      CHANNELS 0");
    QTest::newRow("samples wrapped over lines") << With("4 5 6 7 8", "4\n5 6\n\n7 8");
    QTest::newRow("several samples on a line") << With("8 9\n", "8 9 ");
    QTest::newRow("a mark of the end") << QByteArray(kArm) + '\x1a';
    QTest::newRow("marks of the end and NULs")
        << QByteArray(kArm) + QByteArray("\x1a\0\0\r\n\0", 6);
    QTest::newRow("NULs behind the last number")
        << QByteArray(kArm).chopped(1) + QByteArray(3, '\0');
    QTest::newRow("end site on one line")
        << With("End Site\n    {\n      OFFSET 1 0 0\n    }", "End Site { OFFSET 1 0 0 }");
}

void tst_BvhReader::readsEveryWayOfWriting()
{
    QFETCH(QByteArray, text);
    ImportError error;
    const auto motion = ReadBvh(text, QStringLiteral("arm.bvh"), error);
    QVERIFY2(motion, qPrintable(error.Message()));
    QVERIFY(*motion == *Read(kArm));
}

void tst_BvhReader::readsSeveralRoots()
{
    const auto motion = Read("HIERARCHY\n"
                             "ROOT A { OFFSET 0 0 0 CHANNELS 1 Yrotation }\n"
                             "ROOT B { OFFSET 1 0 0 CHANNELS 1 Xrotation }\n"
                             "MOTION\nFrames: 1\nFrame Time: 0.1\n10 20\n");
    QVERIFY(motion);
    QCOMPARE(motion->joints.size(), 2);
    QCOMPARE(motion->joints[1].parent, -1);
    QCOMPARE(motion->At(0, motion->joints[1].firstChannel), 20.0F);
}

void tst_BvhReader::readsNumbersWithExponents()
{
    const auto motion = Read(With("1 2 3 4 5", "1e0 2.0E+00 30e-1 .4e1 +5"));
    QVERIFY(motion);
    QVERIFY(*motion == *Read(kArm));
    QCOMPARE(Read(With("1 2 3", "1.2e-05 2 3"))->At(0, 0), 1.2e-05F);
}

void tst_BvhReader::takesAnyOrderOfChannels()
{
    const auto motion = Read(With("Xposition Yposition Zposition Zrotation Xrotation Yrotation",
                                  "Yrotation Zposition Xrotation Yposition Zrotation Xposition"));
    QVERIFY(motion);
    const QVector<Channel> channels{Channel::YRotation, Channel::ZPosition, Channel::XRotation,
                                    Channel::YPosition, Channel::ZRotation, Channel::XPosition};
    QVERIFY(motion->joints[0].channels == channels);
    // The hips stand where the numbers of the position channels say, whatever their order.
    QCOMPARE(JointPositions(*motion, 0, 30)[0], QVector3D(6, 4, 2));
}

void tst_BvhReader::takesPositionChannelsOnJoints()
{
    const auto motion =
        Read(With("CHANNELS 3 Yrotation Zrotation Xrotation",
                  "CHANNELS 6 Xposition Yposition Zposition Yrotation Zrotation Xrotation")
                 .replace("4 5 6 7 8 9\n", "0 0 0 7 8 9 0 0 0\n")
                 .replace("70 80 90", "70 80 90 0 0 0"));
    QVERIFY(motion);
    // They take the place of the joint's offset from its parent.
    QCOMPARE(JointPositions(*motion, 1, 30)[0], QVector3D(1 + 7, 2 + 8, 3 + 9));
}

void tst_BvhReader::takesOtherFrameTimes_data()
{
    QTest::addColumn<QByteArray>("time");
    QTest::addColumn<double>("seconds");
    QTest::addColumn<int>("frames"); // of a scene at 30 a second
    QTest::newRow("24 a second") << QByteArray("0.0416667") << 0.0416667 << 2;
    QTest::newRow("120 a second") << QByteArray("0.00833333") << 0.00833333 << 1;
    QTest::newRow("with an exponent") << QByteArray("4e-2") << 0.04 << 2;
    QTest::newRow("a second") << QByteArray("1") << 1.0 << 31;
}

void tst_BvhReader::takesOtherFrameTimes()
{
    QFETCH(QByteArray, time);
    QFETCH(double, seconds);
    QFETCH(int, frames);
    const auto motion = Read(With("0.05", time.constData()));
    QVERIFY(motion);
    QCOMPARE(motion->sampleTime, seconds);
    QCOMPARE(SceneFramesOf(*motion, 30), frames);
}

void tst_BvhReader::tellsHowFarItIs()
{
    QByteArray text = With("Frames: 2", "Frames: 1002");
    text += QByteArray("1 2 3 4 5 6 7 8 9\n").repeated(1000);
    QVector<double> shares;
    const ImportProgress progress([&shares](double share) {
        shares.append(share);
        return true;
    });
    ImportError error;
    QVERIFY(ReadBvh(text, QStringLiteral("arm.bvh"), error, progress));
    QVERIFY(shares.size() >= 4);
    QVERIFY(std::is_sorted(shares.cbegin(), shares.cend()));
    QVERIFY(shares.first() >= 0 && shares.first() < 0.1);
    QVERIFY(shares.last() > 0.6 && shares.last() <= 1);
}

void tst_BvhReader::stopsWhenItIsCancelled()
{
    ImportError error;
    const ImportProgress progress([](double) { return false; });
    QVERIFY(!ReadBvh(kArm, QStringLiteral("arm.bvh"), error, progress));
    QVERIFY(error.isCancelled);
}

void tst_BvhReader::placesChannelsInTheOrderOfTheFile()
{
    const auto motion = Read("HIERARCHY ROOT A {\n"
                             "JOINT B { OFFSET 0 0 0 CHANNELS 1 Xrotation }\n"
                             "OFFSET 0 0 0 CHANNELS 1 Yrotation }\n"
                             "MOTION\nFrames: 1\nFrame Time: 0.1\n7 8\n");
    QVERIFY(motion);
    QCOMPARE(motion->joints[0].name, QStringLiteral("A"));
    QCOMPARE(motion->At(0, motion->joints[0].firstChannel), 8.0F);
    QCOMPARE(motion->At(0, motion->joints[1].firstChannel), 7.0F);
}

void tst_BvhReader::keepsSpacesInsideAName()
{
    QCOMPARE(Read(With("JOINT Arm", "JOINT Upper  Arm"))->joints[1].name,
             QStringLiteral("Upper Arm"));
}

void tst_BvhReader::readsDeepHierarchiesUpToTheMostJoints()
{
    const auto chain = [](int joints) {
        QByteArray text = "HIERARCHY\nROOT R { OFFSET 0 0 0 CHANNELS 1 Yrotation\n";
        for (int i = 1; i < joints; ++i)
            text += "JOINT J { OFFSET 0 1 0\n";
        return text + QByteArray("}").repeated(joints) +
               "\nMOTION\nFrames: 1\nFrame Time: 0.1\n5\n";
    };
    QVERIFY(Read(chain(1000)));
    QCOMPARE(MessageFor(chain(100000)),
             QStringLiteral("arm.bvh:1002: expected at most 1000 joints, found \"J\""));
}

void tst_BvhReader::namesTheLineAndWhatWasExpected_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* name, const QByteArray& text, const char* message) {
        QTest::newRow(name) << text << QStringLiteral("arm.bvh:") + QString::fromLatin1(message);
    };
    row("empty file", "", "1: expected HIERARCHY, found the end of the file");
    row("another format", "\x89PNG\r\n", "1: expected HIERARCHY, found \"?PNG\"");
    row("no root", With("ROOT", "TREE"), "2: expected ROOT, found \"TREE\"");
    row("no name", With("ROOT Hips", "ROOT"), "3: expected a name after ROOT, found \"{\"");
    row("no brace", With("Hips\n{", "Hips\n"),
        "4: expected { after the name of a ROOT, found \"OFFSET\"");
    row("short offset", With("OFFSET 3 0 0", "OFFSET 3 0"),
        "9: expected 3 numbers after OFFSET, found \"CHANNELS\"");
    row("word for a number", With("3 0 0", "3 zero 0"),
        "8: expected 3 numbers after OFFSET, found \"zero\"");
    row("not a number", With("3 0 0", "3 nan 0"),
        "8: expected 3 numbers after OFFSET, found \"nan\"");
    row("infinite number", With("3 0 0", "3 inf 0"),
        "8: expected 3 numbers after OFFSET, found \"inf\"");
    row("number out of range", With("3 0 0", "3 1e999 0"),
        "8: expected 3 numbers after OFFSET, found \"1e999\"");
    row("absurd number", With("3 0 0", "3 1e30 0"),
        "8: expected 3 numbers after OFFSET, found \"1e30\"");
    row("comma for a point", With("3 0 0", "3,5 0 0"),
        "8: expected 3 numbers after OFFSET, found \"3,5\"");
    row("too many channels", With("CHANNELS 3", "CHANNELS 7"),
        "9: expected a number of channels from 0 to 6, found \"7\"");
    row("negative channels", With("CHANNELS 3", "CHANNELS -1"),
        "9: expected a number of channels from 0 to 6, found \"-1\"");
    row("unknown channel", With("Yrotation Zrotation Xrotation", "Yrotation Wrotation Xrotation"),
        "9: expected a channel name such as Xposition or Zrotation, found \"Wrotation\"");
    row("fewer channels than said", With("CHANNELS 3", "CHANNELS 4"),
        "10: expected a channel name such as Xposition or Zrotation, found \"End\"");
    row("more channels than said", With("CHANNELS 3", "CHANNELS 2"),
        "9: expected OFFSET, CHANNELS, JOINT, End Site or }, found \"Xrotation\"");
    row("a channel twice", With("Yrotation Zrotation Xrotation", "Yrotation Yrotation Xrotation"),
        "9: expected each channel once, found \"Yrotation\"");
    row("channels twice", With("    End Site", "    CHANNELS 1 Xposition\n    End Site"),
        "10: expected CHANNELS once for each joint, found \"1\"");
    row("end of nothing", With("End Site", "End Arm"),
        "10: expected Site after End, found \"Arm\"");
    row("channels in an end site", With("OFFSET 1 0 0", "CHANNELS 1 Xrotation"),
        "12: expected OFFSET or } in an End Site, found \"CHANNELS\"");
    row("a brace too few", With("}\nMOTION", "MOTION"),
        "15: expected OFFSET, CHANNELS, JOINT, End Site or }, found \"MOTION\"");
    row("a brace too many", With("}\nMOTION", "}\n}\nMOTION"),
        "16: expected ROOT or MOTION, found \"}\"");
    row("no channels at all",
        "HIERARCHY\nROOT R { OFFSET 0 0 0 }\nMOTION\nFrames: 1\nFrame Time: 1\n",
        "4: expected a joint with channels before MOTION, found \"Frames:\"");
    row("no frame count", With("Frames: 2\n", ""), "17: expected Frames:, found \"Frame\"");
    row("no frames", With("Frames: 2", "Frames: 0"),
        "17: expected a number of frames above 0, found \"0\"");
    row("half a frame", With("Frames: 2", "Frames: 2.5"),
        "17: expected a number of frames above 0, found \"2.5\"");
    row("more frames than an int", With("Frames: 2", "Frames: 99999999999"),
        "17: expected a number of frames above 0, found \"99999999999\"");
    row("no frame time", With("Frame Time: 0.05\n", ""), "18: expected Frame Time:, found \"1\"");
    row("frame time of nothing", With("0.05", "0"),
        "18: expected a frame time from 0.0001 to 1 second, found \"0\"");
    row("negative frame time", With("0.05", "-0.05"),
        "18: expected a frame time from 0.0001 to 1 second, found \"-0.05\"");
    row("frame time of next to nothing", With("0.05", "1e-300"),
        "18: expected a frame time from 0.0001 to 1 second, found \"1e-300\"");
    row("channels said of an end site", With("OFFSET 1 0 0", "OFFSET 1 0 0\nCHANNELS 1 Xrotation"),
        "13: expected OFFSET or } in an End Site, found \"CHANNELS\"");
    row("frame time without its point", With("0.05", "5"),
        "18: expected a frame time from 0.0001 to 1 second, found \"5\"");
    row("a number too few", With("8 9\n", "8\n"), "19: expected 9 numbers, found 8");
    row("a number too many", With("8 9\n", "8 9 9\n"), "19: expected 9 numbers, found more");
    row("a word among the numbers", With("70 80", "70 x80"),
        "20: expected 9 numbers, found \"x80\"");
    row("a frame too few", With("Frames: 2", "Frames: 3"), "20: expected 3 frames, found 2");
    row("very many frames too few", With("Frames: 2", "Frames: 2147483647"),
        "20: expected 2147483647 frames, found 2");
    row("a frame too many", With("Frames: 2", "Frames: 1"),
        "20: expected the end of the file after 1 frames, found \"10\"");
}

void tst_BvhReader::namesTheLineAndWhatWasExpected()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, message);
    QCOMPARE(MessageFor(text), message);
}

void tst_BvhReader::saysItInOneLineWhateverTheFileHolds()
{
    const QString message = MessageFor(QByteArray("\0\x01\x1b[31m\xff", 8).repeated(100));
    QVERIFY(std::all_of(message.cbegin(), message.cend(), [](QChar c) { return c.isPrint(); }));
    QVERIFY(message.size() < 100);
}

void tst_BvhReader::survivesBeingCutAnywhere()
{
    const QByteArray whole = kArm;
    const int lastNumber = whole.lastIndexOf(' ') + 1;
    for (int length = 0; length < whole.size(); ++length) {
        ImportError error;
        const auto motion = ReadBvh(whole.left(length), QStringLiteral("arm.bvh"), error);
        // Once a digit of the last number is there, the rest of it cannot be missed.
        QCOMPARE(motion.has_value(), length > lastNumber);
        if (!motion) {
            QVERIFY(error.line >= 1 && error.line <= 20);
            QVERIFY(!error.expected.isEmpty());
        }
    }
}

void tst_BvhReader::survivesEveryByteReplaced_data()
{
    QTest::addColumn<char>("byte");
    for (const char byte : {'\0', '\n', ' ', '{', '}', '9', '-', '\xff'})
        QTest::addRow("byte %d", byte) << byte;
}

void tst_BvhReader::survivesEveryByteReplaced()
{
    QFETCH(char, byte);
    for (int i = 0; i < static_cast<int>(qstrlen(kArm)); ++i) {
        QByteArray text = kArm;
        text[i] = byte;
        ImportError error;
        const auto motion = ReadBvh(text, QStringLiteral("arm.bvh"), error);
        if (!motion) {
            QVERIFY(error.line >= 1);
            continue;
        }
        QCOMPARE(motion->samples.size(), motion->sampleCount * motion->channelCount);
    }
}

void tst_BvhReader::readsTheSampleWalk()
{
    ImportError error;
    const QString path = SamplePath(QStringLiteral("stroll.bvh"));
    const auto motion = ReadBvh(BytesOf(path), path, error);
    QVERIFY2(motion, qPrintable(error.Message()));
    QCOMPARE(motion->joints.size(), 17);
    QCOMPARE(motion->sampleCount, 181);
    QCOMPARE(SceneFramesOf(*motion, 30), 91);
}

void tst_BvhReader::readsTheCapturedWalk()
{
    const QString path = SharedDataPath(QStringLiteral("walk.bvh"));
    SKIP_WITHOUT(path);
    ImportError error;
    const auto motion = ReadBvh(BytesOf(path), path, error);
    QVERIFY2(motion, qPrintable(error.Message()));
    QCOMPARE(motion->joints.size(), 31);
    QCOMPARE(motion->sampleCount, 524);
    QCOMPARE(motion->channelCount, 96);
    QCOMPARE(SceneFramesOf(*motion, 30), 131);
    QCOMPARE(motion->At(1, 0), 0.0265F);
}

QTEST_MAIN(tst_BvhReader)
#include "tst_BvhReader.moc"
