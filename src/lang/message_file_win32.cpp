#include "lang/message_file_win32.h"

#include <windows.h>

#include <cstdlib>
#include <memory>

#include "base/message_box_win32.h"
#include "lang/text_file_win32.h"

namespace ferry::lang {
namespace {

struct FreeDeleter {
    void operator()(wchar_t* text) const noexcept { std::free(text); }
};

std::wstring Absolute(const std::wstring& path) {
    const std::unique_ptr<wchar_t, FreeDeleter> full(_wfullpath(nullptr, path.c_str(), 0));
    return full ? std::wstring(full.get()) : path;
}

}  // namespace

const std::wstring& MessageFile::Path() {
    if (!path_) {
        const std::wstring suffix = store_.ReadHostText(L"NLS", kBuiltInSuffix);
        path_ = Absolute(ComposeMessageFilePath(modulePath_, suffix));
    }
    return *path_;
}

std::optional<std::wstring> MessageFile::ReadMessageFile() {
    return ReadTextFile(Path());
}

void MessageFile::ReportCannotOpen() {
    base::ShowMessageBox(L"Cannot open message file.\n" + Path(), MB_OK);
}

}  // namespace ferry::lang
