#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <fstream>
#include <sstream>
#include <utility>

namespace ornivo::testing {

namespace fs = std::filesystem;

TempFolder::TempFolder() {
    std::string name = (fs::temp_directory_path() / "ornivo-test-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder could be made");
    path_ = name;
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

fs::path writeFile(const fs::path& path, std::string_view contents) {
    fs::create_directories(path.parent_path());
    std::ofstream out(path, std::ios::binary);
    out.write(contents.data(), static_cast<std::streamsize>(contents.size()));
    EXPECT_TRUE(out.good()) << path;
    return path;
}

std::string readFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    EXPECT_TRUE(in.good()) << path;
    std::ostringstream contents;
    contents << in.rdbuf();
    return std::move(contents).str();
}

fs::path sampleMedia() {
    const fs::path folder = fs::path(ORNIVO_SOURCE_DIR) / "../shared/media";
    return fs::exists(folder) ? fs::canonical(folder) : fs::path();
}

}  // namespace ornivo::testing
