#include "app/presentation/RecentFolder.h"

#include <algorithm>
#include <iterator>

#include "app/presentation/ScreenTexts.h"

namespace ornivo::app {

std::vector<RecentFolder> recentFolders(const std::vector<std::filesystem::path>& folders) {
    std::vector<RecentFolder> recent;
    std::ranges::transform(folders, std::back_inserter(recent), [](const auto& folder) {
        return RecentFolder{shownName(folder), onOneLine(shown(folder.string()))};
    });
    return recent;
}

}  // namespace ornivo::app
