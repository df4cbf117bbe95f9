#include "support/loopback_listener.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

namespace vzapi::test {
namespace {

sockaddr_in loopback(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

const sockaddr* generic(const sockaddr_in& address) {
    return reinterpret_cast<const sockaddr*>(&address);
}

}  // namespace

LoopbackListener::LoopbackListener() : socket_(::socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address = loopback(0);
    socklen_t size = sizeof address;
    const int listener = static_cast<int>(socket_);
    if (listener < 0 || bind(listener, generic(address), size) != 0 || listen(listener, 4) != 0 ||
        getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
        throw std::runtime_error("no loopback port to listen at");
    }
    port_ = ntohs(address.sin_port);
}

LoopbackListener::~LoopbackListener() {
    close(static_cast<int>(socket_));
}

std::string LoopbackListener::url(const std::string& name) const {
    return "http://127.0.0.1:" + std::to_string(port_) + "/" + name;
}

bool LoopbackListener::was_touched() const {
    pollfd waiting{static_cast<int>(socket_), POLLIN, 0};
    if (poll(&waiting, 1, 0) != 1) return false;
    close(accept(static_cast<int>(socket_), nullptr, nullptr));
    return true;
}

void LoopbackListener::touch() const {
    const int caller = ::socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = loopback(port_);
    const bool connected = connect(caller, generic(address), sizeof address) == 0;
    close(caller);
    if (!connected) throw std::runtime_error("the loopback port cannot be reached");
}

}  // namespace vzapi::test
