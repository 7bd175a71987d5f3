// Shared constants: windows, modules, platform names and error codes.
#pragma once

#include <cstdint>

inline constexpr std::uint64_t kWindow = 0x20316;
inline constexpr std::uint64_t kOtherWindow = 0x20318;

// Natively any number is a module.
inline constexpr std::uint64_t kModule = 1;

// Kinds of system items: volume, undo and redo.
inline constexpr std::int32_t kTwoSystemItems[] = {3, 2};

inline constexpr char kControllers[] = "Windows.UI.Input.RadialController";
inline constexpr char kContacts[] = "Windows.UI.Input.RadialControllerScreenContact";

inline constexpr std::int32_t kFail = static_cast<std::int32_t>(0x80004005);
inline constexpr std::int32_t kNoInterface = static_cast<std::int32_t>(0x80004002);
inline constexpr std::int32_t kAccessDenied = static_cast<std::int32_t>(0x80070005);
inline constexpr std::int32_t kOutOfMemory = static_cast<std::int32_t>(0x8007000E);
inline constexpr std::int32_t kClassNotRegistered = static_cast<std::int32_t>(0x80040154);
inline constexpr std::int32_t kDisconnected = static_cast<std::int32_t>(0x80010108);
inline constexpr std::int32_t kInvalidArgument = static_cast<std::int32_t>(0x80070057);
inline constexpr std::int32_t kTypeMismatch = static_cast<std::int32_t>(0x80028CA0);
inline constexpr std::int32_t kOutOfBounds = static_cast<std::int32_t>(0x8000000B);
