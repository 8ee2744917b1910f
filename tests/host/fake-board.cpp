// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT

// Stands in for pallo-board in the pallo-host tests: connects to the pipe it is given,
// and writes its options and every message it reads, one per line, to the file named
// by FAKE_BOARD_OUTPUT. It ends when the host closes the pipe, with the exit code in
// FAKE_BOARD_EXIT. It writes FAKE_BOARD_SAY to standard output, without an end of line,
// as a board's half-written output line.
#include "bridge/options.h"
#include "host/named-pipe-callback.h"
#include "host/named-pipe-client.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

class Writer : public NamedPipeCallback
{
public:
    explicit Writer(std::FILE* out) : out_(out) {}

    void OnPipeMessage(const char* data, std::int32_t length) override
    {
        std::fprintf(out_, "message=%.*s\n", static_cast<int>(length), data);
        std::fflush(out_);
    }

private:
    std::FILE* out_;
};

} // namespace

int main(int argc, char** argv)
{
    bg::Options options("fake-board");
    options.add("name", 'n', "namepipe name", true, bg::Value(""));
    options.add("language", 'l', "app language", false, bg::Value(""));
    if (!options.parse(argc, argv))
        return 0;
    const char* outputPath = std::getenv("FAKE_BOARD_OUTPUT");
    std::FILE* out = outputPath != nullptr ? std::fopen(outputPath, "w") : stdout;
    if (out == nullptr)
        return 3;
    std::fprintf(out, "name=%s\nlanguage=%s\n", options.value("name").toStdString().c_str(),
                 options.value("language").toStdString().c_str());
    std::fflush(out);

    if (const char* say = std::getenv("FAKE_BOARD_SAY")) {
        std::fputs(say, stdout);
        std::fflush(stdout);
    }

    Writer writer(out);
    NamedPipeClient client(&writer);
    if (client.Open(options.value("name").toStdString(), 2000) == 0)
        return 4;
    while (client.Poll(10) == 0) {
    }
    std::fprintf(out, "closed\n");
    std::fclose(out);
    const char* exitCode = std::getenv("FAKE_BOARD_EXIT");
    return exitCode != nullptr ? std::atoi(exitCode) : 0;
}
