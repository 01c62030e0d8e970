// A run may be killed at any moment, as by a power cut. What it leaves must be whole, and the run
// after it must find everything it needs.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <fstream>
#include <map>
#include <random>
#include <set>
#include <stdexcept>
#include <thread>

#include "platform/FileDescriptor.h"
#include "platform/Sha256.h"
#include "support/Pictures.h"
#include "support/PrivateTrash.h"
#include "support/TempFolder.h"

extern char** environ;

namespace ornivo {
namespace {

using namespace testing;
namespace fs = std::filesystem;

/// The two ends of a pipe that a child process doesn't get.
std::array<int, 2> privatePipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    return ends;
}

/// A run in a process of its own.
class Process {
public:
    Process(const fs::path& source, const fs::path& destination, bool trashes)
        : Process(source, destination, trashes, privatePipe()) {}

    /// Waits until the run takes its file number `count`, from 1; false if it ends before.
    bool awaitFile(int count) const {
        for (char sign = 0; count > 0; --count) {
            if (::read(signs_.get(), &sign, 1) != 1) return false;
        }
        return true;
    }

    void kill() const { ::kill(id_, SIGKILL); }

    /// The exit code, or the negative number of the signal that ended it.
    int wait() const {
        int status = 0;
        ::waitpid(id_, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

private:
    Process(const fs::path& source, const fs::path& destination, bool trashes,
            std::array<int, 2> signs)
        : signs_(signs[0]) {
        const FileDescriptor theirs(signs[1]);
        std::string program = ORNIVO_UNATTENDED_RUN;
        std::string from = source;
        std::string to = destination;
        std::string disposal = trashes ? "trash" : "keep";
        char* const arguments[] = {program.data(), from.data(), to.data(), disposal.data(),
                                   nullptr};
        posix_spawn_file_actions_t actions{};
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, theirs.get(), STDOUT_FILENO);
        const int failure =
            ::posix_spawn(&id_, program.c_str(), &actions, nullptr, arguments, environ);
        posix_spawn_file_actions_destroy(&actions);
        EXPECT_EQ(failure, 0);
    }

    FileDescriptor signs_;
    pid_t id_ = 0;
};

std::string digestOf(const fs::path& file) {
    Sha256 digest;
    digest.update(readFile(file));
    return digest.hexDigest();
}

/// The files in a folder and below it, with the digests of their contents.
std::map<fs::path, std::string> digests(const fs::path& folder) {
    std::map<fs::path, std::string> files;
    if (!fs::exists(folder)) return files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            files[entry.path().lexically_relative(folder)] = digestOf(entry.path());
        }
    }
    return files;
}

bool isHidden(const fs::path& file) {
    return file.filename().native().starts_with('.');
}

/// Written by the run itself, and meant to grow or be replaced.
bool isReport(const fs::path& file) {
    return file.filename() == "review.csv" || file.filename() == "review.html";
}

class KilledRun : public ::testing::TestWithParam<bool> {
protected:
    static constexpr int pictures = 16;
    static constexpr int moments = 25;

    void SetUp() override {
        std::mt19937 random(7);
        for (int i = 0; i < pictures; ++i) {
            const fs::path file = writeJpeg(
                originals() / ("IMG_" + std::to_string(100 + i) + ".jpg"), 40 + 2 * i, 30);
            // Decoders stop at the end of the picture; the copy takes its time.
            std::string rest(256 << 10, '\0');
            for (std::size_t at = 0; at < rest.size(); at += 512) {
                rest[at] = static_cast<char>(random());
            }
            std::ofstream(file, std::ios::app) << rest;
            writeFile(fs::path(file).replace_extension(".xmp"), "edits of " + std::to_string(i));
            // Of the doubtful shots, which the end of the run takes out of `_Uncertain` again.
            if (i % 4 == 1) writeDng(fs::path(file).replace_extension(".dng"), filled(302, 200));
        }
        for (const auto& [file, digest] : digests(originals())) wanted_.insert(digest);
    }

    fs::path originals() const { return folder_ / "originals"; }
    fs::path source() const { return folder_ / "source"; }
    fs::path destination() const { return folder_ / "sorted"; }

    void beginAnew() const {
        fs::remove_all(source());
        fs::remove_all(destination());
        fs::remove_all(privateTrash().parent_path());
        fs::copy(originals(), source(), fs::copy_options::recursive);
    }

    /// Under a final name lies the whole of a source and nothing else.
    void expectOnlyWholeFiles(const std::map<fs::path, std::string>& filed) const {
        for (const auto& [file, digest] : filed) {
            if (isHidden(file) || isReport(file)) continue;
            EXPECT_TRUE(wanted_.contains(digest)) << file << " is not whole";
        }
    }

    /// A source that has gone to the trash stands in the destination.
    void expectNothingLost(const std::map<fs::path, std::string>& filed) const {
        std::set<std::string> standing;
        for (const auto& [file, digest] : filed) standing.insert(digest);
        for (const auto& [file, digest] : digests(source())) standing.insert(digest);
        for (const std::string& digest : wanted_) EXPECT_TRUE(standing.contains(digest));
    }

    /// What lay in the destination lies there still, and at its place. A shot that is taken out of
    /// `_Uncertain` may take along what an earlier run left there under its name.
    void expectAllStand(const std::map<fs::path, std::string>& left,
                        const std::map<fs::path, std::string>& filed) const {
        std::multiset<std::string> before;
        std::multiset<std::string> after;
        for (const auto& [file, digest] : filed) after.insert(digest);
        for (const auto& [file, digest] : left) {
            if (isReport(file)) continue;
            before.insert(digest);
            EXPECT_LE(before.count(digest), after.count(digest)) << file << " has gone";
            if (*file.begin() == "_Uncertain") continue;
            ASSERT_TRUE(filed.contains(file)) << file;
            EXPECT_EQ(filed.at(file), digest) << file << " has changed";
        }
    }

    const TempFolder folder_;
    std::set<std::string> wanted_;
};

TEST_P(KilledRun, LeavesWholeFilesAndTheNextRunOverwritesNothing) {
    const bool trashes = GetParam();
    std::mt19937 random(trashes ? 1 : 2);
    std::uniform_int_distribution<int> number(1, pictures);
    // Longer than a file takes, so that any moment of its filing is met.
    std::uniform_int_distribution<long> later(0, 4000);
    int midway = 0;
    for (int i = 0; i < moments; ++i) {
        beginAnew();
        const Process killed(source(), destination(), trashes);
        ASSERT_TRUE(killed.awaitFile(number(random)));
        std::this_thread::sleep_for(std::chrono::microseconds(later(random)));
        killed.kill();
        killed.wait();
        const auto left = digests(destination());
        midway += !left.empty() && left.size() < wanted_.size();
        expectOnlyWholeFiles(left);
        expectNothingLost(left);
        if (!trashes) {
            EXPECT_EQ(digests(source()), digests(originals()));
        }

        ASSERT_EQ(Process(source(), destination(), trashes).wait(), 0);
        const auto filed = digests(destination());
        expectAllStand(left, filed);
        expectOnlyWholeFiles(filed);
        std::set<std::string> standing;
        for (const auto& [file, digest] : filed) standing.insert(digest);
        for (const std::string& digest : wanted_) EXPECT_TRUE(standing.contains(digest));
    }
    EXPECT_GT(midway, 0) << "no kill came while files were being filed";
}

INSTANTIATE_TEST_SUITE_P(KeepingOrTrashing, KilledRun, ::testing::Bool());

}  // namespace
}  // namespace ornivo
