#include "support/registry_sandbox.h"

#include <cstdlib>  // mkdtemp

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "support/environment.h"

namespace vzapi::test {
namespace {

namespace fs = std::filesystem;

fs::path new_folder() {
    std::string name = fs::temp_directory_path() / "vzapi-registry-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    return name;
}

// Nothing can be made below a file, not even by root.
fs::path folder_below_file(const fs::path& folder) {
    std::ofstream(folder / "file") << "in the way";
    return folder / "file" / "store";
}

}  // namespace

struct RegistrySandbox::Redirection {
    explicit Redirection(Store store)
        : folder(new_folder()),
          variable("VZAPI_REGISTRY", store == Store::Empty ? folder : folder_below_file(folder)) {}
    ~Redirection() {
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;

    fs::path folder;
    EnvironmentVariable variable;
};

RegistrySandbox::RegistrySandbox(Store store) : redirection_(new Redirection(store)) {}

RegistrySandbox::~RegistrySandbox() {
    delete redirection_;
}

}  // namespace vzapi::test
