// Calendars of many makers, where folders of them are at hand: whatever stands in them, reading answers what
// the interface promises for every version of the record, and what was read can be written and read again.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "support/text.h"
#include "vzapi/vzapi.h"

namespace {

using namespace vzapi::test;

constexpr std::string_view kFolders[] = {"vcalendar", "icalendar"};
constexpr std::string_view kBegin = "BEGIN:VCALENDAR";

// The profile that gets version 2.0.
struct Profile {
    std::uint64_t option1;
    std::uint32_t option2;
    std::uint64_t option3;
};
constexpr Profile kProfiles[] = {{0, 0, 0}, {VZ_PROFILE_20, VZ_PROFILE_20_CALENDAR_2, 1}};

std::string content_of(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::filesystem::path> files_of(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.is_regular_file()) files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

// `text` with CR LF at the end of each line, as interfaces get it.
std::string with_line_ends(const std::string& text) {
    std::string result;
    for (const char unit : text) {
        if (unit == '\n' && !result.ends_with('\r')) result += '\r';
        result += unit;
    }
    return result;
}

// The text as a whole, from each calendar in it on, and each entry in a calendar of its own.
std::vector<std::string> objects_in(const std::string& text) {
    std::vector<std::string> objects{text};
    for (std::size_t at = text.find(kBegin, 1); at != text.npos; at = text.find(kBegin, at + 1)) {
        objects.push_back(text.substr(at));
    }
    const std::size_t version = text.find("VERSION:");
    if (version == text.npos) return objects;
    std::string head(kBegin);
    head.append("\r\n").append(text, version, 11).append("\r\n");
    for (const std::string_view entry : {"BEGIN:VEVENT", "BEGIN:VTODO"}) {
        for (std::size_t at = text.find(entry); at != text.npos; at = text.find(entry, at + 1)) {
            objects.push_back(head + text.substr(at));
        }
    }
    return objects;
}

CalendarItem empty_item(std::uint32_t size) {
    CalendarItem item;
    std::memset(&item, 0, sizeof item);
    item.size = size;
    return item;
}

// Writes what was read, in both versions, and reads it again.
void expect_way_back(const CalendarItem& item) {
    for (const Profile& profile : kProfiles) {
        OwnedText written;
        ASSERT_EQ(ConvertToVersit2(profile.option1, profile.option2, profile.option3, VZ_TYPE_CALENDAR, &item,
                                   &written.data),
                  VZ_OK);
        CalendarItem again = empty_item(item.size);
        EXPECT_EQ(ConvertFromVersit(VZ_TYPE_CALENDAR, &written.data, &again), VZ_OK);
        EXPECT_EQ(again.start.year, item.start.year);
        EXPECT_EQ(again.repeatKind, item.repeatKind);
        EXPECT_EQ(FreeConverterData(VZ_TYPE_CALENDAR, &again), VZ_OK);
    }
}

ResultCode convert(std::string text) {
    const VersitData in = data_of(text);
    ResultCode result = VZ_OK;
    for (const std::uint32_t size : {VZ_CALENDAR_SIZE_BASE, VZ_CALENDAR_SIZE_EXCEPTIONS,
                                     VZ_CALENDAR_SIZE_WIDE_REPEAT, VZ_CALENDAR_SIZE_TIME_ZONE}) {
        CalendarItem item = empty_item(size);
        result = ConvertFromVersit(VZ_TYPE_CALENDAR, &in, &item);
        EXPECT_TRUE(result == VZ_OK || result == VZ_ERR_INVALID_TEXT) << result;
        if (result == VZ_OK) expect_way_back(item);
        EXPECT_EQ(FreeConverterData(VZ_TYPE_CALENDAR, &item), VZ_OK);
    }
    return result;
}

TEST(CalendarCorpus, EveryFileIsReadOrRefused) {
    const AnnouncedVersion announced(VZ_INTERFACE_VERSION);
    const std::filesystem::path corpus = VZAPI_CALENDAR_CORPUS;
    if (!std::filesystem::is_directory(corpus)) GTEST_SKIP() << "no corpus at hand";
    for (const std::string_view folder : kFolders) {
        std::map<ResultCode, int> results;
        const std::vector<std::filesystem::path> files = files_of(corpus / folder);
        for (const std::filesystem::path& file : files) {
            SCOPED_TRACE(file.filename().string());
            const std::string content = content_of(file);
            for (const std::string& text : {content, with_line_ends(content)}) {
                for (const std::string& object : objects_in(text)) ++results[convert(object)];
            }
        }
        ASSERT_FALSE(files.empty());
        for (const auto& [code, count] : results) {
            std::printf("%s: 0x%08X: %d objects\n", std::string(folder).c_str(), code, count);
        }
        EXPECT_GT(results[VZ_OK], 0);
    }
}

}  // namespace
