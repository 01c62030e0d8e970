#pragma once

namespace ornivo::app {

/// The program's icon in the desktop's dock or task bar.
class LauncherEntry {
public:
    virtual ~LauncherEntry() = default;

    /// Shows a bar; `share` is 0 to 1.
    virtual void showProgress(double share) = 0;
    virtual void hideProgress() = 0;
};

}  // namespace ornivo::app
