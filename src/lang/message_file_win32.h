// The message file that lies in the host's language folder.
#pragma once

#include <optional>
#include <string>

#include "lang/catalogue.h"
#include "settings/settings_store.h"

namespace ferry::lang {

/// The catalogue's source on disk. The user's language is asked for once, by the first use.
class MessageFile : public CatalogueSource {
public:
    /// `store` must outlive this object; `modulePath` is the executable's full path.
    MessageFile(settings::SettingsStore& store, std::wstring modulePath)
        : store_(store), modulePath_(std::move(modulePath)) {}

    /// The absolute path of the message file; as composed when it cannot be made absolute.
    const std::wstring& Path();

    std::optional<std::wstring> ReadMessageFile() override;
    void ReportCannotOpen() override;

private:
    settings::SettingsStore& store_;
    std::wstring modulePath_;
    std::optional<std::wstring> path_;
};

}  // namespace ferry::lang
