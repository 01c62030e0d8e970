#include "cli/Program.h"

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <stdexcept>
#include <utility>

#include "support/PrivateTrash.h"

namespace ornivo::testing {

namespace {

/// A list of texts in the form in which the system takes it.
class CStrings {
public:
    explicit CStrings(std::vector<std::string> texts) : texts_(std::move(texts)) {
        for (auto& text : texts_) pointers_.push_back(text.data());
        pointers_.push_back(nullptr);
    }

    char** get() { return pointers_.data(); }

private:
    std::vector<std::string> texts_;
    std::vector<char*> pointers_;
};

CStrings argumentList(const std::string& program, const Arguments& arguments) {
    std::vector<std::string> all{program};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return CStrings(std::move(all));
}

CStrings environmentList(const Environment& changes) {
    Environment wanted = changes;
    wanted.try_emplace("TERM", "xterm");
    wanted.try_emplace("NO_COLOR", "");
    // The home folder is a private one, and so is the cache in it.
    wanted.try_emplace("XDG_CACHE_HOME", "");
    std::vector<std::string> all;
    for (char** variable = environ; *variable != nullptr; ++variable) {
        const std::string text = *variable;
        if (!wanted.contains(text.substr(0, text.find('=')))) all.push_back(text);
    }
    for (const auto& [name, value] : wanted) {
        if (!value.empty()) all.push_back(name + "=" + value);
    }
    return CStrings(std::move(all));
}

/// Reads what is there; false at the end.
bool readInto(std::string& text, int descriptor) {
    std::array<char, 4096> buffer{};
    const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
    if (count > 0) text.append(buffer.data(), static_cast<std::size_t>(count));
    return count > 0;
}

void closeIfOpen(int& descriptor) {
    if (descriptor >= 0) ::close(descriptor);
    descriptor = -1;
}

int codeOf(int status) {
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

int waitForEnd(pid_t& process) {
    int status = 0;
    while (::waitpid(process, &status, 0) < 0 && errno == EINTR) continue;
    process = -1;
    return codeOf(status);
}

void endNow(pid_t& process) {
    if (process < 0) return;
    ::kill(process, SIGKILL);
    waitForEnd(process);
}

}  // namespace

std::string builtProgram() {
    return std::string(ORNIVO_BINARY_DIR) + "/ornivo-cli";
}

Program::Program(const Arguments& arguments, const Environment& environment,
                 const std::string& program) {
    privateTrash();
    std::array<int, 2> out{};
    std::array<int, 2> err{};
    if (::pipe2(out.data(), O_CLOEXEC) != 0 || ::pipe2(err.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe");
    }
    posix_spawn_file_actions_t actions{};
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, err[1], STDERR_FILENO);
    const int failure =
        ::posix_spawn(&process_, program.c_str(), &actions, nullptr,
                      argumentList(program, arguments).get(), environmentList(environment).get());
    posix_spawn_file_actions_destroy(&actions);
    ::close(out[1]);
    ::close(err[1]);
    out_ = out[0];
    err_ = err[0];
    if (failure != 0) throw std::runtime_error(program + " can't be run");
}

Program::~Program() {
    endNow(process_);
    closeIfOpen(out_);
    closeIfOpen(err_);
}

Ending Program::run(const Arguments& arguments, const Environment& environment,
                    const std::string& program) {
    return Program(arguments, environment, program).finish();
}

bool Program::readSome() {
    // A closed stream is -1, which `poll` passes over.
    std::array<pollfd, 2> streams{pollfd{out_, POLLIN, 0}, pollfd{err_, POLLIN, 0}};
    if (::poll(streams.data(), streams.size(), -1) < 0) return errno == EINTR;
    if (streams[0].revents != 0 && !readInto(ending_.out, out_)) closeIfOpen(out_);
    if (streams[1].revents != 0 && !readInto(ending_.err, err_)) closeIfOpen(err_);
    return out_ >= 0 || err_ >= 0;
}

bool Program::waitForOutput(const std::string& text) {
    while (ending_.out.find(text) == std::string::npos) {
        if (!readSome()) return false;
    }
    return true;
}

void Program::send(int signal) const {
    ::kill(process_, signal);
}

void Program::closeOutput() {
    closeIfOpen(out_);
}

Ending Program::finish() {
    while ((out_ >= 0 || err_ >= 0) && readSome()) continue;
    ending_.code = waitForEnd(process_);
    return ending_;
}

TerminalProgram::TerminalProgram(const Arguments& arguments, int columns,
                                 const Environment& environment) {
    privateTrash();
    const std::string program = builtProgram();
    auto words = argumentList(program, arguments);
    auto variables = environmentList(environment);
    const winsize size{24, static_cast<unsigned short>(columns), 0, 0};
    process_ = ::forkpty(&terminal_, nullptr, nullptr, &size);
    if (process_ < 0) throw std::runtime_error("no terminal");
    if (process_ > 0) return;
    ::execve(program.c_str(), words.get(), variables.get());
    ::_exit(127);
}

TerminalProgram::~TerminalProgram() {
    endNow(process_);
    closeIfOpen(terminal_);
}

bool TerminalProgram::readSome() {
    // The end of a terminal comes as a failure to read.
    return readInto(ending_.out, terminal_);
}

bool TerminalProgram::waitFor(const std::string& text) {
    while (ending_.out.find(text) == std::string::npos) {
        if (!readSome()) return false;
    }
    return true;
}

void TerminalProgram::type(const std::string& keys) const {
    if (::write(terminal_, keys.data(), keys.size()) < 0) throw std::runtime_error("no terminal");
}

void TerminalProgram::resize(int columns) const {
    const winsize size{24, static_cast<unsigned short>(columns), 0, 0};
    ::ioctl(terminal_, TIOCSWINSZ, &size);
}

Ending TerminalProgram::finish() {
    while (readSome()) continue;
    ending_.code = waitForEnd(process_);
    return ending_;
}

}  // namespace ornivo::testing
