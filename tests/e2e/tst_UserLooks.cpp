#include "Story.h"

/// Moving through the scene and around in it.
class tst_UserLooks : public Story
{
    Q_OBJECT

private slots:
    void seesFaceFigureAndFrameTextFollowTheRuler();
    void stepsByTheArrowKeys();
    void playsAndPausesBySpace();
    void playsToTheEndAndStops();
    void scrollsTheRowsByTheWheel();
    void zoomsByTheWheelWithCtrl();
    void findsTheChosenSkinAfterARestart();
};

namespace {

const QString kSpace = QStringLiteral("space");

struct Views
{
    QImage face;
    QImage figure;
    QImage frameText;
};

Views ViewsOf(const Editor& editor)
{
    const QImage window = editor.Picture();
    return {window.copy(Places::kFace), window.copy(Places::kFigure),
            window.copy(Places::kFrameText)};
}

} // namespace

void tst_UserLooks::seesFaceFigureAndFrameTextFollowTheRuler()
{
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    const Views atStart = ViewsOf(editor);
    editor.PressAndMove({Places::Ruler(5), Places::Ruler(9), Places::Ruler(12)});
    QVERIFY(Sees([&] { return editor.CurrentFrame() == 12; }));
    Views scrubbed;
    QVERIFY(Sees([&] { // while the button is still down
        scrubbed = ViewsOf(editor);
        return scrubbed.face != atStart.face && scrubbed.figure != atStart.figure &&
               scrubbed.frameText != atStart.frameText;
    }));
    Hand::Release();

    editor.Click(Places::Ruler(35));
    QVERIFY(Sees([&] { return editor.CurrentFrame() == 35; }));
    QVERIFY(Sees([&] {
        const Views further = ViewsOf(editor);
        return further.face != scrubbed.face && further.figure != scrubbed.figure &&
               further.frameText != scrubbed.frameText;
    }));
    editor.Strike(QStringLiteral("Home"));
    ExpectPicture(editor, Places::kFace, atStart.face);
    ExpectPicture(editor, Places::kFigure, atStart.figure);
    ExpectPicture(editor, Places::kFrameText, atStart.frameText);
    QCOMPARE(editor.Title(), QStringLiteral("Untitled - Kestova Host")); // nothing was changed
}

void tst_UserLooks::stepsByTheArrowKeys()
{
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    editor.Strike(QStringLiteral("End"));
    QVERIFY(Sees([&] { return editor.CurrentFrame() == 90; }));
    editor.Strike({QStringLiteral("Left"), QStringLiteral("Left")});
    QVERIFY(Sees([&] { return editor.CurrentFrame() == 88; }));
    editor.Strike(QStringLiteral("Home"));
    QVERIFY(Sees([&] { return editor.CurrentFrame() == 0; }));
    editor.Strike(QStringLiteral("Right"));
    QVERIFY(Sees([&] { return editor.CurrentFrame() == 1; }));
}

void tst_UserLooks::playsAndPausesBySpace()
{
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    const QImage start = editor.StillPicture();
    const QImage buttons = start.copy(Places::kTransport);
    const Views before = ViewsOf(editor);
    editor.Strike(kSpace);
    QVERIFY(Sees([&] { return editor.Picture(Places::kTransport) != buttons; })); // pause
    QVERIFY(Sees([&] { return editor.CurrentFrame() >= 5; }));
    QVERIFY(Sees([&] {
        const Views playing = ViewsOf(editor);
        return playing.frameText != before.frameText && playing.figure != before.figure;
    }));
    editor.Strike(kSpace);
    ExpectPicture(editor, Places::kTransport, buttons); // play again
    const int frame = Places::CurrentFrame(editor.StillPicture());
    QVERIFY(frame >= 5 && frame < 90);

    editor.Strike(kSpace); // goes on from there
    QVERIFY(Sees([&] { return editor.CurrentFrame() > frame; }));
    editor.Strike(QStringLiteral("shift+space")); // and back to where the user was last
    ExpectPicture(editor, Places::kAllButStatus, start);
}

void tst_UserLooks::playsToTheEndAndStops()
{
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    const QImage buttons = editor.StillPicture(Places::kTransport);
    editor.Click(Places::Ruler(70));
    QVERIFY(Sees([&] { return editor.CurrentFrame() == 70; }));
    editor.Strike(kSpace);
    QVERIFY(Sees([&] { return editor.CurrentFrame() == 90; }));
    ExpectPicture(editor, Places::kTransport, buttons);
}

void tst_UserLooks::scrollsTheRowsByTheWheel()
{
    Editor editor(MyHome());
    QVERIFY(editor.Opens());
    const QImage top = editor.StillPicture(Places::kTimeline);
    const QPoint place = Places::Cell(editor.Picture(), QStringLiteral("Motion"), 40);
    editor.Turn(place, -2);
    QVERIFY(Sees([&] { return editor.Picture(Places::kTimeline) != top; }));
    const QImage lower = editor.StillPicture(Places::kTimeline);
    QVERIFY(lower != top);
    editor.Turn(place, 2);
    ExpectPicture(editor, Places::kTimeline, top);
}

void tst_UserLooks::zoomsByTheWheelWithCtrl()
{
    const QString ctrl = QStringLiteral("ctrl");
    const QPoint place(300, 560); // on a row
    constexpr QRect kRows(0, 300, 580, 320);
    Editor editor(MyHome(), {QStringLiteral("--size"), QStringLiteral("600x640")});
    QVERIFY(editor.Opens());
    const QImage all = editor.StillPicture(kRows);
    editor.Turn(place, 1, ctrl);
    QVERIFY(Sees([&] { return editor.Picture(kRows) != all; }));
    const QImage closer = editor.StillPicture(kRows);
    QVERIFY(closer != all);
    editor.Turn(place, -2, QStringLiteral("shift")); // moves the view to the right
    QVERIFY(Sees([&] { return editor.Picture(kRows) != closer; }));
    QVERIFY(editor.StillPicture(kRows) != all);
    editor.Turn(place, 2, QStringLiteral("shift"));
    ExpectPicture(editor, kRows, closer);
    editor.Turn(place, -1, ctrl);
    ExpectPicture(editor, kRows, all);
    QCOMPARE(editor.Title(), QStringLiteral("Untitled - Kestova Host")); // nothing was changed
}

void tst_UserLooks::findsTheChosenSkinAfterARestart()
{
    QImage chosen;
    {
        Editor editor(MyHome());
        QVERIFY(editor.Opens());
        const QImage dark = editor.StillPicture();
        editor.Click(Places::kViewMenu);
        QVERIFY(Sees([&] { return editor.CountOfWindows() == 2; }));
        // The last entry is Skin; its second one is the skin of high contrast.
        Hand::Strike({QStringLiteral("Up"), QStringLiteral("Right")});
        QVERIFY(Sees([&] { return editor.CountOfWindows() == 3; }));
        Hand::Strike({QStringLiteral("Down"), QStringLiteral("Return")});
        QVERIFY(Sees([&] { return editor.CountOfWindows() == 1; }));
        QVERIFY(Sees(
            [&] { return editor.Picture(Places::kTimeline) != dark.copy(Places::kTimeline); }));
        chosen = editor.StillPicture();
        QCOMPARE(editor.Quit(), EXIT_SUCCESS);
    }
    Editor editor(MyHome());
    QVERIFY(editor.OpensInAnySkin());
    ExpectPicture(editor, Places::kAllButStatus, chosen);
}

int main(int argc, char** argv)
{
    return TellStories<tst_UserLooks>(argc, argv);
}
#include "tst_UserLooks.moc"
