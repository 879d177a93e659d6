#include "controls/icon_worker.h"

#include <objbase.h>
#include <shellapi.h>

#include <algorithm>
#include <mutex>
#include <string_view>

#include "base/com_ptr_win32.h"

namespace ferry::controls {

namespace {

constexpr UINT kByNameFlags = SHGFI_SYSICONINDEX | SHGFI_USEFILEATTRIBUTES;
constexpr UINT kByPathFlags = SHGFI_SYSICONINDEX | SHGFI_OPENICON;

}  // namespace

IconWorker::~IconWorker() {
    Stop();
}

void IconWorker::Request(HWND list, std::size_t first, std::size_t last) {
    ForgetDoneJobs();
    if (!AnyIconMissing(first, last)) {
        return;
    }
    jobs_.push_back(std::make_unique<Job>());
    Job& job = *jobs_.back();
    job.Thread = std::thread([this, &job, list, first, last]() noexcept {
        FindIcons(first, last);
        PostMessageW(list, kIconsReadyMessage, first, static_cast<LPARAM>(last));
        job.Done = true;
    });
}

bool IconWorker::AnyIconMissing(std::size_t first, std::size_t last) {
    const std::lock_guard guard(items_.Lock());
    for (std::size_t index = first; index <= last && index < items_.Size(); ++index) {
        if (items_.Icon(index) == ListItems::kNoIcon) {
            return true;
        }
    }
    return false;
}

void IconWorker::FindIcons(std::size_t first, std::size_t last) {
    const base::ComApartment com;
    const std::lock_guard guard(items_.Lock());
    for (std::size_t index = first; index <= last && index < items_.Size() && !stopping_; ++index) {
        if (items_.Icon(index) == ListItems::kNoIcon) {
            items_.SetIcon(index, IconOf(items_.Path(index), items_.Name(index)));
        }
    }
}

// A network item is judged by its attributes and name: asking the shell for the item itself
// could wait for a server that is away.
int IconWorker::IconOf(std::wstring_view path, std::wstring_view name) {
    SHFILEINFOW info{};
    DWORD_PTR found = 0;
    if (path.starts_with(L'\\')) {
        const bool isFolder = files::IsFolder(info_.Attributes(path));
        found = SHGetFileInfoW(name.data(), isFolder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL,
                               &info, sizeof info, kByNameFlags);
    } else {
        found = SHGetFileInfoW(path.data(), 0, &info, sizeof info, kByPathFlags);
    }
    return found != 0 ? info.iIcon : 0;
}

void IconWorker::ForgetDoneJobs() {
    std::erase_if(jobs_, [](const std::unique_ptr<Job>& job) {
        if (!job->Done) {
            return false;
        }
        job->Thread.join();
        return true;
    });
}

void IconWorker::Stop() {
    stopping_ = true;
    for (const std::unique_ptr<Job>& job : jobs_) {
        job->Thread.join();
    }
    jobs_.clear();
    stopping_ = false;
}

}  // namespace ferry::controls
