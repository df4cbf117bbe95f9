#include "vzconv/output_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "vzconv/failure.h"
#include "vzconv/new_file.h"

namespace vzconv {
namespace {

namespace fs = std::filesystem;

std::string content_of(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void put_file(const fs::path& path, std::string_view data) {
    std::ofstream(path, std::ios::binary) << data;
}

// A folder of its own for each test.
class OutputFolderTest : public testing::Test {
protected:
    void SetUp() override {
        const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
        path_ = fs::path("vzconv-folder-" + name);
        fs::remove_all(path_);
    }
    void TearDown() override { fs::remove_all(path_); }

    std::string name() const { return path_.string(); }

    fs::path path_;
};

TEST_F(OutputFolderTest, FoldersAreMadeAndFilesHaveTheirBytes) {
    const std::string data("a\0\r\n\xFF", 5);
    OutputFolder folder(name() + "/in/side");
    EXPECT_EQ(folder.write("a.bin", data), name() + "/in/side/a.bin");
    EXPECT_EQ(folder.write("\xD1\x84.bin", ""), name() + "/in/side/\xD1\x84.bin");
    EXPECT_EQ(content_of(path_ / "in" / "side" / "a.bin"), data);
    EXPECT_EQ(fs::file_size(path_ / "in" / "side" / fs::path(u8"\u0444.bin")), 0U);
    EXPECT_EQ(OutputFolder(name() + "/").write("b", "b"), name() + "/b");
}

TEST_F(OutputFolderTest, NoFileIsWrittenTwice) {
    OutputFolder folder(name());
    EXPECT_EQ(folder.write("a.txt", "1"), name() + "/a.txt");
    EXPECT_EQ(folder.write("A.TXT", "2"), name() + "/A (2).TXT");
    EXPECT_EQ(folder.write("a.txt", "3"), name() + "/a (3).txt");
    EXPECT_EQ(folder.write("a (2).txt", "4"), name() + "/a (2) (2).txt");
    EXPECT_EQ(folder.write("\xC3\xBC", "5"), name() + "/\xC3\xBC");
    EXPECT_EQ(folder.write("\xC3\x9C", "6"), name() + "/\xC3\x9C (2)");
    EXPECT_EQ(content_of(path_ / "a.txt"), "1");
    EXPECT_EQ(content_of(path_ / "A (2).TXT"), "2");
    EXPECT_EQ(content_of(path_ / "a (3).txt"), "3");
}

TEST_F(OutputFolderTest, WhatIsThereBeforeStays) {
    fs::create_directories(path_ / "b.txt");
    put_file(path_ / "A.txt", "old");
    OutputFolder folder(name());
    EXPECT_EQ(folder.write("a.txt", "new"), name() + "/a (2).txt");
    EXPECT_EQ(folder.write("b.txt", "new"), name() + "/b (2).txt");
    put_file(path_ / "c.txt", "made meanwhile");
    EXPECT_EQ(folder.write("c.txt", "new"), name() + "/c (2).txt");
    EXPECT_EQ(content_of(path_ / "A.txt"), "old");
    EXPECT_EQ(content_of(path_ / "c.txt"), "made meanwhile");
}

TEST_F(OutputFolderTest, ALinkIsNotWrittenThrough) {
    fs::create_directories(path_);
    std::error_code error;
    OutputFolder folder(name());
    fs::create_symlink("target.txt", path_ / "link.txt", error);
    if (error) GTEST_SKIP() << "no links here: " << error.message();
    EXPECT_FALSE(write_new_file(path_ / "link.txt", "new"));
    EXPECT_EQ(folder.write("link.txt", "new"), name() + "/link (2).txt");
    EXPECT_FALSE(fs::exists(path_ / "target.txt"));
}

TEST_F(OutputFolderTest, WhatCannotBeMadeIsAFailureWithAReason) {
    put_file(path_, "a file");
    EXPECT_THROW(OutputFolder{name()}, Failure);
    EXPECT_THROW(OutputFolder{name() + "/inside"}, Failure);
    EXPECT_THROW(OutputFolder{""}, Failure);
    fs::remove(path_);
    OutputFolder folder(name());
    fs::remove(path_);
    try {
        folder.write("a.txt", "a");
        FAIL() << "was written";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.what(), name() + "/a.txt cannot be made: No such file or directory");
    }
}

}  // namespace
}  // namespace vzconv
