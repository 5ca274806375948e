#include "GestureRecorder.h"

#include "container/CTimelineContainer.h"

#include <QRegularExpression>

#include <algorithm>

namespace KestovaTest {

GestureRecorder::GestureRecorder(GestureScene& scene)
    : m_scene(scene), m_prepare(scene.fixture.factory.prepare)
{
    m_entries[0].command = 101;
    m_entries[0].text = "Copy";
    m_entries[1].command = -1;
    m_entries[2].command = 102;
    m_entries[2].text = "Paste";

    HostFixture& fixture = scene.fixture;
    fixture.host.reaction = [this](const QString& line) {
        if (line.startsWith("menu "))
            FillMenu();
        Hear(line);
    };
    const auto hearWindow = [this](const QString& line) { Hear("window " + line); };
    fixture.factory.prepare = [this, hearWindow](TestWindow& window) {
        m_prepare(window);
        window.reaction = hearWindow;
    };
    if (fixture.factory.window)
        fixture.factory.window->reaction = hearWindow;
}

GestureRecorder::~GestureRecorder()
{
    m_scene.fixture.host.reaction = nullptr;
    m_scene.fixture.factory.prepare = m_prepare;
    if (m_scene.fixture.factory.window)
        m_scene.fixture.factory.window->reaction = nullptr;
}

void GestureRecorder::SetDeed(int position, std::function<void()> deed)
{
    m_deedAt = position;
    m_deed = std::move(deed);
}

void GestureRecorder::Perform(const std::vector<HandEvent>& events, bool choosesInMenu,
                              std::size_t first, std::size_t last)
{
    MenuHand menuHand(choosesInMenu);
    menuHand.whenOpen = [this] { Hear("(menu open)"); };
    for (std::size_t i = first; i < std::min(last, events.size()); ++i)
        KestovaTest::Perform(m_scene, events[i]);
}

void GestureRecorder::Hear(const QString& line)
{
    if (m_isInDeed)
        return;
    for (const QString& name : m_gone) {
        if (line.contains(QRegularExpression("\\b" + name + "\\b")))
            faults << line;
    }
    const int position = lines.size();
    lines << line;
    if (position != m_deedAt)
        return;
    m_isInDeed = true;
    m_deed();
    m_isInDeed = false;
    m_isDone = true;
    NoteGoneTracks();
}

void GestureRecorder::FillMenu()
{
    for (_tmpTLMenuMapData& entry : m_entries)
        m_scene.fixture.host.menuList->push_back(&entry);
}

void GestureRecorder::NoteGoneTracks()
{
    const HostFixture& fixture = m_scene.fixture;
    const CTimelineContainer* const container = fixture.Container();
    const auto& names = m_scene.Names();
    for (auto each = names.begin(); each != names.end(); ++each) {
        const bool isShown = fixture.manager && fixture.manager->IsTrackExist(each.key()) &&
                             container && container->Tree().Contains(each.key());
        if (!isShown)
            m_gone << each.value();
    }
}

} // namespace KestovaTest
