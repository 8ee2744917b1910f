// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdio>
#include <unistd.h>

// Sends everything written to standard error into a temporary file while it lives, so a
// test can read what a user would see on the terminal.
class StderrCapture
{
public:
    StderrCapture()
    {
        std::fflush(stderr);
        file_ = std::tmpfile();
        saved_ = ::dup(STDERR_FILENO);
        ::dup2(::fileno(file_), STDERR_FILENO);
    }

    ~StderrCapture()
    {
        restore();
        std::fclose(file_);
    }

    // Everything written so far; standard error goes back to the terminal.
    QByteArray finish()
    {
        restore();
        std::rewind(file_);
        QByteArray text;
        char buffer[4096];
        std::size_t n = 0;
        while ((n = std::fread(buffer, 1, sizeof buffer, file_)) > 0)
            text.append(buffer, static_cast<int>(n));
        return text;
    }

    QStringList lines() { return QString::fromUtf8(finish()).split('\n', Qt::SkipEmptyParts); }

private:
    void restore()
    {
        if (saved_ < 0)
            return;
        std::fflush(stderr);
        ::dup2(saved_, STDERR_FILENO);
        ::close(saved_);
        saved_ = -1;
    }

    std::FILE* file_ = nullptr;
    int saved_ = -1;
};
