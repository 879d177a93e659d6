#include "windows/dialog_template_win32.h"

#include <cstdint>
#include <cstring>
#include <iomanip>
#include <ostream>

#include "base/utf16.h"

namespace ferry::test {
namespace {

// The classes that a template names by a number, from 0x80 on (DLGITEMTEMPLATEEX).
constexpr const wchar_t* kClasses[] = {L"button", L"edit", L"static", L"listbox", L"scrollbar", L"combobox"};

/// Reads the numbers and texts of a template one after the other.
class Reader {
public:
    explicit Reader(const void* bytes) : start_(static_cast<const std::byte*>(bytes)), next_(start_) {}

    template <class Number>
    Number Next() {
        Number number;
        std::memcpy(&number, next_, sizeof(number));
        next_ += sizeof(number);
        return number;
    }

    std::wstring Text() {
        std::wstring text;
        while (const auto unit = Next<wchar_t>())
            text += unit;
        return text;
    }

    /// A text, or a number that stands for one.
    std::wstring TextOrNumber() {
        if (Peek() != 0xFFFF)
            return Text();
        Next<std::uint16_t>();
        const unsigned number = Next<std::uint16_t>();
        const unsigned place = number - 0x80;
        return place < std::size(kClasses) ? kClasses[place] : L"#" + std::to_wstring(number);
    }

    /// Each control begins at a multiple of four.
    void Align() { next_ += (4 - (next_ - start_) % 4) % 4; }

    void Skip(std::size_t count) { next_ += count; }

private:
    std::uint16_t Peek() const {
        std::uint16_t unit = 0;
        std::memcpy(&unit, next_, sizeof(unit));
        return unit;
    }

    const std::byte* start_;
    const std::byte* next_;
};

// Class names have no case, and what they look like is the resource compiler's choice.
std::wstring SmallLetters(std::wstring text) {
    for (wchar_t& unit : text)
        unit = unit >= L'A' && unit <= L'Z' ? static_cast<wchar_t>(unit + 32) : unit;
    return text;
}

TemplateItem ReadItem(Reader& reader) {
    TemplateItem item;
    reader.Align();
    reader.Next<DWORD>();  // the help number
    item.ExtendedStyle = reader.Next<DWORD>();
    item.Style = reader.Next<DWORD>();
    item.X = reader.Next<std::int16_t>();
    item.Y = reader.Next<std::int16_t>();
    item.Width = reader.Next<std::int16_t>();
    item.Height = reader.Next<std::int16_t>();
    item.Id = reader.Next<int>();
    item.Class = SmallLetters(reader.TextOrNumber());
    item.Text = reader.TextOrNumber();
    reader.Skip(reader.Next<std::uint16_t>());
    if (item.Class == L"static")
        item.Style &= ~DWORD{WS_GROUP};  // some compilers give it to each label, some do not
    return item;
}

std::wstring ReadFont(Reader& reader) {
    const int size = reader.Next<std::uint16_t>();
    const int weight = reader.Next<std::uint16_t>();
    const int italic = reader.Next<std::uint8_t>();
    const int characterSet = reader.Next<std::uint8_t>();
    std::wstring font = reader.Text();
    for (const int number : {size, weight, italic, characterSet})
        font += L" " + std::to_wstring(number);
    return font;
}

}  // namespace

DialogTemplate ReadDialogTemplate(int id) {
    DialogTemplate dialog;
    const HRSRC place = FindResourceW(nullptr, MAKEINTRESOURCEW(id), RT_DIALOG);
    const HGLOBAL loaded = place == nullptr ? nullptr : LoadResource(nullptr, place);
    if (loaded == nullptr)
        return dialog;
    Reader reader(LockResource(loaded));
    reader.Skip(8);  // the version, the signature, the help number
    dialog.ExtendedStyle = reader.Next<DWORD>();
    dialog.Style = reader.Next<DWORD>();
    const int count = reader.Next<std::uint16_t>();
    dialog.X = reader.Next<std::int16_t>();
    dialog.Y = reader.Next<std::int16_t>();
    dialog.Width = reader.Next<std::int16_t>();
    dialog.Height = reader.Next<std::int16_t>();
    reader.TextOrNumber();  // no menu
    reader.TextOrNumber();  // no class of its own
    dialog.Title = reader.Text();
    dialog.Font = ReadFont(reader);
    for (int index = 0; index < count; ++index)
        dialog.Items.push_back(ReadItem(reader));
    return dialog;
}

void PrintTo(const TemplateItem& item, std::ostream* stream) {
    *stream << item.Id << " " << base::ToUtf8(item.Class) << " at " << item.X << "," << item.Y << " size "
            << item.Width << "x" << item.Height << " \"" << base::ToUtf8(item.Text) << "\" style " << std::hex
            << item.Style << " " << item.ExtendedStyle << std::dec;
}

}  // namespace ferry::test
