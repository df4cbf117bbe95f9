// Messages of many makers, where a folder of them is at hand: whatever stands in them, reading answers what
// the interface promises, and what was read can be written and read again.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "vmessage/message_builder.h"
#include "vmessage/message_losses.h"

namespace {

using namespace vzapi::test;

const std::filesystem::path kFolder = VZAPI_VMESSAGE_CORPUS;

std::vector<std::filesystem::path> corpus_files() {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(kFolder)) {
        if (entry.is_regular_file()) files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

// The bytes of a file as units, each byte one: their shape is what counts here.
std::u16string units_in(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::u16string text;
    for (auto byte = std::istreambuf_iterator<char>(file); byte != std::istreambuf_iterator<char>(); ++byte) {
        text.push_back(static_cast<unsigned char>(*byte));
    }
    return text;
}

std::u16string with_line_ends(const std::u16string& text) {
    std::u16string result;
    for (const char16_t unit : text) {
        if (unit == u'\n' && !result.ends_with(u'\r')) result += u'\r';
        result += unit;
    }
    return result;
}

ResultCode convert(const std::u16string& text) {
    OwnedMessage message;
    const ResultCode result = message.read(text);
    EXPECT_TRUE(result == VZ_OK || result == VZ_ERR_INVALID_TEXT) << result;
    if (result != VZ_OK) return result;
    const Message read = message_of(message.item);
    for (const Form form : kForms) {
        const Message back = read_message(written(message.item, form));
        if (comes_back(read, form)) {
            EXPECT_EQ(back, after_the_trip(read, form));
        }
    }
    return result;
}

TEST(MessageCorpus, EveryFileIsReadOrRefused) {
    if (!std::filesystem::is_directory(kFolder)) GTEST_SKIP() << "no corpus at hand";
    std::map<ResultCode, int> results;
    const std::vector<std::filesystem::path> files = corpus_files();
    for (const std::filesystem::path& file : files) {
        SCOPED_TRACE(file.filename().string());
        const std::u16string units = units_in(file);
        for (const std::u16string& text : {units, with_line_ends(units)}) ++results[convert(text)];
    }
    ASSERT_FALSE(files.empty());
    for (const auto& [code, count] : results) std::printf("0x%08X: %d messages\n", code, count);
    EXPECT_GT(results[VZ_OK], 0);
}

}  // namespace
