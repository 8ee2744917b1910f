// SPDX-FileCopyrightText: 2026 pallo-board developers
// SPDX-License-Identifier: MIT

// Sends arbitrary datagrams, empty ones included, from a host end to the board's pipe
// client and reads them all. The input is cut into datagrams at each 0xff byte. Every
// datagram up to the size limit must arrive as sent; the link may only end on a longer one.
#include "host/named-pipe-callback.h"
#include "host/named-pipe-client.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

class Recorder : public NamedPipeCallback
{
public:
    void OnPipeMessage(const char* data, std::int32_t length) override
    {
        messages.emplace_back(data, static_cast<std::size_t>(length));
    }

    std::vector<std::string> messages;
};

struct Host
{
    Host()
    {
        char pattern[] = "/tmp/pallo-fuzz-pipe-XXXXXX";
        if (::mkdtemp(pattern) == nullptr)
            std::abort();
        path = std::string(pattern) + "/pipe";
        listener = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strcpy(address.sun_path, path.c_str());
        if (::bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
            ::listen(listener, 4) != 0)
            std::abort();
    }

    std::string path;
    int listener = -1;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Host host;
    Recorder recorder;
    NamedPipeClient client(&recorder);
    if (client.Open(host.path, 500) != 1)
        std::abort();
    const int server = ::accept4(host.listener, nullptr, nullptr, SOCK_CLOEXEC);
    if (server < 0)
        std::abort();

    std::vector<std::string> sent;
    std::string current;
    for (std::size_t i = 0; i <= size; ++i) {
        if (i == size || data[i] == 0xff) {
            sent.push_back(current);
            current.clear();
        } else {
            current.push_back(static_cast<char>(data[i]));
        }
    }
    std::vector<std::string> expected;
    bool tooLong = false;
    for (const std::string& message : sent) {
        if (::send(server, message.data(), message.size(), MSG_NOSIGNAL | MSG_DONTWAIT) !=
            static_cast<ssize_t>(message.size()))
            break;
        if (message.size() > static_cast<std::size_t>(NamedPipeClient::kMaxMessage)) {
            tooLong = true;
            break;
        }
        if (!message.empty())
            expected.push_back(message);
    }

    bool ended = false;
    for (std::size_t polls = 0; polls < sent.size() + 1; ++polls) {
        if (client.Poll(0) != 0) {
            ended = true;
            break;
        }
    }
    if (ended != tooLong || recorder.messages != expected)
        std::abort();
    ::close(server);
    return 0;
}
