#include "support/loopback_listener.h"

#include <winsock2.h>
#include <ws2tcpip.h>

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

std::intptr_t new_socket() {
    WSADATA data{};
    WSAStartup(MAKEWORD(2, 2), &data);
    return static_cast<std::intptr_t>(::socket(AF_INET, SOCK_STREAM, 0));
}

SOCKET handle(std::intptr_t socket) {
    return static_cast<SOCKET>(socket);
}

}  // namespace

LoopbackListener::LoopbackListener() : socket_(new_socket()) {
    sockaddr_in address = loopback(0);
    int size = sizeof address;
    const SOCKET listener = handle(socket_);
    if (listener == INVALID_SOCKET || bind(listener, generic(address), size) != 0 ||
        listen(listener, 4) != 0 ||
        getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
        throw std::runtime_error("no loopback port to listen at");
    }
    port_ = ntohs(address.sin_port);
}

LoopbackListener::~LoopbackListener() {
    closesocket(handle(socket_));
    WSACleanup();
}

std::string LoopbackListener::url(const std::string& name) const {
    return "http://127.0.0.1:" + std::to_string(port_) + "/" + name;
}

bool LoopbackListener::was_touched() const {
    fd_set waiting;
    FD_ZERO(&waiting);
    FD_SET(handle(socket_), &waiting);
    timeval no_time{};
    if (select(0, &waiting, nullptr, nullptr, &no_time) != 1) return false;
    closesocket(accept(handle(socket_), nullptr, nullptr));
    return true;
}

void LoopbackListener::touch() const {
    const SOCKET caller = ::socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = loopback(port_);
    const bool connected = connect(caller, generic(address), sizeof address) == 0;
    closesocket(caller);
    if (!connected) throw std::runtime_error("the loopback port cannot be reached");
}

}  // namespace vzapi::test
