#include "vzconv/input_files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "vzconv/failure.h"

namespace vzconv {
namespace {

namespace fs = std::filesystem;

class Folder {
public:
    Folder() : path_(fs::path(testing::TempDir()) / "vzconv_input_files") {
        fs::remove_all(path_);
        fs::create_directory(path_);
    }
    ~Folder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    void add_file(const char8_t* name) const { std::ofstream(path_ / name) << "a"; }
    void add_folder(const char8_t* name) const { fs::create_directory(path_ / name); }
    std::string name() const {
        const std::u8string text = path_.u8string();
        return {text.begin(), text.end()};
    }

private:
    fs::path path_;
};

TEST(InputFiles, AFolderStandsForItsFilesInTheOrderOfTheirNames) {
    const Folder folder;
    folder.add_file(u8"b.vmg");
    folder.add_file(u8"\u00fc.vmg");
    folder.add_file(u8"a b.vmg");
    folder.add_folder(u8"0");
    const std::string name = folder.name();
    EXPECT_EQ(input_files(name),
              (std::vector<std::string>{name + "/a b.vmg", name + "/b.vmg", name + "/\xC3\xBC.vmg"}));
    EXPECT_EQ(input_files(name + "/"), input_files(name));
}

TEST(InputFiles, AFolderWithoutFilesIsAFailure) {
    const Folder folder;
    folder.add_folder(u8"0");
    EXPECT_THROW(input_files(folder.name()), Failure);
}

TEST(InputFiles, AnyOtherNameStandsForItself) {
    for (const char* name : {"-", "no such file", ""})
        EXPECT_EQ(input_files(name), std::vector<std::string>{name});
}

}  // namespace
}  // namespace vzconv
