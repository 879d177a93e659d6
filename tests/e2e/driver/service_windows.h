// The windows of the file-operation service that the tests run on, and their buttons.
#pragma once

namespace ferry::e2e {

inline constexpr wchar_t kErrorTitle[] = L"Item Not Transferred";
inline constexpr wchar_t kReplaceTitle[] = L"Replace or Skip Files";
inline constexpr int kReplace = 1101;
inline constexpr int kSkip = 1102;

}  // namespace ferry::e2e
