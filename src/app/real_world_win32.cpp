#include "app/real_world_win32.h"

#include "base/com_ptr_win32.h"
#include "calendar/clock_win32.h"
#include "desktop/script_boxes_win32.h"
#include "desktop/script_programs_win32.h"
#include "desktop/script_windows_win32.h"
#include "desktop/user_clipboard_win32.h"
#include "files/disk_win32.h"
#include "process/module_path_win32.h"
#include "process/program_runner_win32.h"
#include "script/byte_files_win32.h"
#include "script/chance_win32.h"
#include "script/homes_win32.h"
#include "script/speech_win32.h"
#include "script/surroundings_win32.h"
#include "settings/registry_store_win32.h"

namespace ferry::app {

struct RealWorld::Parts {
    explicit Parts(HWND standIn)
        : Boxes(standIn), Programs(Starter, Pace, standIn), Host(standIn, standIn), Trace(standIn) {}

    base::ComApartment Apartment;  // The shell and the voice want it; first, so that it outlives them.
    desktop::ScriptBoxes Boxes;
    desktop::ScriptPace Pace;
    process::SystemPrograms Starter;
    desktop::ScriptPrograms Programs;
    desktop::ScriptHost Host;
    desktop::ScriptTrace Trace;
    settings::RegistryStore Settings{std::wstring(settings::kProgramKeyPrefix) + settings::kProgramName};
    files::DiskInfo Files;
    files::DiskSearch Folders;
    files::DiskChanges Changes;
    script::DiskByteFiles ByteFiles;
    desktop::UserClipboard Clipboard;
    script::SystemSpeech Speech;
    calendar::SystemClock Clock;
    script::SystemChance Chance;
    script::SystemSurroundings Surroundings;
    script::SystemHomes Homes{process::ModulePath()};
};

RealWorld::RealWorld(HWND standIn) : parts_(std::make_unique<Parts>(standIn)) {}
RealWorld::~RealWorld() = default;

script::World RealWorld::Ports(lang::Speaker& speaker) {
    return {.Boxes = parts_->Boxes,
            .Speaker = speaker,
            .Programs = parts_->Programs,
            .Host = parts_->Host,
            .Trace = parts_->Trace,
            .Settings = parts_->Settings,
            .Files = parts_->Files,
            .Folders = parts_->Folders,
            .Changes = parts_->Changes,
            .ByteFiles = parts_->ByteFiles,
            .Clipboard = parts_->Clipboard,
            .Speech = parts_->Speech,
            .Clock = parts_->Clock,
            .Chance = parts_->Chance,
            .Surroundings = parts_->Surroundings,
            .Homes = parts_->Homes,
            .Pace = parts_->Pace};
}

desktop::ScriptPace& RealWorld::Pace() noexcept {
    return parts_->Pace;
}

}  // namespace ferry::app
