#include "host_session_win32.h"

#include <algorithm>
#include <iterator>

#include "delivery_win32.h"
#include "process_windows_win32.h"
#include "text_file_win32.h"

namespace ferry::samplehost {
namespace {

/// How often the host looks for Ferry's dialog and for deliveries that are due.
constexpr DWORD kStepMs = 10;

/// A dialog that shows a question answers when the question is answered, so the host is patient.
constexpr unsigned kDeliveryTimeoutMs = 10000;

/// `argument` so that the usual command-line rules give it back unchanged.
std::wstring Quoted(const std::wstring& argument) {
    if (!argument.empty() && argument.find_first_of(L" \t\"") == std::wstring::npos)
        return argument;
    std::wstring text = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t unit : argument) {
        if (unit == L'"')
            text.append(backslashes + 1, L'\\');
        backslashes = unit == L'\\' ? backslashes + 1 : 0;
        text += unit;
    }
    text.append(backslashes, L'\\');
    return text + L'"';
}

}  // namespace

int HostSession::Run() {
    if (!window_.Create(options_.Window, options_.AnswerAfterMs) ||
        (!options_.TraceTitle.empty() && !window_.CreateTrace(options_.TraceTitle))) {
        log_.Write({L"ERROR", L"no window", std::to_wstring(GetLastError())});
        return kExitCannotMakeBlock;
    }
    if (!PrepareBlock())
        return kExitCannotMakeBlock;
    Announce();
    log_.Write({L"WINDOW", Hexadecimal(reinterpret_cast<ULONG_PTR>(window_.Get()))});
    if (!options_.FerryPath.empty() && !StartFerry())
        return kExitCannotStart;
    PumpUntilEnd();
    return static_cast<int>(exitCode_);
}

bool HostSession::CollectBytes() {
    if (!options_.ItemsFile.empty()) {
        auto lines = ReadLines(options_.ItemsFile);
        if (!lines) {
            log_.Write({L"ERROR", L"cannot read", options_.ItemsFile});
            return false;
        }
        auto& items = options_.Block.Items;
        items.insert(items.end(), std::make_move_iterator(lines->begin()),
                     std::make_move_iterator(lines->end()));
    }
    if (options_.BlockFile.empty()) {
        bytes_ = BytesOfUnits(BlockUnits(options_.Block));
        return true;
    }
    auto bytes = ReadWholeFile(options_.BlockFile);
    if (!bytes) {
        log_.Write({L"ERROR", L"cannot read", options_.BlockFile});
        return false;
    }
    bytes_ = std::move(*bytes);
    return true;
}

bool HostSession::PrepareBlock() {
    if (!CollectBytes())
        return false;
    if (!options_.HasSizeOverride)
        options_.Variable.BlockSize = std::to_wstring(bytes_.size());
    if (options_.NoBlock)
        return true;
    const auto announced = std::wcstoul(options_.Variable.BlockSize.c_str(), nullptr, 10);
    const std::size_t wanted = options_.MappingSizeBytes != 0 ? options_.MappingSizeBytes : announced;
    const auto size = static_cast<std::uint32_t>(std::max({wanted, bytes_.size(), std::size_t{1}}));
    if (!block_.Create(options_.Variable, bytes_, size, options_.HoldGuardMs > 0)) {
        log_.Write({L"ERROR", L"no block", std::to_wstring(GetLastError())});
        return false;
    }
    log_.Write({L"BLOCK", MappingName(options_.Variable), std::to_wstring(bytes_.size())});
    return true;
}

void HostSession::Announce() {
    if (options_.NoVariable) {
        SetEnvironmentVariableW(kVariableName, nullptr);
        return;
    }
    const std::wstring value = options_.RawVariable.value_or(VariableText(options_.Variable));
    SetEnvironmentVariableW(kVariableName, value.c_str());
    log_.Write({L"VARIABLE", value});
}

bool HostSession::StartFerry() {
    std::wstring line = Quoted(options_.FerryPath);
    for (const std::wstring& argument : options_.FerryArguments) {
        line += L' ' + Quoted(argument);
    }
    STARTUPINFOW start = {};
    start.cb = sizeof(start);
    PROCESS_INFORMATION info = {};
    if (!StartProcess(options_.FerryPath, line, 0, start, info)) {
        log_.Write({L"ERROR", L"cannot start", options_.FerryPath, std::to_wstring(GetLastError())});
        return false;
    }
    const base::ThreadHandle thread(info.hThread);
    process_.Reset(info.hProcess);
    processId_ = info.dwProcessId;
    log_.Write({L"STARTED", std::to_wstring(processId_), line});
    return true;
}

void HostSession::PumpUntilEnd() {
    startedAt_ = GetTickCount64();
    while (!IsOver(GetTickCount64())) {
        const HANDLE process = process_.Get();
        const DWORD count = process != nullptr ? 1 : 0;
        const DWORD what = MsgWaitForMultipleObjects(count, &process, FALSE, kStepMs, QS_ALLINPUT);
        if (count == 1 && what == WAIT_OBJECT_0)
            NoteEnd();
        DispatchMessages();
        Tick();
    }
}

bool HostSession::IsOver(ULONGLONG now) const noexcept {
    if (isQuitting_)
        return true;
    if (options_.Seconds > 0 && now - startedAt_ >= static_cast<ULONGLONG>(options_.Seconds) * 1000)
        return true;
    return processId_ != 0 && !process_ && !options_.Stay;
}

bool HostSession::DispatchMessages() {
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            isQuitting_ = true;
            return false;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return true;
}

void HostSession::Tick() {
    const ULONGLONG now = GetTickCount64();
    if (options_.HoldGuardMs > 0 && now - startedAt_ >= static_cast<ULONGLONG>(options_.HoldGuardMs)) {
        block_.ReleaseGuard();
        log_.Write({L"RELEASED", GuardName(options_.Variable)});
        options_.HoldGuardMs = 0;
    }
    if (process_ && dialog_ == nullptr) {
        dialog_ = FindFerryDialog(processId_);
        if (dialog_ != nullptr) {
            lastDeliveryAt_ = now;
            log_.Write({L"DIALOG", Hexadecimal(reinterpret_cast<ULONG_PTR>(dialog_))});
        }
    }
    if (process_ && dialog_ != nullptr)
        DeliverWhatIsDue(now);
}

void HostSession::DeliverWhatIsDue(ULONGLONG now) {
    if (delivered_ == options_.Deliveries.size())
        return;
    const Delivery& next = options_.Deliveries[delivered_];
    if (now - lastDeliveryAt_ < static_cast<ULONGLONG>(next.DelayMs))
        return;
    ++delivered_;
    Deliver(next);
    lastDeliveryAt_ = GetTickCount64();
}

void HostSession::Deliver(const Delivery& delivery) {
    if (delivery.Kind == DeliveryKind::Undecided)
        return;
    if (delivery.Kind == DeliveryKind::Drop) {
        const bool isPosted = DropPaths(dialog_, delivery.Paths);
        log_.Write({L"DROPPED", std::to_wstring(delivery.Paths.size()), isPosted ? L"posted" : L"failed"});
        return;
    }
    std::vector<std::byte> bytes = delivery.Kind == DeliveryKind::Path ? TextPayload(delivery.Text) : bytes_;
    if (delivery.Kind == DeliveryKind::Bytes)
        bytes = ReadWholeFile(delivery.Text).value_or(std::vector<std::byte>{});
    const bool isAnswered = SendData(dialog_, window_.Get(), delivery.Tag, bytes, kDeliveryTimeoutMs);
    log_.Write({L"SENT", std::to_wstring(delivery.Tag), std::to_wstring(bytes.size()),
                isAnswered ? L"answered" : L"not answered"});
}

void HostSession::NoteEnd() {
    GetExitCodeProcess(process_.Get(), &exitCode_);
    process_.Reset();
    log_.Write({L"ENDED", std::to_wstring(exitCode_)});
}

}  // namespace ferry::samplehost
