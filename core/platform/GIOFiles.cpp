#include "platform/GIOFiles.h"

#include <gio/gio.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>

namespace ornivo::GIOFiles {
namespace {

struct Release {
    void operator()(GFile* file) const { g_object_unref(file); }
    void operator()(GError* error) const { g_error_free(error); }
};
using File = std::unique_ptr<GFile, Release>;

File localFile(const std::filesystem::path& path) {
    return File(g_vfs_get_file_for_path(g_vfs_get_local(), path.c_str()));
}

/// Takes the error over.
Failure failure(GError* error) {
    const std::unique_ptr<GError, Release> owned(error);
    const std::string_view words = error->message;
    const std::size_t colon = words.rfind(": ");
    const auto reason = colon == std::string_view::npos ? words : words.substr(colon + 2);
    return {errnoBehind(error->code, words), std::string(reason)};
}

struct Translation {
    int code;
    int errnoValue;
};

constexpr std::array translations{
    Translation{G_IO_ERROR_NOT_FOUND, ENOENT},
    Translation{G_IO_ERROR_EXISTS, EEXIST},
    Translation{G_IO_ERROR_IS_DIRECTORY, EISDIR},
    Translation{G_IO_ERROR_NOT_DIRECTORY, ENOTDIR},
    Translation{G_IO_ERROR_NOT_EMPTY, ENOTEMPTY},
    Translation{G_IO_ERROR_FILENAME_TOO_LONG, ENAMETOOLONG},
    Translation{G_IO_ERROR_TOO_MANY_LINKS, EMLINK},
    Translation{G_IO_ERROR_NO_SPACE, ENOSPC},
    Translation{G_IO_ERROR_INVALID_ARGUMENT, EINVAL},
    Translation{G_IO_ERROR_PERMISSION_DENIED, EACCES},
    Translation{G_IO_ERROR_NOT_SUPPORTED, ENOTSUP},
    Translation{G_IO_ERROR_TIMED_OUT, ETIMEDOUT},
    Translation{G_IO_ERROR_BUSY, EBUSY},
    Translation{G_IO_ERROR_READ_ONLY, EROFS},
    Translation{G_IO_ERROR_TOO_MANY_OPEN_FILES, EMFILE},
};

/// What GIO calls a plain failure, and tells in the system's words alone.
constexpr std::array toldInWords{EDQUOT, EFBIG, EIO, ENODEV, ENXIO, ESTALE, ENOMEM};

}  // namespace

std::optional<Failure> copy(const std::filesystem::path& from, const std::filesystem::path& to) {
    GError* error = nullptr;
    if (g_file_copy(localFile(from).get(), localFile(to).get(), G_FILE_COPY_NOFOLLOW_SYMLINKS,
                    nullptr, nullptr, nullptr, &error)) {
        return std::nullopt;
    }
    return failure(error);
}

std::optional<Failure> trash(const std::filesystem::path& file) {
    GError* error = nullptr;
    if (g_file_trash(localFile(file).get(), nullptr, &error)) return std::nullopt;
    return failure(error);
}

std::optional<int> errnoBehind(int code, std::string_view words) {
    const auto known = std::ranges::find(translations, code, &Translation::code);
    if (known != translations.end()) return known->errnoValue;

    const auto named = std::ranges::find_if(
        toldInWords, [&](int value) { return words.ends_with(g_strerror(value)); });
    if (named != toldInWords.end()) return *named;
    return std::nullopt;
}

}  // namespace ornivo::GIOFiles
