// The parser beside its floor: the least that any implementation must do with a text is to copy it once and
// to look once for every line end.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <string>

#include "card_corpus.h"
#include "versit/parser.h"

namespace vzapi::bench {
namespace {

void count_bytes(benchmark::State& state, const std::string& text) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void copy_and_scan(benchmark::State& state, const std::string& text) {
    for ([[maybe_unused]] auto _ : state) {
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
    count_bytes(state, text);
}

void parse_text(benchmark::State& state, const std::string& text) {
    for ([[maybe_unused]] auto _ : state) benchmark::DoNotOptimize(versit::parse(text).count());
    count_bytes(state, text);
}

void CardsFloor(benchmark::State& state) {
    copy_and_scan(state, card_corpus(static_cast<std::size_t>(state.range(0))));
}
void CardsParse(benchmark::State& state) {
    parse_text(state, card_corpus(static_cast<std::size_t>(state.range(0))));
}
void FoldedFloor(benchmark::State& state) {
    copy_and_scan(state, folded_card(static_cast<std::size_t>(state.range(0))));
}
void FoldedParse(benchmark::State& state) {
    parse_text(state, folded_card(static_cast<std::size_t>(state.range(0))));
}

BENCHMARK(CardsFloor)->Arg(10'000)->Arg(20'000)->Arg(40'000)->Unit(benchmark::kMillisecond);
BENCHMARK(CardsParse)->Arg(10'000)->Arg(20'000)->Arg(40'000)->Unit(benchmark::kMillisecond);
BENCHMARK(FoldedFloor)->Arg(250'000)->Arg(500'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(FoldedParse)->Arg(250'000)->Arg(500'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vzapi::bench
