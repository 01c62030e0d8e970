#include "platform/ExtendedAttributes.h"

#include <linux/limits.h>
#include <sys/types.h>
#include <sys/xattr.h>

#include <string>
#include <string_view>
#include <vector>

namespace ornivo {
namespace {

namespace fs = std::filesystem;

/// Names of the attributes, those of the system left out.
std::vector<std::string> userAttributes(const fs::path& file) {
    std::string list(XATTR_LIST_MAX, '\0');
    const ssize_t length = ::llistxattr(file.c_str(), list.data(), list.size());
    list.resize(length < 0 ? 0 : static_cast<std::size_t>(length));

    std::vector<std::string> names;
    for (std::size_t begin = 0; begin < list.size();) {
        const std::string name(list.c_str() + begin);
        if (name.starts_with("user.")) names.push_back(name);
        begin += name.size() + 1;
    }
    return names;
}

}  // namespace

void copyExtendedAttributes(const fs::path& from, const fs::path& to) {
    std::string value(XATTR_SIZE_MAX, '\0');
    for (const std::string& name : userAttributes(from)) {
        const ssize_t length = ::lgetxattr(from.c_str(), name.c_str(), value.data(), value.size());
        if (length < 0) continue;
        ::lsetxattr(to.c_str(), name.c_str(), value.data(), static_cast<std::size_t>(length), 0);
    }
}

}  // namespace ornivo
