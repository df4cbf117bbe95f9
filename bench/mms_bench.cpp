// Reading and writing of multimedia messages beside their floors: the least that any implementation must do.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <new>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/heap.h"
#include "platform/ole_string.h"
#include "vzapi/odcapi.h"

namespace vzapi::bench {
namespace {

constexpr std::size_t kPictures = 4;
constexpr std::size_t kPictureSize = 75'000;

void require(bool holds) {
    if (!holds) throw std::runtime_error("a benchmark's conversion failed");
}

// A message of pictures, each with a text, and a presentation: 300 KB.
class Picture {
public:
    Picture(std::size_t index, std::string& bytes)
        : location_(u"picture" + std::u16string(1, static_cast<char16_t>(u'0' + index)) + u".jpg") {
        part_.size = sizeof part_;
        part_.contentType = type_.data();
        part_.contentLocation = location_.data();
        part_.dataLength = static_cast<std::uint32_t>(bytes.size());
        part_.data = reinterpret_cast<std::uint8_t*>(bytes.data());
    }
    const MultimediaPart& part() const { return part_; }

private:
    std::u16string type_ = u"image/jpeg";
    std::u16string location_;
    MultimediaPart part_{};
};

MultimediaContent content(char16_t* text) {
    MultimediaContent value{};
    value.text = text;
    return value;
}

MultimediaContent content(std::uint64_t number) {
    MultimediaContent value{};
    value.number = number;
    return value;
}

std::string written(const MultimediaItem& item) {
    DataObject out{sizeof out, 0, 0, nullptr};
    require(ODCAPI_CreateDataObject(VZ_OBJECT_MULTIMEDIA, &item, &out) == VZ_OK);
    std::string pdu(static_cast<const char*>(out.text), out.length);
    require(ODCAPI_FreeDataObject(&out) == VZ_OK);
    return pdu;
}

std::string picture_message() {
    std::string bytes(kPictureSize, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * i >> 3U);
    std::u16string message_id = u"m7@example.net";
    MultimediaHeader headers[] = {
        {sizeof(MultimediaHeader), VZ_MMS_VALUE_NUMBER, VZ_MMS_HEADER_VERSION, 0, content(0x12)},
        {sizeof(MultimediaHeader), VZ_MMS_VALUE_DATE, VZ_MMS_HEADER_DATE, 0, content(983701230)},
        {sizeof(MultimediaHeader), VZ_MMS_VALUE_TEXT, VZ_MMS_HEADER_MESSAGE_ID, 0,
         content(message_id.data())},
    };
    std::vector<Picture> pictures;
    pictures.reserve(kPictures);
    std::vector<MultimediaPart> parts;
    for (std::size_t i = 0; i < kPictures; ++i) parts.push_back(pictures.emplace_back(i, bytes).part());
    MultimediaItem item{};
    item = {sizeof item, VZ_MMS_RETRIEVE_CONF,
            0,           static_cast<std::uint32_t>(std::size(headers)),
            headers,     kPictures,
            0,           parts.data()};
    return written(item);
}

DataObject object_of(std::string& pdu) {
    return {sizeof(DataObject), 0, static_cast<std::uint32_t>(pdu.size()), pdu.data()};
}

// A record that was read once: what the floors count by.
class Read {
public:
    explicit Read(std::string& pdu) {
        item_.size = sizeof item_;
        const DataObject in = object_of(pdu);
        require(ODCAPI_ParseDataObject(VZ_OBJECT_MULTIMEDIA, &in, &item_) == VZ_OK);
    }
    ~Read() { static_cast<void>(ODCAPI_FreeParsedData(VZ_OBJECT_MULTIMEDIA, &item_)); }
    Read(const Read&) = delete;
    Read& operator=(const Read&) = delete;

    const MultimediaItem& item() const { return item_; }

private:
    MultimediaItem item_{};
};

// The strings of the record.
std::vector<std::u16string_view> strings_of(const MultimediaItem& item) {
    std::vector<std::u16string_view> strings;
    const auto add = [&strings](const char16_t* text) {
        if (text != nullptr) strings.emplace_back(text);
    };
    for (const MultimediaHeader& header : std::span(item.headers, item.headerCount)) {
        if (header.kind == VZ_MMS_VALUE_TEXT) add(header.value.text);
    }
    for (const MultimediaPart& part : std::span(item.parts, item.partCount)) {
        for (const char16_t* text : {part.contentType, part.name, part.contentId, part.contentLocation})
            add(text);
        for (const MultimediaParameter& each : std::span(part.parameters, part.parameterCount)) {
            add(each.name);
            add(each.value.text);
        }
    }
    return strings;
}

// Makes and releases a block for each part, with a copy of its data, and each string.
void MultimediaReadFloor(benchmark::State& state) {
    std::string pdu = picture_message();
    const Read read(pdu);
    const std::vector<std::u16string_view> texts = strings_of(read.item());
    std::vector<void*> blocks;
    std::vector<char16_t*> strings;
    for ([[maybe_unused]] auto _ : state) {
        for (const MultimediaPart& part : std::span(read.item().parts, read.item().partCount)) {
            blocks.push_back(platform::heap_allocate(part.dataLength));
            if (part.dataLength != 0) std::memcpy(blocks.back(), part.data, part.dataLength);
        }
        for (const std::u16string_view text : texts) strings.push_back(platform::ole_string_allocate(text));
        benchmark::ClobberMemory();
        for (void* const block : blocks) platform::heap_free(block);
        for (char16_t* const string : strings) platform::ole_string_free(string);
        blocks.clear();
        strings.clear();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pdu.size()));
}

void MultimediaRead(benchmark::State& state) {
    std::string pdu = picture_message();
    for ([[maybe_unused]] auto _ : state) {
        const Read read(pdu);
        benchmark::DoNotOptimize(read.item().partCount);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pdu.size()));
}

// Makes one block of the length of the PDU, and copies the data into it.
void MultimediaWriteFloor(benchmark::State& state) {
    std::string pdu = picture_message();
    for ([[maybe_unused]] auto _ : state) {
        void* const block = platform::heap_allocate(pdu.size());
        std::memcpy(block, pdu.data(), pdu.size());
        benchmark::DoNotOptimize(block);
        platform::heap_free(block);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pdu.size()));
}

void MultimediaWrite(benchmark::State& state) {
    std::string pdu = picture_message();
    const Read read(pdu);
    for ([[maybe_unused]] auto _ : state) {
        DataObject out{sizeof out, 0, 0, nullptr};
        require(ODCAPI_CreateDataObject(VZ_OBJECT_MULTIMEDIA, &read.item(), &out) == VZ_OK);
        require(ODCAPI_FreeDataObject(&out) == VZ_OK);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(pdu.size()));
}

BENCHMARK(MultimediaReadFloor)->Unit(benchmark::kMicrosecond);
BENCHMARK(MultimediaRead)->Unit(benchmark::kMicrosecond);
BENCHMARK(MultimediaWriteFloor)->Unit(benchmark::kMicrosecond);
BENCHMARK(MultimediaWrite)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vzapi::bench
