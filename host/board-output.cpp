// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#include "host/board-output.h"

#include <unistd.h>

#include <cerrno>

std::vector<std::string> LineSplitter::feed(const char* data, std::size_t size)
{
    std::vector<std::string> lines;
    pending_.append(data, size);
    std::size_t start = 0;
    for (std::size_t end = pending_.find('\n'); end != std::string::npos;
         end = pending_.find('\n', start)) {
        lines.push_back(pending_.substr(start, end - start));
        start = end + 1;
    }
    pending_.erase(0, start);
    return lines;
}

std::string LineSplitter::takeRest()
{
    std::string rest;
    rest.swap(pending_);
    return rest;
}

BoardOutput::~BoardOutput()
{
    finish();
}

void BoardOutput::start(int fd, LineHandler onLine)
{
    reader_ = std::thread([fd, onLine = std::move(onLine)] {
        LineSplitter splitter;
        char buffer[4096];
        for (;;) {
            const ssize_t n = ::read(fd, buffer, sizeof buffer);
            if (n < 0 && errno == EINTR)
                continue;
            if (n <= 0)
                break;
            for (const std::string& line : splitter.feed(buffer, static_cast<std::size_t>(n)))
                onLine(line);
        }
        const std::string rest = splitter.takeRest();
        if (!rest.empty())
            onLine(rest);
        ::close(fd);
    });
}

void BoardOutput::finish()
{
    if (reader_.joinable())
        reader_.join();
}
