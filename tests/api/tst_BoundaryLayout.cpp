#include "support/HostFixture.h"
#include "support/TimelineFixture.h"

#include <QtTest>

#include <cstring>
#include <type_traits>

using namespace KestovaTest;

// The binary interface of the exported classes that are not plain records: where their members lie
// and in which slot of the virtual table each operation stands, on 64 bits with the common C++ ABI.

namespace {

template <class T>
T MemberAt(const void* object, std::size_t offset)
{
    T value;
    std::memcpy(&value, static_cast<const char*>(object) + offset, sizeof value);
    return value;
}

/// A pointer to a virtual member function holds 1 + the offset of its entry in the virtual table,
/// and the destructor takes the first two entries.
template <class Function>
int SlotOf(Function function)
{
    static_assert(sizeof function == 2 * sizeof(std::ptrdiff_t));
    std::ptrdiff_t entry = 0;
    std::memcpy(&entry, &function, sizeof entry);
    if (entry % 8 != 1)
        return -1;
    return static_cast<int>((entry - 1) / 8) - 1;
}

} // namespace

class tst_BoundaryLayout : public QObject
{
    Q_OBJECT

private slots:
    void managerMembersStandInTheirOrder();
    void managerHasNoVirtualOperationButItsDestructor();
    void hostInterfaceHasNoMembers();
    void hostInterfaceSlots_data();
    void hostInterfaceSlots();
    void windowBaseHoldsTheContainerAlone();
    void windowBaseSlots_data();
    void windowBaseSlots();
    void factorySlots();
};

void tst_BoundaryLayout::managerMembersStandInTheirOrder()
{
    HostFixture fixture;
    CTimelineManager& manager = *fixture.manager;
    CTimelineTrackBase* const track = manager.CreateTrack(TL_TRACK_KEY, QStringLiteral("Arm"), 1);
    manager.SetFrameCount(50);
    manager.SetCurrentFrame(7);
    manager.SetTimeMarkFrame(11, 13);

    static_assert(sizeof(CTimelineManager) == 88);
    QCOMPARE(MemberAt<QWidget*>(&manager, 8), static_cast<QWidget*>(&fixture.mainWindow));
    QCOMPARE(MemberAt<CTimelineWndBase*>(&manager, 16), manager.GetTimelineWnd());
    QCOMPARE(MemberAt<CTimelineWndFactoryBase*>(&manager, 24),
             static_cast<CTimelineWndFactoryBase*>(&fixture.factory));
    QCOMPARE(MemberAt<CTimelineManagerInterface*>(&manager, 32),
             static_cast<CTimelineManagerInterface*>(&fixture.host));
    QVERIFY(MemberAt<void*>(&manager, 40) != nullptr);
    CTimelineTrackBase** const firstTrack = MemberAt<CTimelineTrackBase**>(&manager, 48);
    QCOMPARE(*firstTrack, track);
    QCOMPARE(MemberAt<CTimelineTrackBase**>(&manager, 56), firstTrack + 1);
    QCOMPARE(MemberAt<int>(&manager, 72), 50);
    QCOMPARE(MemberAt<int>(&manager, 76), 7);
    QCOMPARE(MemberAt<int>(&manager, 80), 11);
    QCOMPARE(MemberAt<int>(&manager, 84), 13);
}

void tst_BoundaryLayout::managerHasNoVirtualOperationButItsDestructor()
{
    static_assert(std::has_virtual_destructor_v<CTimelineManager>);
    QCOMPARE(SlotOf(&CTimelineManager::GetFrameCount), -1);
    QCOMPARE(SlotOf(&CTimelineManager::ReceiveMessage), -1);
    static_assert(std::is_copy_constructible_v<CTimelineManager>);
    static_assert(std::is_copy_assignable_v<CTimelineManager>);
}

void tst_BoundaryLayout::hostInterfaceHasNoMembers()
{
    static_assert(sizeof(CTimelineManagerInterface) == sizeof(void*));
    static_assert(std::has_virtual_destructor_v<CTimelineManagerInterface>);
    static_assert(sizeof(CTimelineWndFactoryBase) == sizeof(void*));
    static_assert(std::has_virtual_destructor_v<CTimelineWndFactoryBase>);
}

void tst_BoundaryLayout::hostInterfaceSlots_data()
{
    using Host = CTimelineManagerInterface;
    QTest::addColumn<int>("slot");
    QTest::addColumn<int>("wanted");
    QTest::newRow("OnCurrentFrameChanged") << SlotOf(&Host::OnCurrentFrameChanged) << 1;
    QTest::newRow("OnMoveTimeMark") << SlotOf(&Host::OnMoveTimeMark) << 2;
    QTest::newRow("OnActiveTrackChanged") << SlotOf(&Host::OnActiveTrackChanged) << 3;
    QTest::newRow("OnActiveTrackTheSame") << SlotOf(&Host::OnActiveTrackTheSame) << 4;
    QTest::newRow("OnTrackLDbClick") << SlotOf(&Host::OnTrackLDbClick) << 5;
    QTest::newRow("OnSwitchBtnStateChanged") << SlotOf(&Host::OnSwitchBtnStateChanged) << 6;
    QTest::newRow("OnEditingKeys") << SlotOf(&Host::OnEditingKeys) << 7;
    QTest::newRow("OnCaptionBtnChanged") << SlotOf(&Host::OnCaptionBtnChanged) << 8;
    QTest::newRow("OnQueryTrackRightMenu") << SlotOf(&Host::OnQueryTrackRightMenu) << 9;
    QTest::newRow("OnSelectedTrackRightMenu") << SlotOf(&Host::OnSelectedTrackRightMenu) << 10;
    QTest::newRow("OnSelectedDataCleared") << SlotOf(&Host::OnSelectedDataCleared) << 11;
    QTest::newRow("OnSelectedDataChanged") << SlotOf(&Host::OnSelectedDataChanged) << 12;
    QTest::newRow("OnTrackDropFile") << SlotOf(&Host::OnTrackDropFile) << 13;
    QTest::newRow("OnCheckDragFile") << SlotOf(&Host::OnCheckDragFile) << 14;
}

void tst_BoundaryLayout::hostInterfaceSlots()
{
    QFETCH(int, slot);
    QFETCH(int, wanted);
    QCOMPARE(slot, wanted);
}

void tst_BoundaryLayout::windowBaseHoldsTheContainerAlone()
{
    static_assert(sizeof(CTimelineWndBase) == 2 * sizeof(void*));
    static_assert(std::is_copy_constructible_v<TestWindow>);
    HostFixture fixture;
    QCOMPARE(MemberAt<CTimelineContainer*>(fixture.manager->GetTimelineWnd(), 8),
             fixture.Container());
}

void tst_BoundaryLayout::windowBaseSlots_data()
{
    using Window = CTimelineWndBase;
    QTest::addColumn<int>("slot");
    QTest::addColumn<int>("wanted");
    QTest::newRow("CreateWnd") << SlotOf(&Window::CreateWnd) << 1;
    QTest::newRow("GetWidget") << SlotOf(&Window::GetWidget) << 2;
    QTest::newRow("UpdateWnd") << SlotOf(&Window::UpdateWnd) << 3;
    QTest::newRow("GetInitialGeometry") << SlotOf(&Window::GetInitialGeometry) << 4;
    QTest::newRow("EnableWnd") << SlotOf(&Window::EnableWnd) << 5;
    QTest::newRow("ShowWnd") << SlotOf(&Window::ShowWnd) << 6;
    QTest::newRow("IsWndVisible") << SlotOf(&Window::IsWndVisible) << 7;
    QTest::newRow("OnCurrentFrameChanged") << SlotOf(&Window::OnCurrentFrameChanged) << 8;
    QTest::newRow("RepaintWnd") << SlotOf(&Window::RepaintWnd) << 9;
    QTest::newRow("OnAfterCreate") << SlotOf(&Window::OnAfterCreate) << 10;
    QTest::newRow("OnTrackListChanged") << SlotOf(&Window::OnTrackListChanged) << 11;
    QTest::newRow("OnTimelineRefreshed") << SlotOf(&Window::OnTimelineRefreshed) << 12;
    QTest::newRow("OnHostCommand13") << SlotOf(&Window::OnHostCommand13) << 13;
    QTest::newRow("OnHostCommand14") << SlotOf(&Window::OnHostCommand14) << 14;
    QTest::newRow("OnHostCommand15") << SlotOf(&Window::OnHostCommand15) << 15;
    QTest::newRow("OnHostCommand16") << SlotOf(&Window::OnHostCommand16) << 16;
}

void tst_BoundaryLayout::windowBaseSlots()
{
    QFETCH(int, slot);
    QFETCH(int, wanted);
    QCOMPARE(slot, wanted);
}

void tst_BoundaryLayout::factorySlots()
{
    QCOMPARE(SlotOf(&CTimelineWndFactoryBase::CreateTimelineWnd), 1);
    QCOMPARE(SlotOf(&CTimelineWndFactoryBase::ReleaseTimelineWnd), 2);
}

QTEST_MAIN(tst_BoundaryLayout)
#include "tst_BoundaryLayout.moc"
