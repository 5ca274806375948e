#include "skin/SkinFiles.h"
#include "support/Pointer.h"
#include "tracks/MenuScene.h"

#include <QShortcut>
#include <QtTest>

using namespace KestovaTest;

namespace {

QStringList TextsOf(const QMenu& menu)
{
    QStringList texts;
    for (const QAction* action : menu.actions())
        texts << (action->isSeparator() ? QStringLiteral("-") : action->text());
    return texts;
}

QAction* ActionOf(const QMenu& menu, const QString& text)
{
    for (QAction* action : menu.actions()) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

QMenu* SubmenuOf(const QMenu& menu, const QString& title)
{
    const QAction* const action = ActionOf(menu, title);
    return action ? action->menu() : nullptr;
}

/// Makes @p text the skin from now on, until the next test.
void UseSkin(const QByteArray& text)
{
    static const SkinDirectory files;
    static int number = 0;
    TimelineLibrary::Instance().skinPath =
        files.Write(QStringLiteral("menu%1.ini").arg(++number), text);
}

} // namespace

/// The menu of a row as the host fills it in, and what is reported of it. The menus are real ones,
/// driven by mouse and keyboard.
class tst_TrackMenu : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    // The menu
    void showsThreeLevelsInTheHostsOrder();
    void everyActionHasTextStateAndNumber_data();
    void everyActionHasTextStateAndNumber();
    void standardCommandsHaveTheirShortcuts_data();
    void standardCommandsHaveTheirShortcuts();
    void onlyTheTopLevelHasShortcuts();
    void theLastEntrySpeaksForItsSubmenu_data();
    void theLastEntrySpeaksForItsSubmenu();
    void aThirdLevelSubmenuStaysEnabled();
    void nullEntriesArePassedOver();
    void theTextsSizeComesFromTheSkin();
    void withoutTheSkinsSectionTheMenuLooksLikeAnyOther();
    void theStyleSheetComesFromTheHost();

    // The choice
    void theChosenEntryIsReportedByItsOwnCommand_data();
    void theChosenEntryIsReportedByItsOwnCommand();
    void longListsKeepTheirCommandsApart();
    void aChoiceByMouse();
    void aDisabledEntryCannotBeChosen();
    void closingTheMenuReportsNothing();
    void nothingOfTheMenuIsLeftWhenTheChoiceIsReported();
    void aMenuMayOpenOverAnother();
};

void tst_TrackMenu::initTestCase()
{
    QVERIFY(PrepareTimeline());
    Q_CLEANUP_RESOURCE(contextmenu); // until a test plays the host
}

void tst_TrackMenu::init()
{
    QVERIFY(PrepareTimeline()); // a skin of a test before goes
}

// ---- The menu ----

void tst_TrackMenu::showsThreeLevelsInTheHostsOrder()
{
    MenuScene scene;
    HostMenu& m = scene.menu;
    MenuEntry* const deep = m.Make(33, "Deep", {m.Make(44, "Deeper")});
    MenuEntry* const third = m.Make(-1, "Third", {m.Make(31, "One"), m.Separator(), deep});
    m.top = {m.Make(1, "First"), m.Separator(),
             m.Make(2, "Second", {m.Make(21, "A"), m.Separator(), third, m.Make(22, "B")}),
             m.Make(3, "Last")};
    QStringList top;
    QStringList second;
    QStringList thirdTexts;
    bool hasFourth = true;
    MenuHand hand([&](QMenu& menu) {
        top = TextsOf(menu);
        const QMenu* const submenu = SubmenuOf(menu, "Second");
        second = TextsOf(*submenu);
        const QMenu* const subsubmenu = SubmenuOf(*submenu, "Third");
        thirdTexts = TextsOf(*subsubmenu);
        hasFourth = SubmenuOf(*subsubmenu, "Deep") != nullptr;
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(top, (QStringList{"First", "-", "Second", "Last"}));
    QCOMPARE(second, (QStringList{"A", "-", "Third", "B"}));
    QCOMPARE(thirdTexts, (QStringList{"One", "-", "Deep"}));
    QVERIFY(!hasFourth);
}

void tst_TrackMenu::everyActionHasTextStateAndNumber_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("checked");
    QTest::newRow("enabled") << true << false;
    QTest::newRow("enabled and checked") << true << true;
    QTest::newRow("disabled") << false << false;
    QTest::newRow("disabled and checked") << false << true;
}

void tst_TrackMenu::everyActionHasTextStateAndNumber()
{
    QFETCH(bool, enabled);
    QFETCH(bool, checked);
    MenuScene scene;
    HostMenu& m = scene.menu;
    MenuEntry* const third = m.Make(5, "Third");
    MenuEntry* const second = m.Make(5, "Second");
    MenuEntry* const top = m.Make(5, "Top");
    m.top = {
        m.Separator(),
        m.Make(1, "Menu",
               {m.Make(2), second, m.Make(3, "Submenu", {m.Make(4), m.Make(4), third}), m.Make(9)}),
        top};
    for (MenuEntry* const entry : {top, second, third}) {
        entry->enabled = enabled;
        entry->checked = checked;
    }
    QStringList found;
    MenuHand hand([&](QMenu& menu) {
        const QMenu* const submenu = SubmenuOf(menu, "Menu");
        const QMenu* const subsubmenu = SubmenuOf(*submenu, "Submenu");
        for (const QAction* const action : {ActionOf(menu, "Top"), ActionOf(*submenu, "Second"),
                                            ActionOf(*subsubmenu, "Third")}) {
            found << QStringLiteral("%1 %2 %3 %4")
                         .arg(action->text())
                         .arg(action->isEnabled())
                         .arg(action->isChecked())
                         .arg(action->data().toInt());
        }
    });
    RightClickAt(scene.arm, 60);
    const QString state = QStringLiteral(" %1 %2 ").arg(enabled).arg(checked);
    QCOMPARE(found, (QStringList{"Top" + state + "30000", "Second" + state + "20200",
                                 "Third" + state + "20303"}));
}

void tst_TrackMenu::standardCommandsHaveTheirShortcuts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QKeySequence>("keys");
    QTest::newRow("Copy") << "Copy" << QKeySequence(QKeySequence::Copy);
    QTest::newRow("Cut") << "Cut" << QKeySequence(QKeySequence::Cut);
    QTest::newRow("Delete") << "Delete" << QKeySequence(QKeySequence::Delete);
    QTest::newRow("Paste") << "Paste" << QKeySequence(QKeySequence::Paste);
    QTest::newRow("Break") << "Break" << QKeySequence("Ctrl+B");
    QTest::newRow("another spelling") << "copy" << QKeySequence();
    QTest::newRow("a longer text") << "Copy all" << QKeySequence();
    QTest::newRow("another command") << "Insert" << QKeySequence();
}

void tst_TrackMenu::standardCommandsHaveTheirShortcuts()
{
    QFETCH(QString, text);
    QFETCH(QKeySequence, keys);
    MenuScene scene;
    scene.menu.top = {scene.menu.Make(1, text)};
    QKeySequence shortcut("F12");
    Qt::ShortcutContext context = Qt::WidgetShortcut;
    MenuHand hand([&](QMenu& menu) {
        shortcut = menu.actions().first()->shortcut();
        context = menu.actions().first()->shortcutContext();
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(shortcut, keys);
    QCOMPARE(context, keys.isEmpty() ? Qt::WindowShortcut : Qt::ApplicationShortcut);
}

void tst_TrackMenu::onlyTheTopLevelHasShortcuts()
{
    MenuScene scene;
    HostMenu& m = scene.menu;
    m.top = {m.Make(1, "Edit", {m.Make(2, "Copy"), m.Make(3, "More", {m.Make(4, "Cut")})}),
             // Copy as the title of a submenu is no command.
             m.Make(5, "Copy", {m.Make(6, "All")})};
    QList<QKeySequence> shortcuts;
    MenuHand hand([&](QMenu& menu) {
        const QMenu* const edit = SubmenuOf(menu, "Edit");
        for (const QAction* const action :
             {ActionOf(*edit, "Copy"), ActionOf(*SubmenuOf(*edit, "More"), "Cut"),
              ActionOf(menu, "Copy")})
            shortcuts << action->shortcut();
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(shortcuts, (QList<QKeySequence>{{}, {}, {}}));
}

void tst_TrackMenu::theLastEntrySpeaksForItsSubmenu_data()
{
    QTest::addColumn<QString>("entries"); // e enabled, d disabled, - separator, s submenu, 0 null
    QTest::addColumn<bool>("enabled");
    QTest::newRow("a disabled one alone") << "d" << false;
    QTest::newRow("a disabled one after enabled ones") << "eed" << false;
    QTest::newRow("an enabled one after disabled ones") << "dde" << true;
    QTest::newRow("a separator after a disabled one") << "d-" << true;
    QTest::newRow("a submenu after a disabled one") << "ds" << true;
    QTest::newRow("a disabled one after a submenu") << "sd" << false;
    QTest::newRow("nothing after a disabled one") << "d0" << false;
    QTest::newRow("all enabled") << "ee" << true;
}

void tst_TrackMenu::theLastEntrySpeaksForItsSubmenu()
{
    QFETCH(QString, entries);
    QFETCH(bool, enabled);
    MenuScene scene;
    HostMenu& m = scene.menu;
    MenuEntries children;
    for (const QChar each : entries) {
        children.push_back(each == 'e'   ? m.Make(1, "On")
                           : each == 'd' ? m.Disabled(2, "Off")
                           : each == 's' ? m.Make(3, "More", {m.Make(4, "On")})
                           : each == '-' ? m.Separator()
                                         : nullptr);
    }
    m.top = {m.Make(5, "Menu", children), m.Disabled(6, "Off")};
    bool isEnabled = !enabled;
    bool canBeOpened = !enabled;
    MenuHand hand([&](QMenu& menu) {
        isEnabled = SubmenuOf(menu, "Menu")->isEnabled();
        canBeOpened = ActionOf(menu, "Menu")->isEnabled();
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(hand.opened, 1);
    QCOMPARE(isEnabled, enabled);
    QCOMPARE(canBeOpened, enabled);
}

void tst_TrackMenu::aThirdLevelSubmenuStaysEnabled()
{
    MenuScene scene;
    HostMenu& m = scene.menu;
    m.top = {m.Make(1, "Menu", {m.Make(2, "More", {m.Disabled(3, "Off")})})};
    bool second = false;
    bool third = false;
    MenuHand hand([&](QMenu& menu) {
        second = SubmenuOf(menu, "Menu")->isEnabled();
        third = SubmenuOf(*SubmenuOf(menu, "Menu"), "More")->isEnabled();
    });
    RightClickAt(scene.arm, 60);
    QVERIFY(second);
    QVERIFY(third);
}

void tst_TrackMenu::nullEntriesArePassedOver()
{
    MenuScene scene;
    HostMenu& m = scene.menu;
    m.top = {nullptr, m.Make(1, "One"), nullptr,
             m.Make(2, "Menu", {nullptr, m.Make(3, "More", {nullptr, m.Make(4, "Two")})})};
    QStringList found;
    MenuHand hand([&](QMenu& menu) {
        const QMenu* const submenu = SubmenuOf(menu, "Menu");
        found = TextsOf(menu) + TextsOf(*submenu) + TextsOf(*SubmenuOf(*submenu, "More"));
        // Their places are left out of the numbers all the same.
        found << ActionOf(menu, "One")->data().toString();
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(found, (QStringList{"One", "Menu", "More", "Two", "20000"}));
}

void tst_TrackMenu::theTextsSizeComesFromTheSkin()
{
    MenuScene scene;
    HostMenu& m = scene.menu;
    m.top = {m.Make(1, "Menu", {m.Make(2, "More", {m.Make(3, "Two")})})};
    UseSkin("[TrackRightMenu]\nTxtFace = \"Nowhere Sans\"\nTxtSize = 23\n");
    const QFont plain = QMenu().font();
    QList<QFont> fonts;
    QString styleSheet("none");
    MenuHand hand([&](QMenu& menu) {
        const QMenu* const submenu = SubmenuOf(menu, "Menu");
        fonts = {menu.font(), submenu->font(), SubmenuOf(*submenu, "More")->font()};
        styleSheet = menu.styleSheet();
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(fonts.size(), 3);
    for (const QFont& font : qAsConst(fonts)) {
        QCOMPARE(font.pointSize(), 23);
        QCOMPARE(font.family(), plain.family());
    }
    // Without a style sheet from the host there is none, yet the size holds.
    QCOMPARE(styleSheet, QString());
}

void tst_TrackMenu::withoutTheSkinsSectionTheMenuLooksLikeAnyOther()
{
    MenuScene scene;
    HostMenu& m = scene.menu;
    m.top = {m.Make(1, "Menu", {m.Make(2, "One")})};
    Q_INIT_RESOURCE(contextmenu);
    QList<QFont> fonts;
    QString styleSheet("none");
    for (const char* const skin :
         {"[Other]\nTxtFace = \"Sans\"\nTxtSize = 23\n", "[TrackRightMenu]\nTxtSize = 23\n",
          "[TrackRightMenu]\nTxtFace = \"Sans\"\n"}) {
        UseSkin(skin);
        const QFont plain = QMenu().font();
        MenuHand hand([&](QMenu& menu) {
            fonts = {menu.font(), SubmenuOf(menu, "Menu")->font()};
            styleSheet = menu.styleSheet();
        });
        RightClickAt(scene.arm, 60);
        QCOMPARE(fonts, (QList<QFont>{plain, plain}));
        QCOMPARE(styleSheet, QString());
    }
    Q_CLEANUP_RESOURCE(contextmenu);
}

void tst_TrackMenu::theStyleSheetComesFromTheHost()
{
    MenuScene scene;
    HostMenu& m = scene.menu;
    m.top = {m.Make(1, "Menu", {m.Make(2, "One")})};
    UseSkin("[TrackRightMenu]\nTxtFace = \"Sans\"\nTxtSize = 23\n");
    Q_INIT_RESOURCE(contextmenu);
    QString styleSheet;
    int points = 0;
    QList<QColor> colours;
    MenuHand hand([&](QMenu& menu) {
        QMenu* const submenu = SubmenuOf(menu, "Menu");
        styleSheet = menu.styleSheet();
        points = submenu->font().pointSize();
        for (QMenu* const each : {&menu, submenu}) {
            each->ensurePolished();
            colours << each->palette().color(QPalette::WindowText);
        }
    });
    RightClickAt(scene.arm, 60);
    Q_CLEANUP_RESOURCE(contextmenu);
    QCOMPARE(styleSheet, QString("QMenu { color: #dee3e9; }\n"));
    QCOMPARE(points, 23);
    QCOMPARE(colours, (QList<QColor>{QColor("#dee3e9"), QColor("#dee3e9")}));
}

// ---- The choice ----

void tst_TrackMenu::theChosenEntryIsReportedByItsOwnCommand_data()
{
    QTest::addColumn<QString>("keys"); // d down, r right into a submenu
    QTest::addColumn<int>("command");
    QTest::newRow("the first") << "d" << 500;
    QTest::newRow("after a separator") << "dd" << 0;
    QTest::newRow("of the same command") << "ddd" << 500;
    QTest::newRow("in a submenu") << "ddddrd" << 17;
    QTest::newRow("in a submenu's submenu") << "ddddrddr" << 2147483647;
    QTest::newRow("in a submenu's submenu, the second") << "ddddrddrd" << 3;
}

void tst_TrackMenu::theChosenEntryIsReportedByItsOwnCommand()
{
    QFETCH(QString, keys);
    QFETCH(int, command);
    MenuScene scene;
    HostMenu& m = scene.menu;
    MenuEntry* const more = m.Make(9, "More", {m.Make(2147483647, "X"), m.Make(3, "Y")});
    m.top = {m.Make(500, "A"), m.Separator(), m.Make(0, "B"), m.Make(500, "C"),
             m.Make(8, "Menu", {m.Make(16, "P"), m.Make(17, "Q"), more})};
    MenuHand hand([&](QMenu&) {
        QWindow* const window = scene.fixture.mainWindow.windowHandle();
        for (const QChar key : qAsConst(keys))
            QTest::keyClick(window, key == 'd' ? Qt::Key_Down : Qt::Key_Right);
        QTest::keyClick(window, Qt::Key_Return);
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(scene.fixture.host.calls.last(), QStringLiteral("chosen Arm %1").arg(command));
}

void tst_TrackMenu::longListsKeepTheirCommandsApart()
{
    // The hundredth entry of a submenu has the number of the next entry above it.
    MenuScene scene;
    HostMenu& m = scene.menu;
    MenuEntries children;
    for (int i = 0; i < 100; ++i)
        children.push_back(m.Make(1000 + i, QString::number(i)));
    m.top = {m.Make(1, "Menu", children), m.Make(2, "Next")};
    MenuHand hand([](QMenu& menu) {
        QMenu* const submenu = SubmenuOf(menu, "Menu");
        QCOMPARE(ActionOf(*submenu, "99")->data(), ActionOf(menu, "Next")->data());
        menu.setActiveAction(ActionOf(menu, "Menu"));
        submenu->setActiveAction(ActionOf(*submenu, "99"));
        QTest::keyClick(submenu, Qt::Key_Return);
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(scene.fixture.host.calls.last(), QString("chosen Arm 1099"));
}

void tst_TrackMenu::aChoiceByMouse()
{
    MenuScene scene;
    scene.menu.top = {scene.menu.Make(1, "One"), scene.menu.Make(2, "Two")};
    MenuHand hand([](QMenu& menu) {
        const QPoint middle = menu.actionGeometry(ActionOf(menu, "Two")).center();
        Pointer pointer(&menu);
        pointer.MoveTo(&menu, middle - QPoint(3, 0));
        pointer.Click(&menu, middle);
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(scene.Calls(), (QStringList{"cleared", "active Body Arm", "frame 60 false",
                                         "frame 60 true", "menu Arm", "chosen Arm 2"}));
}

void tst_TrackMenu::aDisabledEntryCannotBeChosen()
{
    MenuScene scene;
    scene.menu.top = {scene.menu.Disabled(1, "One")};
    MenuHand hand([](QMenu& menu) {
        Pointer(&menu).Click(&menu, menu.actionGeometry(menu.actions().first()).center());
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    RightClickAt(scene.arm, 60);
    QCOMPARE(hand.opened, 1);
    QCOMPARE(scene.fixture.host.calls.last(), QString("menu Arm"));
}

void tst_TrackMenu::closingTheMenuReportsNothing()
{
    MenuScene scene;
    scene.menu.top = {scene.menu.Make(1, "One")};
    MenuHand hand([](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_Escape); });
    RightClickAt(scene.arm, 60);
    QCOMPARE(hand.opened, 1);
    QCOMPARE(scene.Calls(), (QStringList{"cleared", "active Body Arm", "frame 60 false",
                                         "frame 60 true", "menu Arm"}));
}

void tst_TrackMenu::nothingOfTheMenuIsLeftWhenTheChoiceIsReported()
{
    MenuScene scene;
    scene.menu.top = {scene.menu.Make(1, "Copy"), scene.menu.Make(2, "Menu", {scene.menu.Make(3)})};
    // The host's own command by the same keys.
    QShortcut own(QKeySequence::Copy, &scene.fixture.mainWindow);
    own.setContext(Qt::ApplicationShortcut);
    int copies = 0;
    connect(&own, &QShortcut::activated, this, [&] { ++copies; });
    QList<QPointer<QObject>> parts;
    MenuHand hand([&](QMenu& menu) {
        parts << &menu;
        for (QObject* const each : menu.findChildren<QObject*>())
            parts << each;
        menu.setActiveAction(menu.actions().first());
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    int left = -1;
    scene.alsoReact = [&](const QString& line) {
        if (line.startsWith("chosen"))
            left = int(std::count_if(parts.begin(), parts.end(),
                                     [](const auto& each) { return !each.isNull(); }));
    };
    RightClickAt(scene.arm, 60);
    QVERIFY(parts.size() > 4);
    QCOMPARE(left, 0);
    // No window manager gives the window back what the menu took from it.
    scene.fixture.mainWindow.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&scene.fixture.mainWindow));
    QTest::keyClick(scene.fixture.mainWindow.windowHandle(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(copies, 1);
}

void tst_TrackMenu::aMenuMayOpenOverAnother()
{
    MenuScene scene;
    scene.menu.top = {scene.menu.Make(1, "One")};
    MenuHand hand([&](QMenu&) { RightClickAt(scene.leg, 60); });
    RightClickAt(scene.arm, 60);
    QCOMPARE(hand.opened, 2);
    QCOMPARE(scene.Calls(),
             (QStringList{"cleared", "active Body Arm", "frame 60 false", "frame 60 true",
                          "menu Arm", "active Body Leg", "menu Leg"}));
}

QTEST_MAIN(tst_TrackMenu)
#include "tst_TrackMenu.moc"
