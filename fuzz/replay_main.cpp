// Runs a fuzz target over the files of the folders given, so that what a fuzzer once found stays found.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::vector<std::uint8_t> content_of(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::filesystem::path> files_in(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.is_regular_file()) files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

// Every beginning of an input is an input too.
void run_with_all_prefixes(const std::filesystem::path& path) {
    std::printf("%s\n", path.filename().string().c_str());
    std::fflush(stdout);
    const std::vector<std::uint8_t> content = content_of(path);
    for (std::size_t length = 0; length <= content.size(); ++length) {
        const std::vector<std::uint8_t> prefix(content.begin(), content.begin() + std::ptrdiff_t(length));
        LLVMFuzzerTestOneInput(prefix.data(), prefix.size());
    }
}

}  // namespace

int main(int argc, char** argv) {
    std::size_t count = 0;
    for (int i = 1; i < argc; ++i) {
        for (const std::filesystem::path& file : files_in(argv[i])) {
            run_with_all_prefixes(file);
            ++count;
        }
    }
    std::printf("%zu inputs with all their prefixes\n", count);
    return count > 0 ? 0 : 1;
}
