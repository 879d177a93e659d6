#include "lang/message_path_win32.h"

#include <cstdlib>
#include <memory>

#include "lang/catalogue.h"

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

std::wstring MessageFilePath(settings::SettingsStore& store, std::wstring_view modulePath) {
    return Absolute(ComposeMessageFilePath(modulePath, store.ReadHostText(L"NLS", kBuiltInSuffix)));
}

}  // namespace ferry::lang
