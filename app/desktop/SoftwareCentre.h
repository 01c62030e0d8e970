#pragma once

namespace ornivo::app {

/// The program through which the user installs and updates others.
class SoftwareCentre {
public:
    virtual ~SoftwareCentre() = default;

    /// Whether there is one that can show this program's page. Asks the desktop anew.
    virtual bool canShowPage() const = 0;
    virtual void showPage() = 0;
};

}  // namespace ornivo::app
