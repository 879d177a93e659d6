#include "item_path.h"

namespace ferry::fileop {
namespace {

bool IsSeparator(wchar_t unit) noexcept {
    return unit == L'\\' || unit == L'/';
}

std::wstring_view WithoutEndSeparators(std::wstring_view path) noexcept {
    while (!path.empty() && IsSeparator(path.back())) {
        path.remove_suffix(1);
    }
    return path;
}

}  // namespace

std::wstring JoinPath(std::wstring_view folder, std::wstring_view name) {
    std::wstring path(folder);
    if (!path.empty() && !IsSeparator(path.back())) {
        path += L'\\';
    }
    path += name;
    return path;
}

std::wstring_view NameOf(std::wstring_view path) noexcept {
    path = WithoutEndSeparators(path);
    const auto last = path.find_last_of(L"\\/");
    const std::wstring_view name = last == std::wstring_view::npos ? path : path.substr(last + 1);
    return name.size() == 2 && name[1] == L':' ? std::wstring_view{} : name;
}

std::wstring_view FolderOf(std::wstring_view path) noexcept {
    path = WithoutEndSeparators(path);
    const auto last = path.find_last_of(L"\\/");
    if (last == std::wstring_view::npos) {
        return {};
    }
    const bool isDriveRoot = last > 0 && path[last - 1] == L':';
    return path.substr(0, isDriveRoot ? last + 1 : last);
}

bool IsItemName(std::wstring_view name) noexcept {
    return !name.empty() && name != L"." && name != L".." &&
           name.find_first_of(L"\\/:*?\"<>|") == std::wstring_view::npos;
}

std::wstring FreeName(std::wstring_view name, bool isFolder, FreeNameStyle style, std::uint32_t attempt) {
    const auto dot = isFolder ? std::wstring_view::npos : name.rfind(L'.');
    const std::wstring_view extension =
        dot == std::wstring_view::npos ? std::wstring_view{} : name.substr(dot);
    std::wstring free(name.substr(0, dot));
    std::uint32_t number = attempt;
    if (style == FreeNameStyle::Copy) {
        free += L" - Copy";
    } else {
        ++number;  // the item that has the plain name counts as the first
    }
    if (number > 1) {
        free += L" (" + std::to_wstring(number) + L")";
    }
    free += extension;
    return free;
}

}  // namespace ferry::fileop
