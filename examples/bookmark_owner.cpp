// Writes a bookmark from a record of the program's own and reads it back, with owners that release what the
// library allocates, also when an exception passes by.
#include <vzapi/vzapi.h>

#include <cstdint>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {

class ConversionError : public std::runtime_error {
public:
    explicit ConversionError(ResultCode code) : std::runtime_error("conversion failed"), code_(code) {}
    [[nodiscard]] ResultCode code() const noexcept { return code_; }

private:
    ResultCode code_;
};

void require_ok(ResultCode code) {
    if (code != VZ_OK) throw ConversionError(code);
}

// The library announced to, for as long as this lives.
class Session {
public:
    Session() { VZAPI_Initialize(VZ_INTERFACE_VERSION); }
    ~Session() { VZAPI_Terminate(); }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
};

// Versit text that the library wrote from `record`.
class WrittenText {
public:
    explicit WrittenText(const BookmarkItem& record) {
        require_ok(ConvertToVersit(VZ_TYPE_BOOKMARK, &record, &data_));
    }
    ~WrittenText() { FreeVersitData(&data_); }
    WrittenText(const WrittenText&) = delete;
    WrittenText& operator=(const WrittenText&) = delete;

    [[nodiscard]] const VersitData& data() const noexcept { return data_; }
    [[nodiscard]] std::string_view bytes() const noexcept {
        return {static_cast<const char*>(data_.text), data_.length};
    }

private:
    VersitData data_{sizeof(VersitData), 0, 0, nullptr};
};

// A record that the library filled from `text`.
class ReadBookmark {
public:
    explicit ReadBookmark(const VersitData& text) {
        const ResultCode code = ConvertFromVersit(VZ_TYPE_BOOKMARK, &text, &record_);
        if (code != VZ_OK) {
            FreeConverterData(VZ_TYPE_BOOKMARK, &record_);
            throw ConversionError(code);
        }
    }
    ~ReadBookmark() { FreeConverterData(VZ_TYPE_BOOKMARK, &record_); }
    ReadBookmark(const ReadBookmark&) = delete;
    ReadBookmark& operator=(const ReadBookmark&) = delete;

    // The strings of the record; empty for those that are absent.
    [[nodiscard]] std::u16string_view title() const noexcept { return view(record_.title); }
    [[nodiscard]] std::u16string_view url() const noexcept { return view(record_.url); }

private:
    static std::u16string_view view(const char16_t* text) noexcept {
        return text == nullptr ? std::u16string_view{} : std::u16string_view(text);
    }

    BookmarkItem record_{sizeof(BookmarkItem), nullptr, nullptr, nullptr};
};

// The record reads from strings that stay the program's.
BookmarkItem record_of(std::u16string& title, std::u16string& url) {
    return {sizeof(BookmarkItem), title.data(), url.data(), nullptr};
}

void round_trip() {
    std::u16string title = u"Caf\u00E9 Zen\u00EDt \U0001F375";
    std::u16string url = u"http://cafe.example/menu";

    const WrittenText text(record_of(title, url));
    std::cout << text.bytes();

    const ReadBookmark bookmark(text.data());
    std::cout << "title: " << (bookmark.title() == title ? "unchanged" : "changed") << '\n';
    std::cout << "url: " << (bookmark.url() == url ? "unchanged" : "changed") << '\n';
}

}  // namespace

int main() {
    try {
        const Session session;
        round_trip();
    } catch (const ConversionError& error) {
        std::cerr << error.what() << ": 0x" << std::hex << error.code() << '\n';
        return 1;
    }
    return 0;
}
