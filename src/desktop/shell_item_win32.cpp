#include "desktop/shell_item_win32.h"

#include <string>

#include "paths/path_grammar.h"

namespace ferry::desktop {

HRESULT MakeShellItem(std::wstring_view path, base::ComPtr<IShellItem>& item) {
    const std::wstring plain(path);
    HRESULT result = SHCreateItemFromParsingName(plain.c_str(), nullptr, IID_PPV_ARGS(item.Put()));
    if (FAILED(result)) {
        // The shell names its items by the plain form. Only some versions parse it at any
        // length; others take a long path in its prefixed form alone.
        const paths::LongPath prefixed = paths::ToLongPath(path);
        if (prefixed.Form != paths::LongPathForm::Unchanged) {
            result = SHCreateItemFromParsingName(prefixed.Text.c_str(), nullptr, IID_PPV_ARGS(item.Put()));
        }
    }
    return result;
}

}  // namespace ferry::desktop
