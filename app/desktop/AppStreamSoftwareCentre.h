#pragma once

#include "app/desktop/SoftwareCentre.h"

namespace ornivo::app {

/// The software centre that opens `appstream:` addresses, as those of the large desktops do.
class AppStreamSoftwareCentre final : public SoftwareCentre {
public:
    bool canShowPage() const override;
    void showPage() override;
};

}  // namespace ornivo::app
