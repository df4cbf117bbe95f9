#include "mms/shifted_charsets.h"

#include <cstddef>
#include <cstdint>

#include "platform/code_page.h"

namespace vzapi::mms {
namespace {

constexpr char16_t kReplacement = 0xFFFD;

enum class Set : std::uint8_t {
    Ascii,
    Katakana,  // JIS X 0201
    Jis0208,
    Gb2312,
    Ksc5601,
    Other,  // of two bytes a character
};

constexpr platform::SystemCharset kShiftJis = {932, "CP932"};
constexpr platform::SystemCharset kChinese = {936, "CP936"};
constexpr platform::SystemCharset kKorean = {949, "CP949"};

// Collects the bytes of neighbouring characters in one code page, so that each run is converted at once.
class Rewriter {
public:
    explicit Rewriter(std::u16string& out) : out_(out) {}

    void ascii(std::uint8_t byte) {
        flush();
        out_ += static_cast<char16_t>(byte);
    }
    void bad() {
        flush();
        out_ += kReplacement;
    }
    void katakana(std::uint8_t byte) {
        run_in(kShiftJis);
        add(byte | 0x80U);
    }
    // A character of a set with two bytes, both 0x21 to 0x7E.
    void pair(Set set, std::uint8_t first, std::uint8_t second) {
        switch (set) {
            case Set::Jis0208:
                return jis(first, second);
            case Set::Gb2312:
                run_in(kChinese);
                break;
            case Set::Ksc5601:
                run_in(kKorean);
                break;
            default:
                return bad();
        }
        add(first | 0x80U);
        add(second | 0x80U);
    }
    void flush() {
        if (run_.empty()) return;
        if (!platform::append_utf16(*charset_, run_, out_)) out_.append(run_.size() / 2, kReplacement);
        run_.clear();
    }

private:
    void run_in(const platform::SystemCharset& charset) {
        if (charset_ != &charset) flush();
        charset_ = &charset;
    }
    void add(std::uint32_t byte) { run_ += static_cast<char>(byte); }

    // Two rows of 94 characters share one lead byte of Shift JIS.
    void jis(std::uint8_t row, std::uint8_t column) {
        run_in(kShiftJis);
        const std::uint32_t lead = (row - 0x21U) / 2 + 0x81;
        add(lead > 0x9F ? lead + 0x40 : lead);
        const std::uint32_t in_first = column + (column < 0x60 ? 0x1FU : 0x20U);
        add(row % 2 != 0 ? in_first : column + 0x7EU);
    }

    std::u16string& out_;
    std::string run_;
    const platform::SystemCharset* charset_ = &kShiftJis;
};

std::uint8_t byte_at(std::string_view bytes, std::size_t at) {
    return at < bytes.size() ? static_cast<std::uint8_t>(bytes[at]) : std::uint8_t{0};
}

bool is_graphic(std::uint32_t byte) {
    return byte >= 0x21 && byte <= 0x7E;
}

// What stands behind ESC, and the set that it puts in one of the two places.
struct Designation {
    std::string_view sequence;
    bool is_shifted;  // for what stands between SO and SI
    Set set;
};

constexpr Designation kDesignations[] = {
    {"(B", false, Set::Ascii},   {"(J", false, Set::Ascii},    {"(I", false, Set::Katakana},
    {"$@", false, Set::Jis0208}, {"$B", false, Set::Jis0208},  {"$(D", false, Set::Other},
    {"$A", false, Set::Gb2312},  {"$(C", false, Set::Ksc5601}, {"$)C", true, Set::Ksc5601},
    {"$)A", true, Set::Gb2312},  {"$)E", true, Set::Other},    {"$)G", true, Set::Other},
};

constexpr std::uint8_t kShiftOut = 0x0E;
constexpr std::uint8_t kShiftIn = 0x0F;
constexpr std::uint8_t kEscape = 0x1B;

class Iso2022Reader {
public:
    Iso2022Reader(std::string_view bytes, std::u16string& out) : bytes_(bytes), out_(out) {}

    void read() {
        while (at_ < bytes_.size()) {
            const std::uint8_t byte = byte_at(bytes_, at_);
            if (byte == kEscape && designate()) continue;
            ++at_;
            if (byte == kShiftOut || byte == kShiftIn) {
                is_shifted_ = byte == kShiftOut;
            } else {
                character(byte);
            }
        }
        out_.flush();
    }

private:
    bool designate() {
        for (const Designation& each : kDesignations) {
            if (!bytes_.substr(at_ + 1).starts_with(each.sequence)) continue;
            (each.is_shifted ? shifted_ : plain_) = each.set;
            at_ += 1 + each.sequence.size();
            return true;
        }
        return false;
    }

    void character(std::uint8_t byte) {
        if (byte == '\n') {  // a line begins in ASCII
            plain_ = Set::Ascii;
            is_shifted_ = false;
        }
        const Set set = is_shifted_ ? shifted_ : plain_;
        const std::uint8_t second = byte_at(bytes_, at_);
        if (byte < 0x80 && (set == Set::Ascii || !is_graphic(byte))) {
            out_.ascii(byte);
        } else if (byte < 0x80 && set == Set::Katakana) {
            out_.katakana(byte);
        } else if (is_graphic(byte) && is_graphic(second)) {
            ++at_;
            out_.pair(set, byte, second);
        } else {
            out_.bad();
        }
    }

    std::string_view bytes_;
    std::size_t at_ = 0;
    Set plain_ = Set::Ascii;
    Set shifted_ = Set::Ksc5601;
    bool is_shifted_ = false;
    Rewriter out_;
};

}  // namespace

void append_iso_2022(std::string_view bytes, std::u16string& out) {
    Iso2022Reader(bytes, out).read();
}

void append_hz(std::string_view bytes, std::u16string& out) {
    Rewriter rewriter(out);
    bool is_chinese = false;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const std::uint8_t byte = byte_at(bytes, at);
        const std::uint8_t next = byte_at(bytes, at + 1);
        if (byte == '~' && (next == '{' || next == '}' || next == '~' || next == '\n')) {
            if (next == '~') rewriter.ascii(byte);
            if (next == '{' || next == '}') is_chinese = next == '{';
            ++at;
        } else if (byte < 0x80 && (!is_chinese || !is_graphic(byte))) {
            if (byte == '\n') is_chinese = false;
            rewriter.ascii(byte);
        } else if (is_graphic(byte) && is_graphic(next)) {
            rewriter.pair(Set::Gb2312, byte, next);
            ++at;
        } else {
            rewriter.bad();
        }
    }
    rewriter.flush();
}

void append_euc_jp(std::string_view bytes, std::u16string& out) {
    constexpr std::uint8_t kKatakana = 0x8E;
    constexpr std::uint8_t kJis0212 = 0x8F;
    Rewriter rewriter(out);
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const std::uint8_t byte = byte_at(bytes, at);
        const std::uint8_t next = byte_at(bytes, at + 1);
        if (byte < 0x80) {
            rewriter.ascii(byte);
        } else if (byte == kKatakana && next >= 0xA1 && next <= 0xDF) {
            rewriter.katakana(next);
            ++at;
        } else if (is_graphic(byte - 0x80U) && next >= 0xA1 && next <= 0xFE) {
            rewriter.pair(Set::Jis0208, byte & 0x7FU, next & 0x7FU);
            ++at;
        } else {
            if (byte == kJis0212 && next >= 0xA1 && byte_at(bytes, at + 2) >= 0xA1) at += 2;
            rewriter.bad();
        }
    }
    rewriter.flush();
}

}  // namespace vzapi::mms
