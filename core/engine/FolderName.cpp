#include "engine/FolderName.h"

#include "platform/Text.h"

namespace ornivo {

std::string folderName(std::string_view text) {
    if (text == "." || text == "..") return replacing(text, '.', '_');
    return replacing(text, '/', '_');
}

}  // namespace ornivo
