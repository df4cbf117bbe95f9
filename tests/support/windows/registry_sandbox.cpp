#include "support/registry_sandbox.h"

#include <windows.h>

#include <stdexcept>

namespace vzapi::test {
namespace {

constexpr const wchar_t* kName = L"Software\\vzapi test registry";

HKEY new_key() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kName);
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, kName, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS,
                        nullptr, &key, nullptr) != ERROR_SUCCESS) {
        throw std::runtime_error("no registry key for tests");
    }
    return key;
}

}  // namespace

// The local-machine hive of this process is a key of the user for the time.
struct RegistrySandbox::Redirection {
    explicit Redirection(Store store) : key(new_key()) {
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, key);
        // A deleted key that is still open refuses everything.
        if (store == Store::Unusable) RegDeleteKeyW(HKEY_CURRENT_USER, kName);
    }
    ~Redirection() {
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
        RegCloseKey(key);
        RegDeleteTreeW(HKEY_CURRENT_USER, kName);
    }
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;

    HKEY key;
};

RegistrySandbox::RegistrySandbox(Store store) : redirection_(new Redirection(store)) {}

RegistrySandbox::~RegistrySandbox() {
    delete redirection_;
}

}  // namespace vzapi::test
