// The host's variable: any text, against the rules written out plainly.
#include "hostlink/host_variable.h"

#include <vector>

#include "base/text.h"
#include "fuzz_input.h"

namespace {

using namespace ferry;

/// The pieces at ":", found unit by unit.
std::vector<std::wstring> NaivePieces(std::wstring_view text) {
    std::vector<std::wstring> pieces;
    std::wstring piece;
    std::size_t length = 0;
    for (; length < text.size() && text[length] != L'\0'; ++length) {
        if (text[length] == L':') {
            pieces.push_back(piece);
            piece.clear();
        } else {
            piece.push_back(text[length]);
        }
    }
    if (length != 0) {
        pieces.push_back(piece);
    }
    return pieces;
}

/// The value of the decimal digit `unit`, of any script whose digits a number text may have; -1 for any other
/// unit.
int NaiveDigit(wchar_t unit) {
    for (const wchar_t zero : std::wstring_view(L"0٠۰०০੦૦୦౦೦൦๐໐༠၀០᠐０")) {
        if (unit >= zero && unit <= zero + 9) {
            return unit - zero;
        }
    }
    return -1;
}

/// The number at the start of `text`, in arithmetic that cannot overflow.
int NaiveNumber(std::wstring_view text) {
    std::size_t at = 0;
    while (at < text.size() && base::IsSpace(text[at])) {
        ++at;
    }
    const bool negative = at < text.size() && text[at] == L'-';
    at += at < text.size() && (text[at] == L'-' || text[at] == L'+') ? 1 : 0;
    double magnitude = 0;
    for (; at < text.size() && NaiveDigit(text[at]) >= 0 && magnitude < 1e12; ++at) {
        magnitude = magnitude * 10 + NaiveDigit(text[at]);
    }
    const double value = negative ? -magnitude : magnitude;
    return value > 2147483647.0    ? 2147483647
           : value < -2147483648.0 ? -2147483647 - 1
                                   : static_cast<int>(value);
}

void CheckSplit(std::wstring_view text, const std::vector<std::wstring>& expected) {
    const std::vector<std::wstring_view> pieces = base::Split(text, L':');
    fuzz::Require(std::vector<std::wstring>(pieces.begin(), pieces.end()) == expected, "split as by hand");
    std::wstring joined;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        fuzz::Require(fuzz::LiesWithin(pieces[i], text), "pieces are views into the text");
        joined.append(i == 0 ? L"" : L":").append(pieces[i]);
    }
    fuzz::Require(joined == text.substr(0, text.find(L'\0')), "joining the pieces gives the text back");
}

void CheckVariable(std::wstring_view text, const std::vector<std::wstring>& pieces) {
    const auto variable = hostlink::ParseHostVariable(text);
    fuzz::Require(variable.has_value() == (pieces.size() == 10), "a value exactly for ten fields");
    if (!variable) {
        return;
    }
    fuzz::Require(variable->WindowMode == NaiveNumber(pieces[0]), "window mode");
    fuzz::Require(variable->ActivateHostOnExit == NaiveNumber(pieces[1]), "activation");
    fuzz::Require(variable->FirstNumber == NaiveNumber(pieces[2]), "first number");
    fuzz::Require(variable->SecondNumber == NaiveNumber(pieces[3]), "second number");
    fuzz::Require(variable->BlockSizeBytes == static_cast<std::uint32_t>(NaiveNumber(pieces[4])), "size");
    fuzz::Require(variable->ShareMode == (pieces[8] == L"Share"), "transport word");
    const std::wstring name = hostlink::BlockName(*variable);
    fuzz::Require(name == L"ShareMem_" + std::to_wstring(NaiveNumber(pieces[2])) + L"_" +
                              std::to_wstring(NaiveNumber(pieces[3])),
                  "block name");
    fuzz::Require(hostlink::BlockGuardName(*variable) == name + L"_Mutex", "guard name");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::ExactUnits text(fuzz::UnitsOf(data, size));
    const std::vector<std::wstring> pieces = NaivePieces(text.View());
    CheckSplit(text.View(), pieces);
    CheckVariable(text.View(), pieces);
    fuzz::Require(hostlink::PresenceMutexName(text.View()).starts_with(L"ExCommand."), "presence name");
    return 0;
}
