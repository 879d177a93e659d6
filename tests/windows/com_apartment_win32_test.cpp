// The end of COM on a thread: only for whom it began there.
#include <windows.h>
#include <gtest/gtest.h>

#include "base/com_ptr_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::base {
namespace {

TEST(ComApartment, EndsComOnlyWhenItBeganIt) {
    const std::pair<HRESULT, std::size_t> cases[] = {
        {S_OK, 1}, {S_FALSE, 0}, {RPC_E_CHANGED_MODE, 0}, {E_OUTOFMEMORY, 0}};
    for (const auto& [answer, ends] : cases) {
        const test::WatchedImport<&CoInitialize> begin("CoInitialize",
                                                       [answer = answer](LPVOID) { return answer; });
        const test::WatchedImport<&CoUninitialize> end("CoUninitialize", [] {});
        {
            const ComApartment apartment;
            EXPECT_EQ(std::get<0>(begin.OnlyCall()), nullptr);
            EXPECT_EQ(end.Calls().size(), 0U);
        }
        EXPECT_EQ(end.Calls().size(), ends) << answer;
    }
}

}  // namespace
}  // namespace ferry::base
