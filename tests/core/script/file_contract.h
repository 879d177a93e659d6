// What scripts rely on in the files that they name. A disk and the one that is made up are held against the
// same tests.
#pragma once

#include <optional>
#include <string>

#include "script/ports.h"
#include "support/contract.h"

namespace ferry::script::contract {

/// Files under test, and looks at them by other means.
class FilePlace {
public:
    virtual ~FilePlace() = default;

    virtual ByteFiles& Files() = 0;

    /// The current folder, without a separator at its end; nothing is in it at first.
    virtual std::wstring Root() = 0;

    /// Another folder that is there, with a path of more than 300 units.
    virtual std::wstring LongFolder() = 0;

    /// Puts a file in place.
    virtual void Write(const std::wstring& path, const std::string& content) = 0;

    /// What the file at `path` holds; nothing when there is none.
    virtual std::optional<std::string> Content(const std::wstring& path) = 0;
};

class FileContract : public test::ContractOf<FilePlace> {
protected:
    ByteFiles& Files() { return AtPlace().Files(); }
    std::wstring Path(const std::wstring& name) { return AtPlace().Root() + L"\\" + name; }

    /// Opens the file, writes `content` and closes it; whether all that could be done.
    bool Write(const std::wstring& path, OpenMode mode, const std::string& content);

    /// All that can be read, in pieces of `pieceSize` bytes; nothing when the file cannot be opened.
    std::optional<std::string> Read(const std::wstring& path, std::size_t pieceSize = 100);
};

}  // namespace ferry::script::contract
