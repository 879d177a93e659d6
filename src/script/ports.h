// The world that a script acts on: a person, programs, the host, files, the system. Each port is small; what
// stands elsewhere already (settings, files, clock, speaker) is used from there.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "calendar/clock.h"
#include "files/ports.h"
#include "lang/speaker.h"
#include "process/programs.h"
#include "settings/settings_store.h"

namespace ferry::script {

/// Shows the boxes that a script asks for.
class Boxes {
public:
    virtual ~Boxes() = default;

    /// Shows `text` in a message box with the host's title; `style` is a sum of MB_ numbers. The number of
    /// the button that was pressed: 1 OK, 2 Cancel, 6 Yes, 7 No.
    virtual int Show(const std::wstring& text, std::uint32_t style) = 0;
};

// What a script knows of a program is what everybody knows who starts one.
using process::kNoTimeLimit;
using process::ProgramStart;
using process::RunningProgram;

/// Starts programs, and has the shell open what is none.
class Programs {
public:
    virtual ~Programs() = default;

    /// Starts the program that a command names; nothing when the system cannot.
    virtual std::unique_ptr<RunningProgram> Start(const ProgramStart& start) = 0;

    /// Starts what a person chose to be told of a line that is not understood; nobody waits for it.
    virtual bool StartHelper(const std::wstring& commandLine) = 0;

    /// Opens a document, a folder or an address with the program that the shell knows for it. The first part
    /// of `CommandLine` names it; quotes around that part are left out, and the rest are its parameters.
    /// Without a WorkingFolder it is opened in its own. False when the shell refuses.
    virtual bool Open(const ProgramStart& what) = 0;
};

/// A text for another window, as one WM_COPYDATA.
struct Record {
    std::uint32_t Code = 0;  ///< dwData.
    std::wstring Text;       ///< lpData, with its terminator.

    /// cbData: what receivers have always been told, more than the text takes up. Whoever sends owns that
    /// many bytes, zero behind the text.
    std::size_t ByteCount() const noexcept { return 8 * Text.size() + 8; }
};

/// A place on the screen, in pixels; Right and Bottom lie just outside it.
struct ScreenBox {
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;
};

/// The host's main window.
class HostWindow {
public:
    virtual ~HostWindow() = default;

    /// Whether it is there still.
    virtual bool Exists() = 0;

    /// Sends `record` and waits until it was taken.
    virtual void HandOver(const Record& record) = 0;

    /// Posts `message`.
    virtual void Post(std::uint32_t message, int wParam, int lParam) = 0;

    /// Sends `message` and waits until it was taken.
    virtual void Send(std::uint32_t message, int wParam, int lParam) = 0;

    /// Where it stands; nothing when it is not there.
    virtual std::optional<ScreenBox> Position() = 0;
};

/// The window that shows what a script does.
class TraceWindow {
public:
    virtual ~TraceWindow() = default;

    /// Looks for the window with `title` and takes it for all that follows; whether there is one.
    virtual bool Find(const wchar_t* title) = 0;

    /// Sends `record` to the window that was found, and waits until it was taken; nothing when none was.
    virtual void Send(const Record& record) = 0;
};

/// A file that is read from its start.
class InFile {
public:
    virtual ~InFile() = default;

    /// Fills `bytes` as far as the file goes; how many were read, 0 at the end and after an error.
    virtual std::size_t Read(std::span<std::byte> bytes) = 0;
};

/// A file that is written; closed when this object goes.
class OutFile {
public:
    virtual ~OutFile() = default;

    /// Whether all of `bytes` were taken.
    virtual bool Write(std::span<const std::byte> bytes) = 0;
};

/// What happens to what a file holds when it is opened for writing.
enum class OpenMode {
    Append,     ///< "ab+S": kept, and written behind.
    Overwrite,  ///< "wbS": gone.
};

/// The files that a script names. Relative paths count from the current folder. While a file is open for
/// writing nobody else may open it (share flag 16 of _wfsopen, _SH_DENYRW).
class ByteFiles {
public:
    virtual ~ByteFiles() = default;

    /// Nothing when it cannot be opened.
    virtual std::unique_ptr<InFile> OpenToRead(std::wstring_view path) = 0;

    /// Makes the file when it is missing; nothing when it cannot be opened.
    virtual std::unique_ptr<OutFile> OpenToWrite(std::wstring_view path, OpenMode mode) = 0;
};

/// The clipboard of the user.
class Clipboard {
public:
    virtual ~Clipboard() = default;

    /// Its text; empty without one.
    virtual std::wstring Text() = 0;

    /// Best effort: another program may hold the clipboard.
    virtual void SetText(const std::wstring& text) = 0;
};

/// The system's speech service. Without one nothing is said, and nobody is told.
class Speech {
public:
    virtual ~Speech() = default;

    virtual void Speak(const std::wstring& text) = 0;
    virtual void SetFlags(int flags) = 0;     ///< SPF_ flags of the service, for what is spoken next.
    virtual void SetVolume(int percent) = 0;  ///< 0 to 100.
    virtual void SetRate(int rate) = 0;       ///< -10 to 10.
    virtual void SetPitch(int pitch) = 0;     ///< -10 to 10.
};

/// Chance.
class Chance {
public:
    virtual ~Chance() = default;

    /// A number from 0 to below `count`, which is above 0.
    virtual std::size_t Below(std::size_t count) = 0;
};

/// What the system knows of this process and its texts.
class Surroundings {
public:
    virtual ~Surroundings() = default;

    /// `text` with the environment's variables in place of %NAME%; unknown names stay.
    virtual std::wstring ExpandEnvironment(const std::wstring& text) = 0;

    /// The absolute form of `path`, as of GetFullPathNameW; `path` itself when there is none.
    virtual std::wstring FullPath(const std::wstring& path) = 0;

    /// The folder from which relative paths count, as the system writes it.
    virtual std::wstring CurrentFolder() = 0;

    /// `text` in the system's narrow (ANSI) encoding; what that lacks becomes "?", also where the encoding
    /// has something alike.
    virtual std::string Narrow(const std::wstring& text) = 0;

    /// The system metric `index`.
    virtual int Metric(int index) = 0;
};

/// Where the user and the program are at home.
class Homes {
public:
    virtual ~Homes() = default;

    /// The login name; nothing when it cannot be read.
    virtual std::optional<std::wstring> LoginName() = 0;

    /// The user's local application-data folder, without a separator at its end; nothing when the system
    /// does not know it.
    virtual std::optional<std::wstring> LocalAppData() = 0;

    /// The folder of the running executable, with its separator.
    virtual std::wstring ProgramFolder() = 0;
};

/// The pace of a run.
class Pace {
public:
    virtual ~Pace() = default;

    /// Waits so long, or until the person stops the run.
    virtual void Sleep(std::uint32_t milliseconds) = 0;

    /// Called before every statement: lets a person see that the script runs, and stop it. False when the
    /// person stopped it.
    virtual bool GoesOn() = 0;
};

/// All that a script may touch. What it refers to must outlive the engine.
struct World {
    script::Boxes& Boxes;
    lang::Speaker& Speaker;  ///< Tells of errors and asks, with the program's own title.
    script::Programs& Programs;
    script::HostWindow& Host;
    script::TraceWindow& Trace;
    settings::SettingsStore& Settings;
    files::FileInfo& Files;
    files::FolderSearch& Folders;
    files::FileChanges& Changes;
    script::ByteFiles& ByteFiles;
    script::Clipboard& Clipboard;
    script::Speech& Speech;
    calendar::Clock& Clock;
    script::Chance& Chance;
    script::Surroundings& Surroundings;
    script::Homes& Homes;
    script::Pace& Pace;
};

}  // namespace ferry::script
