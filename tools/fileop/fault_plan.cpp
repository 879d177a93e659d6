#include "fault_plan.h"

#include <algorithm>

namespace ferry::fileop {
namespace {

constexpr std::size_t kMaxDigits = 9;

std::wstring_view WithoutBlanks(std::wstring_view text) noexcept {
    const auto first = text.find_first_not_of(L' ');
    if (first == std::wstring_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

std::optional<std::uint32_t> ParseNumber(std::wstring_view text) noexcept {
    if (text.empty() || text.size() > kMaxDigits) {
        return std::nullopt;
    }
    std::uint32_t number = 0;
    for (const wchar_t unit : text) {
        if (unit < L'0' || unit > L'9') {
            return std::nullopt;
        }
        number = number * 10 + static_cast<std::uint32_t>(unit - L'0');
    }
    return number;
}

// The place before which a rule takes effect: 0 stands for "*".
std::optional<std::uint32_t> ParsePlace(std::wstring_view text) noexcept {
    if (text == L"*") {
        return 0;
    }
    const auto number = ParseNumber(text);
    return number == 0U ? std::nullopt : number;
}

}  // namespace

std::optional<FaultRules> FaultRules::Parse(std::wstring_view text) {
    FaultRules rules;
    if (WithoutBlanks(text).empty()) {
        return rules;
    }
    for (;;) {
        const auto comma = text.find(L',');
        const auto rule = ParseRule(WithoutBlanks(text.substr(0, comma)));
        if (!rule) {
            return std::nullopt;
        }
        rules.rules_.push_back(*rule);
        if (comma == std::wstring_view::npos) {
            return rules;
        }
        text.remove_prefix(comma + 1);
    }
}

std::optional<FaultRules::Rule> FaultRules::ParseRule(std::wstring_view text) {
    struct Word {
        std::wstring_view Text;
        Kind What;
    };
    constexpr Word kWords[] = {
        {L"fail", Kind::Fail}, {L"error", Kind::Error}, {L"abort", Kind::Abort}, {L"slow", Kind::Slow}};

    const auto at = text.find(L'@');
    const auto* const word = std::find_if(std::begin(kWords), std::end(kWords),
                                          [&](const Word& each) { return each.Text == text.substr(0, at); });
    if (at == std::wstring_view::npos || word == std::end(kWords)) {
        return std::nullopt;
    }
    const std::wstring_view tail = text.substr(at + 1);
    const auto colon = tail.find(L':');
    const bool hasWait = colon != std::wstring_view::npos;
    const auto place = ParsePlace(tail.substr(0, colon));
    const auto wait = hasWait ? ParseNumber(tail.substr(colon + 1)) : std::optional<std::uint32_t>(0U);
    if (!place || !wait || hasWait != (word->What == Kind::Slow)) {
        return std::nullopt;
    }
    return Rule{word->What, *place, *wait};
}

Fault FaultRules::At(std::uint32_t place) const noexcept {
    Fault fault;
    fault.Place = place;
    for (const Rule& rule : rules_) {
        if (rule.Place != 0 && rule.Place != place) {
            continue;
        }
        fault.Fails |= rule.What == Kind::Fail;
        fault.FailsWithWindow |= rule.What == Kind::Error;
        fault.Aborts |= rule.What == Kind::Abort;
        fault.WaitMs += rule.WaitMs;
    }
    return fault;
}

bool FaultPlan::Load(std::wstring_view text) {
    const std::lock_guard lock(guard_);
    if (text == text_) {
        return isUnderstood_;
    }
    auto rules = FaultRules::Parse(text);
    isUnderstood_ = rules.has_value();
    text_ = text;
    rules_ = rules ? std::move(*rules) : FaultRules{};
    count_ = 0;
    return isUnderstood_;
}

Fault FaultPlan::Next() {
    const std::lock_guard lock(guard_);
    ++count_;
    return rules_.At(count_);
}

}  // namespace ferry::fileop
