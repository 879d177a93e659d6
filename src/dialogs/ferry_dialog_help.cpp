// F1 in the confirmation dialog, and in every dialog that it owns.
#include <algorithm>
#include <string_view>
#include <vector>

#include "desktop/shell_open.h"
#include "dialogs/ferry_dialog.h"
#include "ids.h"
#include "process/manual.h"

namespace ferry::dialogs {
namespace {

/// The page of a dialog that asks by the number of its template; nothing for the confirmation dialog itself.
std::wstring_view TopicOf(WPARAM templateId) noexcept {
    switch (templateId) {
        case IDD_BUSY:
            return L"progress";
        case IDD_INPUT:
            return L"rename";
        case IDD_FILE_MODE:
            return L"collision";
        case IDD_REPORT:
            return L"report";
        default:
            return {};
    }
}

}  // namespace

framework::Answer CFerryDlg::OnHelp(WPARAM templateId, LPARAM) {
    // Their menu hands help on to the dialog, too.
    const bool isAboutFavourites = templateId == 0 && favouriteUse_ == FavouriteUse::Choosing;
    const std::vector<std::wstring> places = process::ManualPlaces(
        {FERRY_MANUAL_BASE, isAboutFavourites ? std::wstring_view(L"favourites") : TopicOf(templateId),
         services_.Localiser.LanguageSuffix(), services_.ModulePath});
    const auto there = std::ranges::find_if(places, [this](const std::wstring& place) {
        return services_.Files.Attributes(place) != files::kInvalidAttributes;
    });
    desktop::OpenManualPage(Handle(), there != places.end() ? *there : places.back());
    return TRUE;
}

}  // namespace ferry::dialogs
