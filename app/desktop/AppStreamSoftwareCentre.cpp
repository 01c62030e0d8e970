#include "app/desktop/AppStreamSoftwareCentre.h"

#include <gio/gio.h>

#include <string>

#include "app/AppIdentity.h"

namespace ornivo::app {

bool AppStreamSoftwareCentre::canShowPage() const {
    GAppInfo* const handler = g_app_info_get_default_for_uri_scheme("appstream");
    if (!handler) return false;
    g_object_unref(handler);
    return true;
}

void AppStreamSoftwareCentre::showPage() {
    const std::string page = std::string("appstream:") + applicationID;
    g_app_info_launch_default_for_uri(page.c_str(), nullptr, nullptr);
}

}  // namespace ornivo::app
