#include "Hand.h"

#include "Tool.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QScreen>
#include <QtTest>

#include <algorithm>
#include <cstdlib>

namespace Hand {

namespace {

constexpr int kStep = 8;                 ///< pixels that a drag goes at a time
constexpr qint64 kDoubleClickTime = 500; ///< milliseconds; more than the toolkit's 400
constexpr int kDoubleClickDistance = 20; ///< pixels; more than the toolkit's
const QString kWheelAway = QStringLiteral("4");
const QString kWheelToward = QStringLiteral("5");

QStringList MoveWords(QPoint place)
{
    return {QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())};
}

/// The last press of a button.
struct Press
{
    QElapsedTimer time;
    QPoint place;
};
Press g_last;

/// Lets the time of a double click pass since the last press, when that was at this place.
void ComeApart(QPoint place)
{
    const bool isNear = (place - g_last.place).manhattanLength() <= kDoubleClickDistance;
    if (isNear && g_last.time.isValid() && g_last.time.elapsed() < kDoubleClickTime)
        QTest::qWait(static_cast<int>(kDoubleClickTime - g_last.time.elapsed()));
}

/// The screen has seen a press there.
void Remember(QPoint place)
{
    g_last.place = place;
    g_last.time.start();
}

} // namespace

void MoveTo(QPoint place)
{
    RunTool(MoveWords(place));
}

void MoveAway()
{
    MoveTo(QGuiApplication::primaryScreen()->geometry().bottomRight());
}

void Click(QPoint place, int button)
{
    ComeApart(place);
    RunTool(MoveWords(place) + QStringList{QStringLiteral("click"), QString::number(button)});
    Remember(place);
}

void PressAndMove(const QVector<QPoint>& way)
{
    ComeApart(way.first());
    QStringList words = MoveWords(way.first());
    words << QStringLiteral("mousedown") << QStringLiteral("1");
    for (const QPoint& place : way)
        words << MoveWords(place);
    RunTool(words);
    Remember(way.first());
}

void Release()
{
    RunTool({QStringLiteral("mouseup"), QStringLiteral("1")});
}

void Drag(QPoint from, QPoint to)
{
    const QPoint distance = to - from;
    const int steps = std::max(1, distance.manhattanLength() / kStep);
    QVector<QPoint> way;
    for (int i = 0; i <= steps; ++i)
        way.append(from + distance * i / steps);
    PressAndMove(way);
    Release();
}

void Turn(QPoint place, int notches, const QString& modifier)
{
    QStringList words = MoveWords(place);
    if (!modifier.isEmpty())
        words << QStringLiteral("keydown") << modifier;
    words << QStringLiteral("click") << QStringLiteral("--repeat")
          << QString::number(std::abs(notches)) << (notches > 0 ? kWheelAway : kWheelToward);
    if (!modifier.isEmpty())
        words << QStringLiteral("keyup") << modifier;
    RunTool(words);
}

void Hold(const QString& key)
{
    RunTool({QStringLiteral("keydown"), key});
}

void LetGo(const QString& key)
{
    RunTool({QStringLiteral("keyup"), key});
}

void Strike(const QStringList& keys)
{
    RunTool(QStringList{QStringLiteral("key")} + keys);
}

void Type(const QString& text)
{
    RunTool({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("1"), text});
}

} // namespace Hand
