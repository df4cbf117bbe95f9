// Cards of many makers, where a folder of them is at hand: whatever stands in them, reading answers what the
// interface promises, and what was read can be written and read again.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "support/text.h"
#include "vcard/contact_builder.h"
#include "vcard/contact_losses.h"
#include "vzapi/vzapi.h"

namespace {

using namespace vzapi::test;

const std::filesystem::path kFolder = VZAPI_VCARD_CORPUS;

std::string content_of(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::filesystem::path> corpus_files() {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(kFolder)) {
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

// The text as a whole, and from each card in it on.
std::vector<std::string> objects_in(const std::string& text) {
    std::vector<std::string> objects{text};
    for (std::size_t at = text.find("BEGIN:VCARD", 1); at != text.npos;
         at = text.find("BEGIN:VCARD", at + 1)) {
        objects.push_back(text.substr(at));
    }
    return objects;
}

// Writes what was read and reads it again.
void expect_way_back(const ContactItem& item) {
    OwnedText written;
    ASSERT_EQ(ConvertToVersit(VZ_TYPE_CONTACT, &item, &written.data), VZ_OK);
    ContactItem again{};
    again.size = sizeof again;
    EXPECT_EQ(ConvertFromVersit(VZ_TYPE_CONTACT, &written.data, &again), VZ_OK);
    const Contact contact = contact_of(item);
    if (comes_back(contact)) {
        EXPECT_EQ(in_order(contact_of(again)), after_the_trip(contact));
    }
    EXPECT_EQ(FreeConverterData(VZ_TYPE_CONTACT, &again), VZ_OK);
}

ResultCode convert(std::string text) {
    const VersitData in = data_of(text);
    ContactItem item{};
    item.size = sizeof item;
    const ResultCode result = ConvertFromVersit(VZ_TYPE_CONTACT, &in, &item);
    EXPECT_TRUE(result == VZ_OK || result == VZ_ERR_INVALID_TEXT) << result;
    if (result == VZ_OK) expect_way_back(item);
    EXPECT_EQ(FreeConverterData(VZ_TYPE_CONTACT, &item), VZ_OK);
    return result;
}

TEST(CardCorpus, EveryFileIsReadOrRefused) {
    const AnnouncedVersion announced(16);
    if (!std::filesystem::is_directory(kFolder)) GTEST_SKIP() << "no corpus at hand";
    std::map<ResultCode, int> results;
    const std::vector<std::filesystem::path> files = corpus_files();
    for (const std::filesystem::path& file : files) {
        SCOPED_TRACE(file.filename().string());
        const std::string content = content_of(file);
        for (const std::string& text : {content, with_line_ends(content)}) {
            for (const std::string& object : objects_in(text)) ++results[convert(object)];
        }
    }
    ASSERT_FALSE(files.empty());
    for (const auto& [code, count] : results) std::printf("0x%08X: %d objects\n", code, count);
    EXPECT_GT(results[VZ_OK], 0);
}

}  // namespace
