// Reading and writing of text messages beside their floors: the least that any implementation must do.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "vzapi/vzapi.h"

namespace vzapi::bench {
namespace {

void require(ResultCode result) {
    if (result != VZ_OK) throw std::runtime_error("a benchmark's conversion failed");
}

void read_message(std::u16string& text, MessageItem& item) {
    const VersitData in{sizeof in, 0, static_cast<std::uint32_t>(text.size() * sizeof(char16_t)),
                        text.data()};
    item = {};
    item.size = sizeof item;
    require(ConvertFromVersit(VZ_TYPE_MESSAGE, &in, &item));
}

std::u16string written(const MessageItem& item) {
    VersitData out{};
    require(ConvertToVersit(VZ_TYPE_MESSAGE, &item, &out));
    std::u16string text(static_cast<const char16_t*>(out.text), out.length / sizeof(char16_t));
    require(FreeVersitData(&out));
    return text;
}

// What people write: every third message in more than one line, every second beyond ASCII.
std::u16string message_text(std::size_t index) {
    constexpr std::u16string_view kWords[] = {
        u"See you at seven",     u"Bring the charts",
        u"Bis sp\u00E4ter",      u"\u0434\u043E \u0437\u0430\u0432\u0442\u0440\u0430",
        u"\U0001F600 all right", u"The ferry leaves at 8:15"};
    std::u16string text;
    for (std::size_t i = 0; i < 1 + index % 7; ++i) {
        if (i > 0) text += index % 3 == 0 ? u"\r\n" : u", ";
        text += kWords[(index / 7 + i) % std::size(kWords)];
    }
    return text;
}

// A folder of messages: their records and their texts.
class Messages {
public:
    explicit Messages(std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) add(i);
    }
    ~Messages() {
        for (MessageItem& item : items_) static_cast<void>(FreeConverterData(VZ_TYPE_MESSAGE, &item));
    }
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;

    std::vector<std::u16string>& texts() { return texts_; }
    const std::vector<MessageItem>& items() const { return items_; }

    void count_bytes(benchmark::State& state) const {
        std::size_t units = 0;
        for (const std::u16string& text : texts_) units += text.size();
        state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(units * sizeof(char16_t)));
    }

private:
    void add(std::size_t index) {
        std::u16string text = message_text(index);
        std::u16string number = u"+15550100";
        MessageAddress address{0, number.data()};
        MessageItem item{};
        const std::uint32_t type = index % 2 == 0 ? VZ_MESSAGE_TYPE_DELIVER : VZ_MESSAGE_TYPE_SUBMIT;
        item.flags = VZ_MESSAGE_STATUS_READ << VZ_MESSAGE_STATUS_SHIFT | type << VZ_MESSAGE_TYPE_SHIFT;
        item.text = text.data();
        item.textLength = static_cast<std::uint32_t>(text.size() * sizeof(char16_t));
        item.addressCount = 1;
        item.addresses = &address;
        item.timestamp.year = 2009;
        item.timestamp.month = 3;
        item.timestamp.day = static_cast<std::uint8_t>(1 + index % 28);
        item.timestamp.hour = static_cast<std::uint8_t>(index % 24);
        texts_.push_back(written(item));
        items_.emplace_back();
        read_message(texts_.back(), items_.back());
    }

    std::vector<std::u16string> texts_;
    std::vector<MessageItem> items_;
};

struct Free {
    void operator()(void* block) const noexcept { std::free(block); }
};

using Block = std::unique_ptr<char16_t, Free>;

Block copy_of(const char16_t* units, std::size_t count) {
    Block block(static_cast<char16_t*>(std::malloc((count + 1) * sizeof(char16_t))));
    if (!block) throw std::bad_alloc();
    std::memcpy(block.get(), units, count * sizeof(char16_t));
    benchmark::DoNotOptimize(block.get());
    return block;
}

void scan_lines(const Block& text, std::size_t size) {
    std::size_t lines = 0;
    for (std::u16string_view rest(text.get(), size); !rest.empty(); ++lines) {
        const std::size_t feed = rest.find(u'\n');
        rest.remove_prefix(feed == rest.npos ? rest.size() : feed + 1);
    }
    benchmark::DoNotOptimize(lines);
}

// Copies each text, looks for its line ends, and makes and releases each block that the record receives.
void MessageReadFloor(benchmark::State& state) {
    Messages messages(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        for (std::size_t i = 0; i < messages.texts().size(); ++i) {
            const std::u16string& text = messages.texts()[i];
            scan_lines(copy_of(text.data(), text.size()), text.size());
            const MessageItem& item = messages.items()[i];
            const Block body = copy_of(item.text, item.textLength / sizeof(char16_t));
            const std::u16string_view number(item.addresses[0].number);
            const Block string = copy_of(number.data(), number.size());
            const Block addresses = copy_of(reinterpret_cast<const char16_t*>(item.addresses),
                                            sizeof(MessageAddress) / sizeof(char16_t));
        }
    }
    messages.count_bytes(state);
}

void MessageRead(benchmark::State& state) {
    Messages messages(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        for (std::u16string& text : messages.texts()) {
            MessageItem item;
            read_message(text, item);
            require(FreeConverterData(VZ_TYPE_MESSAGE, &item));
        }
    }
    messages.count_bytes(state);
}

// Appends the lines of each text to one buffer, and makes one block of it.
void MessageWriteFloor(benchmark::State& state) {
    Messages messages(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        for (const std::u16string& text : messages.texts()) {
            std::u16string buffer;
            for (std::u16string_view rest = text; !rest.empty();) {
                const std::size_t length = std::min(rest.find(u'\n'), rest.size() - 1) + 1;
                buffer.append(rest.substr(0, length));
                rest.remove_prefix(length);
            }
            copy_of(buffer.data(), buffer.size());
        }
    }
    messages.count_bytes(state);
}

void MessageWrite(benchmark::State& state) {
    const Messages messages(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        for (const MessageItem& item : messages.items()) {
            VersitData out{};
            require(ConvertToVersit(VZ_TYPE_MESSAGE, &item, &out));
            require(FreeVersitData(&out));
        }
    }
    messages.count_bytes(state);
}

BENCHMARK(MessageReadFloor)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(MessageRead)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(MessageWriteFloor)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(MessageWrite)->Arg(10'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vzapi::bench
