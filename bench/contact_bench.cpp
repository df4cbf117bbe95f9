// Reading and writing of contacts beside their floors: the least that any implementation must do.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "card_corpus.h"
#include "contact_values.h"
#include "peak_memory.h"
#include "versit/line_builder.h"
#include "vzapi/vzapi.h"

namespace vzapi::bench {
namespace {

void require(ResultCode result) {
    if (result != VZ_OK) throw std::runtime_error("a benchmark's conversion failed");
}

void read_card(std::string& card, ContactItem& item) {
    const VersitData in{sizeof in, 0, static_cast<std::uint32_t>(card.size()), card.data()};
    item = {};
    item.size = sizeof item;
    require(ConvertFromVersit(VZ_TYPE_CONTACT, &in, &item));
}

// The corpus card by card, and the records of the cards.
class Cards {
public:
    explicit Cards(std::size_t count) {
        const std::string corpus = card_corpus(count);
        constexpr std::string_view kBegin = "BEGIN:VCARD";
        for (std::size_t at = 0; at < corpus.size();) {
            const std::size_t next = std::min(corpus.find(kBegin, at + 1), corpus.size());
            texts_.push_back(corpus.substr(at, next - at));
            at = next;
        }
        items_.resize(texts_.size());
        values_.resize(texts_.size());
        for (std::size_t i = 0; i < texts_.size(); ++i) {
            read_card(texts_[i], items_[i]);
            add_values(items_[i], values_[i]);
        }
    }
    ~Cards() {
        for (ContactItem& item : items_) static_cast<void>(FreeConverterData(VZ_TYPE_CONTACT, &item));
    }
    Cards(const Cards&) = delete;
    Cards& operator=(const Cards&) = delete;

    std::vector<std::string>& texts() { return texts_; }
    const std::vector<ContactItem>& items() const { return items_; }
    const std::vector<ContactValues>& values() const { return values_; }

    std::size_t bytes() const {
        std::size_t sum = 0;
        for (const std::string& text : texts_) sum += text.size();
        return sum;
    }

private:
    std::vector<std::string> texts_;
    std::vector<ContactItem> items_;
    std::vector<ContactValues> values_;
};

void count_bytes(benchmark::State& state, std::size_t bytes) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

// ---- A phone book.

struct Free {
    void operator()(void* block) const noexcept { std::free(block); }
};

template <class Unit>
using Block = std::unique_ptr<Unit, Free>;

template <class Unit>
Block<Unit> allocate(std::size_t units) {
    Block<Unit> block(static_cast<Unit*>(std::malloc(units * sizeof(Unit))));
    if (!block) throw std::bad_alloc();
    return block;
}

void copy_and_scan(const std::string& text) {
    const auto copy = std::make_unique_for_overwrite<char[]>(text.size());
    std::memcpy(copy.get(), text.data(), text.size());
    std::size_t lines = 0;
    const char* const end = copy.get() + text.size();
    for (const char* at = copy.get(); at < end; ++lines) {
        const void* feed = std::memchr(at, '\n', static_cast<std::size_t>(end - at));
        at = feed == nullptr ? end : static_cast<const char*>(feed) + 1;
    }
    benchmark::DoNotOptimize(lines);
}

// Copies each text, looks for its line ends, and makes and releases each string that the record receives.
void ContactReadFloor(benchmark::State& state) {
    Cards cards(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        for (std::size_t i = 0; i < cards.texts().size(); ++i) {
            copy_and_scan(cards.texts()[i]);
            for (const std::u16string_view text : cards.values()[i].texts) {
                // The text's own bytes stand for what is widened: there are as many of them at the least.
                const char* narrow = reinterpret_cast<const char*>(text.data());
                const Block<char16_t> wide = allocate<char16_t>(text.size() + 1);
                std::copy(narrow, narrow + text.size(), wide.get());
                wide.get()[text.size()] = 0;
                benchmark::DoNotOptimize(wide.get());
            }
        }
    }
    count_bytes(state, cards.bytes());
}

void ContactRead(benchmark::State& state) {
    Cards cards(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        for (std::string& text : cards.texts()) {
            ContactItem item;
            read_card(text, item);
            require(FreeConverterData(VZ_TYPE_CONTACT, &item));
        }
    }
    count_bytes(state, cards.bytes());
}

// A loop that the compiler makes the best of.
template <class Units>
void append_units(const Units& units, std::string& text) {
    const std::size_t at = text.size();
    text.resize(at + units.size());
    std::copy(units.begin(), units.end(), text.begin() + static_cast<std::ptrdiff_t>(at));
}

// Appends all values to one buffer, and makes one block of it.
void ContactWriteFloor(benchmark::State& state) {
    const Cards cards(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        for (const ContactValues& values : cards.values()) {
            std::string text;
            for (const std::u16string_view value : values.texts) append_units(value, text);
            for (const auto photo : values.photos) append_units(photo, text);
            const Block<char> block = allocate<char>(text.size());
            std::copy(text.begin(), text.end(), block.get());
            benchmark::DoNotOptimize(block.get());
        }
    }
    count_bytes(state, cards.bytes());
}

void ContactWrite(benchmark::State& state) {
    const Cards cards(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        for (const ContactItem& item : cards.items()) {
            VersitData out{};
            require(ConvertToVersit(VZ_TYPE_CONTACT, &item, &out));
            require(FreeVersitData(&out));
        }
    }
    count_bytes(state, cards.bytes());
}

BENCHMARK(ContactReadFloor)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ContactRead)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ContactWriteFloor)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ContactWrite)->Arg(10'000)->Unit(benchmark::kMillisecond);

// ---- One card with a large photo. The counter is the memory that a call needs at most, with its result and
// without what the caller holds, in sizes of the card's text.

std::string photo_card(std::size_t bytes) {
    std::vector<std::byte> photo(bytes);
    for (std::size_t i = 0; i < bytes; ++i) photo[i] = static_cast<std::byte>(i * 2654435761U >> 13);
    versit::LineBuilder lines;
    lines.line("BEGIN:VCARD");
    lines.line("VERSION:2.1");
    lines.base64("PHOTO", ";ENCODING=BASE64;TYPE=JPEG", photo);
    lines.line("END:VCARD");
    return lines.take();
}

void report(benchmark::State& state, const PeakMemory& peak, std::size_t card) {
    count_bytes(state, card);
    state.counters["peak"] = static_cast<double>(peak.bytes()) / static_cast<double>(card);
}

void PhotoRead(benchmark::State& state) {
    std::string card = photo_card(static_cast<std::size_t>(state.range(0)) << 20);
    const PeakMemory peak;
    for ([[maybe_unused]] auto _ : state) {
        ContactItem item;
        read_card(card, item);
        require(FreeConverterData(VZ_TYPE_CONTACT, &item));
    }
    report(state, peak, card.size());
}

void PhotoWrite(benchmark::State& state) {
    ContactItem item;
    std::size_t size = 0;
    {
        std::string card = photo_card(static_cast<std::size_t>(state.range(0)) << 20);
        size = card.size();
        read_card(card, item);
    }
    const PeakMemory peak;
    for ([[maybe_unused]] auto _ : state) {
        VersitData out{};
        require(ConvertToVersit(VZ_TYPE_CONTACT, &item, &out));
        require(FreeVersitData(&out));
    }
    report(state, peak, size);
    require(FreeConverterData(VZ_TYPE_CONTACT, &item));
}

BENCHMARK(PhotoRead)->Arg(16)->Arg(32)->Arg(64)->Unit(benchmark::kMillisecond);
BENCHMARK(PhotoWrite)->Arg(16)->Arg(32)->Arg(64)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vzapi::bench
