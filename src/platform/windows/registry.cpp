#include "platform/registry.h"

#include <windows.h>

#include <limits>

namespace vzapi::platform {
namespace {

constexpr REGSAM kAccess = KEY_READ | KEY_WRITE;

// Zero-terminated, as the system wants its names.
class Name {
public:
    explicit Name(std::u16string_view text) : text_(text) {}

    [[nodiscard]] const wchar_t* get() const { return reinterpret_cast<const wchar_t*>(text_.c_str()); }
    // An empty name means another thing to each of the system's functions, and one with a zero inside is cut
    // off.
    [[nodiscard]] bool is_usable() const { return !text_.empty() && text_.find(u'\0') == text_.npos; }

private:
    std::u16string text_;
};

Name key_name(std::u16string_view key) {
    if (!key.empty() && key.back() == u'\\') key.remove_suffix(1);
    return Name(key);
}

class Key {
public:
    Key() = default;
    ~Key() {
        if (key_ != nullptr) RegCloseKey(key_);
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;

    bool open(std::u16string_view key, REGSAM access) {
        const Name name = key_name(key);
        return name.is_usable() &&
               RegOpenKeyExW(HKEY_LOCAL_MACHINE, name.get(), 0, access, &key_) == ERROR_SUCCESS;
    }
    bool create(std::u16string_view key) {
        const Name name = key_name(key);
        return name.is_usable() &&
               RegCreateKeyExW(HKEY_LOCAL_MACHINE, name.get(), 0, nullptr, REG_OPTION_NON_VOLATILE, kAccess,
                               nullptr, &key_, nullptr) == ERROR_SUCCESS;
    }
    [[nodiscard]] HKEY get() const { return key_; }

private:
    HKEY key_ = nullptr;
};

// Runs `action`; what it throws counts as "could not be done".
template <class Action>
bool succeeds(Action action) noexcept {
    try {
        return action();
    } catch (...) {
        return false;
    }
}

}  // namespace

bool registry_create_key(std::u16string_view key) noexcept {
    return succeeds([&] { return Key().create(key); });
}

bool registry_has_key(std::u16string_view key) noexcept {
    return succeeds([&] { return Key().open(key, KEY_READ); });
}

bool registry_write(std::u16string_view key, std::u16string_view name, std::u16string_view value) noexcept {
    return succeeds([&] {
        Key opened;
        const Name value_name(name);
        const std::u16string text(value);
        const std::size_t bytes = (text.size() + 1) * sizeof(char16_t);
        return bytes <= std::numeric_limits<DWORD>::max() && value_name.is_usable() &&
               opened.open(key, kAccess) &&
               RegSetValueExW(opened.get(), value_name.get(), 0, REG_SZ,
                              reinterpret_cast<const BYTE*>(text.c_str()),
                              static_cast<DWORD>(bytes)) == ERROR_SUCCESS;
    });
}

bool registry_delete_value(std::u16string_view key, std::u16string_view name) noexcept {
    return succeeds([&] {
        Key opened;
        const Name value_name(name);
        return value_name.is_usable() && opened.open(key, kAccess) &&
               RegDeleteValueW(opened.get(), value_name.get()) == ERROR_SUCCESS;
    });
}

std::optional<std::u16string> registry_read(std::u16string_view key, std::u16string_view name) {
    Key opened;
    const Name value_name(name);
    if (!value_name.is_usable() || !opened.open(key, KEY_READ)) return std::nullopt;
    std::u16string value(256, u'\0');
    for (;;) {
        auto bytes = static_cast<DWORD>(value.size() * sizeof(char16_t));
        const LSTATUS status = RegGetValueW(opened.get(), nullptr, value_name.get(), RRF_RT_REG_SZ, nullptr,
                                            value.data(), &bytes);
        if (status == ERROR_SUCCESS) {
            value.resize(bytes / sizeof(char16_t));
            if (!value.empty() && value.back() == u'\0') value.pop_back();
            return value;
        }
        if (status != ERROR_MORE_DATA) return std::nullopt;
        value.resize(value.size() * 2);
    }
}

}  // namespace vzapi::platform
