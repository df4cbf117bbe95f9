// A TCP port of this machine that tells whether anybody came.
#pragma once

#include <cstdint>
#include <string>

namespace vzapi::test {

class LoopbackListener {
public:
    LoopbackListener();
    ~LoopbackListener();
    LoopbackListener(const LoopbackListener&) = delete;
    LoopbackListener& operator=(const LoopbackListener&) = delete;

    // "http://127.0.0.1:PORT/name"
    [[nodiscard]] std::string url(const std::string& name) const;
    // True when a connection has been made since the last call, which is then taken and closed.
    [[nodiscard]] bool was_touched() const;
    // Makes a connection, as proof that one is noticed.
    void touch() const;

private:
    std::intptr_t socket_;
    std::uint16_t port_ = 0;
};

}  // namespace vzapi::test
