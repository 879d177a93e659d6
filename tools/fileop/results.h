// Result codes and flags of the shell's file operation, in plain types.
#pragma once

#include <cstdint>

namespace ferry::fileop {

/// An HRESULT; the values are those of winerror.h and sherrors.h.
using Result = std::int32_t;

/// The HRESULT whose bits are `bits`.
constexpr Result FromBits(std::uint32_t bits) noexcept {
    return static_cast<Result>(bits);
}

/// The HRESULT of a Windows error code; kDone for 0.
constexpr Result FromWindowsError(std::uint32_t code) noexcept {
    return code == 0 ? 0 : FromBits(0x80070000U | (code & 0xFFFFU));
}

inline constexpr Result kDone = 0;
inline constexpr Result kFailed = FromBits(0x80004005);           // E_FAIL
inline constexpr Result kSkippedByPerson = FromBits(0x00270005);  // COPYENGINE_S_USER_IGNORED
inline constexpr Result kCancelled = FromBits(0x80270000);        // COPYENGINE_E_USER_CANCELLED
inline constexpr Result kSameFile = FromBits(0x80270003);         // COPYENGINE_E_SAME_FILE
inline constexpr Result kIntoItself = FromBits(0x80270009);       // COPYENGINE_E_DEST_SUBTREE
inline constexpr Result kFolderOntoFile = FromBits(0x8027000B);   // COPYENGINE_E_FLD_IS_FILE_DEST
inline constexpr Result kFileOntoFolder = FromBits(0x8027000C);   // COPYENGINE_E_FILE_IS_FLD_DEST
inline constexpr Result kRootAsSource = FromBits(0x8027001F);     // COPYENGINE_E_ROOT_DIR_SRC

// Windows error codes that the engine tells apart or gives itself (winerror.h).
inline constexpr std::uint32_t kErrorFileNotFound = 2;
inline constexpr std::uint32_t kErrorPathNotFound = 3;
inline constexpr std::uint32_t kErrorInvalidData = 13;
inline constexpr std::uint32_t kErrorNotSameDevice = 17;
inline constexpr std::uint32_t kErrorNotSupported = 50;
inline constexpr std::uint32_t kErrorFileExists = 80;
inline constexpr std::uint32_t kErrorInvalidName = 123;
inline constexpr std::uint32_t kErrorAlreadyExists = 183;
inline constexpr std::uint32_t kErrorRequestAborted = 1235;

// Operation flags that change what the engine does (shellapi.h, shobjidl.h).
inline constexpr std::uint32_t kFlagSilent = 0x0004;
inline constexpr std::uint32_t kFlagRenameOnCollision = 0x0008;
inline constexpr std::uint32_t kFlagNoConfirmation = 0x0010;
inline constexpr std::uint32_t kFlagAllowUndo = 0x0040;
inline constexpr std::uint32_t kFlagNoConfirmMakeFolder = 0x0200;
inline constexpr std::uint32_t kFlagNoErrorWindow = 0x0400;
inline constexpr std::uint32_t kFlagEarlyFailure = 0x0010'0000;

}  // namespace ferry::fileop
