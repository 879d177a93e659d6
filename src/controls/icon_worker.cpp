#include "controls/icon_worker.h"

#include <objbase.h>
#include <shellapi.h>

#include <algorithm>
#include <mutex>

#include "base/com_ptr_win32.h"
#include "paths/path_grammar.h"

namespace ferry::controls {

namespace {

constexpr UINT kByNameFlags = SHGFI_SYSICONINDEX | SHGFI_USEFILEATTRIBUTES;
constexpr UINT kByPathFlags = SHGFI_SYSICONINDEX | SHGFI_OPENICON;

// A drive letter may stand for a folder of a server.
bool IsOnNetwork(const std::wstring& path) {
    return path.starts_with(L'\\') || (paths::StartsWithDrive(path) &&
                                       GetDriveTypeW((path.substr(0, 2) + L'\\').c_str()) == DRIVE_REMOTE);
}

}  // namespace

IconWorker::~IconWorker() {
    Stop();
}

void IconWorker::Request(HWND list, std::size_t first, std::size_t last) {
    ForgetDoneJobs();
    const Range range{first, std::min(last + 1, items_.Size()), items_.Round()};
    if (!AnyIconMissing(range) || IsLookedFor(range)) {
        return;
    }
    jobs_.push_back(std::make_unique<Job>(range));
    Job& job = *jobs_.back();
    job.Thread = std::thread([this, &job, list, first, last]() noexcept {
        FindIcons(job.Items);
        PostMessageW(list, kIconsReadyMessage, first, static_cast<LPARAM>(last));
        job.Done = true;
    });
}

// While the shell keeps a thread waiting, the list may be drawn many times.
bool IconWorker::IsLookedFor(const Range& range) const noexcept {
    return std::ranges::any_of(jobs_,
                               [&](const std::unique_ptr<Job>& job) { return job->Items.Holds(range); });
}

bool IconWorker::AnyIconMissing(const Range& range) {
    const std::unique_lock guard(items_.Lock(), std::try_to_lock);
    if (!guard.owns_lock()) {
        // A thread that finds nothing missing costs less than drawing that waits.
        return range.First < range.End;
    }
    for (std::size_t index = range.First; index < range.End; ++index) {
        if (items_.Icon(index) == ListItems::kNoIcon) {
            return true;
        }
    }
    return false;
}

void IconWorker::FindIcons(const Range& range) {
    const base::ComApartment com;
    const std::lock_guard turn(turn_);
    for (std::size_t index = range.First; index < range.End && !stopping_; ++index) {
        if (const auto path = items_.PathWithoutIcon(index, range.Round)) {
            items_.SetIcon(index, range.Round, IconOf(*path));
        }
    }
}

// A network item is judged by its attributes and name: asking the shell for the item itself
// could wait for a server that is away.
int IconWorker::IconOf(const std::wstring& path) {
    SHFILEINFOW info{};
    DWORD_PTR found = 0;
    if (IsOnNetwork(path)) {
        const std::wstring name(paths::ShownName(path));
        const bool isFolder = files::IsFolder(info_.Attributes(path));
        found = SHGetFileInfoW(name.c_str(), isFolder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL,
                               &info, sizeof info, kByNameFlags);
    } else {
        found = SHGetFileInfoW(path.c_str(), 0, &info, sizeof info, kByPathFlags);
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
