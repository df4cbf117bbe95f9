// Messages of our own, and of many makers when they are there: what JSON makes of one is what the library
// writes for the record that it reads.
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "vzapi/odcapi.h"
#include "vzconv/failure.h"
#include "vzconv/json_object.h"
#include "vzconv/multimedia.h"
#include "vzconv/multimedia_parts.h"

namespace vzconv {
namespace {

constexpr const char* kFolders[] = {VZCONV_MULTIMEDIA_FOLDERS};

std::vector<std::filesystem::path> samples() {
    std::vector<std::filesystem::path> files;
    for (const char* folder : kFolders) {
        std::error_code error;
        for (const auto& each : std::filesystem::directory_iterator(folder, error)) {
            if (each.path().extension() == ".mms") files.push_back(each.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string content_of(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// Read and written without any of the tool's code; empty when it cannot be.
std::string written_directly(std::string pdu) {
    MultimediaItem item{};
    item.size = sizeof item;
    const DataObject in{sizeof in, VZ_FORMAT_CONVERTED, static_cast<uint32_t>(pdu.size()), pdu.data()};
    std::string written;
    if (ODCAPI_ParseDataObject(VZ_OBJECT_MULTIMEDIA, &in, &item) == VZ_OK) {
        DataObject out{sizeof out, VZ_FORMAT_CONVERTED, 0, nullptr};
        if (ODCAPI_CreateDataObject(VZ_OBJECT_MULTIMEDIA, &item, &out) == VZ_OK)
            written.assign(static_cast<const char*>(out.text), out.length);
        EXPECT_EQ(ODCAPI_FreeDataObject(&out), VZ_OK);
    }
    EXPECT_EQ(ODCAPI_FreeParsedData(VZ_OBJECT_MULTIMEDIA, &item), VZ_OK);
    return written;
}

// Read, said in JSON, and written from that; empty when it cannot be.
std::string written_from_json(const std::string& pdu, const Options& options) {
    try {
        nlohmann::ordered_json object = nlohmann::ordered_json::object();
        kMultimediaConverter.to_json(pdu, options, object);
        return kMultimediaConverter.from_json(nlohmann::json::parse(object.dump()), options);
    } catch (const Failure&) {
        return {};
    }
}

TEST(MultimediaSamples, JsonLosesNothing) {
    const LibrarySession session;
    const auto files = samples();
    ASSERT_FALSE(files.empty());
    std::size_t written_count = 0;
    for (const auto& file : files) {
        const std::string pdu = content_of(file);
        const std::string expected = written_directly(pdu);
        for (const Door door : {Door::Conversions, Door::Objects}) {
            EXPECT_EQ(written_from_json(pdu, {{}, VZ_CALENDAR_SIZE_TIME_ZONE, door}), expected) << file;
        }
        if (!expected.empty()) ++written_count;
    }
    EXPECT_GE(written_count, 30U);
}

TEST(MultimediaSamples, FilesAreThePartsThatHoldData) {
    const LibrarySession session;
    for (const auto& file : samples()) {
        const std::string pdu = content_of(file);
        std::vector<EmbeddedFile> files;
        try {
            files = kMultimediaConverter.files(pdu, {});
        } catch (const Failure&) {
            continue;
        }
        const ReadRecord<MultimediaItem, kMultimediaRecord> message(pdu);
        std::size_t at = 0;
        for (const MultimediaPart& part : parts_of(*message)) {
            if (is_container(part)) continue;
            ASSERT_LT(at, files.size()) << file;
            EXPECT_EQ(files[at++].data, data_of(part)) << file;
        }
        EXPECT_EQ(at, files.size()) << file;
    }
}

}  // namespace
}  // namespace vzconv
