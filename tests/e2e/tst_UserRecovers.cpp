#include "Story.h"

#include <QDir>

/// Work that was not saved when the program ended on its own.
class tst_UserRecovers : public Story
{
    Q_OBJECT

private slots:
    void getsTheWorkBackAfterACrash_data();
    void getsTheWorkBackAfterACrash();
    void isNotAskedAgainAboutWorkThatWasDiscarded();
    void isAskedAgainAboutWorkThatWasKeptForLater();
    void worksInTwoWindowsAtOnceAndLosesNeitherWork();
    void worksOnOneDocumentInTwoWindowsAndLosesNeitherWork();

private:
    /// The recovery files there are, of documents in the user's folder and of others.
    QStringList RecoveryFiles() const
    {
        QStringList files;
        for (const QString& folder : {MyHome().RecoveryFolder(), MyHome().Path()}) {
            const QDir dir(folder);
            for (const QString& name : dir.entryList({QStringLiteral("*.recovery")}, QDir::Files))
                files.append(dir.filePath(name));
        }
        return files;
    }

    /// Whether a recovery file comes to hold a key at that frame of the row.
    bool IsKept(const QString& row, int frame) const
    {
        return Sees([&] {
            const QStringList files = RecoveryFiles();
            return std::any_of(files.begin(), files.end(), [&](const QString& file) {
                return SavedScene(file).Frames(row).contains(frame);
            });
        });
    }

    QString Document(Editor& editor) const
    {
        const QString path = Path(QStringLiteral("walk.ktl"));
        return editor.SaveAs(path) ? path : QString();
    }
};

namespace {

const QString kHips = QStringLiteral("Hips");
const QString kSpine = QStringLiteral("Spine");
const QString kQuestion = QStringLiteral("Unsaved work found");
const QStringList kRecover{QStringLiteral("Return")};
const QStringList kRecoverOlder{QStringLiteral("Left"), QStringLiteral("Left"),
                                QStringLiteral("space")};
const QStringList kDiscard{QStringLiteral("Right"), QStringLiteral("space")};
const QStringList kLater{QStringLiteral("Escape")};
const QPoint kBeside(Places::kWindowSize.width(), 0); ///< where the second window stands

} // namespace

void tst_UserRecovers::getsTheWorkBackAfterACrash_data()
{
    QTest::addColumn<bool>("isDocument");
    QTest::newRow("on a document") << true;
    QTest::newRow("that was never saved") << false;
}

void tst_UserRecovers::getsTheWorkBackAfterACrash()
{
    QFETCH(bool, isDocument);
    const QString name = isDocument ? QStringLiteral("walk.ktl") : QStringLiteral("Untitled");
    QStringList words;
    QImage work;
    {
        Editor editor(MyHome());
        QVERIFY(editor.Opens());
        if (isDocument)
            words = QStringList{Document(editor)};
        editor.DragKey(kHips, 15, 20);
        QVERIFY(IsKept(kHips, 20));
        work = editor.StillPicture(Places::kFigure);
        editor.Kill();
    }
    Editor editor(MyHome(), words);
    QVERIFY(editor.OpensBehind(kQuestion));
    QVERIFY(editor.Answer(kQuestion, kRecover));
    QVERIFY(editor.Becomes(name + QStringLiteral("* - Kestova Host")));
    QVERIFY(Sees([&] { return editor.CurrentFrame() == 20; }));
    ExpectPicture(editor, Places::kFigure, work);
    const QString path = Path(QStringLiteral("saved.ktl"));
    QVERIFY(editor.SaveAs(path));
    const QVector<int> frames = SavedScene(path).Frames(kHips);
    QVERIFY(frames.contains(20) && !frames.contains(15));
    QCOMPARE(editor.Quit(), EXIT_SUCCESS);
    QCOMPARE(RecoveryFiles(), QStringList());
}

void tst_UserRecovers::isNotAskedAgainAboutWorkThatWasDiscarded()
{
    QString path;
    {
        Editor editor(MyHome());
        QVERIFY(editor.Opens());
        path = Document(editor);
        editor.DragKey(kHips, 15, 20);
        QVERIFY(IsKept(kHips, 20));
        editor.Kill();
    }
    {
        Editor editor(MyHome(), {path});
        QVERIFY(editor.OpensBehind(kQuestion));
        QVERIFY(editor.Answer(kQuestion, kDiscard));
        QVERIFY(editor.Becomes(QStringLiteral("walk.ktl - Kestova Host")));
        QCOMPARE(RecoveryFiles(), QStringList());
        QCOMPARE(editor.Quit(), EXIT_SUCCESS);
    }
    Editor editor(MyHome(), {path});
    QVERIFY(editor.Opens());
    QCOMPARE(editor.Title(), QStringLiteral("walk.ktl - Kestova Host"));
    QVERIFY(SavedScene(path).Frames(kHips).contains(15));
}

void tst_UserRecovers::isAskedAgainAboutWorkThatWasKeptForLater()
{
    {
        Editor editor(MyHome());
        QVERIFY(editor.Opens());
        editor.DragKey(kHips, 15, 20);
        QVERIFY(IsKept(kHips, 20));
        editor.Kill();
    }
    {
        Editor editor(MyHome());
        QVERIFY(editor.OpensBehind(kQuestion));
        QVERIFY(editor.Answer(kQuestion, kLater));
        QVERIFY(editor.Opens());
        editor.DragKey(kSpine, 15, 21); // its own work does not take the other's place
        QVERIFY(IsKept(kSpine, 21));
        QVERIFY(IsKept(kHips, 20));
        editor.Strike(QStringLiteral("ctrl+q"));
        QVERIFY(editor.Answer(QStringLiteral("Unsaved changes"), kDiscard));
        QCOMPARE(editor.ExitCode(), EXIT_SUCCESS);
    }
    Editor editor(MyHome());
    QVERIFY(editor.OpensBehind(kQuestion));
    QVERIFY(editor.Answer(kQuestion, kRecover));
    QVERIFY(editor.Becomes(QStringLiteral("Untitled* - Kestova Host")));
    const QString path = Path(QStringLiteral("saved.ktl"));
    QVERIFY(editor.SaveAs(path));
    QVERIFY(SavedScene(path).Frames(kHips).contains(20));
    QVERIFY(SavedScene(path).Frames(kSpine).contains(15));
}

void tst_UserRecovers::worksInTwoWindowsAtOnceAndLosesNeitherWork()
{
    {
        Editor first(MyHome());
        QVERIFY(first.Opens());
        first.DragKey(kHips, 15, 20);
        QVERIFY(IsKept(kHips, 20));
        Editor second(MyHome(), {}, kBeside);
        QVERIFY(second.Opens()); // without a question: the first one still works on it
        second.DragKey(kSpine, 15, 21);
        QVERIFY(IsKept(kSpine, 21));
        first.DragKey(kHips, 23, 25); // each goes on with its own
        QVERIFY(IsKept(kHips, 25));
        QVERIFY(IsKept(kSpine, 21));
        QCOMPARE(RecoveryFiles().size(), 2);
        first.Kill();
        second.Kill();
    }
    // The newest work is offered first; the other one is left for the next window.
    Editor third(MyHome());
    QVERIFY(third.OpensBehind(kQuestion));
    QVERIFY(third.Answer(kQuestion, kRecover));
    QVERIFY(third.Becomes(QStringLiteral("Untitled* - Kestova Host"))); // and has taken it over
    Editor fourth(MyHome(), {}, kBeside);
    QVERIFY(fourth.OpensBehind(kQuestion));
    QVERIFY(fourth.Answer(kQuestion, kRecover));
    QVERIFY(fourth.Becomes(QStringLiteral("Untitled* - Kestova Host")));
    QVERIFY(third.SaveAs(Path(QStringLiteral("third.ktl"))));
    QVERIFY(fourth.SaveAs(Path(QStringLiteral("fourth.ktl"))));
    const SavedScene hips(Path(QStringLiteral("third.ktl")));
    const SavedScene spine(Path(QStringLiteral("fourth.ktl")));
    QVERIFY(hips.Frames(kHips).contains(20) && hips.Frames(kHips).contains(25));
    QVERIFY(hips.Frames(kSpine).contains(15));
    QVERIFY(spine.Frames(kSpine).contains(21));
    QVERIFY(spine.Frames(kHips).contains(15));
    QCOMPARE(RecoveryFiles(), QStringList());
}

void tst_UserRecovers::worksOnOneDocumentInTwoWindowsAndLosesNeitherWork()
{
    Editor first(MyHome());
    QVERIFY(first.Opens());
    const QString path = Document(first);
    first.DragKey(kHips, 15, 20);
    QVERIFY(IsKept(kHips, 20));
    {
        Editor second(MyHome(), {path}, kBeside);
        QVERIFY(second.Opens());
        second.DragKey(kSpine, 15, 21);
        QVERIFY(IsKept(kSpine, 21));
        QVERIFY(IsKept(kHips, 20));
        second.Kill();
    }
    QVERIFY(first.Save()); // leaves the work of the other one alone
    QCOMPARE(first.Quit(), EXIT_SUCCESS);
    Editor third(MyHome(), {path});
    QVERIFY(third.OpensBehind(kQuestion));
    // The document was saved after that work: to keep it for later is what Return alone would do.
    QVERIFY(third.Answer(kQuestion, kRecoverOlder));
    QVERIFY(third.Becomes(QStringLiteral("walk.ktl* - Kestova Host")));
    QVERIFY(third.SaveAs(Path(QStringLiteral("other.ktl"))));
    QVERIFY(SavedScene(path).Frames(kHips).contains(20));
    QVERIFY(SavedScene(Path(QStringLiteral("other.ktl"))).Frames(kSpine).contains(21));
}

int main(int argc, char** argv)
{
    return TellStories<tst_UserRecovers>(argc, argv);
}
#include "tst_UserRecovers.moc"
