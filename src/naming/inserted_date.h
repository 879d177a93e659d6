// The date that is put into a name.
#pragma once

#include <string>
#include <string_view>

#include "calendar/clock.h"
#include "files/ports.h"

namespace ferry::naming {

/// Which instant is inserted; the numbers are those of the stored setting and of the list.
enum class DateSource { Now = 0, Created = 1, Modified = 2, Accessed = 3 };

/// The source with the number `number`; Now for a number that has none.
DateSource ToDateSource(int number) noexcept;

/// What is inserted into a name for `source`: its instant written by `format` (strftime). The instant is
/// the present moment, or when the item at `path`, of any length, was created, last written or last used.
/// An item that is not found has the file time zero, 1601-01-01 00:00:00 UTC, which is taken for local time
/// where that is behind UTC. For a time that the clock cannot tell the zero date is inserted.
std::wstring InsertedText(calendar::Clock& clock, files::FolderSearch& search, DateSource source,
                          std::wstring_view path, std::wstring_view format);

}  // namespace ferry::naming
