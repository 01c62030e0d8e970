#pragma once

namespace ornivo {

/// The folder of a destination in which a run leaves the shots it isn't sure of, and where the
/// review page that decides them lies.
inline constexpr const char* uncertainFolderName = "_Uncertain";

}  // namespace ornivo
