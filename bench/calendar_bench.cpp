// Reading and writing of calendar entries beside their floors: the least that any implementation must do.
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

void read_entry(std::string& text, CalendarItem& item) {
    const VersitData in{sizeof in, 0, static_cast<std::uint32_t>(text.size()), text.data()};
    item = {};
    item.size = sizeof item;
    require(ConvertFromVersit(VZ_TYPE_CALENDAR, &in, &item));
}

// What people enter: every third entry beyond ASCII, every third recurring, every fourth with an alarm, every
// ninth with exceptions, every tenth a to-do.
std::string entry_text(std::size_t index) {
    const auto number = [index](std::size_t first, std::size_t count) {
        const std::string digits = std::to_string(first + index % count);
        return digits.size() < 2 ? '0' + digits : digits;
    };
    const std::string day = "2009" + number(1, 12) + number(1, 28);
    const bool is_todo = index % 10 == 9;
    std::string text = "BEGIN:VCALENDAR\r\nVERSION:1.0\r\n";
    text += is_todo ? "BEGIN:VTODO\r\nDUE:" : "BEGIN:VEVENT\r\nDTSTART:";
    text += day + 'T' + number(6, 14) + "0000\r\nDTEND:" + day + 'T' + number(7, 14) + "3000\r\n";
    text += index % 4 == 0 ? "AALARM:" + day + 'T' + number(5, 14) + "4500;;0;\r\n" : "AALARM:\r\n";
    text += is_todo ? "X-EPOCAGENDAENTRYTYPE:TODO\r\n" : "X-EPOCAGENDAENTRYTYPE:APPOINTMENT\r\n";
    if (index % 3 == 0) {
        text += "SUMMARY;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:Caf=C3=A9 =D0=B4=D0=BE =D0=B7=D0=B0\r\n";
        text += "DESCRIPTION;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:Bring the charts,=0D=0Athe log=\r\n";
        text += " and =E2=82=AC 20 for the harbour master\r\n";
    } else {
        text += "SUMMARY:Regatta of the harbour, leg " + number(1, 40) + "\r\n";
        text += "DESCRIPTION:Bring the charts, the log and 20 for the harbour master\r\n";
    }
    text += is_todo ? "PRIORITY:2\r\n" : "LOCATION:Pier " + number(1, 30) + "\r\n";
    if (index % 3 == 1)
        text += index % 2 == 0 ? "RRULE:W2 TU TH #0\r\n" : "RRULE:MP1 2+ TU 20101231T000000\r\n";
    if (index % 9 == 1) text += "EXDATE:20090310T090000;20090324T090000;20090407T090000\r\n";
    text += is_todo ? "END:VTODO\r\n" : "END:VEVENT\r\n";
    return text + "END:VCALENDAR\r\n";
}

// A diary: the texts of its entries and their records.
class Entries {
public:
    explicit Entries(std::size_t count) : items_(count) {
        for (std::size_t i = 0; i < count; ++i) {
            texts_.push_back(entry_text(i));
            read_entry(texts_.back(), items_[i]);
        }
    }
    ~Entries() {
        for (CalendarItem& item : items_) static_cast<void>(FreeConverterData(VZ_TYPE_CALENDAR, &item));
    }
    Entries(const Entries&) = delete;
    Entries& operator=(const Entries&) = delete;

    std::vector<std::string>& texts() { return texts_; }
    const std::vector<CalendarItem>& items() const { return items_; }

    void count_bytes(benchmark::State& state) const {
        std::size_t bytes = 0;
        for (const std::string& text : texts_) bytes += text.size();
        state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
    }

private:
    std::vector<std::string> texts_;
    std::vector<CalendarItem> items_;
};

struct Free {
    void operator()(void* block) const noexcept { std::free(block); }
};

using Block = std::unique_ptr<char, Free>;

Block copy_of(const void* bytes, std::size_t size) {
    Block block(static_cast<char*>(std::malloc(size)));
    if (!block) throw std::bad_alloc();
    std::memcpy(block.get(), bytes, size);
    benchmark::DoNotOptimize(block.get());
    return block;
}

void copy_and_scan(const std::string& text) {
    const Block copy = copy_of(text.data(), text.size());
    std::size_t lines = 0;
    const char* const end = copy.get() + text.size();
    for (const char* at = copy.get(); at < end; ++lines) {
        const void* feed = std::memchr(at, '\n', static_cast<std::size_t>(end - at));
        at = feed == nullptr ? end : static_cast<const char*>(feed) + 1;
    }
    benchmark::DoNotOptimize(lines);
}

bool is_text(const CalendarField& field) {
    return field.fieldId != VZ_CALENDAR_PRIORITY && field.fieldId != VZ_CALENDAR_STATUS;
}

// Copies each text, looks for its line ends, and makes and releases each block that the record receives.
void CalendarReadFloor(benchmark::State& state) {
    Entries entries(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        for (std::size_t i = 0; i < entries.texts().size(); ++i) {
            copy_and_scan(entries.texts()[i]);
            const CalendarItem& item = entries.items()[i];
            const Block fields = copy_of(item.fields, item.fieldCount * sizeof *item.fields);
            if (item.exceptionCount != 0) {
                copy_of(item.exceptions, item.exceptionCount * sizeof *item.exceptions);
            }
            for (std::size_t field = 0; field < item.fieldCount; ++field) {
                if (!is_text(item.fields[field])) continue;
                const std::u16string_view text(item.fields[field].value.text);
                copy_of(text.data(), (text.size() + 1) * sizeof(char16_t));
            }
        }
    }
    entries.count_bytes(state);
}

void CalendarRead(benchmark::State& state) {
    Entries entries(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        for (std::string& text : entries.texts()) {
            CalendarItem item;
            read_entry(text, item);
            require(FreeConverterData(VZ_TYPE_CALENDAR, &item));
        }
    }
    entries.count_bytes(state);
}

// Appends each line that a text has to one buffer, and makes one block of it.
void CalendarWriteFloor(benchmark::State& state) {
    Entries entries(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        for (const std::string& entry : entries.texts()) {
            std::string text;
            for (std::string_view rest = entry; !rest.empty();) {
                const std::string_view line = rest.substr(0, rest.find('\n') + 1);
                text.append(line);
                rest.remove_prefix(line.size());
            }
            copy_of(text.data(), text.size());
        }
    }
    entries.count_bytes(state);
}

void write(benchmark::State& state, std::uint32_t profile_version) {
    Entries entries(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        for (const CalendarItem& item : entries.items()) {
            VersitData out{};
            require(ConvertToVersit2(VZ_PROFILE_20, profile_version, VZ_PROFILE_ON, VZ_TYPE_CALENDAR, &item,
                                     &out));
            require(FreeVersitData(&out));
        }
    }
    entries.count_bytes(state);
}

void CalendarWrite(benchmark::State& state) {
    write(state, 0);
}

void CalendarWriteVersion2(benchmark::State& state) {
    write(state, VZ_PROFILE_20_CALENDAR_2);
}

BENCHMARK(CalendarReadFloor)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(CalendarRead)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(CalendarWriteFloor)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(CalendarWrite)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(CalendarWriteVersion2)->Arg(10'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vzapi::bench
