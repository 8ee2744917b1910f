// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "host/board-process.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <thread>

extern char** environ;

BoardProcess::~BoardProcess()
{
    if (pid_ > 0)
        wait(0);
    closeOutputs();
}

void BoardProcess::closeOutputs()
{
    for (int& fd : outputs_) {
        if (fd >= 0)
            ::close(fd);
        fd = -1;
    }
}

void BoardProcess::setVariable(const std::string& name, const std::string& value)
{
    variables_.push_back(name + "=" + value);
}

int BoardProcess::takeOutput(int stream)
{
    if (stream != STDOUT_FILENO && stream != STDERR_FILENO)
        return -1;
    const int fd = outputs_[stream];
    outputs_[stream] = -1;
    return fd;
}

bool BoardProcess::start(const std::string& program, const std::vector<std::string>& arguments,
                         std::string* error)
{
    std::vector<char*> argv;
    argv.push_back(const_cast<char*>(program.c_str()));
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);

    std::vector<char*> envp;
    for (std::string& variable : variables_)
        envp.push_back(&variable[0]);
    for (char** e = environ; *e != nullptr; ++e) {
        const std::string entry(*e);
        const std::string name = entry.substr(0, entry.find('=') + 1);
        bool replaced = false;
        for (const std::string& variable : variables_)
            replaced = replaced || variable.compare(0, name.size(), name) == 0;
        if (!replaced)
            envp.push_back(*e);
    }
    envp.push_back(nullptr);

    closeOutputs();
    int writeEnds[3] = {-1, -1, -1};
    for (int stream : {STDOUT_FILENO, STDERR_FILENO}) {
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) != 0) {
            *error =
                std::string("cannot make a pipe for the board's output: ") + std::strerror(errno);
            closeOutputs();
            if (writeEnds[STDOUT_FILENO] >= 0)
                ::close(writeEnds[STDOUT_FILENO]);
            return false;
        }
        outputs_[stream] = ends[0];
        writeEnds[stream] = ends[1];
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (int stream : {STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_adddup2(&actions, writeEnds[stream], stream);
    pid_t pid = -1;
    const int result =
        posix_spawn(&pid, program.c_str(), &actions, nullptr, argv.data(), envp.data());
    posix_spawn_file_actions_destroy(&actions);
    for (int stream : {STDOUT_FILENO, STDERR_FILENO})
        ::close(writeEnds[stream]);
    if (result != 0) {
        closeOutputs();
        *error = "cannot start " + program + ": " + std::strerror(result);
        return false;
    }
    pid_ = pid;
    exitCode_ = -1;
    return true;
}

bool BoardProcess::reap(int flags)
{
    if (pid_ <= 0)
        return true;
    int status = 0;
    pid_t done = -1;
    do {
        done = ::waitpid(pid_, &status, flags);
    } while (done < 0 && errno == EINTR);
    if (done == 0)
        return false;
    if (done == pid_) {
        if (WIFEXITED(status))
            exitCode_ = WEXITSTATUS(status);
        else if (WIFSIGNALED(status))
            exitCode_ = 128 + WTERMSIG(status);
    }
    pid_ = -1;
    return true;
}

bool BoardProcess::running()
{
    return !reap(WNOHANG);
}

int BoardProcess::wait(int timeoutMs)
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point deadline = Clock::now() + std::chrono::milliseconds(timeoutMs);
    while (!reap(WNOHANG)) {
        if (Clock::now() >= deadline) {
            ::kill(pid_, SIGTERM);
            reap(0);
            break;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return exitCode_;
}

std::string verboseLoggingRules(const char* existing)
{
    const std::string board = "pallo.*.debug=true";
    if (existing == nullptr || *existing == '\0')
        return board;
    return std::string(existing) + ";" + board;
}

namespace {

bool isExecutable(const std::string& path)
{
    return ::access(path.c_str(), X_OK) == 0;
}

std::string ownFolder()
{
    char buffer[PATH_MAX];
    const ssize_t n = ::readlink("/proc/self/exe", buffer, sizeof buffer - 1);
    if (n <= 0)
        return std::string();
    const std::string self(buffer, static_cast<std::size_t>(n));
    return self.substr(0, self.rfind('/'));
}

} // namespace

std::string locateBoard(const std::string& given)
{
    if (!given.empty())
        return given;
    const std::string folder = ownFolder();
    if (!folder.empty() && isExecutable(folder + "/pallo-board"))
        return folder + "/pallo-board";
    const char* path = std::getenv("PATH");
    std::string rest = path != nullptr ? path : "";
    while (!rest.empty()) {
        const std::size_t colon = rest.find(':');
        const std::string dir = rest.substr(0, colon);
        rest = colon == std::string::npos ? std::string() : rest.substr(colon + 1);
        if (!dir.empty() && isExecutable(dir + "/pallo-board"))
            return dir + "/pallo-board";
    }
    return std::string();
}
