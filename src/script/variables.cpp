#include "script/variables.h"

#include <algorithm>

#include "base/text.h"
#include "base/text_search.h"
#include "script/limits.h"
#include "script/numbers.h"
#include "script/words.h"

namespace ferry::script {

namespace {

bool IsNumberLike(std::wstring_view name) noexcept {
    return name.find_first_not_of(L"0123456789+-*/%&") == std::wstring_view::npos;
}

}  // namespace

std::optional<DeclarationParts> SplitDeclaration(std::wstring_view text) noexcept {
    const std::size_t open = text.find(L'[');
    if (text.empty() || open == 0) {
        return std::nullopt;
    }
    if (open == std::wstring_view::npos) {
        return DeclarationParts{text, std::nullopt};
    }
    if (!text.ends_with(L']')) {
        return std::nullopt;
    }
    return DeclarationParts{text.substr(0, open), text.substr(open + 1, text.size() - open - 2)};
}

std::wstring ElementName(std::wstring_view name, std::wstring_view key) {
    return std::wstring(name).append(1, L'[').append(key).append(1, L']');
}

/// Which variable is replaced next in a text.
struct Variables::Due {
    std::uint32_t InThisPass = NameIndex::kNone;  ///< The first one behind the last that had its turn.
    std::uint32_t InNextPass = NameIndex::kNone;  ///< The first one of all.
};

NameCheck Variables::Check(std::wstring_view name) const {
    if (IsReserved(name)) {
        return {NameFault::Reserved, NameIndex::kNone};
    }
    const std::uint32_t same = Find(name);
    if (same != NameIndex::kNone) {
        return {NameFault::Declared, same};
    }
    const std::uint32_t holder = FirstHolding(name);
    if (holder != NameIndex::kNone) {
        return {NameFault::InsideOther, holder};
    }
    const std::uint32_t inside = FirstInside(name);
    if (inside != NameIndex::kNone) {
        return {NameFault::HoldsOther, inside};
    }
    const bool isFull = Count() >= kMaxVariables || allNames_.size() + name.size() > kMaxNamesUnits;
    return {isFull ? NameFault::TooMany : NameFault::None, NameIndex::kNone};
}

std::uint32_t Variables::FirstHolding(std::wstring_view name) const {
    if (name.size() >= longestName_) {
        return NameIndex::kNone;
    }
    const std::size_t at = base::TextSearch(name).Find(allNames_, 0);
    if (at == std::wstring::npos) {
        return NameIndex::kNone;
    }
    return static_cast<std::uint32_t>(std::ranges::upper_bound(begins_, at) - begins_.begin() - 1);
}

std::uint32_t Variables::FirstInside(std::wstring_view name) const noexcept {
    std::uint32_t first = NameIndex::kNone;
    for (std::size_t at = 0; at < name.size(); ++at) {
        first = std::min(first, names_.At(name, at));
    }
    return first;
}

void Variables::Declare(std::wstring_view name) {
    names_.Add(name, static_cast<std::uint32_t>(variables_.size()));
    begins_.push_back(allNames_.size());
    allNames_.append(name).append(1, L'\0');
    longestName_ = std::max(longestName_, name.size());
    hasNumberLikeName_ = hasNumberLikeName_ || IsNumberLike(name);
    variables_.emplace_back().Name = name;
}

bool Variables::TakeRoom(std::size_t before, std::size_t after) noexcept {
    if (after > before && room_ + (after - before) > kMaxGatheredUnits) {
        return false;
    }
    room_ = room_ - before + after;
    return true;
}

bool Variables::SetText(std::uint32_t variable, std::wstring_view text) {
    Variable& it = variables_[variable];
    const std::size_t before = it.HasText && !it.HasNumber ? it.Text.size() : 0;
    const std::optional<std::int64_t> number = ExactNumber(text);
    if (!TakeRoom(before, number ? 0 : text.size())) {
        return false;
    }
    it.Text = text;
    it.HasText = true;
    it.HasNumber = number.has_value();
    it.Number = number.value_or(0);
    return true;
}

void Variables::SetNumber(std::uint32_t variable, std::int64_t number) noexcept {
    Variable& it = variables_[variable];
    if (!it.HasNumber) {
        TakeRoom(it.Text.size(), 0);
        it.Text.clear();
    }
    it.Number = number;
    it.HasNumber = true;
    it.HasText = false;
}

bool Variables::Append(std::uint32_t variable, std::wstring_view text) {
    Variable& it = variables_[variable];
    if (it.HasNumber) {
        const std::wstring whole = std::wstring(Text(variable)).append(text);
        return SetText(variable, whole);
    }
    if (!TakeRoom(0, text.size())) {
        return false;
    }
    it.Text.append(text);
    return true;
}

Variables::Due Variables::NextDue(std::wstring_view text, std::int64_t last) const {
    Due due;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::uint32_t variable = names_.At(text, at);
        if (variable == NameIndex::kNone || (variable >= due.InThisPass && variable >= due.InNextPass) ||
            Text(variable) == variables_[variable].Name) {
            continue;
        }
        due.InNextPass = std::min(due.InNextPass, variable);
        if (std::int64_t{variable} > last) {
            due.InThisPass = std::min(due.InThisPass, variable);
        }
    }
    return due;
}

bool Variables::Substitute(std::wstring& text) const {
    constexpr std::int64_t kBeforeAll = -1;
    std::int64_t last = kBeforeAll;
    for (int pass = 1;;) {
        Due due = NextDue(text, last);
        if (due.InThisPass == NameIndex::kNone) {
            if (due.InNextPass == NameIndex::kNone || pass == kMaxSubstitutionPasses) {
                return true;
            }
            ++pass;
            due.InThisPass = due.InNextPass;
        }
        if (!base::ReplaceAllWithin(text, Name(due.InThisPass), Text(due.InThisPass), kMaxValueUnits)) {
            return false;
        }
        last = due.InThisPass;
    }
}

PreparedText::Names Variables::NamesIn(std::wstring_view text, std::uint32_t& variable) const noexcept {
    std::size_t count = 0;
    std::size_t begin = 0;
    for (std::size_t at = 0; at < text.size() && count < 2; ++at) {
        const std::uint32_t found = names_.At(text, at);
        if (found != NameIndex::kNone) {
            ++count;
            begin = at;
            variable = found;
        }
    }
    if (count != 1) {
        return count == 0 ? PreparedText::Names::None : PreparedText::Names::Some;
    }
    const std::size_t end = begin + Name(variable).size();
    if (begin == 1 && end == text.size() && !base::IsSpace(text.front())) {
        return PreparedText::Names::Last;
    }
    const bool isAll = base::Trim(text).size() == end - begin;
    return isAll ? PreparedText::Names::One : PreparedText::Names::Some;
}

}  // namespace ferry::script
