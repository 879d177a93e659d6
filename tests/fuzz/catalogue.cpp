// A message file of any units, against a reader that takes one unit at a time.
#include "lang/catalogue.h"

#include "base/line_reader.h"
#include "base/text.h"
#include "fuzz_input.h"

namespace {

using namespace ferry;

/// Removes marks and line ends and turns the escape into a line feed, one rule after the other.
std::wstring CleanNaively(std::wstring line) {
    for (std::size_t at = 0; (at = line.find(L'\xFEFF', at)) != std::wstring::npos;) {
        line.erase(at, 1);
    }
    for (std::size_t at = 0; (at = line.find(L"\r\n", at)) != std::wstring::npos;) {
        line.erase(at, 2);
    }
    for (std::size_t at = 0; (at = line.find(L"\\n", at)) != std::wstring::npos; ++at) {
        line.replace(at, 2, L"\n");
    }
    while (!line.empty() && base::IsSpace(line.front())) {
        line.erase(0, 1);
    }
    while (!line.empty() && base::IsSpace(line.back())) {
        line.pop_back();
    }
    return line;
}

/// Takes a line off `text` as fgetws would.
std::wstring TakeLine(std::wstring_view& text) {
    std::size_t length = 0;
    while (length < text.size() && length < base::kMaxLineLength &&
           (length == 0 || text[length - 1] != L'\n')) {
        ++length;
    }
    const std::wstring line(text.substr(0, length));
    text.remove_prefix(length);
    return line.substr(0, line.find(L'\0'));
}

lang::CatalogueEntries ParseNaively(std::wstring_view text) {
    lang::CatalogueEntries entries;
    while (!text.empty()) {
        const std::wstring line = CleanNaively(TakeLine(text));
        if (line == L"EOF") {
            break;
        }
        const std::size_t tab = line.find(L'\t');
        if (line.substr(0, 2) == L"//" || tab == std::wstring::npos || line.rfind(L'\t') != tab) {
            continue;
        }
        const auto number = static_cast<unsigned>(base::ToInt(line.substr(0, tab)));
        entries[static_cast<std::uint16_t>(number & 0xFFFF)] = line.substr(tab + 1);
    }
    return entries;
}

class OneFile : public lang::TextFiles {
public:
    explicit OneFile(std::wstring_view text) : text_(text) {}
    std::optional<std::wstring> Read(std::wstring_view) override { return text_; }
    bool Write(std::wstring_view, std::wstring_view) override { return false; }

private:
    std::wstring text_;
};

class Silence : public lang::Speaker {
public:
    void Tell(const std::wstring&, lang::Tone) override {
        fuzz::Require(false, "no word about a file that was read");
    }
    bool Ask(const std::wstring&, lang::Tone) override { return false; }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::ExactUnits text(fuzz::UnitsOf(data, size));
    lang::CatalogueEntries entries;
    lang::ParseCatalogue(text.View(), entries);
    fuzz::Require(entries == ParseNaively(text.View()), "as the plain reader");

    OneFile file(text.View());
    Silence silence;
    lang::Catalogue catalogue(file, {}, silence);
    for (const auto& [number, entry] : entries) {
        fuzz::Require(catalogue.Fetch(number) == entry, "fetching gives the entry");
        fuzz::Require(entry.find(L'\xFEFF') == std::wstring::npos, "no mark is left");
        fuzz::Require(entry.find(L"\\n") == std::wstring::npos, "no escape is left");
    }
    return 0;
}
