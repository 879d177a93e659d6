// The two fields of the rename dialog: what they take apart, they put together again.
#include "naming/name_fields.h"

#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace ferry;
    const fuzz::ExactUnits units(fuzz::UnitsOf(data, size));
    const std::wstring_view path = units.View();
    const std::size_t separator = path.rfind(L'\\');
    const std::wstring name(separator == std::wstring_view::npos ? path : path.substr(separator + 1));

    const naming::NameFields together = naming::FieldsOfName(path, false);
    fuzz::Require(together.Extension.empty(), "one field has it all");
    fuzz::Require(naming::NameOfFields(together) == name, "one field holds the name");

    // Items come with their full path, without a separator behind it.
    if (separator == std::wstring_view::npos || path.ends_with(L'\\') || path.ends_with(L'/')) {
        return 0;
    }
    const naming::NameFields apart = naming::FieldsOfName(path, true);
    fuzz::Require(apart.Extension.find(L'.') == std::wstring::npos, "an extension begins at the last dot");
    const std::size_t dot = name.rfind(L'.');
    if (dot == 0) {
        fuzz::Require(apart.Name == path, "with nothing before its dot the person sees the whole path");
    } else if (dot == std::wstring::npos) {
        fuzz::Require(apart == naming::NameFields{name, {}}, "a name without a dot has no extension");
    } else {
        fuzz::Require(apart.Name == name.substr(0, dot), "the name ends at its last dot");
        fuzz::Require(apart.Extension == name.substr(dot + 1), "the extension begins behind it");
    }
    return 0;
}
