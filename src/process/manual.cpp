// The address of the command's manual page.
#include "process/manual.h"

#include <algorithm>

#include "paths/path_grammar.h"

namespace ferry::process {

namespace {

/// Where the pages lie under the manual's base.
constexpr std::wstring_view kManualFolder = L"/kiv/man5/";

/// The pages beside the confirmation dialog's, a folder for each language.
constexpr std::wstring_view kTopicFolder = L"6.Command/2.DefaultCommand/Ferry/";

constexpr std::wstring_view kJapanese = L".ja-JP";
constexpr std::wstring_view kEnglish = L".en-US";

/// "ja" of ".ja-JP".
std::wstring_view PrimaryTag(std::wstring_view language) noexcept {
    language.remove_prefix(language.starts_with(L'.') ? 1 : 0);
    return language.substr(0, language.find(L'-'));
}

std::wstring TopicPage(std::wstring_view topic, std::wstring_view language) {
    return std::wstring(kTopicFolder)
        .append(PrimaryTag(language))
        .append(L"/")
        .append(topic)
        .append(L".html");
}

/// What a reader of `language` gets, the best first: the manual comes in two languages, and others may be
/// added.
std::vector<std::wstring_view> LanguagesFor(std::wstring_view language) {
    if (language == kJapanese || language == kEnglish) {
        return {language};
    }
    return {language, kEnglish};
}

/// The executable in whose folder the manual's base of `language` lies. The confirmation dialog's page has
/// one path under every base, so each language but the built-in one has a base of its own, beside its dialog
/// texts.
std::wstring ModuleOf(std::wstring_view language, std::wstring_view modulePath) {
    std::wstring folder(paths::ParentWithSeparator(modulePath));
    if (language != kJapanese) {
        folder.append(language).append(L"\\");
    }
    return folder;
}

}  // namespace

std::wstring ManualAddress(std::wstring_view base, std::wstring_view page, std::wstring_view modulePath) {
    if (!base.empty()) {
        return std::wstring(base).append(kManualFolder).append(page);
    }
    std::wstring installed = std::wstring(L"Manual").append(kManualFolder).append(page);
    std::replace(installed.begin(), installed.end(), L'/', L'\\');
    return std::wstring(paths::ParentWithSeparator(modulePath)).append(installed);
}

std::vector<std::wstring> ManualPlaces(const ManualQuery& query) {
    const std::vector<std::wstring_view> languages = LanguagesFor(query.Language);
    if (!query.Base.empty()) {
        const std::wstring page =
            query.Topic.empty() ? std::wstring(kFerryManualPage) : TopicPage(query.Topic, languages.back());
        return {ManualAddress(query.Base, page, query.ModulePath)};
    }
    std::vector<std::wstring> places;
    places.reserve(languages.size() + 1);
    for (const std::wstring_view language : languages) {
        places.push_back(query.Topic.empty()
                             ? ManualAddress({}, kFerryManualPage, ModuleOf(language, query.ModulePath))
                             : ManualAddress({}, TopicPage(query.Topic, language), query.ModulePath));
    }
    places.push_back(ManualAddress({}, kFerryManualPage, query.ModulePath));
    return places;
}

}  // namespace ferry::process
