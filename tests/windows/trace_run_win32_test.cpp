// Scripts that the engine runs, watched in the trace window.
#include "app/real_world_win32.h"
#include "base/utf16.h"
#include "desktop/message_boxes_win32.h"
#include "script/engine.h"
#include "windows/answered_boxes_win32.h"
#include "windows/trace_dialog_fixture_win32.h"

namespace ferry::tracewindow {
namespace {

class TracedRun : public TraceDialogFixture {
protected:
    void RunEngine(const std::wstring& path) const {
        app::RealWorld world;
        desktop::MessageBoxes speaker;
        std::vector<std::wstring> selection;
        script::Engine(world.Ports(speaker)).Run(path, selection);
    }

    void TearDown() override {
        for (const test::AskedBox& box : boxes_.Asked)
            ADD_FAILURE() << base::ToUtf8(box.Text);
    }

private:
    const test::AnsweredBoxes boxes_;  // whatever a run tells of must not wait for anybody
};

TEST_F(TracedRun, IsHeldSteppedThroughAndWrittenDown) {
    const std::wstring inner = Script(L"inner.txt", L"zz=+1\r\n");
    // The name is in no path: there, too, it would be replaced.
    const std::wstring outer = Script(L"outer.txt",
                                      L"debug\r\n"
                                      L"var zz\r\n"
                                      L"zz=1\r\n"
                                      L"include=" +
                                          inner +
                                          L"\r\n"
                                          L"zz=+5\r\n");
    SetDlgItemTextW(Window(), IDC_TRACE_NUMBER, L"3");
    Click(IDC_TRACE_TOGGLE);
    EXPECT_TRUE(Run([&] { RunEngine(outer); },
                    [&] {
                        WaitForHold(3);
                        EXPECT_EQ(TextOf(IDC_TRACE_SCRIPT), outer);
                        EXPECT_EQ(Cell(IDC_TRACE_VARIABLES, 0, 1), L"zz");
                        EXPECT_EQ(Cell(IDC_TRACE_VARIABLES, 0, 2), L"");
                        PressKey(VK_F10);
                        WaitForHold(4);
                        EXPECT_EQ(Cell(IDC_TRACE_VARIABLES, 0, 2), L"1");
                        PressKey(VK_F10);
                        WaitForHold(1);
                        EXPECT_EQ(TextOf(IDC_TRACE_SCRIPT), inner);
                        EXPECT_EQ(Cell(IDC_TRACE_LINES, 0, 2), L"zz=+1");
                        PressKey(VK_F5);
                    }));
    EXPECT_TRUE(WorkUntil([&] { return Cell(IDC_TRACE_VARIABLES, 0, 2) == L"7"; }));
    EXPECT_EQ(dialog_.SaveTo(folder_ / L"seen.txt"), 0U);
    EXPECT_EQ(test::ReadUnits(folder_ / L"seen.txt"),
              L"\xFEFF\x31\t" + outer + L"\r\n2\t2\r\n10\tzz\t\r\n2\t3\r\n11\tzz\t1\r\n2\t4\r\n1\t" + inner +
                  L"\r\n2\t1\r\n11\tzz\t2\r\n2\t5\r\n11\tzz\t7\r\n");
}

TEST_F(TracedRun, OfManyStepsIsShownToItsEnd) {
    const std::wstring path = Script(L"loop.txt",
                                     L"debug\r\nvar zz\r\nzz=0\r\n"
                                     L"do\r\nzz=+1\r\nwhile zz<300\r\n");
    EXPECT_TRUE(Run([&] { RunEngine(path); }, [] {}));
    EXPECT_TRUE(WorkUntil([&] { return Cell(IDC_TRACE_VARIABLES, 0, 2) == L"300"; }));
}

}  // namespace
}  // namespace ferry::tracewindow
