#include "trace_model.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "base/utf16.h"
#include "script/limits.h"
#include "script/shown_text.h"

namespace ferry::tracewindow {

namespace {

constexpr std::uint64_t kStartedCode = 1;
constexpr std::uint64_t kLineCode = 2;
constexpr std::uint64_t kFirstVariableCode = 10;

/// More digits than the number of a line has.
constexpr std::size_t kMaxDigits = 9;

RecordKind KindOfText(std::uint64_t code, std::wstring_view text) {
    if (code == kStartedCode && !text.empty())
        return RecordKind::Script;
    if (code == kLineCode && ReadLineNumber(text))
        return RecordKind::Line;
    // A name is at least one unit.
    if (code >= kFirstVariableCode && text.find(L'\t', 1) != std::wstring_view::npos && text.front() != L'\t')
        return RecordKind::Variable;
    return RecordKind::Malformed;
}

/// The beginning of `value` that is shown; a character of two units is not cut in two.
std::wstring_view ShownPart(std::wstring_view value) noexcept {
    if (value.size() <= kShownValueUnits)
        return value;
    const wchar_t last = value[kShownValueUnits - 1];
    const bool isFirstOfTwo = last >= 0xD800 && last <= 0xDBFF;
    return value.substr(0, kShownValueUnits - (isFirstOfTwo ? 1 : 0));
}

/// A record as a line of a file, without the end of the line.
std::wstring LineOf(const TraceRecord& record) {
    const std::wstring code = std::to_wstring(record.Code) + L'\t';
    if (record.Kind == RecordKind::Malformed)
        return L"?\t" + code + scripttools::WithSigns(record.Text);
    if (record.Kind != RecordKind::Variable)
        return code + scripttools::WithSigns(record.Text);
    const std::wstring_view text = record.Text;
    const std::size_t tab = text.find(L'\t');
    return code + scripttools::WithSigns(text.substr(0, tab)) + L'\t' +
           scripttools::WithSigns(text.substr(tab + 1));
}

}  // namespace

std::optional<std::size_t> ReadLineNumber(std::wstring_view text) {
    if (text.empty() || text.size() > kMaxDigits || !std::ranges::all_of(text, base::IsDigit))
        return std::nullopt;
    const std::size_t number = std::stoul(std::wstring(text));
    return number == 0 ? std::nullopt : std::optional(number);
}

TraceRecord ReadRecord(std::uint64_t code, std::span<const std::byte> bytes) {
    constexpr std::size_t kBytesPerUnit = 2;
    const std::size_t unitCount = std::min(bytes.size() / kBytesPerUnit, kMaxTextUnits + 1);
    TraceRecord record{.Code = code, .Text = base::TextFromBytes(bytes.first(unitCount * kBytesPerUnit))};
    if (record.Text.size() < unitCount)
        record.Kind = KindOfText(code, record.Text);
    record.Text.resize(std::min(record.Text.size(), kMaxTextUnits));
    return record;
}

bool TraceModel::Take(TraceRecord record) {
    bool isToBeHeld = false;
    switch (record.Kind) {
        case RecordKind::Script:
            TakeScript(record.Text);
            break;
        case RecordKind::Line:
            line_ = ReadLineNumber(record.Text);
            isToBeHeld = std::exchange(holdsNextLine_, false) || (line_ && HasHold(*line_));
            break;
        case RecordKind::Variable:
            TakeVariable(record.Text);
            break;
        case RecordKind::Malformed:
            ++malformedCount_;
            break;
    }
    Keep(std::move(record));
    return isToBeHeld;
}

void TraceModel::Keep(TraceRecord record) {
    ++count_;
    keptUnits_ += record.Text.size();
    records_.push_back(std::move(record));
    while (records_.size() > kMaxRecords || keptUnits_ > kMaxKeptUnits) {
        keptUnits_ -= records_.front().Text.size();
        records_.pop_front();
    }
}

void TraceModel::TakeScript(const std::wstring& path) {
    ++starts_;
    line_.reset();
    auto found = std::ranges::find(scripts_, path);
    if (found == scripts_.end()) {
        scripts_.push_back(path);
        if (scripts_.size() > kMaxScripts)
            scripts_.pop_front();
        found = std::prev(scripts_.end());
    }
    lastStarted_ = static_cast<std::size_t>(found - scripts_.begin());
}

void TraceModel::TakeVariable(std::wstring_view text) {
    const std::size_t tab = text.find(L'\t');
    const std::optional<std::size_t> index = VariableCalled(text.substr(0, tab));
    if (!index)
        return;
    const std::wstring_view value = text.substr(tab + 1);
    variables_[*index].Value = ShownPart(value);
    variables_[*index].Units = value.size();
    lastChanged_ = index;
}

/// A script has no more variables than these; whoever sends more is none, and finds no room.
std::optional<std::size_t> TraceModel::VariableCalled(std::wstring_view name) {
    const auto [place, isNew] = byName_.try_emplace(std::wstring(name), variables_.size());
    if (!isNew)
        return place->second;
    if (variables_.size() >= script::kMaxVariables || namesUnits_ + name.size() > script::kMaxNamesUnits) {
        byName_.erase(place);
        return std::nullopt;
    }
    namesUnits_ += name.size();
    variables_.push_back({.Name = std::wstring(name), .Value = {}});
    return place->second;
}

void TraceModel::Clear() {
    TraceModel empty;
    empty.holds_.swap(holds_);
    empty.holdsNextLine_ = holdsNextLine_;
    empty.starts_ = starts_ + 1;
    *this = std::move(empty);
}

void TraceModel::ToggleHold(std::size_t number) {
    if (holds_.erase(number) == 0)
        holds_.insert(number);
}

void TraceModel::HoldNothing() noexcept {
    holds_.clear();
    holdsNextLine_ = false;
}

std::wstring TraceModel::RecordLines() const {
    std::wstring lines;
    for (const TraceRecord& record : records_)
        lines += LineOf(record) + L"\r\n";
    return lines;
}

}  // namespace ferry::tracewindow
