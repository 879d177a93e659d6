// The sample host's command line.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host_block_writer.h"

namespace ferry::samplehost {

enum class DeliveryKind { Undecided, Block, Path, Bytes, Drop };

/// Something sent to Ferry while its dialog is open.
struct Delivery {
    DeliveryKind Kind = DeliveryKind::Undecided;
    int DelayMs = 0;                  ///< Counted from the delivery before, or from the dialog.
    std::uint64_t Tag = kBlockTag;    ///< The WM_COPYDATA tag.
    std::wstring Text;                ///< The path sent, or the file whose bytes are sent.
    std::vector<std::wstring> Paths;  ///< What is dropped.
};

/// The host window's place in screen pixels.
struct WindowPlace {
    int Left = 100;
    int Top = 100;
    int Width = 640;
    int Height = 400;
};

/// Everything that the command line can say.
struct HostOptions {
    bool Help = false;
    std::wstring FerryPath;  ///< Empty: nothing is started.
    std::vector<std::wstring> FerryArguments;
    VariableFields Variable;
    bool HasSizeOverride = false;  ///< Variable.BlockSize was given.
    std::optional<std::wstring> RawVariable;
    bool NoVariable = false;
    BlockFields Block;
    std::wstring ItemsFile;
    std::wstring BlockFile;
    bool NoBlock = false;
    std::uint32_t MappingSizeBytes = 0;  ///< 0: as large as the block and the announced size.
    int HoldGuardMs = 0;
    int AnswerAfterMs = 0;
    WindowPlace Window;
    std::wstring TraceTitle;  ///< Empty: no trace window.
    bool Stay = false;
    int Seconds = 0;  ///< 0: no limit.
    std::wstring LogFile;
    std::vector<Delivery> Deliveries;
};

/// Reads `arguments` (without the program's name) into `options`.
/// The result is empty on success, else a line that says what is wrong.
std::wstring ParseHostOptions(std::span<const std::wstring> arguments, HostOptions& options);

/// The text of --help, with one entry for each option.
std::wstring HostOptionsHelp();

}  // namespace ferry::samplehost
