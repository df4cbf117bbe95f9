// Many messages for a person to look over: a line each, the oldest first.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "vzapi/message.h"

namespace vzconv {

class MessageList {
public:
    // `place` says where the message stands.
    void add(const MessageItem& item, std::string place);

    // The lines: date, folder, addresses, state, the beginning of the text, place, in columns. Messages of
    // one time stay in the order in which they came; those without a time stand behind all others.
    std::string text() const;

private:
    static constexpr std::size_t kColumns = 6;

    struct Row {
        MessageTime time;
        std::string columns[kColumns];
    };
    std::vector<Row> rows_;
};

}  // namespace vzconv
