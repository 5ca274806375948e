#include "HandledEditor.h"

#include "document/FrameText.h"
#include "files/DocumentActions.h"
#include "files/DocumentDialogs.h"
#include "playback/Transport.h"
#include "playback/TransportBar.h"
#include "preview/PreviewPane.h"
#include "view/StatusLine.h"
#include "view/TimelinePane.h"
#include "view/WindowLayout.h"

#include <QDockWidget>
#include <QHelpEvent>
#include <QSettings>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolTip>

namespace {

/// The editor with all its menus, as the program has it.
struct MenuEditor : HandledEditor
{
    MenuEditor() : dialogs(&window), documents(window, dialogs) {}

    host::DocumentDialogs dialogs;
    host::DocumentActions documents;

    host::TimelinePane& Pane() { return *window.findChild<host::TimelinePane*>(); }
    QString PlaceText() { return window.findChild<QLabel*>(QStringLiteral("place"))->text(); }
    /// Every menu with its entries: those of the bar, and those below.
    QVector<QPair<QString, QList<QAction*>>> Menus()
    {
        QVector<QPair<QString, QList<QAction*>>> menus{
            {QStringLiteral("the bar"), window.menuBar()->actions()}};
        for (const QMenu* const menu : window.menuBar()->findChildren<QMenu*>())
            menus.append({menu->title(), menu->actions()});
        return menus;
    }
    QPoint OnCaption(const char* name, int x)
    {
        QWidget* const row = WidgetOf(name);
        return {x, row->y() + row->height() / 2};
    }
    QString TextOverCaption(const char* name, int x)
    {
        pointer.MoveTo(WidgetOf(name)->parentWidget(), OnCaption(name, x));
        return PlaceText();
    }
};

/// The letter that chooses the entry, or nothing.
QString MnemonicOf(const QString& text)
{
    return QKeySequence::mnemonic(text).toString(QKeySequence::PortableText);
}

/// A key as the timeline and the window compare it: "+" and "*" are typed with Shift or without,
/// as the keyboard has it.
QString Normal(QKeySequence keys)
{
    QString name = keys.toString(QKeySequence::PortableText);
    for (const char sign : {'+', '*', '=', '/', '.'}) {
        if (name == QStringLiteral("Shift+%1").arg(sign))
            name = QChar::fromLatin1(sign);
    }
    return name;
}

/// The program's settings in a place of their own.
struct OwnSettings
{
    OwnSettings()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("kestova"));
        QCoreApplication::setApplicationName(QStringLiteral("kestova-host-menus"));
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, directory.path());
        QSettings().clear();
    }
    QTemporaryDir directory;
};

} // namespace

class tst_HostMenus : public QObject
{
    Q_OBJECT

private slots:
    void everyEntryHasALetterOfItsOwn();
    void theMenuOfARowHasLettersToo();
    void theTimelineAndTheWindowShareNoKeys();
    void noKeyNeedsASpecialKeyboard();
    void everyKeyStandsInTheUserGuide();
    void captionButtonsAreNamed();
    void captionButtonsHaveTips();
    void theEndsOfAFullRowOfButtonsSayThatTheyScroll();
    void theFrameIsSeenInANarrowWindow();
    void theDockHasNoTitle();
    void partsAreHiddenAndShown();
    void theLayoutComesBack();
};

void tst_HostMenus::everyEntryHasALetterOfItsOwn()
{
    MenuEditor editor;
    editor.Select("LeftArm", {1});
    editor.Command(QStringLiteral("Delete"))->setEnabled(true);
    editor.Command(QStringLiteral("Delete"))->trigger(); // "Undo Delete 1 key"
    int entries = 0;
    for (const auto& [title, actions] : editor.Menus()) {
        QHash<QString, QString> taken;
        for (const QAction* const action : actions) {
            if (action->isSeparator())
                continue;
            const QString letter = MnemonicOf(action->text());
            QVERIFY2(!letter.isEmpty(), qPrintable(title + u' ' + action->text()));
            QVERIFY2(!taken.contains(letter),
                     qPrintable(title + u' ' + action->text() + u' ' + taken.value(letter)));
            taken.insert(letter, action->text());
            ++entries;
        }
    }
    QVERIFY(entries > 50);
}

void tst_HostMenus::theMenuOfARowHasLettersToo()
{
    MenuEditor editor;
    for (const char* const row : {"LeftArm", "Lips", "Motion"}) {
        editor.WithMenu(row, editor.At(row, 15), [row](QMenu& menu) {
            QStringList taken;
            for (const QAction* const action : menu.actions()) {
                if (action->isSeparator())
                    continue;
                const QString letter = MnemonicOf(action->text());
                QVERIFY2(!letter.isEmpty() && !taken.contains(letter),
                         qPrintable(QLatin1String(row) + u' ' + action->text()));
                taken.append(letter);
            }
        });
    }
}

void tst_HostMenus::theTimelineAndTheWindowShareNoKeys()
{
    MenuEditor editor;
    editor.Select("LeftArm", {1});
    QHash<QString, QString> taken;
    const auto take = [&taken](const QAction& action) {
        for (const QKeySequence& keys : action.shortcuts()) {
            const QString name = Normal(keys);
            if (name.isEmpty())
                continue;
            QVERIFY2(!taken.contains(name),
                     qPrintable(name + u' ' + action.text() + u' ' + taken.value(name)));
            taken.insert(name, action.text() + action.objectName());
        }
    };
    for (const QAction* const action : editor.window.findChildren<QAction*>())
        take(*action);
    for (const char* const key : {"Tab", "Shift+Tab", "Home", "End", "+", "-", "*", "/", "."})
        QVERIFY2(taken.contains(QLatin1String(key)), key); // the timeline's are among them
    // Keys of the open menu work in the whole application, beside those of the window.
    for (const char* const row : {"LeftArm", "Lips", "Motion"}) {
        editor.WithMenu(row, editor.At(row, 15), [&take](QMenu& menu) {
            for (const QAction* const action : menu.actions())
                take(*action);
        });
    }
}

void tst_HostMenus::noKeyNeedsASpecialKeyboard()
{
    MenuEditor editor;
    for (const QAction* const action : editor.window.findChildren<QAction*>()) {
        for (const QKeySequence& keys : action->shortcuts()) {
            const QString name = keys.toString(QKeySequence::PortableText);
            if (!name.contains(u'+') || name == QLatin1String("+"))
                continue; // the timeline's own signs
            // Brackets and the like need a key of their own on many keyboards.
            const QString key = name.section(u'+', -1);
            QVERIFY2(key.size() > 1 || key[0].isLetterOrNumber(), qPrintable(name));
            // Desktops switch workspaces with these.
            QVERIFY2(!name.startsWith(QLatin1String("Ctrl+Alt+")), qPrintable(name));
        }
    }
}

void tst_HostMenus::everyKeyStandsInTheUserGuide()
{
    QFile file(QStringLiteral(KESTOVA_SKINS_DIR "/../docs/user-guide.md"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString guide = QString::fromUtf8(file.readAll());
    MenuEditor editor;
    int keys = 0;
    for (const QAction* const action : editor.window.findChildren<QAction*>()) {
        for (const QKeySequence& shortcut : action->shortcuts()) {
            const QString name = shortcut.toString(QKeySequence::PortableText);
            if (name.isEmpty())
                continue;
            // As a whole word: "Left" is not found in "Alt+Left".
            const QRegularExpression word(QStringLiteral("(?<![\\w+])`?%1`?(?![\\w+])")
                                              .arg(QRegularExpression::escape(name)));
            QVERIFY2(guide.contains(word), qPrintable(name + u' ' + action->text()));
            ++keys;
        }
    }
    QVERIFY(keys > 40);
}

void tst_HostMenus::captionButtonsAreNamed()
{
    MenuEditor editor;
    QCOMPARE(editor.TextOverCaption("Lips", 140), QStringLiteral("Lips   Mute"));
    QCOMPARE(editor.TextOverCaption("Lips", 159), QStringLiteral("Lips   Lock"));
    QCOMPARE(editor.TextOverCaption("Lips", 122), QStringLiteral("Lips   Menu"));
    QCOMPARE(editor.TextOverCaption("Lips", 40), QStringLiteral("Lips"));
    QCOMPARE(editor.TextOverCaption("LeftArm", 122), QStringLiteral("Left Arm   Add key"));
    QCOMPARE(editor.TextOverCaption("LeftArm", 104), QStringLiteral("Left Arm   Menu"));
}

void tst_HostMenus::captionButtonsHaveTips()
{
    MenuEditor editor;
    QWidget* const timeline = editor.Pane().Timeline();
    const auto tipAt = [&](QPoint point) {
        QToolTip::hideText();
        QWidget* const below = timeline->childAt(point) ? timeline->childAt(point) : timeline;
        const QPoint place = timeline->mapToGlobal(point);
        QHelpEvent event(QEvent::ToolTip, below->mapFromGlobal(place), place);
        QApplication::sendEvent(below, &event);
        return QToolTip::text();
    };
    QCOMPARE(tipAt(editor.OnCaption("Lips", 140)), QStringLiteral("Mute"));
    QCOMPARE(tipAt(editor.OnCaption("LeftArm", 122)), QStringLiteral("Add key"));
}

void tst_HostMenus::theEndsOfAFullRowOfButtonsSayThatTheyScroll()
{
    MenuEditor editor;
    QWidget* const joints = editor.WidgetOf("Joints");
    QWidget* const layers = editor.WidgetOf("Layers");
    for (const int x : {2, joints->width() - 3}) {
        editor.pointer.MoveTo(joints, QPoint(x, joints->height() / 2));
        QCOMPARE(editor.PlaceText(), QStringLiteral("Joints   Scroll the buttons"));
        editor.pointer.MoveTo(layers, QPoint(x, layers->height() / 2)); // they all fit
        QCOMPARE(editor.PlaceText(), QStringLiteral("Layers"));
    }
    editor.pointer.MoveTo(joints, QPoint(100, joints->height() / 2));
    QCOMPARE(editor.PlaceText(), QStringLiteral("Joints"));
}

void tst_HostMenus::theFrameIsSeenInANarrowWindow()
{
    MenuEditor editor;
    editor.window.resize(330, 600);
    QCoreApplication::processEvents();
    for (const QLabel* const label : editor.Pane().findChildren<QLabel*>()) {
        if (!label->text().startsWith(QLatin1String("Frame")))
            continue;
        QVERIFY(label->isVisible());
        const QRect place(label->mapTo(&editor.Pane(), QPoint()), label->size());
        QVERIFY(editor.Pane().rect().contains(place));
        QVERIFY(label->width() >= label->sizeHint().width());
        return;
    }
    QFAIL("no frame");
}

void tst_HostMenus::theDockHasNoTitle()
{
    MenuEditor editor;
    const auto* const dock = editor.window.findChild<QDockWidget*>(QStringLiteral("timeline"));
    QCOMPARE(dock->features(), QDockWidget::NoDockWidgetFeatures);
    QVERIFY(dock->widget()->y() <= 2);
}

void tst_HostMenus::partsAreHiddenAndShown()
{
    MenuEditor editor;
    for (const auto& [text, part] :
         {std::pair<QString, QWidget*>{QStringLiteral("Preview"), &editor.window.Preview()},
          {QStringLiteral("Playback Bar"), editor.window.Player().Bar()}}) {
        QAction* const entry = editor.Command(text);
        QVERIFY(entry->isChecked());
        entry->trigger();
        QVERIFY(!part->isVisible());
        entry->trigger();
        QVERIFY(part->isVisible());
    }
}

void tst_HostMenus::theLayoutComesBack()
{
    const OwnSettings settings;
    int height = 0;
    QList<int> parts;
    {
        MenuEditor editor;
        const host::WindowLayout layout(editor.window, false);
        auto* const dock = editor.window.findChild<QDockWidget*>(QStringLiteral("timeline"));
        const int before = dock->height();
        editor.window.resizeDocks({dock}, {before - 90}, Qt::Vertical);
        editor.window.Preview().setSizes({900, 300});
        editor.window.Player().Player().SetLooping(true);
        QCoreApplication::processEvents();
        height = dock->height();
        QVERIFY(height < before);
        parts = editor.window.Preview().sizes();
        QVERIFY(parts[0] > 2 * parts[1]);
        layout.Save();
    }
    MenuEditor editor;
    QVERIFY(editor.window.Preview().sizes() != parts);
    const host::WindowLayout layout(editor.window, false);
    QCoreApplication::processEvents();
    QCOMPARE(editor.window.findChild<QDockWidget*>(QStringLiteral("timeline"))->height(), height);
    QCOMPARE(editor.window.Preview().sizes(), parts);
    QVERIFY(editor.window.Player().Player().IsLooping());
    QVERIFY(editor.window.Preview().isVisible());
    editor.Command(QStringLiteral("Preview"))->trigger();
    layout.Save();
    MenuEditor other;
    const host::WindowLayout again(other.window, false);
    QVERIFY(!other.window.Preview().isVisible());
}

QTEST_MAIN(tst_HostMenus)
#include "tst_HostMenus.moc"
