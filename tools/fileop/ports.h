// What the copy engine asks of the world.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "results.h"

namespace ferry::fileop {

enum class ItemKind {
    Missing,
    File,
    Folder,
    Link,  ///< A folder that only points elsewhere; it is never walked into.
};

/// Files and folders. Paths may be longer than 259 characters. Functions that change something
/// give a Windows error code, 0 for success.
class Disk {
public:
    virtual ~Disk() = default;

    virtual ItemKind Kind(const std::wstring& path) = 0;

    /// Puts the names in `folder` into `names`, without "." and "..".
    virtual std::uint32_t List(const std::wstring& folder, std::vector<std::wstring>& names) = 0;

    /// Whether both paths lead to the same existing item, by whatever way.
    virtual bool IsSame(const std::wstring& left, const std::wstring& right) = 0;

    /// Another name each time in the folder of `path`; nobody has looked whether something has it.
    virtual std::wstring TemporaryBeside(const std::wstring& path) = 0;

    /// Copies content, attributes and last-write time to `target`; kErrorFileExists when there is one. Asks
    /// `goesOn` between blocks and gives kErrorRequestAborted when it says no; a part of the
    /// target may be left then, as after any failure. `settles` waits until the content has
    /// reached the volume, so that late write errors are seen too.
    virtual std::uint32_t Copy(const std::wstring& source, const std::wstring& target, bool settles,
                               const std::function<bool()>& goesOn) = 0;

    /// Gives an item a new path on the same volume, else kErrorNotSameDevice. `replaces` allows
    /// an existing file at `to` to be replaced in one step, also a read-only one.
    virtual std::uint32_t Rename(const std::wstring& from, const std::wstring& to, bool replaces) = 0;

    /// Makes an empty file, which must not exist.
    virtual std::uint32_t MakeFile(const std::wstring& path, std::uint32_t attributes) = 0;

    /// Makes a folder with its missing parents; an existing one is kErrorAlreadyExists.
    virtual std::uint32_t MakeFolder(const std::wstring& path) = 0;

    /// Gives the folder `target` the attributes of the folder `source`.
    virtual std::uint32_t CopyFolderAttributes(const std::wstring& source, const std::wstring& target) = 0;

    /// Removes a file, also a read-only one.
    virtual std::uint32_t RemoveFile(const std::wstring& path) = 0;

    /// Removes an empty folder, also a read-only one.
    virtual std::uint32_t RemoveFolder(const std::wstring& path) = 0;
};

enum class CollisionAnswer { Replace, Skip, Cancel };
enum class ErrorAnswer { Retry, Skip, Cancel };

/// The person before the screen.
class Person {
public:
    virtual ~Person() = default;

    /// Asks what to do about the file at `target`, which `source` would replace.
    virtual CollisionAnswer AskCollision(const std::wstring& source, const std::wstring& target) = 0;

    /// Asks whether the folder that an operation goes to may be made.
    virtual bool AskMakeFolder(const std::wstring& path) = 0;

    /// Tells that the item at `path` failed with `result`.
    virtual ErrorAnswer AskError(const std::wstring& path, Result result) = 0;

    /// Shows which item is being handled.
    virtual void ShowItem(const std::wstring& path) = 0;

    /// Lets the windows live, then says whether the run was cancelled.
    virtual bool HasCancelled() = 0;

    /// Waits while the windows live; ends early when the run is cancelled.
    virtual void Wait(std::uint32_t milliseconds) = 0;
};

/// One item that the engine was done with.
struct ItemRecord {
    std::uint32_t Count = 0;   ///< Its place among the items of the process, from 1.
    std::wstring_view Verb;    ///< "copy", "move", "rename", "new" or "folder".
    std::wstring_view Source;  ///< Empty for a new item.
    std::wstring_view Target;
    Result Outcome = kDone;
};

/// Where the engine writes down what it did.
class Journal {
public:
    virtual ~Journal() = default;
    virtual void Item(const ItemRecord& record) = 0;
    virtual void Failure(std::wstring_view path, Result result) = 0;
    virtual void Question(std::wstring_view path, std::wstring_view answer) = 0;
};

}  // namespace ferry::fileop
