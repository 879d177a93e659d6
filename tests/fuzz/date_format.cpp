// Dates and their formats, beside those of the C library.
#include "calendar/date_format.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <cwchar>

#include "fuzz_input.h"

namespace {

using namespace ferry;
using fuzz::Require;

/// Six fields of 32 bits; small ones where the first byte says so, since most numbers make no date.
calendar::CalendarFields TakeFields(const std::uint8_t* data) {
    std::array<std::int32_t, 6> numbers{};
    std::memcpy(numbers.data(), data + 1, sizeof numbers);
    if (data[0] % 4 != 0) {
        constexpr std::array<std::uint32_t, 6> kRanges{10100, 14, 33, 26, 62, 62};
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            numbers[i] = static_cast<std::int32_t>(static_cast<std::uint32_t>(numbers[i]) % kRanges[i]);
        }
    }
    return {numbers[0], numbers[1], numbers[2], numbers[3], numbers[4], numbers[5]};
}

/// The fields as the C library counts them; its record has the weekday and the day of the year.
std::tm CountByLibrary(const calendar::CalendarFields& fields) {
    std::tm record{};
    record.tm_year = fields.Year - 1900;
    record.tm_mon = fields.Month - 1;
    record.tm_mday = fields.Day;
    record.tm_hour = fields.Hour;
    record.tm_min = fields.Minute;
    record.tm_sec = fields.Second;
    const std::time_t instant = timegm(&record);
    std::tm counted{};
    gmtime_r(&instant, &counted);
    counted.tm_isdst = 0;
    return counted;
}

calendar::CalendarFields FieldsOf(const std::tm& record) {
    return {record.tm_year + 1900, record.tm_mon + 1, record.tm_mday,
            record.tm_hour,        record.tm_min,     record.tm_sec};
}

/// What a format holds.
struct Conversions {
    bool AreKnown = true;      ///< To the C library of Windows, for the year.
    bool AreModified = false;  ///< By letters of which this C library makes something else.
};

Conversions ConversionsOf(std::wstring_view format, int year) {
    const std::wstring_view known =
        year < 1900 ? L"aAbBCdDeFgGhHIjmMnprRStTuUVwWXyYzZ%" : L"aAbBcCdDeFgGhHIjmMnprRStTuUVwWxXyYzZ%";
    Conversions found;
    for (std::size_t at = format.find(L'%'); at != std::wstring_view::npos; at = format.find(L'%', at + 1)) {
        ++at;
        for (const std::wstring_view letters : {L"#", L"EO"}) {
            if (at < format.size() && letters.find(format[at]) != std::wstring_view::npos) {
                found.AreModified = true;
                ++at;
            }
        }
        if (at >= format.size() || known.find(format[at]) == std::wstring_view::npos) {
            found.AreKnown = false;
            return found;
        }
    }
    return found;
}

/// The text by the C library; it needs a format without a NUL.
std::wstring FormatByLibrary(std::tm record, std::wstring_view format) {
    record.tm_zone = nullptr;
    std::array<wchar_t, calendar::kDateTextCapacity> text{};
    return {text.data(), std::wcsftime(text.data(), text.size(), std::wstring(format).c_str(), &record)};
}

void CheckFormat(const calendar::DateTimeValue& value, std::wstring_view format) {
    const std::wstring text = calendar::FormatDateTime(value, format);
    Require(text.size() < calendar::kDateTextCapacity, "a text has room for its terminator");
    Require(calendar::FormatDateTime({}, format).empty(), "no value, no text");
    if (value.Status == calendar::DateTimeStatus::Invalid) {
        Require(text == L"Invalid DateTime", "an invalid value says so");
        return;
    }
    const Conversions conversions = ConversionsOf(format, value.Fields.Year);
    if (!conversions.AreKnown) {
        Require(text.empty(), "an unknown conversion gives nothing");
        return;
    }
    // The C library writes years of three digits without a zero, and the first week may be the last of such a
    // year.
    if (format.find(L'\0') == std::wstring_view::npos && value.Fields.Year > 1000 &&
        !conversions.AreModified) {
        Require(text == FormatByLibrary(CountByLibrary(value.Fields), format), "the C library's text");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The zone of the C library's record, which has no offset.
    static const int zone = setenv("TZ", "UTC0", 1);
    static_cast<void>(zone);
    constexpr std::size_t kFieldsSize = 1 + 6 * sizeof(std::int32_t);
    if (size < kFieldsSize) {
        return 0;
    }
    const calendar::CalendarFields fields = TakeFields(data);
    const fuzz::ExactUnits format(fuzz::UnitsOf(data + kFieldsSize, size - kFieldsSize));
    const calendar::DateTimeValue value = calendar::ToDateTime(fields);
    // Beyond these years the C library's own numbers overflow.
    if (fields.Year >= 0 && fields.Year <= 20000 && fields.Month > -1000 && fields.Month < 1000) {
        const bool isSame = FieldsOf(CountByLibrary(fields)) == fields;
        Require((value.Status == calendar::DateTimeStatus::Valid) ==
                    (isSame && fields.Year >= 100 && fields.Year <= 9999),
                "valid is what counts back to itself");
    }
    CheckFormat(value, format.View());
    CheckFormat(calendar::ToFileDateTime(fields), format.View());
    CheckFormat(calendar::ZeroDateTime(), format.View());
    return 0;
}
