// Messages from many makers, when they are there: all are read, and what is written of them reads the same.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "mms/multimedia_text.h"
#include "vzapi/odcapi.h"

namespace vzapi::test {
namespace {

std::vector<std::filesystem::path> corpus_files() {
    const std::filesystem::path folder(VZAPI_MMS_CORPUS);
    std::vector<std::filesystem::path> files;
    std::error_code error;
    for (const auto& each : std::filesystem::directory_iterator(folder, error)) files.push_back(each.path());
    std::sort(files.begin(), files.end());
    return files;
}

TEST(MultimediaCorpus, EveryMessageIsReadAndReadsTheSameWhenWritten) {
    const auto files = corpus_files();
    if (files.empty()) GTEST_SKIP() << "no messages in " << VZAPI_MMS_CORPUS;
    for (const auto& file : files) {
        std::ifstream in(file, std::ios::binary);
        const std::string pdu{std::istreambuf_iterator<char>(in), {}};
        const ReadMultimedia read(pdu);
        ASSERT_EQ(read.result(), VZ_OK) << file;
        EXPECT_EQ(read.item().flags, std::uint32_t{VZ_MMS_NO_PRESENTATION}) << file;
        const std::string again = written(read.item());
        ASSERT_FALSE(again.empty()) << file;
        EXPECT_EQ(shown(ReadMultimedia(again).item()), shown(read.item())) << file;
    }
}

}  // namespace
}  // namespace vzapi::test
