#pragma once

namespace ornivo::app {

/// The program's name in the desktop's files: of its entry, icon, metadata and D-Bus services.
inline constexpr const char* applicationID = "org.ornivo.Ornivo";

}  // namespace ornivo::app
