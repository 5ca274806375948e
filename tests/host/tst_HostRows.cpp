#include "HandledEditor.h"

#include "document/RowStates.h"

#include <QTemporaryDir>

using Frames = QVector<int>;
using host::RowState;

namespace {

// Pixels from the left edge of a caption to the middle of its buttons.
constexpr int kNoButton = 20;
constexpr int kMenuOfKeys = 104;
constexpr int kAdd = 122;
constexpr int kMenu = 122;
constexpr int kMute = 140;
constexpr int kLock = 159;

struct RowEditor : HandledEditor
{
    void ClickCaption(const char* name, int x)
    {
        QWidget* const row = WidgetOf(name);
        pointer.Click(row->parentWidget(), QPoint(x, row->y() + row->height() / 2));
    }
    bool Is(const char* name, RowState state) const
    {
        return host::HasState(*Scene().FindTrack(Id(name)), state);
    }
    int ButtonState(const char* name, int button)
    {
        int state = -1;
        Timeline().GetTrackCaptionBtnState(Row(name), button, state);
        return state;
    }
    /// What an undone edit does to the scene: the session takes an earlier one.
    void TakeBack(const host::Scene& before)
    {
        window.Session().Apply(QStringLiteral("Undo"), before);
    }
    QStringList MenuOf(const char* name, int frame)
    {
        QStringList texts;
        WithMenu(name, At(name, frame), [&texts](QMenu& menu) {
            for (const QAction* const action : menu.actions())
                texts.append(action->isSeparator() ? QStringLiteral("-")
                                                   : host::PlainText(*action));
        });
        return texts;
    }
    QMenu* OpenMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
};

constexpr int kMuteId = 1; // the buttons' numbers in the skin
constexpr int kLockId = 2;

} // namespace

class tst_HostRows : public QObject
{
    Q_OBJECT

private slots:
    void theEyeMutesItsRow();
    void thePadlockLocksItsRow();
    void aStateThatIsTakenBackIsShown();
    void theMenuOfARowSolosIt();
    void theMenuButtonOfACaptionOpensTheMenu();
    void theKeysOfTheTimelineMenuSwitchTheActiveRow();
    void aLockedRowIsNotDragged();
    void aLockedRowStaysWhenAnotherIsDragged();
    void aLockedRowRefusesEditsFromElsewhere();
    void aLockedRowTakesNoNewKey();
    void aLockedRowOffersNoEdits();
    void aLockedRowTakesNoFiles();
    void thePlusButtonStillAddsAKey();
    void aJointsButtonHidesItsRowOnly();
    void aRowStaysHiddenWhileOneOfItsButtonsIsOff();
    void buttonsThatDoNotFitGetArrows();
    void contactsAreSeenBesideTheKeysOfTheFoot();
    void aRowThatIsLeftShowsNoTimeRange();
    void aRowOfButtonsIsLeftForARowUnderAnotherRoot();
    void aFileIsHeldByKindOfRow_data();
    void aFileIsHeldByKindOfRow();
    void aLockedClipIsNotCoveredByAFile();
};

void tst_HostRows::theEyeMutesItsRow()
{
    RowEditor editor;
    editor.ClickCaption("LeftArm", kMute);
    QVERIFY(editor.Is("LeftArm", RowState::Muted));
    QCOMPARE(editor.StatusText(), QStringLiteral("Mute Left Arm"));
    QVERIFY(editor.ButtonState("LeftArm", kMuteId) >= 2);
    QCOMPARE(editor.ButtonState("Spine", kMuteId), 0);
    editor.ClickCaption("LeftArm", kMute);
    QVERIFY(!editor.Is("LeftArm", RowState::Muted));
    QVERIFY(editor.ButtonState("LeftArm", kMuteId) < 2);
    QCOMPARE(editor.StatusText(), QStringLiteral("Unmute Left Arm"));
}

void tst_HostRows::thePadlockLocksItsRow()
{
    RowEditor editor;
    editor.ClickCaption("Lips", kLock);
    QVERIFY(editor.Is("Lips", RowState::Locked));
    QCOMPARE(editor.StatusText(), QStringLiteral("Lock Lips"));
    editor.ClickCaption("Lips", kLock);
    QVERIFY(!editor.Is("Lips", RowState::Locked));
}

void tst_HostRows::aStateThatIsTakenBackIsShown()
{
    RowEditor editor;
    const host::Scene before = editor.Scene();
    editor.ClickCaption("Motion", kLock);
    const host::Scene after = editor.Scene();
    editor.TakeBack(before);
    QVERIFY(editor.ButtonState("Motion", kLockId) < 2);
    editor.Select("Motion", {0});
    QVERIFY(editor.Timeline().CanDoTrackEdit(editor.Row("Motion"), TL_EDIT_DELETE));
    editor.TakeBack(after);
    QVERIFY(editor.ButtonState("Motion", kLockId) >= 2);
    QVERIFY(!editor.Timeline().CanDoTrackEdit(editor.Row("Motion"), TL_EDIT_DELETE));
}

void tst_HostRows::theMenuOfARowSolosIt()
{
    RowEditor editor;
    const QImage before = editor.window.grab().toImage();
    editor.Choose("LeftArm", editor.At("LeftArm", 20), QStringLiteral("Solo"));
    QVERIFY(editor.Is("LeftArm", RowState::Soloed));
    bool isChecked = false;
    editor.WithMenu("LeftArm", editor.At("LeftArm", 20), [&isChecked](QMenu& menu) {
        for (const QAction* const action : menu.actions())
            isChecked = isChecked ||
                        (host::PlainText(*action) == QLatin1String("Solo") && action->isChecked());
    });
    QVERIFY(isChecked);
    // A mark stands before its name.
    QWidget* const row = editor.WidgetOf("LeftArm");
    const QPoint corner = row->mapTo(&editor.window, QPoint(-row->x(), 0));
    const QRect caption(corner, QSize(90, row->height()));
    QVERIFY(editor.window.grab().toImage().copy(caption) != before.copy(caption));
    editor.Choose("LeftArm", editor.At("LeftArm", 20), QStringLiteral("Solo"));
    QVERIFY(!editor.Is("LeftArm", RowState::Soloed));
}

void tst_HostRows::theMenuButtonOfACaptionOpensTheMenu()
{
    for (const auto& [name, x] : {std::pair{"Motion", kMenu}, std::pair{"LeftArm", kMenuOfKeys}}) {
        RowEditor editor;
        editor.ClickCaption(name, x);
        QMenu* const menu = editor.OpenMenu();
        QVERIFY(menu);
        for (QAction* const action : menu->actions()) {
            if (host::PlainText(*action) == QLatin1String("Mute"))
                QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                                  menu->actionGeometry(action).center());
        }
        QVERIFY(editor.Is(name, RowState::Muted));
        QVERIFY(!editor.OpenMenu());
    }
}

void tst_HostRows::theKeysOfTheTimelineMenuSwitchTheActiveRow()
{
    RowEditor editor;
    editor.pointer.Click(editor.WidgetOf("Spine"), editor.At("Spine", 3));
    QTest::keyClick(&editor.window, Qt::Key_M, Qt::ControlModifier);
    QVERIFY(editor.Is("Spine", RowState::Muted));
    QTest::keyClick(&editor.window, Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(editor.Is("Spine", RowState::Soloed));
    QTest::keyClick(&editor.window, Qt::Key_L, Qt::ControlModifier);
    QVERIFY(editor.Is("Spine", RowState::Locked));
    QTest::keyClick(&editor.window, Qt::Key_L, Qt::ControlModifier);
    QVERIFY(!editor.Is("Spine", RowState::Locked));
}

void tst_HostRows::aLockedRowIsNotDragged()
{
    RowEditor editor;
    editor.ClickCaption("LeftArm", kLock);
    editor.ClickCaption("Motion", kLock);
    editor.ClickCaption("MotionBlend", kLock);
    const host::Scene before = editor.Scene();
    editor.Drag("LeftArm", editor.At("LeftArm", 15), {editor.At("LeftArm", 20)});
    editor.Drag("Motion", editor.EdgeOf("Motion", 90), {editor.At("Motion", 70)});
    editor.Drag("MotionBlend", editor.At("MotionBlend", 12), {editor.At("MotionBlend", 20)});
    QVERIFY(editor.Scene() == before);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostRows::aLockedRowStaysWhenAnotherIsDragged()
{
    RowEditor editor;
    editor.ClickCaption("Spine", kLock);
    const Frames spine = editor.FramesOf("Spine");
    editor.Select("LeftArm", {1});
    editor.SelectToo("Spine", {1});
    editor.Drag("LeftArm", editor.At("LeftArm", 15), {editor.At("LeftArm", 17)});
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 17, 30, 45, 60, 75, 90}));
    QCOMPARE(editor.FramesOf("Spine"), spine);
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostRows::aLockedRowRefusesEditsFromElsewhere()
{
    RowEditor editor;
    editor.Select("LeftArm", {1});
    editor.ClickCaption("LeftArm", kLock);
    editor.Select("LeftArm", {1});
    const host::Scene before = editor.Scene();
    host::TrackList rows;
    rows.Add(editor.Row("LeftArm"));
    for (const TLEditType type : {TL_EDIT_CUT, TL_EDIT_DELETE, TL_EDIT_PASTE, TL_EDIT_INSERT_KEY}) {
        QCOMPARE(editor.Timeline().ReceiveTrackEdit(type, rows, 0, 0), -1);
        QCOMPARE(editor.StatusText(), QStringLiteral("Left Arm is locked"));
    }
    QVERIFY(editor.Timeline().ReceiveTrackEdit(TL_EDIT_COPY, rows, 0, 0) >= 0);
    QVERIFY(editor.Scene() == before);
}

void tst_HostRows::aLockedRowTakesNoNewKey()
{
    RowEditor editor;
    editor.ClickCaption("LeftArm", kLock);
    editor.Timeline().SetCurrentFrame(20);
    editor.ClickCaption("LeftArm", kAdd);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 30, 45, 60, 75, 90}));
    QCOMPARE(editor.StatusText(), QStringLiteral("Left Arm is locked"));
}

void tst_HostRows::aLockedRowOffersNoEdits()
{
    RowEditor editor;
    QVERIFY(editor.MenuOf("LeftArm", 15).contains(QStringLiteral("Delete")));
    editor.ClickCaption("LeftArm", kLock);
    QCOMPARE(editor.MenuOf("LeftArm", 15),
             (QStringList{"Copy", "-", "Select All", "Select Previous", "Select Next", "-", "Mute",
                          "Solo", "Lock"}));
    QVERIFY(!editor.Command(QStringLiteral("Delete"))->isEnabled());
    QVERIFY(!editor.Command(QStringLiteral("Insert Key"))->isEnabled());
    QVERIFY(editor.Command(QStringLiteral("Select All"))->isEnabled());
}

void tst_HostRows::aLockedRowTakesNoFiles()
{
    RowEditor editor;
    editor.ClickCaption("Sound", kLock);
    QVERIFY(!editor.DropFile("Sound", editor.At("Sound", 5), QStringLiteral("/tmp/a.wav")));
    QCOMPARE(editor.StatusText(), QStringLiteral("a.wav: the row is locked"));
}

void tst_HostRows::thePlusButtonStillAddsAKey()
{
    RowEditor editor;
    editor.Timeline().SetCurrentFrame(20);
    editor.ClickCaption("LeftArm", kAdd);
    QCOMPARE(editor.FramesOf("LeftArm"), (Frames{0, 15, 20, 30, 45, 60, 75, 90}));
}

void tst_HostRows::aJointsButtonHidesItsRowOnly()
{
    RowEditor editor;
    QWidget* const joints = editor.WidgetOf("Joints");
    const int y = joints->height() / 2;
    // The second button of 84 pixels is Spine's; 7 are the arrow's and 4 between two.
    const QPoint spine(7 + 84 + 4 + 40, y);
    const auto place = [&editor](const char* name) {
        return editor.Timeline().GetChildTrackSortIndex(editor.Row(name));
    };
    const int arm = place("LeftArm");
    QVERIFY(place("Spine") >= 0);
    editor.pointer.Click(joints, spine);
    QCOMPARE(place("Spine"), -1);
    QCOMPARE(place("LeftArm"), arm - 1);
    editor.pointer.Click(joints, spine);
    QVERIFY(place("Spine") >= 0);
    QCOMPARE(place("LeftArm"), arm);
}

void tst_HostRows::aRowStaysHiddenWhileOneOfItsButtonsIsOff()
{
    RowEditor editor;
    QWidget* const joints = editor.WidgetOf("Joints");
    const QPoint spine(7 + 84 + 4 + 40, joints->height() / 2);
    QWidget* const layers = editor.WidgetOf("Layers");
    const QPoint all(7 + 110 + 4 + 50, layers->height() / 2);
    editor.pointer.Click(joints, spine);
    editor.pointer.Click(layers, all);
    QCOMPARE(editor.Timeline().GetChildTrackSortIndex(editor.Row("LeftArm")), -1);
    editor.pointer.Click(layers, all);
    QVERIFY(editor.Timeline().GetChildTrackSortIndex(editor.Row("LeftArm")) >= 0);
    QCOMPARE(editor.Timeline().GetChildTrackSortIndex(editor.Row("Spine")), -1);
}

void tst_HostRows::buttonsThatDoNotFitGetArrows()
{
    RowEditor editor;
    const auto hasArrows = [&editor](const char* name) {
        bool isShown = false;
        if (!editor.Timeline().GetTrackSwitchScrollState(editor.Row(name), isShown))
            qFatal("no row of buttons");
        return isShown;
    };
    QVERIFY(hasArrows("Joints")); // the sample has a button for each of its 17 joints
    QVERIFY(!hasArrows("Layers"));
    editor.window.resize(420, 720);
    QCoreApplication::processEvents();
    QVERIFY(hasArrows("Layers"));
    editor.window.resize(1800, 720);
    QCoreApplication::processEvents();
    QVERIFY(!hasArrows("Joints"));
    QVERIFY(!hasArrows("Layers"));
}

void tst_HostRows::contactsAreSeenBesideTheKeysOfTheFoot()
{
    RowEditor editor;
    const host::Scene& scene = editor.Scene();
    QVERIFY(std::any_of(scene.relations.cbegin(), scene.relations.cend(), [](const auto& each) {
        return each.kind == host::RelationKind::RelatedKeys;
    }));
    host::Scene related = scene;
    related.relations.append(
        {host::RelationKind::RelatedKeys, {editor.Id("MotionBlend"), editor.Id("LeftArm")}});
    QVERIFY(editor.window.SetScene(related));
    const auto frames = [&editor] {
        Frames seen;
        for (const auto& key : editor.Shown("LeftArm").RelatedKeys())
            seen.append(key->frame);
        return seen;
    };
    QCOMPARE(frames(), (Frames{0, 90}));
    editor.Select("MotionBlend", {0});
    editor.Drag("MotionBlend", editor.At("MotionBlend", 0), {editor.At("MotionBlend", 4)});
    QCOMPARE(editor.FramesOf("MotionBlend"), (Frames{4, 90}));
    QCOMPARE(frames(), (Frames{4, 90}));
    editor.Timeline().SetCurrentFrame(20);
    editor.ClickCaption("LeftArm", kAdd); // its own keys changed
    QCOMPARE(frames(), (Frames{4, 90}));
    VERIFY_TIMELINE_EQUALS_SCENE(editor);
}

void tst_HostRows::aRowThatIsLeftShowsNoTimeRange()
{
    RowEditor editor;
    editor.pointer.Click(editor.WidgetOf("Spine"), editor.At("Spine", 37));
    int first = -1;
    int last = -1;
    editor.Timeline().GetTrackSelFrame(editor.Row("Spine"), first, last);
    QCOMPARE(last, 37);
    editor.ClickCaption("Lips", kNoButton);
    editor.Timeline().GetTrackSelFrame(editor.Row("Spine"), first, last);
    QCOMPARE(first, -1);
    QCOMPARE(last, -1); // else it would be drawn from the first frame on
}

void tst_HostRows::aRowOfButtonsIsLeftForARowUnderAnotherRoot()
{
    RowEditor editor;
    editor.ClickCaption("Layers", kNoButton);
    QVERIFY(editor.Timeline().GetActiveRootTrack() == editor.Row("Layers"));
    QVERIFY(!editor.Timeline().GetActiveChildTrack());
    editor.ClickCaption("Lips", kNoButton);
    QVERIFY(editor.Timeline().GetActiveRootTrack() == editor.Row("Face"));
    QVERIFY(editor.Timeline().GetActiveChildTrack() == editor.Row("Lips"));
}

void tst_HostRows::aFileIsHeldByKindOfRow_data()
{
    QTest::addColumn<QByteArray>("row");
    QTest::addColumn<QString>("reason");
    QTest::newRow("buttons") << QByteArray("Layers") << "a.wav: a row of buttons takes no files";
    QTest::newRow("keys") << QByteArray("LeftArm") << "a.wav: sounds go on a row of clips";
    QTest::newRow("blends") << QByteArray("MotionBlend") << "a.wav: sounds go on a row of clips";
    QTest::newRow("mouth shapes")
        << QByteArray("Lips")
        << "a.wav: mouth shapes come from mouth cues, sounds go on a row of clips";
}

void tst_HostRows::aFileIsHeldByKindOfRow()
{
    QFETCH(QByteArray, row);
    QFETCH(QString, reason);
    RowEditor editor;
    QVERIFY(!editor.DropFile(row.constData(), editor.At(row.constData(), 9),
                             QStringLiteral("/tmp/a.wav")));
    QCOMPARE(editor.StatusText(), reason);
}

void tst_HostRows::aLockedClipIsNotCoveredByAFile()
{
    RowEditor editor;
    host::Scene scene = editor.Scene();
    host::SceneKey clip;
    clip.frame = 20;
    clip.locked = true;
    clip.clip = host::ClipSpan{10, 1, 0, 10, 10};
    scene.FindTrack(editor.Id("Sound"))->keys = {clip};
    QVERIFY(editor.window.SetScene(scene));
    QCoreApplication::processEvents();
    QVERIFY(!editor.DropFile("Sound", editor.At("Sound", 25), QStringLiteral("/tmp/a.wav")));
    QCOMPARE(editor.StatusText(), QStringLiteral("a.wav: a locked clip is in the way"));
    editor.window.statusBar()->clearMessage();
    editor.DropFile("Sound", editor.At("Sound", 31), QStringLiteral("/tmp/none-such.wav"));
    QVERIFY(!editor.StatusText().contains(QStringLiteral("in the way")));
}

QTEST_MAIN(tst_HostRows)
#include "tst_HostRows.moc"
